#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Whether a save that went well is confirmed by a message.
enum class SaveNotice { None, Told };

/// The only road to the project file: writes the project to CurrentFile, sets the caption and clears the
/// selection. TotalTime in memory stands 1 higher afterwards, which only the next load takes off again.
///
/// A value beyond the file's 16 bits, arrays without content, or a disk that refuses is told to the user;
/// then nothing is written, the old file stays whole, nothing in memory changes, and the answer is false.
/// A file that the project was neither read from nor written to is replaced only after a question.
/// Without a file name nothing is saved and no message comes.
bool Write_Project(Workspace& workspace, Ports& ports, SaveNotice notice = SaveNotice::None);

/// Asks for a new name and saves the project there. When the dialog is cancelled or the file cannot be
/// written, the project goes to ERROR.TV5 in the program's folder (or, where that cannot be written, in the
/// project's or the temporary folder), so that nothing is lost, and CurrentFile names that file. True when
/// the project was saved under the chosen name.
bool Save_Project_As(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
