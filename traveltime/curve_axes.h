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
    bool OnPaper = true;  ///< what stands as marks on the screen is drawn too
};

/// The time grid in force: lines `Step` ms apart from `Step` to `Last`.
struct TimeGrid {
    double Step = 10;
    double Last = 99;
};
/// Ten lines to the picture; an enlarged one has finer steps of 1, 2 or 5, so that as many stay in sight.
TimeGrid Time_Grid(double time_factor, double zoom_y = 1);

/// Receivers from one line of the frame to the next, by the number of receivers in sight.
int Receiver_Step(int receivers, double zoom_x);

/// Frame of the curves of the project in memory on any device: scale, axes, grid, labels; finds MaxTime and
/// TimeFactor. A line of length 0 gets no receiver lines.
void Draw_Frame_On(Workspace& workspace, const CurvePictures& pictures);

/// Scale of a time strip and its ticks with their " ms" labels, as EchelleY shows them.
void Draw_Time_Strip(Picture& strip, const CurveView& view);

}  // namespace tarnvik
