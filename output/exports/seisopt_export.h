#pragma once

#include <string>
#include <vector>

#include "output/exports/export_files.h"

namespace tarnvik {

/// What the user adds to all values of the SeisOpt2D files, and whose distances the shots have.
struct SeisOptChoices {
    double AddedDistance = 0;
    double AddedElevation = 0;
    bool RealDistances = false;  ///< the shots stand where ShotDistanceZ tells
};

/// The three files: shots as "distance elevation picks" a line, receivers as "distance elevation", first
/// breaks in seconds, one a line, receiver by receiver and shot by shot.
std::string SeisOpt_Sources(const Project& project, const std::vector<int>& shots,
                            const SeisOptChoices& choices);
std::string SeisOpt_Receivers(const Project& project, const SeisOptChoices& choices);
std::string SeisOpt_Observations(const Project& project, const std::vector<int>& shots);

/// Menu entry `optim`: asks for the line and its choices and writes NAME_src, NAME_rec and NAME_obs. Real
/// distances, when asked for, are computed in the line itself.
ExportReport Export_SeisOpt2D(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
