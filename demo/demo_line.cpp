#include "demo/demo_line.h"

#include <array>
#include <cmath>
#include <numbers>

namespace tarnvik {

namespace {

constexpr double spacing = 5;
constexpr double first_geophone = 2.5;
constexpr std::array<double, demo_line::shots> shot_places = {-60, 0, 60, 120, 180};
constexpr double degree = std::numbers::pi / 180;

double In_Hundredths(double value) {
    return std::round(100 * value) / 100;
}

}  // namespace

LayeredEarth Demo_Earth() {
    return LayeredEarth({{600, 6, 1 * degree}, {1600, 18, 2 * degree}, {3800, 0, 0}});
}

double Ground_Elevation(double distance) {
    const double knoll = 0.8 * std::sin(2 * std::numbers::pi * distance / 150);
    return In_Hundredths(demo_line::zero_elevation + 0.01 * distance + knoll);
}

SectionPoint Shot_Point(const Project& project, int shot) {
    const double elevation = project.ShotElevation(shot) - project.ShotDepth(shot);
    return {project.ShotDistance(shot), demo_line::zero_elevation - elevation};
}

SectionPoint Geophone_Point(const Project& project, int geophone) {
    // The single-precision elevation stands for one in whole centimetres.
    const double elevation = In_Hundredths(project.ReceiverData(ReceiverElevation, geophone));
    return {project.ReceiverData(ReceiverDistance, geophone), demo_line::zero_elevation - elevation};
}

Project Demo_Project() {
    Project project;
    project.NbShots = demo_line::shots;
    project.NbReceivers = demo_line::geophones;
    project.LineLength = demo_line::length;
    project.SuFile = "demo1.su";
    Redimension_Project(project);
    for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
        const double distance = first_geophone + (geophone - 1) * spacing;
        project.ReceiverData(ReceiverDistance, geophone) = static_cast<float>(distance);
        project.ReceiverData(ReceiverElevation, geophone) = static_cast<float>(Ground_Elevation(distance));
    }
    const LayeredEarth earth = Demo_Earth();
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        project.ShotDistance(shot) = shot_places.at(static_cast<std::size_t>(shot) - 1);
        project.ShotElevation(shot) = Ground_Elevation(project.ShotDistance(shot));
        for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
            if (shot == demo_line::dead_shot && geophone == demo_line::dead_geophone) continue;
            const double time =
                earth.First_Arrival(Shot_Point(project, shot), Geophone_Point(project, geophone));
            project.ShotTimes(shot, geophone) = static_cast<float>(In_Hundredths(time));
        }
    }
    return project;
}

Project Demo_Model() {
    Project project = Demo_Project();
    const LayeredEarth earth = Demo_Earth();
    for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
        const SectionPoint place = Geophone_Point(project, geophone);
        const auto set = [&](ReceiverRow row, double value) {
            project.ReceiverData(row, geophone) = static_cast<float>(value);
        };
        set(ReceiverV1, earth.Velocity(1));
        set(ReceiverV2, earth.Velocity(2));
        set(ReceiverV3, earth.Velocity(3));
        set(ReceiverDepth1, earth.Boundary_Depth(1, place.X) - place.Z);
        set(ReceiverDepth2, earth.Boundary_Depth(2, place.X) - place.Z);
    }
    return project;
}

}  // namespace tarnvik
