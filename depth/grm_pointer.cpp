#include "depth/grm_pointer.h"

namespace tarnvik {

void GrmPointer::Move(const PointerEvent& event) {
    if (!Grm_Picture_Stands(Work)) return;
    const auto met = Grm_Point_At(Work, Outside.Show.Canvas_Of(Canvas::Dromo), event.X, event.Y);
    if (met) {
        Light_Grm_Point(Work, Outside, *met);
        Work.Fields.Text1 += "   " + Text_Of_Grm_Point(Work, *met);
    } else if (Lit) {
        Unlight_Grm_Point(Outside);
    }
    Lit = met;
}

void GrmPointer::Leave() {
    if (Lit) Unlight_Grm_Point(Outside);
    Lit.reset();
}

}  // namespace tarnvik
