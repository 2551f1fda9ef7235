#include "traveltime/speed_pointer.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "core/text/number.h"
#include "traveltime/curve_axes.h"
#include "traveltime/curve_selection.h"

namespace tarnvik {

namespace {

constexpr double click_pixels = 6;
constexpr int stretch_width = 2;

/// The two ends of a stretch and the part of the curve between them.
std::vector<Mark> Marks_Of_Stretch(const Workspace& workspace, int shot, int first, int last) {
    const Project& line = workspace.Project;
    std::vector<Mark> marks;
    for (const int end : {first, last}) {
        const double x = Position_Ecran(line, end);
        marks.push_back({Mark::Kind::Line, x, 0, x, curve_picture_height, colours::Red, 1, true, {}});
    }
    std::optional<Mark> before;
    for (int r = std::min(first, last); r <= std::max(first, last); ++r) {
        if (!line.ShotTimes.Has(shot, r) || !(line.ShotTimes(shot, r) > 0)) continue;
        Mark part;
        part.X1 = Position_Ecran(line, r);
        part.Y1 = line.ShotTimes(shot, r) / workspace.Curves.TimeFactor;
        part.InColour = colours::Red;
        part.Width = stretch_width;
        if (before) {
            before->X2 = part.X1;
            before->Y2 = part.Y1;
            marks.push_back(*before);
        }
        before = part;
    }
    return marks;
}

}  // namespace

bool SpeedPointer::Far_From_Press(double x) const {
    const Frame frame = Outside.Show.Canvas_Of(Canvas::Dromo).Current_Frame();
    return std::abs(frame.To_Pixel_X(x) - frame.To_Pixel_X(Held->X)) > click_pixels;
}

void SpeedPointer::Press(const PointerEvent& event) {
    if (!event.LeftButton || Work.Project.NbReceivers < 1) return;
    const int chosen = CInt(Val(Form.Shot)).value_or(0);
    const Picture& dromo = Outside.Show.Canvas_Of(Canvas::Dromo);
    const auto met = Curve_At(Work, dromo.Current_Frame(), event.X, event.Y, Pointer_Reach(dromo), chosen);
    Held = Stretch{met ? met->Shot : chosen, event.X, false, 0, 0};
}

void SpeedPointer::Move(const PointerEvent& event) {
    if (!Held || !event.LeftButton || (!Held->Drawn && !Far_From_Press(event.X))) return;
    const int first = Nearest_Receiver(Work.Project, Held->X);
    const int last = Nearest_Receiver(Work.Project, event.X);
    if (!Held->Drawn || first != Held->First || last != Held->Last) {
        Held->Drawn = true;
        Held->First = first;
        Held->Last = last;
        Unlight_Curve(Work, Outside);
        Mark_Stretch();
    }
    Work.Fields.Text1 = "Shot " + CStr(Held->Shot) + ", receivers " + CStr(first) + " to " + CStr(last);
}

void SpeedPointer::Mark_Stretch() {
    Outside.Show.Show_Marks(Canvas::Dromo, MarkLayer::Cursor,
                            Marks_Of_Stretch(Work, Held->Shot, Held->First, Held->Last));
}

void SpeedPointer::Release(const PointerEvent& event) {
    if (Work.Project.NbReceivers < 1) return;
    Work.Curves.DragStartX = 0;
    const std::optional<Stretch> stretch = std::exchange(Held, std::nullopt);
    if (stretch && stretch->Drawn) Outside.Show.Show_Marks(Canvas::Dromo, MarkLayer::Cursor, {});
    const int last = Nearest_Receiver(Work.Project, event.X);
    if (!stretch || !stretch->Drawn || stretch->First == last) return Fill_Box(event);
    Form.Take_Stretch(stretch->Shot, stretch->First, last);
    Outside.Show.Bring_To_Front(Dialog::SpeedF);
}

void SpeedPointer::Fill_Box(const PointerEvent& event) {
    const int receiver =
        static_cast<int>(Receiver_At(event.X, Work.Project.NbReceivers, PointerMoment::Release));
    Work.Curves.MouseReceiver = static_cast<std::int16_t>(receiver);
    std::string& box = Form.LastEntered == SpeedF::ReceiverBox::From ? Form.FirstReceiver : Form.LastReceiver;
    box = CStr(receiver);
    Outside.Show.Show_Fields();
    Outside.Show.Bring_To_Front(Dialog::SpeedF);
}

}  // namespace tarnvik
