#include "demo/undulating_line.h"

#include <array>
#include <cmath>
#include <numbers>

namespace tarnvik {

namespace {

constexpr double spacing = 2.5;
constexpr double first_geophone = 1.25;
constexpr std::array<double, undulating_line::shots> shot_places = {-78.6, 0, undulating_line::length, 199.5};
constexpr double waves_from = -140;  // m along the line, well beyond the offset shots
constexpr double waves_to = 260;

double Refractor_Depth(double x) {
    constexpr double mean = 22.575;
    constexpr double height = 2.5;
    constexpr double crest = 50;
    constexpr double wavelength = 60;
    return mean - height * std::cos(2 * std::numbers::pi * (x - crest) / wavelength);
}

double In_Hundredths(double value) {
    return std::round(100 * value) / 100;
}

}  // namespace

UndulatingEarth Undulating_Demo_Earth() {
    return {undulating_line::layer_velocity, undulating_line::refractor_velocity, Refractor_Depth, waves_from,
            waves_to};
}

Project Undulating_Demo_Project() {
    Project project;
    project.NbShots = undulating_line::shots;
    project.NbReceivers = undulating_line::geophones;
    project.LineLength = undulating_line::length;
    Redimension_Project(project);
    std::vector<SectionPoint> geophones;
    for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
        const double distance = first_geophone + (geophone - 1) * spacing;
        geophones.push_back({distance, 0});
        project.ReceiverData(ReceiverDistance, geophone) = static_cast<float>(distance);
        project.ReceiverData(ReceiverElevation, geophone) = undulating_line::zero_elevation;
    }
    const UndulatingEarth earth = Undulating_Demo_Earth();
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        project.ShotDistance(shot) = shot_places.at(static_cast<std::size_t>(shot) - 1);
        project.ShotElevation(shot) = undulating_line::zero_elevation;
        const std::vector<double> times = earth.First_Arrivals({project.ShotDistance(shot), 0}, geophones);
        for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
            const double time = times[static_cast<std::size_t>(geophone) - 1];
            project.ShotTimes(shot, geophone) = static_cast<float>(In_Hundredths(time));
        }
    }
    return project;
}

Project Undulating_Demo_Model() {
    Project project = Undulating_Demo_Project();
    for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
        project.ReceiverData(ReceiverV1, geophone) = static_cast<float>(undulating_line::layer_velocity);
        project.ReceiverData(ReceiverV2, geophone) = static_cast<float>(undulating_line::refractor_velocity);
        project.ReceiverData(ReceiverRockDepth, geophone) =
            static_cast<float>(Refractor_Depth(project.ReceiverData(ReceiverDistance, geophone)));
    }
    return project;
}

}  // namespace tarnvik
