#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/project.h"

namespace tarnvik {

/// A shot or a receiver below which velocities and depths are known.
struct SectionPlace {
    double Distance = 0;
    double Elevation = 0;
    std::array<double, Project::MaxLayers + 1> Velocities{};  ///< 1 to 5, 0 where there is no such layer
    std::array<double, Project::MaxRefractors + 1> Depths{};  ///< 1 to 4 below ground, 0 where there is none
    double Factor = 1;                                        ///< by which the slope has lengthened them
    bool Known = true;  ///< false where the depths are missing, which is no layer that wedges out
};

/// The shots on the line with the thicknesses below them, those that are not above 0 left out. With `slope`
/// each is lengthened by the factor of its shot.
std::vector<SectionPlace> Places_Of_Shots(const Project& project, bool slope);

/// The receivers with the depths of the delay time method: of its interfaces 1, 2 and 3, or with two layers
/// the depth of the bedrock alone.
std::vector<SectionPlace> Places_Of_Abc(const Project& project, bool two_layers);

/// The receivers with the thickness of the first layer and the depth of the bedrock of the generalised
/// reciprocal method, from `grm_data` with its rows 1 to 9.
std::vector<SectionPlace> Places_Of_Grm(const Project& project, const Array2<double>& grm_data);

/// The bedrock, which is the deepest interface of each place, becomes a mean of three neighbours: its own
/// depth and the two beside it. Those at the ends stay; none rises above the interface over it.
void Smooth_Bedrock(std::vector<SectionPlace>& places);

/// Running mean of the depths of every interface over so many places, over fewer of them towards the ends of
/// the line, where the last ones stay. An even number counts as the next odd one, 1 changes nothing.
void Smooth_Interfaces(std::vector<SectionPlace>& places, int over);

}  // namespace tarnvik
