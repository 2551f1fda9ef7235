#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/fcalcul.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/rubber_band.h"

namespace tarnvik {

/// The picture in mode "Calcul": a click fills the intercept or critical-distance field that has the focus, a
/// drag along a curve the velocity field, with its intercept. A stretch that cannot be fitted leaves the
/// fields and the focus as they were.
class FcalculPointer : public CurvePointerHandler {
  public:
    FcalculPointer(Workspace& workspace, Ports& ports, Fcalcul& dialog)
        : Work(workspace), Outside(ports), Form(dialog), Band(workspace, ports) {}
    void Press(const PointerEvent& event) override;
    void Move(const PointerEvent& event) override;
    void Release(const PointerEvent& event) override;

  private:
    void Fill_Velocity(double velocity);

    Workspace& Work;
    Ports& Outside;
    Fcalcul& Form;
    RubberBand Band;
};

}  // namespace tarnvik
