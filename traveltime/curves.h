#pragma once

#include <span>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Full redraw of the travel-time curves with their frame, scales and shot grid: the curves are on display.
void Show_Curves(Workspace& workspace, Ports& ports);

/// Redraws the curves where picks have changed, in the part of the line that they touch, on the pictures that
/// show curves. A pick that changes the time scale, or a shown dialog that has drawn over the curves, takes
/// the full redraw.
void Refresh_Curves(Workspace& workspace, Ports& ports, std::span<const PickPlace> picks);

/// Frame of the curves: axes, grid and scales, no curve.
void Dessine_Cadre(Workspace& workspace, Ports& ports);

/// One curve. `colour` 0 means the colour of Couleur_Tir, which is left in it. `shift` is a time in units of
/// the picture that is taken from every point; `time_factor` in ms per unit (0 counts as 1).
void Dessine_Tir(Workspace& workspace, Ports& ports, int shot, Colour& colour, double shift,
                 double time_factor, double line_length);

/// The curves of a second project over the present ones: in the present frame and time scale, across the line
/// by its own length. The project in memory stays as it is.
void Superpose(Workspace& workspace, Ports& ports, const Project& other);

/// Colour of a shot's curve; `colour` stays as it is where no rule gives one.
void Couleur_Tir(const Project& project, int shot, Colour& colour);

/// Colour of a shot's curve as the display options want it: by Couleur_Tir, or one of a dozen.
void Shot_Colour(const Workspace& workspace, int shot, Colour& colour);

/// Colour of the one shot that a dialog shows: red, in the quick interpretation blue.
Colour Colour_Of_Shot_Alone(const Workspace& workspace);

/// Colour of a line fitted for a layer, 1 to 5; black for none.
Colour Layer_Colour(int layer);

/// Colour class of a segment's apparent velocity.
Colour Couleur_Vitesse(const Settings& settings, double velocity);

}  // namespace tarnvik
