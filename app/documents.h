#pragma once

namespace tarnvik {

class Session;

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
