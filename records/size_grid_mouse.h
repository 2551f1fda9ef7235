#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// The mouse on size_grid, the column of size factors beside the record, one row a trace.
class SizeGridMouse {
  public:
    SizeGridMouse(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    std::string ToolTip;  ///< number of the row under the pointer

    /// `y` from the top of a grid `height` high, in the same unit: the row under it becomes the current one.
    void Move(double y, double height);
    /// Doubles the factor of the current row with the left button (1), halves it with any other. A factor
    /// below 0.1 brings the trace of the row back to life.
    void Press(int button);

  private:
    int Traces() const;
    Workspace& Work;
    Ports& Outside;
};

}  // namespace tarnvik
