// Files of picks of other programs: whatever the bytes are, they are a line that can be filed, or refused.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/project_file.h"
#include "output/imports/pick_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnvik;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const ImportedLine& line :
         {Read_Plotrefa(bytes, std::nullopt), Read_Plotrefa(bytes, std::string(bytes)),
          Read_Rayfract(bytes, 2.5), Read_Unified(bytes)}) {
        Project project;
        if (Project_Of_Line(line, project).Refusal.empty()) Project_Bytes(project);
    }
    return 0;
}
