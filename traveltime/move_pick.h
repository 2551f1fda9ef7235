#pragma once

#include <functional>
#include <optional>

#include "core/pick_place.h"
#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/curve_pointer.h"

namespace tarnvik {

/// The pick nearest to a place within 3 length units and 3 ms of it, both strictly, where 1 unit counts as
/// much as 1 ms; of several as near the last one in the order of shots and receivers.
std::optional<PickPlace> Pick_Near(const Project& project, double distance, double time);

/// Moving a pick on the curves: a double click catches it, the next press and release put it elsewhere, or
/// delete it when the pointer did not move between them.
class MovePick {
  public:
    MovePick(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    /// Double click at MouseDistance and MouseTime: the pick caught is lit. Nothing while one is already in
    /// hand.
    void Catch();
    void Press(const PointerEvent& press);
    /// Ends the move, stores the time, saves the project and redraws. A release that no press went before
    /// (the one of the double click itself) is passed over.
    void Release(const PointerEvent& release);

    std::function<void()> Save;  ///< writes the project file

  private:
    void Store(double time_ms);

    Workspace& Work;
    Ports& Outside;
    std::optional<PointerEvent> Pressed;
};

}  // namespace tarnvik
