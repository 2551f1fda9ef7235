#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// The command behind every request for the seismic profile, in the mode on display: Profil (shot depths),
/// Profil2 (and depths below receivers), Profil4 (shot depths and GRM) or Profil3 (all). Corrects the slope
/// distances, finds the extremes (asking for those that are 0) and draws on dromo1 and EchelleY1.
///
/// The correction changes the receiver distances at every drawing. A window that is merely uncovered must
/// therefore repaint its buffered picture, and a printer takes Paint_Profile. A drawing that fails says so
/// and leaves the distances as they were.
void Draw_Seismic_Profile(Workspace& workspace, Ports& ports);

/// The same on two pictures of the caller's: where there is no window.
void Draw_Seismic_Profile(Workspace& workspace, Ports& ports, Picture& profile, Picture& scale);

/// Curves and profile together, mode Both. From here on the profile is drawn without clearing its picture.
void Show_Combined(Workspace& workspace, Ports& ports);

/// The pointer is at (x, y) of the profile's picture: shows distance and elevation there in whole units. A
/// value beyond 16 bits leaves the text as it was.
void Show_Profile_Readout(Workspace& workspace, Ports& ports, double x, double y);

}  // namespace tarnvik
