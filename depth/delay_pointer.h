#pragma once

#include <optional>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/delay_f.h"
#include "traveltime/curve_pointer.h"

namespace tarnvik {

/// The picture in mode "DELAY": a moving curve or the total time line is dragged up and down, and its scroll
/// bar follows in whole units. The arrow keys move what was taken last by one unit, Page Up and Page Down by
/// ten.
class DelayPointer : public CurvePointerHandler {
  public:
    DelayPointer(Workspace& workspace, Ports& ports, DelayF& dialog)
        : Work(workspace), Outside(ports), Form(dialog) {}
    void Press(const PointerEvent& event) override;
    void Move(const PointerEvent& event) override;
    void Release(const PointerEvent& event) override;
    bool Key(int code) override;

  private:
    struct Held {
        DelayF::Handle What = DelayF::Handle::LeftCurve;
        double Y = 0;   ///< of the press
        int Value = 0;  ///< of the scroll bar then
    };
    std::optional<DelayF::Handle> Met(const PointerEvent& event) const;
    bool Lies_On(DelayF::Handle what, const PointerEvent& event) const;
    void Move_Up(DelayF::Handle what, int value_before, double units);
    void Tell(DelayF::Handle what);

    Workspace& Work;
    Ports& Outside;
    DelayF& Form;
    std::optional<Held> InHand;
    std::optional<DelayF::Handle> TakenLast;
};

}  // namespace tarnvik
