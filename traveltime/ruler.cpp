#include "traveltime/ruler.h"

#include "records/record_display.h"
#include "traveltime/curve_drawing.h"

namespace tarnvik {

void RulerF::Draw() {
    Against == OfRecord ? ruler_record() : ruler_dromo();
}

void RulerF::ruler_dromo() {
    Draw_Time_Strip(Outside.Show.Canvas_Of(Canvas::Regle), Work.Curves);
}

void RulerF::ruler_record() {
    Picture& strip = Outside.Show.Canvas_Of(Canvas::Regle);
    strip.Clear();
    Draw_Time_Scale(Work.Record, strip);
}

}  // namespace tarnvik
