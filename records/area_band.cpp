#include "records/area_band.h"

namespace tarnvik {

void AreaBand::Start(double x, double y) {
    X1 = X2 = x;
    Y1 = Y2 = y;
    Started = true;
    Drawn = false;
}

void AreaBand::Draw(Picture& picture) {
    picture.Set_Draw_Mode(DrawMode::Xor);
    picture.Box(X1, Y1, X2, Y2, colours::White, false);
    picture.Set_Draw_Mode(DrawMode::Copy);
}

void AreaBand::Move_To(Picture& picture, double x, double y) {
    if (!Started) return;
    if (Drawn) Draw(picture);
    X2 = x;
    Y2 = y;
    Draw(picture);
    Drawn = true;
}

void AreaBand::End(Picture& picture) {
    if (Drawn) Draw(picture);
    Drawn = false;
    Started = false;
}

}  // namespace tarnvik
