#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

// The three sources of a section. Each puts its grid into Work.Section.Grid, between the elevations of
// `between` and as Work.Section tells, and answers whether it did. A line that it cannot be made of is told;
// then no grid stands. The project never changes.

/// Elevations of the top and the bottom of a section.
struct SectionElevations {
    double Max = 0;
    double Min = 0;
};

/// From the thicknesses below the shots.
bool Shot_Grid(Workspace& workspace, Ports& ports, SectionElevations between);
/// From the depths below the receivers by the delay time method.
bool ABC_Grille(Workspace& workspace, Ports& ports, SectionElevations between);
/// From the depths below the receivers by the generalised reciprocal method, as the GRM file beside the
/// project holds them.
bool GRM_Grille(Workspace& workspace, Ports& ports, SectionElevations between);

/// True when the depths of the delay time method are those of two layers: of the bedrock alone. They tell it
/// themselves, since they come with the file.
bool Abc_Has_Two_Layers(const Project& project);

/// Elevations in tens that a section of Work.Section.Source fits between: ground and deepest interface.
SectionElevations Fitting_Elevations(const Workspace& workspace);

}  // namespace tarnvik
