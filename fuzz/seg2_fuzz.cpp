#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "processing/instruments/field_reader.h"
#include "processing/instruments/trace_places.h"

// Reader of SEG-2 files: all headers and samples of what it calls usable. The marker is put in front, so that
// the input goes there.

using namespace tarnvik;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    bytes.insert(0, (data[0] & 1) != 0 ? "\x3A\x55" : "\x55\x3A");
    MemorySource source(bytes);
    const auto reader = Open_Seg2_File(source);
    const FieldFile& file = reader->File();
    if (!file.Usable && file.Faults.empty()) std::abort();
    std::vector<float> samples;
    for (std::int64_t trace = 1; file.Usable && trace <= file.Traces; ++trace) {
        FieldHeader header = reader->Header(trace);
        PlaceSteps steps;
        Refine(steps, header.Places);
        Put_Places(header.Words, header.Places, steps);
        reader->Samples(trace, samples);
        if (static_cast<int>(samples.size()) != file.Samples) std::abort();
    }
    return 0;
}
