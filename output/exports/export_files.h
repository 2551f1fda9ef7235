#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Which line is exported, and where its files go.
struct ExportSource {
    std::string Title;                   ///< of the boxes
    std::function<Workspace*()> Choose;  ///< asks for the line; null when the user gave up
    std::string Folder;                  ///< with its separator; empty: beside the project
};

/// What came of an export.
struct ExportReport {
    bool Done = false;
    std::vector<std::string> Files;    ///< written, in order
    std::vector<std::string> Created;  ///< those of them that were not there before
    int Picks = 0;
    int Shots = 0;
    int Receivers = 0;
    std::vector<std::string> LeftOut;  ///< what did not go out, and why
};

/// One file of an export, whole in the memory before the first one is written.
struct ExportFile {
    std::string Path;
    std::string Content;  ///< as the program holds text; lines end with CR LF
};

/// Path of a project without its ".tv5", in the folder of the export.
std::string Export_Base(const Project& project, const std::string& folder);

/// Path up to the first point of the file's name with that ending; a name without a point gives the ending
/// alone.
std::string Up_To_First_Point(const std::string& path, const std::string& ending);

/// A path that may be written: where a file stands the user is asked, and a No asks for another name. Empty
/// when he gave up.
std::string Agreed_Path(Ports& ports, const std::string& title, const std::string& path,
                        const FileRequest& other_name);

/// Number typed into a box whose default is `initial`. False when the box was cancelled.
bool Ask_Number(Ports& ports, const std::string& title, const std::string& prompt, const std::string& initial,
                double& number);

/// The same for a spacing between stations: one that is not above 0 is told and refused.
bool Ask_Spacing(Ports& ports, const std::string& title, const std::string& initial, double& spacing);

/// Agrees with the user on the names of all files, before the first one is written. False when he gave up.
bool Agree_On_Names(Ports& ports, const std::string& title, std::vector<ExportFile>& files,
                    const FileRequest& other_name);

/// Writes files whose names are agreed, and lists them in the report. False after the message of one that
/// could not be written, `words` before it; those before it stay.
bool Write_Export_Files(Ports& ports, const std::string& title, const std::vector<ExportFile>& files,
                        ExportReport& report, const std::string& words = "");

/// Shows a file that was written in the text editor.
void Edit_Export(Ports& ports, const std::string& title, const std::string& path);

/// "Left out:" and its lines, of a long list the first ones; empty for an empty list.
std::string Left_Out_Text(const std::vector<std::string>& left_out);

/// Road of the exports that hold one file and ask for nothing but its name: `content` makes it from the line
/// and fills the report, the file is the project's with `ending`.
ExportReport Export_One_File(
    Ports& ports, const ExportSource& source, const std::string& ending,
    const std::function<std::string(const Project& project, ExportReport& report)>& content);

/// The last box of an export, `words` first; marks the report as done.
void Tell_Export(Ports& ports, const std::string& title, const std::string& words, ExportReport& report);

}  // namespace tarnvik
