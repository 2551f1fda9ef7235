#pragma once

#include <optional>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/curve_axes.h"

namespace tarnvik {

/// True while the picture of the travel times shows the GRM curves in their place: the dialog has the picture
/// and has computed some.
bool Grm_Picture_Stands(const Workspace& workspace);

/// Colour of an XY; nothing for one above 16, which has neither symbol nor line. An odd one has that of the
/// even one below it.
std::optional<Colour> Colour_Of_XY(int xy);

/// Height on the picture of a value (ms) of the curve with this place in the list, from 0.
double Height_Of_Grm_Value(const Workspace& workspace, std::size_t curve, double value);

/// Draws the GRM curves that were computed last, with frame, scales, titles and labels, on any device.
void Draw_Grm_On(Workspace& workspace, const CurvePictures& pictures);

/// A point of the GRM curves.
struct GrmPlace {
    std::size_t Curve = 0;  ///< place in the list, from 0
    std::size_t Point = 0;  ///< of that curve, from 0
    bool operator==(const GrmPlace&) const = default;
};

/// The point nearest to a place of the picture, of those drawn within reach of the pointer.
std::optional<GrmPlace> Grm_Point_At(const Workspace& workspace, const Picture& dromo, double x, double y);

/// The curve of a point stands out, and the point on it; no picture is redrawn.
void Light_Grm_Point(const Workspace& workspace, Ports& ports, GrmPlace place);
void Unlight_Grm_Point(Ports& ports);

/// "XY= 8, receiver 12: Tg= 14.32 ms".
std::string Text_Of_Grm_Point(const Workspace& workspace, GrmPlace place);

}  // namespace tarnvik
