#pragma once

#include <optional>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/speed_f.h"

namespace tarnvik {

/// The picture in mode Vitesse: a click fills the receiver box entered last; a drag along a curve marks the
/// stretch from one receiver to another and computes when the button is let go. A drag that begins on another
/// shot's curve takes that shot.
class SpeedPointer : public CurvePointerHandler {
  public:
    SpeedPointer(Workspace& workspace, Ports& ports, SpeedF& dialog)
        : Work(workspace), Outside(ports), Form(dialog) {}
    void Press(const PointerEvent& event) override;
    void Move(const PointerEvent& event) override;
    void Release(const PointerEvent& event) override;

  private:
    struct Stretch {
        int Shot = 0;  ///< 0 where the dialog names none and no curve was met
        double X = 0;  ///< of the press
        bool Drawn = false;
        int First = 0;
        int Last = 0;
    };
    bool Far_From_Press(double x) const;
    void Mark_Stretch();
    void Fill_Box(const PointerEvent& event);

    Workspace& Work;
    Ports& Outside;
    SpeedF& Form;
    std::optional<Stretch> Held;  ///< while the button is held
};

}  // namespace tarnvik
