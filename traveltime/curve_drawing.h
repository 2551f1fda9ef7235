#pragma once

#include <optional>
#include <vector>

#include "core/ports/picture.h"
#include "core/workspace.h"
#include "traveltime/curve_axes.h"

namespace tarnvik {

/// How one curve is drawn.
struct CurveStyle {
    Colour InColour = 0;
    double Shift = 0;               ///< units of the picture taken from every point
    double TimeFactor = 1;          ///< ms per unit of the picture
    double LineLength = 0;          ///< the length that spans the picture
    double ZoomX = 1;               ///< keeps the points small when enlarged
    bool ByVelocity = false;        ///< segments coloured by apparent velocity
    bool LabelOffsetShot = false;   ///< print the number of a shot that has no place of its own on the line
    std::int16_t LastLabelled = 0;  ///< the shot whose number already stands beside its curve
    bool Numbers = true;            ///< false: numbers are put in once all curves stand
    bool LeadIn = false;            ///< the curve rises from (0, 0) wherever its shot is
    double SeenFrom = -1e9;         ///< part of the line that is looked at: what lies wholly outside is
    double SeenTo = 1e9;            ///< left out
};

/// One curve of any project into the frame that stands. Answers whether its number was printed beside its
/// last point. Throws Fault for a line of length 0 or a shot outside the arrays.
bool Draw_Curve_On(Picture& dromo, const Project& project, const Settings& settings, int shot,
                   const CurveStyle& style);

/// Height of a pick (ms) on the picture, `shift` units taken off; nothing without a pick or for one that the
/// shift carries out of sight. A shift upwards in time that would carry it below the axis leaves it at 0.5.
std::optional<double> Height_Of_Pick(double time, double time_factor, double shift);

/// What stands over the curves: what the open dialogs add, the lines that they fitted, the shots' numbers.
void Draw_Over_Curves(Picture& picture, const Workspace& workspace, const std::vector<CurveLabel>& labels);

/// Marks the pick that a double click has caught; nothing while none is.
void Draw_Caught_Pick(Picture& dromo, const Workspace& workspace);

/// Part of the picture across the line that the curve of a shot can change in when the time of a receiver
/// does: up to the picks beside it, and as far as the colour of a segment depends on it.
struct CurveStrip {
    double X1 = 0;
    double X2 = curve_picture_width;
};
CurveStrip Strip_Of_Pick(const Project& project, PickPlace pick, bool by_velocity);

/// Leaves out what lies beyond the window on both sides: an enlarged part costs what is in sight.
void Keep_To_Window(CurveStyle& style, const CurveView& view);

/// Frame and all curves that are not left out in Grille_Shot, on any device: paper, files, a window.
/// The mode and the screen stay as they are. Answers whether every curve could be drawn.
bool Draw_Curves_On(Workspace& workspace, const CurvePictures& pictures);

}  // namespace tarnvik
