#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/project.h"

namespace tarnvik {

/// Factors of the whole numbers in a project file.
inline constexpr float file_time_scale = 100;       ///< times, receiver rows, shot rows, thicknesses
inline constexpr double file_refractor_scale = 10;  ///< intercepts and critical distances

/// What a project file lacks.
struct ReadingReport {
    std::string Refusal;  ///< why the bytes are no project at all, in words for the user; empty for a project
    std::string Missing;  ///< what was missing or no number, likewise; empty for a file that is whole
    bool Whole() const { return Refusal.empty() && Missing.empty(); }
};

/// What the user is told of a file that is no project.
std::string No_Project_Text(const std::string& path, const ReadingReport& report);

/// Takes the bytes of a TV5 file into the project and allocates its arrays. Tolerant: what cannot be read
/// keeps the value it had, and the report tells what was missing. Of bytes that are no project at all the
/// report tells so, for the caller to refuse; counts that such a file cannot hold leave 0 shots. From the
/// place where a file is cut, times, receiver rows, shot rows and refractor values repeat the last number
/// read, velocities stay 0, and TotalTime ends one below what it was. Names of files other than SuFile are
/// not touched.
ReadingReport Parse_Project(std::string_view bytes, Project& project);

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

/// Sets ProjectDir (everything up to the last separator) and ProjectName (the rest without its last four
/// characters). An empty path changes nothing.
void Split_Project_Path(Project& project, const std::string& path);

}  // namespace tarnvik
