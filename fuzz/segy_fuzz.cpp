#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "processing/instruments/field_reader.h"
#include "processing/instruments/geometry_list.h"

// What surrounds segyio: the input is the binary header and all behind it, below a text header. The first
// byte chooses its letters, or the road on which the kind of file is found, or the reader of a table of
// places.

using namespace tarnvik;

namespace {

void Read_All(FieldReader& reader) {
    const FieldFile& file = reader.File();
    if (!file.Usable && file.Faults.empty()) std::abort();
    std::vector<float> samples;
    for (std::int64_t trace = 1; file.Usable && trace <= file.Traces; ++trace) {
        Places_In_Words(reader.Header(trace).Words);
        reader.Samples(trace, samples);
        if (static_cast<int>(samples.size()) != file.Samples) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const int road = data[0] % 8;
    if (road == 0) {
        std::vector<bool> used;
        const GeometryList list = Read_Geometry_List(bytes);
        list.Places_Of(list.Rows_Of("a.dat", 1), 1, used);
        return 0;
    }
    if (road > 2) {
        constexpr std::size_t text_bytes = 3200;
        bytes.insert(0, std::string(text_bytes, road % 2 == 0 ? 'A' : '\x40'));
    }
    MemorySource source(bytes);
    if (road == 1) {
        Read_All(*Open_Field_File(source, "input"));
    } else {
        Read_All(*Open_Segy_File(source));
    }
    return 0;
}
