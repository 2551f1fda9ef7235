#pragma once

#include <string>
#include <string_view>

namespace tarnvik {

class Session;

/// Key that opens the manual where it tells of what is in front.
inline constexpr const char* help_key = "F1";

/// Full path of a document that comes with the program ("manual/tv16.pdf"): in the program's folder, then
/// where a build or an installation puts documents. Empty when it is in none of them.
std::string Find_Document(const Session& session, std::string_view name);

/// Chapter of the manual about what is in front: the dialog that has the keyboard, else the tab in sight.
std::string Chapter_In_Front(const Session& session);
/// A chapter as a page of its own; the whole manual where that cannot be shown.
void Open_Chapter(Session& session, const std::string& chapter);
void Open_Help(Session& session);  ///< the chapter in front

/// The manual, in the viewer that the desktop opens PDF files with. Looked for in "manual" below the
/// program's folder, then in the old place of the installation.
void Open_Manual(Session& session);

void Open_History(Session& session);       ///< history of the versions
void Open_Redpath_Book(Session& session);  ///< the report that the depth formulas come from
void Open_Slide_Show(Session& session);
void Open_Video(Session& session);

/// The notes beside the project: CurrentFile with ".rtf", in the text editor.
void Edit_Notes(Session& session);
/// The project file itself in the text editor, after a warning.
void Edit_Data_File(Session& session);

}  // namespace tarnvik
