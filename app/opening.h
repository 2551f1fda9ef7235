#pragma once

#include <functional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// What belongs to opening a project beside its own file; an empty function is left out.
struct OpeningHooks {
    std::function<void()> OfferSuFile;  ///< lets the user look for field records that are not found
    std::function<void()> ReadGrmFile;  ///< companion GRM file of CurrentFile
    std::function<void()> LoadSuFile;   ///< loads and shows SuFile
};

/// Opens CurrentFile: checks, reading, scaling, backup copy, companion files. Answers false after a refusal,
/// which leaves the previous project in memory; CurrentFile then still names the refused file, see
/// Open_Named_Project. A file from which something is missing is opened when the user agrees, which he has
/// done for one that he has `just_opened`.
bool Open_Project(Workspace& workspace, Ports& ports, const OpeningHooks& hooks, bool just_opened = false);

/// Makes `path` the CurrentFile and opens it. After a refusal CurrentFile, ProjectDir and ProjectName are
/// those of the previous project again, so that a save cannot put it into a file of another name. `agreed`:
/// the user has been told already what the file lacks.
bool Open_Named_Project(Workspace& workspace, Ports& ports, const OpeningHooks& hooks,
                        const std::string& path, bool agreed = false);

/// Asks for a project file, opens it and puts it on top of the recent files. False when the dialog was
/// cancelled (nothing changes) or the file was refused (the previous project and its names stay).
bool Select_Project(Workspace& workspace, Ports& ports, const OpeningHooks& hooks);

/// Menu NBak: asks for a backup copy, copies it over the project file of that name and reads that, with the
/// field records beside it. False when cancelled or failed; a copy that is no project is refused before it
/// replaces anything.
bool Backup_To_Project(Workspace& workspace, Ports& ports, const OpeningHooks& hooks);

/// Field records of the project's own name beside it, when there are any, become its SuFile. False when there
/// are none; SuFile then stays.
bool Take_Records_Beside(Workspace& workspace, const OpeningHooks& hooks);

}  // namespace tarnvik
