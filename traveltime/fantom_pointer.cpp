#include "traveltime/fantom_pointer.h"

#include <cmath>

#include "core/text/number.h"
#include "traveltime/curve_selection.h"

namespace tarnvik {

namespace {

constexpr double still = 3;  // pixels that a hand moves in a click

}  // namespace

void FantomPointer::Press(const PointerEvent& event) {
    Held.reset();
    const std::string before = Form.InterceptTime;
    Form.Take_Time(event.Y);
    const Picture& dromo = Outside.Show.Canvas_Of(Canvas::Dromo);
    if (event.LeftButton && Lies_On_Moving_Curve(Work, dromo, Form.Curve(), event.X, event.Y)) {
        Held = Grip{event.Y, Form.Curve().Shift, before, false};
    } else {
        Outside.Show.Bring_To_Front(Dialog::FantomF);
    }
}

void FantomPointer::Move(const PointerEvent& event) {
    if (!Held || !event.LeftButton) return;
    if (!Held->Moved) {
        const Frame frame = Outside.Show.Canvas_Of(Canvas::Dromo).Current_Frame();
        if (std::abs(frame.To_Pixel_Y(event.Y) - frame.To_Pixel_Y(Held->Y)) <= still) return;
        Held->Moved = true;
        // The press took hold of the curve; it was not meant to read a time.
        Form.InterceptTime = Held->TimeBefore;
        Unlight_Curve(Work, Outside);
    }
    Form.Slide_To(Held->Shift + Held->Y - event.Y);
    Work.Fields.Text1 = "Shot " + CStr(Form.Curve().Shot) + " moved by " + Form.ShiftText;
}

void FantomPointer::Release(const PointerEvent&) {
    if (!Held) return;
    Held.reset();
    Outside.Show.Bring_To_Front(Dialog::FantomF);
}

}  // namespace tarnvik
