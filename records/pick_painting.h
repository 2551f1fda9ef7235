#pragma once

#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Picks along a line that is drawn by hand: every trace crossed gets the line's time at its axis, the dead
/// ones aside. Places in world coordinates of the record picture.
class PickPainting {
  public:
    PickPainting(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    bool Active() const { return Drawing; }
    void Start(double x, double y);
    void Move_To(double x, double y);
    /// Sets the picks as one edit.
    void End();

  private:
    struct Point {
        double X = 0;
        double Y = 0;
    };
    Workspace& Work;
    Ports& Outside;
    bool Drawing = false;
    std::vector<Point> Line;
};

}  // namespace tarnvik
