#include "setup/erase_pointer.h"

#include "core/text/number.h"
#include "traveltime/curve_selection.h"

namespace tarnvik {

namespace {
constexpr double steps_a_ms = 20;  ///< a hand places the curve to the twentieth of a ms
}

bool ErasePointer::Takes(const PointerEvent& event) {
    return event.LeftButton &&
           Lies_On_Moving_Curve(Work, Outside.Show.Canvas_Of(Canvas::Dromo), Form.Curve(), event.X, event.Y);
}

void ErasePointer::Press(const PointerEvent& event) {
    Held = Grip{event.Y, Val(Form.Shift)};
    Unlight_Curve(Work, Outside);
}

void ErasePointer::Move(const PointerEvent& event) {
    if (!Held || !event.LeftButton) return;
    const double carried = (event.Y - Held->Y) * Work.Curves.TimeFactor;
    const double shift = Rounded((Held->Shift - carried) * steps_a_ms) / steps_a_ms;
    if (shift != Val(Form.Shift)) Form.Take_Shift(shift);
    Work.Fields.Text1 = "Shot " + Form.Shot + ", shift " + Form.Shift + " ms";
}

void ErasePointer::Release(const PointerEvent&) {
    Held.reset();
}

bool ErasePointer::Key(int code) {
    constexpr int page_up = 33;
    constexpr int page_down = 34;
    constexpr int up = 38;
    constexpr int down = 40;
    if (code != up && code != down && code != page_up && code != page_down) return false;
    Form.Step_On_Screen(code == up || code == page_up, code == page_up || code == page_down);
    return true;
}

}  // namespace tarnvik
