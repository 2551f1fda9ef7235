#include "core/pick_origins.h"

#include <cmath>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "core/check_sum.h"
#include "core/files.h"

namespace tarnvik {

namespace {

constexpr double time_rounding = 0.011;  ///< ms that the project file may take from a time

std::string File_For(const Project& project, const std::string& folder) {
    return folder + "/" + Name_Of(project.CurrentFile) + "-" +
           std::to_string(Check_Sum(project.CurrentFile)) + ".origins";
}

}  // namespace

std::string Write_Pick_Origins(const Project& project, const std::string& folder) {
    if (folder.empty() || project.CurrentFile.empty()) return {};
    std::ostringstream text;
    text.imbue(std::locale::classic());
    for (int shot = 1; shot <= project.PickOrigins.Last_Row(); ++shot) {
        for (int receiver = 1; receiver <= project.PickOrigins.Last_Column(); ++receiver) {
            const PickOrigin origin = project.PickOrigins(shot, receiver);
            if (origin == PickOrigin::Hand || !project.ShotTimes.Has(shot, receiver)) continue;
            text << shot << ' ' << receiver << ' ' << static_cast<int>(origin) << ' '
                 << project.ShotTimes(shot, receiver) << '\n';
        }
    }
    const std::string path = File_For(project, folder);
    if (text.str().empty() && !File_Exists(path)) return {};
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    return Replace_File(path, text.str());
}

void Read_Pick_Origins(Project& project, const std::string& folder) {
    if (folder.empty() || project.CurrentFile.empty()) return;
    std::istringstream text(Read_File(File_For(project, folder)).value_or(""));
    text.imbue(std::locale::classic());
    int shot = 0;
    int receiver = 0;
    int origin = 0;
    double time = 0;
    while (text >> shot >> receiver >> origin >> time) {
        if (shot < 1 || receiver < 1 || !project.PickOrigins.Has(shot, receiver)) continue;
        if (origin != static_cast<int>(PickOrigin::Automatic) &&
            origin != static_cast<int>(PickOrigin::Moved))
            continue;
        if (std::abs(project.ShotTimes(shot, receiver) - time) > time_rounding) continue;
        project.PickOrigins(shot, receiver) = static_cast<PickOrigin>(origin);
    }
}

}  // namespace tarnvik
