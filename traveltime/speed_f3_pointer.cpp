#include "traveltime/speed_f3_pointer.h"

#include "core/text/number.h"
#include "traveltime/rubber_band.h"

namespace tarnvik {

void SpeedF3Pointer::Press(const PointerEvent& event) {
    if (!event.LeftButton) return;
    // What the keys of the velocity ruler have left of the band before.
    if (Work.Curves.Band.Stands) Redraw_Band(Work, Outside, {});
    Form.Drop_Band();
    RubberBand(Work, Outside).Start(event);
    const CurveView& view = Work.Curves;
    Held = HandBand{};
    Held->X1 = event.X;
    Held->T1 = event.Y * view.TimeFactor;
    Held->DownDistance = view.DownDistance;
    Held->DownTime = view.DownTime;
    Outside.Show.Canvas_Of(Canvas::Dromo).Set_Pointer(PointerShape::Cross);
    Outside.Show.Bring_To_Front(Dialog::SpeedF3);
}

void SpeedF3Pointer::Move(const PointerEvent& event) {
    if (Held && event.LeftButton) Follow(event);
}

void SpeedF3Pointer::Release(const PointerEvent& event) {
    if (!Held) return;
    // A click alone draws no band.
    if (event.X != Held->X1 || event.Y * Work.Curves.TimeFactor != Held->T1) Follow(event);
    Held.reset();
}

void SpeedF3Pointer::Follow(const PointerEvent& event) {
    CurveView& view = Work.Curves;
    Store_If_It_Fits(view.DragEndX, event.X);
    Store_If_It_Fits(view.DragEndY, event.Y);
    Held->X2 = event.X;
    Held->T2 = event.Y * view.TimeFactor;
    Held->Distance = view.MouseDistance;
    Held->Time = view.MouseTime;
    Held->EndX = view.DragEndX;
    Held->EndY = view.DragEndY;
    Form.Take_Band(*Held);
}

}  // namespace tarnvik
