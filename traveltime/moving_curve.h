#pragma once

#include <optional>
#include <vector>

#include "core/ports/mark.h"
#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// A shot's curve that the hand slides up and down over the others. Nothing of the project changes.
struct MovingCurve {
    int Shot = 0;      ///< 0 while there is none
    double Shift = 0;  ///< units of the picture taken from every point
    Colour InColour = colours::Blue;
};

/// Times of the curve as it is drawn, from receiver 1 on, ms; nothing where no point stands.
std::vector<std::optional<double>> Times_As_Drawn(const Workspace& workspace, const MovingCurve& curve);

/// The curve as marks on the travel-time picture, its number beside its last point. None for a shot that the
/// project does not have.
std::vector<Mark> Marks_Of_Moving_Curve(const Workspace& workspace, const MovingCurve& curve);

/// True when a place of the picture lies on the curve or, at its receivers' distance, close above or below:
/// a press there takes it.
bool Lies_On_Moving_Curve(const Workspace& workspace, const Picture& dromo, const MovingCurve& curve,
                          double x, double y);

}  // namespace tarnvik
