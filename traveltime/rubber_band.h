#pragma once

#include <optional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/curve_pointer.h"

namespace tarnvik {

/// Apparent velocity of a band from its press to the pointer, whole length units per second. Distances in
/// length units, times in ms. Nothing for a band without a time difference.
std::optional<double> Band_Velocity(double down_distance, double down_time, double distance, double time);

/// "Velocity= " with the number and " m/s" or " f/s", as the status field shows it.
std::string Velocity_Text(const Settings& settings, double velocity);

/// The status field tells the velocity of the band from the last press to the pointer; it stays for a band
/// without a time difference.
void Tell_Band_Velocity(Workspace& workspace);

/// The line that the user draws on the travel-time picture with the button held. It stands in XOR in the
/// colour and width of the velocity line; its whole-number ends are in CurveView (DragStartX ...), where a
/// DragStartX of 0 means that there is none.
class RubberBand {
  public:
    RubberBand(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    /// Begins a band at the press. A former one stays on the picture until the next redraw.
    void Start(const PointerEvent& press);
    /// Moves its end to the pointer: the old line is erased by drawing it again. Nothing without a band.
    void Update(const PointerEvent& move);
    /// Stores its end; the line stays. With `fixed` it is drawn for good and no longer in XOR.
    void End(const PointerEvent& release, bool fixed = false);
    /// There is no band any more; its line stays until the next redraw.
    void Close();
    bool Is_Open() const { return Work.Curves.DragStartX != 0; }

  private:
    Workspace& Work;
    Ports& Outside;
};

/// Erases the band that stands and draws `band` in XOR; unbuffered meanwhile, so that the picture follows the
/// pointer without a redraw.
void Redraw_Band(Workspace& workspace, Ports& ports, const DrawnBand& band);

}  // namespace tarnvik
