#include "traveltime/ruler.h"

#include "traveltime/curve_drawing.h"

namespace tarnvik {

void RulerF::ruler_dromo() {
    Draw_Time_Strip(World.Show.Canvas_Of(Canvas::Regle), Space.Curves);
}

}  // namespace tarnvik
