#pragma once

#include "core/ports/picture.h"

namespace tarnvik {

/// Rectangle between two corners that follows the pointer: drawn by exclusive or, so that drawing it a second
/// time takes it away.
class AreaBand {
  public:
    void Start(double x, double y);
    void Move_To(Picture& picture, double x, double y);
    /// Takes the rectangle away and ends the drag.
    void End(Picture& picture);

    bool Active() const { return Started; }
    double X1 = 0;  ///< where it started
    double Y1 = 0;
    double X2 = 0;  ///< where the pointer is
    double Y2 = 0;

  private:
    void Draw(Picture& picture);
    bool Started = false;
    bool Drawn = false;
};

}  // namespace tarnvik
