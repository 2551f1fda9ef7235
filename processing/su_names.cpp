#include "processing/su_names.h"

#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "records/su_file.h"

namespace tarnvik {

bool Same_File(const std::string& one, const std::string& other) {
    std::error_code failed;
    return one == other || std::filesystem::equivalent(one, other, failed);
}

std::string Known_Path(const Workspace& workspace, const std::string& path) {
    for (const std::string& known : {Su_Path(workspace.Project), workspace.Record.TwinSuFile}) {
        if (!known.empty() && !path.empty() && Same_File(path, known)) return known;
    }
    return path;
}

std::string Edit_Name_Of(const Workspace& workspace, const std::string& what, const std::string& path) {
    return path == Su_Path(workspace.Project) ? what : what + ", " + Name_Of(path);
}

}  // namespace tarnvik
