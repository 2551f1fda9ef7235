#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/project.h"

namespace tarnvik {

/// Factors of the whole numbers in a project file.
inline constexpr float file_time_scale = 100;       ///< times, receiver rows, shot rows, thicknesses
inline constexpr double file_refractor_scale = 10;  ///< intercepts and critical distances

/// Takes the bytes of a TV5 file into the project and allocates its arrays. Never refuses: what cannot be
/// read keeps the value it had. From the place where a file is cut, times, receiver rows, shot rows and
/// refractor values repeat the last number read, velocities stay 0, and TotalTime ends one below what it was.
/// Names of files other than SuFile are not touched.
void Parse_Project(std::string_view bytes, Project& project);

/// A value that the file has no room for: it holds whole numbers of 16 bits.
struct OversizedValue {
    std::string Name;  ///< as the user reads it
    int Shot = 0;
    int Layer = 0;
    double Value = 0;
    double Limit = 0;  ///< largest value that fits
};
std::optional<OversizedValue> Find_Oversized_Value(const Project& project);

/// The bytes of the TV5 file of a project, its TotalTime raised by 1 (the one in memory stays). Arrays that
/// are smaller than the counts, or a value that does not fit, are a Fault.
std::string Project_Bytes(const Project& project);

/// A number that changes with everything that is filed but TotalTime, which each save raises by itself. 0 for
/// a project that cannot be filed.
std::size_t Project_Fingerprint(const Project& project);

/// Sets ProjectDir (everything up to the last separator) and ProjectName (the rest without its last four
/// characters). An empty path changes nothing.
void Split_Project_Path(Project& project, const std::string& path);

}  // namespace tarnvik
