#include "traveltime/curve_overlays.h"

namespace tarnvik {

namespace {

constexpr double dot_radius = 0.3;

std::vector<Mark> Moving_Marks(const CurveView& view) {
    std::vector<Mark> marks;
    for (const auto& [dialog, overlay] : view.Overlays) {
        if (!overlay.Moving) continue;
        const std::vector<Mark> own = overlay.Moving();
        marks.insert(marks.end(), own.begin(), own.end());
    }
    return marks;
}

void Draw_Mark(Picture& picture, const Mark& mark) {
    picture.Set_Draw_Width(mark.Width);
    switch (mark.Shape) {
        case Mark::Kind::Line:
            picture.Line(mark.X1, mark.Y1, mark.X2, mark.Y2, mark.InColour);
            break;
        case Mark::Kind::Box:
            picture.Box(mark.X1, mark.Y1, mark.X2, mark.Y2, mark.InColour, false);
            break;
        case Mark::Kind::Dot:
            picture.Circle(mark.X1, mark.Y1, dot_radius, mark.InColour);
            break;
        case Mark::Kind::Text:
            picture.Print_At(mark.X1, mark.Y1, mark.Words, mark.InColour);
            break;
    }
    picture.Set_Draw_Width(1);
}

}  // namespace

void Draw_Standing_Overlays(Picture& picture, const CurveView& view) {
    for (const auto& [dialog, overlay] : view.Overlays) {
        if (overlay.Standing) overlay.Standing(picture);
    }
}

void Draw_Moving_Overlays(Picture& picture, const CurveView& view) {
    for (const Mark& mark : Moving_Marks(view))
        Draw_Mark(picture, mark);
}

void Show_Moving_Marks(Workspace& workspace, Ports& ports) {
    const std::vector<Mark> marks = Moving_Marks(workspace.Curves);
    // Where other curves stand in their place, the second window alone shows the travel times.
    const bool others = workspace.Grm.Drawn != DisplayMode::None && workspace.Mode.Held_By(Dialog::GRM);
    ports.Show.Show_Marks(Canvas::Dromo, MarkLayer::Context, others ? std::vector<Mark>{} : marks);
    if (workspace.Curves.DoubleView == 1) ports.Show.Show_Marks(Canvas::Dromo2, MarkLayer::Context, marks);
}

void Forget_Overlay(Workspace& workspace, Ports& ports, Dialog dialog) {
    if (workspace.Curves.Overlays.erase(dialog) > 0) Show_Moving_Marks(workspace, ports);
}

}  // namespace tarnvik
