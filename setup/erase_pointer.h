#pragma once

#include <optional>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "setup/erase_tt.h"
#include "traveltime/curve_pointer.h"

namespace tarnvik {

/// The picture while Erase_TT is open: a press on the curve in work carries it up and down, the keys step it.
/// Anywhere else the picture is as in the normal state.
class ErasePointer : public CurvePointerHandler {
  public:
    ErasePointer(Workspace& workspace, Ports& ports, Erase_TT& dialog)
        : Work(workspace), Outside(ports), Form(dialog) {}
    bool Takes(const PointerEvent& event) override;
    void Press(const PointerEvent& event) override;
    void Move(const PointerEvent& event) override;
    void Release(const PointerEvent& event) override;
    bool Key(int code) override;

  private:
    struct Grip {
        double Y = 0;      ///< of the press
        double Shift = 0;  ///< ms, at the press
    };
    Workspace& Work;
    Ports& Outside;
    Erase_TT& Form;
    std::optional<Grip> Held;  ///< while the button is held
};

}  // namespace tarnvik
