// Bytes of any kind as the GRM file of a short line: nothing may crash, and what counts as good comes back as
// it was once it is written.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/grm_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnvik;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const int receivers : {0, 1, 3}) {
        const GrmReading reading = Parse_Grm(bytes, receivers);
        if (!reading.Good) continue;
        // What a text cannot hold in its digits is lost with the first writing alone.
        const std::string written = Grm_Bytes(reading.Content, receivers);
        const GrmReading again = Parse_Grm(written, receivers);
        if (!again.Good || !again.Remark.empty() || again.Content.GrmXY != reading.Content.GrmXY)
            std::abort();
        if (Grm_Bytes(again.Content, receivers) != written) std::abort();
    }
    return 0;
}
