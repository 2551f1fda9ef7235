#include "processing/fresh_file.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "core/files.h"

namespace tarnvik {

namespace fs = std::filesystem;

FreshFile::FreshFile(Edits& edits, std::string path)
    : Owner(edits), Target(std::move(path)), Written(Name_Aside(Target)) {
    Owner.Note_Passing(Written);
}

FreshFile::~FreshFile() {
    std::error_code failed;
    fs::remove(Written, failed);
    Owner.Passed(Written);
}

std::string FreshFile::Put() {
    return Owner.Replace_Whole_File(Target, Written);
}

ChainFolder::ChainFolder(Edits& edits, const std::string& beside)
    : Owner(edits), Path(Name_Aside(Folder_Of(beside) + "chain")) {
    Owner.Note_Passing(Path);
    std::error_code failed;
    fs::create_directory(Path, failed);
    if (failed) Why = Folder_Of(beside) + ": " + failed.message();
}

ChainFolder::~ChainFolder() {
    std::error_code failed;
    fs::remove_all(Path, failed);
    Owner.Passed(Path);
}

std::string ChainFolder::Move_All_To(const std::string& folder) const {
    std::error_code failed;
    for (const auto& entry : fs::directory_iterator(Path, failed)) {
        const fs::path target = fs::path(folder) / entry.path().filename();
        fs::rename(entry.path(), target, failed);
        if (failed) return target.string() + ": " + failed.message();
    }
    return failed ? folder + ": " + failed.message() : std::string();
}

}  // namespace tarnvik
