#pragma once

#include <string>

namespace tarnvik {

class Session;

// Conditions that commands of several tables share, each with the reason that the user is told; empty while
// the command can be run.

/// No line is in memory.
std::string Without_Project(const Session& session);
/// No line is in memory, or its reciprocal time is not known.
std::string Without_Total_Time(const Session& session);
/// The line names no field records, whether they are found or not.
std::string Without_Records(const Session& session);
/// No line is in memory, or it names no field records.
std::string Without_Line_Or_Records(const Session& session);
/// No field records are on the record page.
std::string Without_Shown_Records(const Session& session);

}  // namespace tarnvik
