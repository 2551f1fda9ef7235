#pragma once

namespace tarnvik {

class Session;

/// Tools outside the program. Nothing waits for them; a tool that cannot be started is reported.
void Launch_Enhancement(Session& session);  ///< reverse.exe on the project
void Launch_Filter(Session& session);       ///< reverse.exe on the field records, named in the settings first
void Launch_Trace_Reversal(Session& session);  ///< reverse.exe alone
void Launch_Conversion(Session& session);      ///< seismograph files to SU
void Launch_Seg2_Conversion(Session& session);
void Launch_Record_Printer(Session& session);  ///< suprint2.exe
/// tvmprint.exe: curves, profile and section on one sheet. Refused while no curves can be drawn.
void Start_Superprint(Session& session);
void Launch_Add_Csv(Session& session);
void Launch_Profile_Display(Session& session);
void Launch_Merge_Csv(Session& session);

/// Lets the desktop open project files with this program.
void Register_File_Type(Session& session);

}  // namespace tarnvik
