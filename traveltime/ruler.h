#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Dialog "Ruler": a floating time strip to lay against a curve.
class RulerF {
  public:
    RulerF(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    /// The strip shows the time scale of the travel-time curves.
    void ruler_dromo();

  private:
    Workspace& Work;
    Ports& Outside;
};

}  // namespace tarnvik
