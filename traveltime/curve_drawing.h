#pragma once

#include "core/ports/picture.h"
#include "core/workspace.h"

namespace tarnvik {

/// World size of the travel-time picture: 0..96 across the line, 0..100 in time.
inline constexpr double curve_picture_width = 96;
inline constexpr double curve_picture_height = 100;

/// The part of the travel-time picture that is in sight, in its world units.
struct CurveWindow {
    double X1 = 0;  ///< left
    double X2 = curve_picture_width;
    double Yv = 0;  ///< earliest time
    double Yw = curve_picture_height;
    bool operator==(const CurveWindow&) const = default;
};

/// The window of the scroll bars and enlargement factors in force; a factor of 0 counts as 1.
CurveWindow Visible_Window(const CurveView& view);

/// What one drawing of the curves fills: the picture and its two scale strips, which may be missing.
struct CurvePictures {
    Picture& Dromo;
    Picture* EchelleX = nullptr;
    Picture* EchelleY = nullptr;
};

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
    bool LeadIn = false;            ///< the curve rises from (0, 0) wherever its shot is
    double SeenFrom = -1e9;         ///< part of the line that is looked at: what lies wholly outside is
    double SeenTo = 1e9;            ///< left out
};

/// Frame of the curves of the project in memory on any device: scale, axes, grid, labels; finds MaxTime and
/// TimeFactor. A line of length 0 gets no receiver lines.
void Draw_Frame_On(Workspace& workspace, const CurvePictures& pictures);

/// One curve of any project into the frame that stands. Answers whether its number was printed beside its
/// last point. Throws Fault for a line of length 0 or a shot outside the arrays.
bool Draw_Curve_On(Picture& dromo, const Project& project, const Settings& settings, int shot,
                   const CurveStyle& style);

/// Marks the pick that a double click has caught; nothing while none is.
void Draw_Caught_Pick(Picture& dromo, const Workspace& workspace);

/// Part of the picture across the line that the curve of a shot can change in when the time of a receiver
/// does: up to the picks beside it, and as far as the colour of a segment depends on it.
struct CurveStrip {
    double X1 = 0;
    double X2 = curve_picture_width;
};
CurveStrip Strip_Of_Pick(const Project& project, PickPlace pick, bool by_velocity);

/// Frame and all curves that are not left out in Grille_Shot, on any device: paper, files, a window.
/// The mode and the screen stay as they are. Answers whether every curve could be drawn.
bool Draw_Curves_On(Workspace& workspace, const CurvePictures& pictures);

/// The time grid in force: `Step` ms apart from `Step` to `Last`.
struct TimeGrid {
    int Step = 10;
    int Last = 99;
};
TimeGrid Time_Grid(double time_factor);

/// Scale of a time strip and its ticks with their " ms" labels, as EchelleY shows them.
void Draw_Time_Strip(Picture& strip, const CurveView& view);

}  // namespace tarnvik
