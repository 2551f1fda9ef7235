#include "traveltime/ruler.h"

#include "traveltime/curve_drawing.h"

namespace tarnvik {

void RulerF::ruler_dromo() {
    Draw_Time_Strip(Outside.Show.Canvas_Of(Canvas::Regle), Work.Curves);
}

}  // namespace tarnvik
