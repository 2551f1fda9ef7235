#pragma once

#include <optional>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/speed_f3.h"

namespace tarnvik {

/// The picture in mode Vitesse2: with the left button a band whose velocity and intercept SpeedF3 shows while
/// it is drawn. It stands until the next one.
class SpeedF3Pointer : public CurvePointerHandler {
  public:
    SpeedF3Pointer(Workspace& workspace, Ports& ports, SpeedF3& dialog)
        : Work(workspace), Outside(ports), Form(dialog) {}
    void Press(const PointerEvent& event) override;
    void Move(const PointerEvent& event) override;
    void Release(const PointerEvent& event) override;

  private:
    void Follow(const PointerEvent& event);

    Workspace& Work;
    Ports& Outside;
    SpeedF3& Form;
    std::optional<HandBand> Held;  ///< while the button is held
};

}  // namespace tarnvik
