#pragma once

#include <optional>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Elevations that the profile is to stand between; those that are missing are taken of the line.
struct ProfileElevations {
    std::optional<double> Max;
    std::optional<double> Min;
};

/// The user asks for the seismic profile, in the mode on display: Profil (shot depths), Profil2 (and depths
/// below receivers), Profil4 (shot depths and GRM) or Profil3 (all). Corrects the slope distances, which is
/// an edit, finds the extremes (asking for those that are 0 and not given) and shows the whole line.
///
/// The correction shortens a line that is not flat at each call. Whatever shows the profile again (another
/// size, an enlargement, a printer) therefore takes Display::Show_Profile or Paint_Profile. A profile that
/// cannot be drawn is told and changes nothing.
void Draw_Seismic_Profile(Workspace& workspace, Ports& ports, const ProfileElevations& given = {});

/// The user typed the elevations beside the profile: they are kept as the next defaults, and the profile that
/// stands is drawn between them at once.
void Give_Profile_Elevations(Workspace& workspace, Ports& ports, const ProfileElevations& given);

/// Curves and profile together, mode Both, neither of them enlarged.
void Show_Combined(Workspace& workspace, Ports& ports);

/// The pointer is at (x, y) of the profile's picture: shows distance and elevation there in whole units. A
/// value beyond 16 bits leaves the text as it was.
void Show_Profile_Readout(Workspace& workspace, Ports& ports, double x, double y);

}  // namespace tarnvik
