#pragma once

#include <string>
#include <vector>

namespace tarnvik {

class Session;

/// File menu "open": file dialog, project, curves, field records, then the depth dialog.
void Open_Travel_Time(Session& session);
/// Toolbar key "open".
void Open_From_Toolbar(Session& session);
/// A recent file by its place in the list, 1 to 5.
void Open_Recent_File(Session& session, int place);
/// A file dropped onto the window: a project is opened, records are loaded; for any other file the status
/// field says what can be dropped.
void Open_Dropped_File(Session& session, const std::string& path);
/// Several files, of which the first counts; files of a seismograph, or several SU files, are converted to
/// one SU file, with which a new profile can begin.
void Open_Dropped_Files(Session& session, const std::vector<std::string>& paths);
/// Saves under the name in CurrentFile; does nothing without one.
void Save_Data(Session& session);
void Save_Data_As(Session& session);
/// The question whether backups are wanted.
void Ask_For_Backup(Session& session);
void Convert_Bak_To_Tv5(Session& session);
void Convert_Tv4_To_Tv5(Session& session);

}  // namespace tarnvik
