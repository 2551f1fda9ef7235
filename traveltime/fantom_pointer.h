#pragma once

#include <optional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/fantom_f.h"

namespace tarnvik {

/// The picture in mode Fantom: a press reads the intercept time; a drag that begins on the moving curve
/// slides it, and the time read before stays.
class FantomPointer : public CurvePointerHandler {
  public:
    FantomPointer(Workspace& workspace, Ports& ports, FantomF& dialog)
        : Work(workspace), Outside(ports), Form(dialog) {}
    void Press(const PointerEvent& event) override;
    void Move(const PointerEvent& event) override;
    void Release(const PointerEvent& event) override;

  private:
    struct Grip {
        double Y = 0;  ///< of the press
        double Shift = 0;
        std::string TimeBefore;
        bool Moved = false;
    };

    Workspace& Work;
    Ports& Outside;
    FantomF& Form;
    std::optional<Grip> Held;  ///< while the button is held on the moving curve
};

}  // namespace tarnvik
