#include "depth/delay_pointer.h"

#include <cmath>
#include <string>

#include "core/text/number.h"
#include "traveltime/curve_selection.h"
#include "traveltime/moving_curve.h"

namespace tarnvik {

using Handle = DelayF::Handle;

bool DelayPointer::Lies_On(Handle what, const PointerEvent& event) const {
    const Picture& dromo = Outside.Show.Canvas_Of(Canvas::Dromo);
    if (what != Handle::TotalLine) {
        const MovingCurve curve = Form.Curve_Of(what);
        return curve.Shot > 0 && Lies_On_Moving_Curve(Work, dromo, curve, event.X, event.Y);
    }
    const Frame frame = dromo.Current_Frame();
    return std::abs(frame.To_Pixel_Y(Form.VScroll3.Value) - frame.To_Pixel_Y(event.Y)) <=
           Pointer_Reach(dromo);
}

/// Where several meet, what was in hand before is meant again.
std::optional<Handle> DelayPointer::Met(const PointerEvent& event) const {
    if (TakenLast && Lies_On(*TakenLast, event)) return TakenLast;
    for (const Handle what : {Handle::LeftCurve, Handle::RightCurve, Handle::TotalLine}) {
        if (Lies_On(what, event)) return what;
    }
    return std::nullopt;
}

void DelayPointer::Press(const PointerEvent& event) {
    if (!event.LeftButton) return;
    const auto met = Met(event);
    if (!met) return;
    TakenLast = met;
    InHand = Held{*met, event.Y, Form.Bar_Of(*met).Value};
    Unlight_Curve(Work, Outside);
    Tell(*met);
}

/// Upwards is later, and so is a larger value of the line; the shift of a curve counts the other way.
void DelayPointer::Move_Up(Handle what, int value_before, double units) {
    const double value = what == Handle::TotalLine ? value_before + units : value_before - units;
    const int whole = CInt(value).value_or(value_before);
    if (whole != Form.Bar_Of(what).Value) Form.Move(what, whole);
    Tell(what);
}

void DelayPointer::Move(const PointerEvent& event) {
    if (!InHand || !event.LeftButton) return;
    Move_Up(InHand->What, InHand->Value, event.Y - InHand->Y);
}

void DelayPointer::Release(const PointerEvent&) {
    InHand.reset();
}

bool DelayPointer::Key(int code) {
    constexpr int page_up = 33;
    constexpr int page_down = 34;
    constexpr int up = 38;
    constexpr int down = 40;
    constexpr int page = 10;
    if (!TakenLast) return false;
    int later = 0;
    if (code == up || code == page_up) later = code == up ? 1 : page;
    if (code == down || code == page_down) later = code == down ? -1 : -page;
    if (later == 0) return false;
    // Upwards on the screen.
    if (Work.Curves.ZeroOnTop) later = -later;
    Move_Up(*TakenLast, Form.Bar_Of(*TakenLast).Value, later);
    Outside.Show.Show_Fields();
    return true;
}

void DelayPointer::Tell(Handle what) {
    if (what == Handle::TotalLine) {
        Work.Fields.Text1 = "Total time " + Form.TotalTimeText + " ms";
        return;
    }
    const MovingCurve curve = Form.Curve_Of(what);
    Work.Fields.Text1 =
        "Shot " + CStr(curve.Shot) + ", " + CStr(curve.Shift * Work.Curves.TimeFactor) + " ms taken off";
}

}  // namespace tarnvik
