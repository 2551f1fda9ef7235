#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Dialog vELINE, "Velocity line": apparent velocities of a dipping refractor. While it is open the pointer
/// on the curves carries a cross of its two results.
class VelocityLine {
  public:
    VelocityLine(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    std::string Velocity1;
    std::string Velocity2;
    std::string Dip;      ///< degrees
    std::string DownDip;  ///< Text4
    std::string UpDip;    ///< Text5

    void Load();   ///< the form opens
    void Close();  ///< the form closes
    void compute_dip();
    /// One of the two results was computed or typed over: the cross follows.
    void Results_Changed();

  private:
    Workspace& Work;
    Ports& Outside;
};

}  // namespace tarnvik
