// Bytes of any kind as project file, older project file and settings file: nothing may crash, and what is
// written from what was read must be read back with the same shape.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/profile_text.h"
#include "core/project_file.h"
#include "core/tv4_file.h"

namespace {

/// Larger lines only cost time, they take no other path.
constexpr std::int64_t writing_limit = 1000;

void Require(bool condition) {
    if (!condition) std::abort();
}

void Read_Write_Read(std::string_view bytes) {
    tarnvik::Project project;
    Parse_Project(bytes, project);
    const std::int64_t picks = std::int64_t{project.NbShots} * project.NbReceivers;
    const bool small = picks <= writing_limit && project.NbShots + project.NbReceivers <= writing_limit;
    if (!project.ShotTimes.Has(0, 0) || !small) return;
    Latest_Pick(project);
    // Numbers of 32 bits may be read where the file has room for 16 only.
    if (Find_Oversized_Value(project)) return;
    tarnvik::Project again;
    Parse_Project(Project_Bytes(project), again);
    Require(again.NbShots == project.NbShots && again.NbReceivers == project.NbReceivers);
    Require(again.VelocityA == project.VelocityA && again.VelocityB == project.VelocityB);
    Require(again.InterceptA == project.InterceptA && again.ShotThickness == project.ShotThickness);
    // Without shots there is no last number for the name to stand behind.
    Require(again.SuFile == project.SuFile || project.NbShots == 0);
    if (picks > 0) tarnvik::Convert_TV4(bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Read_Write_Read(bytes);
    tarnvik::ProfileText settings(bytes);
    settings.Set("Color", "Line  width", bytes.substr(0, 8));
    Require(settings.Value("Color", "Line  width").has_value());
    Require(tarnvik::ProfileText(settings.Text()).Text() == settings.Text());
    return 0;
}
