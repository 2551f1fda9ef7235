#include "core/project.h"

#include <algorithm>

namespace tarnvik {

void Redimension_Project(Project& project) {
    const int shots = project.NbShots;
    const int receivers = project.NbReceivers;
    Erase_Project(project);
    project.GrmData = {};
    if (shots < 0 || receivers < 0) return;
    if (static_cast<std::int64_t>(shots) * receivers > max_picks) return;
    project.ShotTimes = {shots, receivers};
    project.PickOrigins = {shots, receivers};
    project.ReceiverData = {ReceiverScratch, receivers};
    project.GrmData = {Project::GrmRows, receivers};
    project.ShotElevation = Array1<double>(shots);
    project.ShotDistance = Array1<double>(shots);
    project.ShotDistanceZ = Array1<double>(shots);
    project.ShotDepth = Array1<double>(shots);
    project.VelocityA = {shots, Project::MaxLayers};
    project.VelocityB = {shots, Project::MaxLayers};
    project.InterceptA = {shots, Project::MaxRefractors};
    project.InterceptB = {shots, Project::MaxRefractors};
    project.CritDistA = {shots, Project::MaxRefractors};
    project.CritDistB = {shots, Project::MaxRefractors};
    project.ShotThickness = {shots, Project::MaxRefractors};
}

void Erase_Project(Project& project) {
    project.ShotDistance = {};
    project.ShotElevation = {};
    project.ShotThickness = {};
    project.ShotTimes = {};
    project.PickOrigins = {};
    project.ReceiverData = {};
    project.InterceptB = {};
    project.VelocityA = {};
    project.VelocityB = {};
    project.ShotDistanceZ = {};
    project.CritDistA = {};
    project.CritDistB = {};
    project.InterceptA = {};
    project.ShotDepth = {};
}

double Time_Factor(double max_time) {
    if (max_time < 50) return 0.5;
    if (max_time > 50 && max_time <= 100) return 1;
    if (max_time > 100 && max_time <= 150) return 1.5;
    if (max_time > 150 && max_time <= 200) return 2;
    if (max_time > 200 && max_time <= 300) return 3;
    if (max_time > 300 && max_time < 500) return 5;
    if (max_time > 500) return 10;
    return 1;
}

double Latest_Pick(const Project& project) {
    float latest = 0;
    const int shots = std::min<int>(project.NbShots, project.ShotTimes.Last_Row());
    const int receivers = std::min<int>(project.NbReceivers, project.ShotTimes.Last_Column());
    for (int shot = 1; shot <= shots; ++shot) {
        for (int receiver = 1; receiver <= receivers; ++receiver) {
            latest = std::max(latest, project.ShotTimes(shot, receiver));
        }
    }
    return latest;
}

}  // namespace tarnvik
