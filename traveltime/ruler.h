#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Dialog "Ruler": a floating time strip to lay against a curve.
class RulerF {
  public:
    RulerF(Workspace& workspace, Ports& ports) : Space(workspace), World(ports) {}

    /// The strip shows the time scale of the travel-time curves.
    void ruler_dromo();

  private:
    Workspace& Space;
    Ports& World;
};

}  // namespace tarnvik
