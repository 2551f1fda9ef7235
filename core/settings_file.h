#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Name of the settings file; its folder is the caller's choice.
inline constexpr const char* settings_file_name = "Tarnvik32.INI";

/// Key of section "Tools" that names a copy of a line with changes that are not saved, for the tools that
/// print it; empty when the project file itself holds all.
inline constexpr const char* unsaved_line_key = "Unsaved";

/// Reads the user settings and the values of the project block that the file holds (CurrentFile, ProjectDir,
/// GeoSpace, NbReceivers, NbShots). Missing file, section or key: the default, no message. A number that does
/// not fit its place or an unreadable file: a message, what was read stays, the rest has its default.
void Read_Settings(Workspace& workspace, Ports& ports, const std::string& path);

/// Writes all settings in their fixed order; other keys of the file stay. The file's folder is made when it
/// is missing. A failure is told to the user and answered by false.
bool Write_Settings(const Workspace& workspace, Ports& ports, const std::string& path);

/// Writes one key at once, for external tools that read it. Answers the reason of a failure.
std::string Write_Setting(const std::string& path, const std::string& section, const std::string& key,
                          const std::string& value);

/// One key; empty when it is not there.
std::string Read_Setting(const std::string& path, const std::string& section, const std::string& key);

/// Menu `backup`: asks whether backup copies are wanted.
void Ask_For_Backup_Copies(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
