#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Dialog `dip`: the dip of a refractor from the velocity of the layer above it and two apparent velocities
/// of its own. Needs no project.
class DipComputation {
  public:
    DipComputation(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    std::string Velocity1;
    std::string UpDip;    ///< Text2
    std::string DownDip;  ///< Text3
    std::string Dip;      ///< Text4, whole degrees; below 0 when the up-dip velocity is the larger one

    void Calcul_dip();

  private:
    Workspace& Work;
    Ports& Outside;
};

}  // namespace tarnvik
