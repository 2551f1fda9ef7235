#pragma once

#include "core/workspace.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/speed_f2.h"

namespace tarnvik {

/// The picture in mode Velocity: a press fills the receiver box of SpeedF2 that was entered last.
class SpeedF2Pointer : public CurvePointerHandler {
  public:
    SpeedF2Pointer(Workspace& workspace, SpeedF2& dialog) : Work(workspace), Form(dialog) {}
    void Press(const PointerEvent& event) override;

  private:
    Workspace& Work;
    SpeedF2& Form;
};

}  // namespace tarnvik
