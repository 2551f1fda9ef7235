#pragma once

#include "depth/quick_interpret.h"
#include "traveltime/curve_pointer.h"

namespace tarnvik {

/// The picture in mode Quick: either button catches a layer limit of the quick interpretation and carries it
/// along.
class QuickPointer : public CurvePointerHandler {
  public:
    explicit QuickPointer(QuickInterpret& dialog) : Form(dialog) {}
    void Press(const PointerEvent& event) override { Form.Catch_Limit(event.X); }
    void Move(const PointerEvent& event) override {
        if (event.LeftButton || event.RightButton) Form.Drag_Limit(event.X);
    }
    void Release(const PointerEvent& event) override { Form.Release_Limit(event.X); }

  private:
    QuickInterpret& Form;
};

}  // namespace tarnvik
