#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Dialog "Ruler": a floating time strip to lay against a curve or a trace.
class RulerF {
  public:
    /// What the strip is laid against.
    enum Kind : int { OfCurves, OfRecord };

    RulerF(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    int Against = OfCurves;

    /// Draws the strip of what was chosen.
    void Draw();
    /// The strip shows the time scale of the travel-time curves.
    void ruler_dromo();
    /// The strip shows the time scale of the field record; empty without one.
    void ruler_record();

  private:
    Workspace& Work;
    Ports& Outside;
};

}  // namespace tarnvik
