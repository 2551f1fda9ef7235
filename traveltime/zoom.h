#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Takes enlargement factors into use; one that is not above 0 becomes 1. The scroll bars get their range and
/// stay within it; with a factor of 1 the value is 0.
void Set_Zoom(CurveView& view, double zoom_x, double zoom_y);

/// Enlarges by two factors round a world place, which stays where it is in the window; by at most 20, and
/// never to less than the whole line.
void Enlarge_At(CurveView& view, double x, double y, double more_x, double more_y);

/// Moves the window by world units, as far as the picture reaches.
void Pan(CurveView& view, double across, double later);

/// Whether the scroll bar of an enlargement factor is shown.
bool Scroll_Bar_Shown(double factor);

/// Range in sight as the status label tells it: "12 m to 36" across, "20 ms to 60" in time; empty with a
/// factor of 1.
std::string Distance_Range_Text(const Workspace& workspace);
std::string Time_Range_Text(const Workspace& workspace);

/// The user moved HScroll1 or VScroll1: the window moves, the status label tells the range. The display mode
/// stays, so that a dialog goes on with the part now in sight.
void HScroll1_Change(Workspace& workspace, Ports& ports, int value);
void VScroll1_Change(Workspace& workspace, Ports& ports, int value);

/// Dialog "Enlargement factors".
class Zoom {
  public:
    Zoom(Workspace& workspace, Ports& ports);

    static constexpr std::array<std::string_view, 8> DistanceFactors = {"1", "2", "3",  "4",
                                                                        "5", "7", "10", "20"};
    static constexpr std::array<std::string_view, 9> TimeFactors = {"0.5", "1", "2",  "3", "4",
                                                                    "5",   "7", "10", "20"};

    std::string Combo1;  ///< distance factor, chosen or typed
    std::string Combo2;  ///< time factor

    /// Button "OK / Quit".
    void Command1();

  private:
    Workspace& Work;
    Ports& Outside;
};

}  // namespace tarnvik
