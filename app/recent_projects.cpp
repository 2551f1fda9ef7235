#include "app/recent_projects.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>

#include "app/local_time.h"
#include "app/session.h"
#include "app/start.h"
#include "core/files.h"
#include "core/project_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "traveltime/curves.h"

namespace tarnvik {

namespace {

namespace fs = std::filesystem;

// Without a blank, about which the opening would ask.
constexpr const char* demo_copies = "Tarnvik-demo";

std::string Day_And_Time(const std::string& path) {
    std::error_code failed;
    const auto changed = fs::last_write_time(path, failed);
    if (failed) return {};
    const auto moment = std::chrono::file_clock::to_sys(changed);
    return Local_Time_Text(std::chrono::time_point_cast<std::chrono::system_clock::duration>(moment),
                           "%Y-%m-%d %H:%M");
}

std::string Counted(int count, const char* what) {
    return CStr(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::vector<ProjectGlimpse::Curve> Curves_Of(const Project& project) {
    std::vector<ProjectGlimpse::Curve> curves;
    const double latest = Latest_Pick(project);
    const int receivers = std::min<int>(project.NbReceivers, project.ShotTimes.Last_Column());
    if (!(latest > 0) || receivers < 2) return curves;
    float nearest = project.ReceiverData(ReceiverDistance, 1);
    float farthest = nearest;
    for (int receiver = 1; receiver <= receivers; ++receiver) {
        nearest = std::min(nearest, project.ReceiverData(ReceiverDistance, receiver));
        farthest = std::max(farthest, project.ReceiverData(ReceiverDistance, receiver));
    }
    if (!(farthest > nearest)) return curves;
    Colour colour = 0;
    for (int shot = 1; shot <= std::min<int>(project.NbShots, project.ShotTimes.Last_Row()); ++shot) {
        Couleur_Tir(project, shot, colour);
        ProjectGlimpse::Curve curve{colour, {}};
        for (int receiver = 1; receiver <= receivers; ++receiver) {
            const float time = project.ShotTimes(shot, receiver);
            if (!(time > 0)) continue;
            curve.Points.push_back(
                {(project.ReceiverData(ReceiverDistance, receiver) - nearest) / (farthest - nearest),
                 static_cast<float>(time / latest)});
        }
        if (curve.Points.size() > 1) curves.push_back(std::move(curve));
    }
    return curves;
}

}  // namespace

std::optional<ProjectGlimpse> Glimpse_Of(const std::string& path) {
    if (path.empty()) return std::nullopt;
    const auto bytes = Read_File(path);
    if (!bytes) return std::nullopt;
    Project project;
    if (!Parse_Project(*bytes, project).Refusal.empty()) return std::nullopt;
    Split_Project_Path(project, path);
    ProjectGlimpse glimpse;
    glimpse.Path = path;
    glimpse.Name = project.ProjectName;
    glimpse.Folder = fs::path(project.ProjectDir).parent_path().string();
    glimpse.Changed = Day_And_Time(path);
    glimpse.Size = Counted(project.NbShots, "shot") + ", " + Counted(project.NbReceivers, "receiver");
    glimpse.Curves = Curves_Of(project);
    return glimpse;
}

std::vector<ProjectGlimpse> Recent_Projects(const Settings& settings) {
    std::vector<ProjectGlimpse> found;
    for (const std::string& path : settings.RecentFiles) {
        const bool known = std::any_of(found.begin(), found.end(),
                                       [&path](const ProjectGlimpse& other) { return other.Path == path; });
        if (known) continue;
        if (auto glimpse = Glimpse_Of(path)) found.push_back(std::move(*glimpse));
    }
    return found;
}

std::vector<ProjectGlimpse> Demo_Lines(const Session& session) {
    const fs::path program = session.Outside.Launch.Program_Folder();
    std::vector<ProjectGlimpse> found;
    // Beside the program, where an installation puts them, and where they lie when it runs where it was
    // built.
    for (const fs::path& folder :
         {program / "demo", program / "../share/tarnvik/demo", program / "../../../demo"}) {
        std::error_code failed;
        for (const auto& entry : fs::directory_iterator(folder, failed)) {
            if (UCase(entry.path().extension().string()) != ".TV5") continue;
            if (auto glimpse = Glimpse_Of(entry.path().lexically_normal().string()))
                found.push_back(std::move(*glimpse));
        }
        if (!found.empty()) break;
    }
    std::sort(found.begin(), found.end(),
              [](const ProjectGlimpse& one, const ProjectGlimpse& other) { return one.Name < other.Name; });
    return found;
}

bool Open_Demo_Line(Session& session, const std::string& path) {
    const fs::path folder = fs::path(session.Outside.Launch.Documents_Folder()) / demo_copies;
    std::error_code failed;
    fs::create_directories(folder, failed);
    const std::string copy = (folder / Name_Of(path)).string();
    const std::string records = Derived_File(path, ".tv5", ".su");
    std::string reason = File_Exists(copy) ? std::string() : Copy_File(path, copy);
    if (reason.empty() && File_Exists(records)) {
        const std::string copied = (folder / Name_Of(records)).string();
        if (!File_Exists(copied)) reason = Copy_File(records, copied);
    }
    if (!reason.empty()) {
        session.Outside.Ask.Say(copy + " cannot be written: " + reason, session.Work.AppTitle,
                                Icon::Critical);
        return false;
    }
    return Open_File_Named(session, copy);
}

}  // namespace tarnvik
