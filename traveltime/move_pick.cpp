#include "traveltime/move_pick.h"

#include <algorithm>
#include <cmath>

#include "core/text/number.h"
#include "records/set_pick.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curves.h"

namespace tarnvik {

namespace {
constexpr double catch_distance = 3;  // length units of the project
constexpr double catch_time = 3;      // ms
}  // namespace

std::optional<PickPlace> Pick_Near(const Project& project, double distance, double time) {
    std::optional<PickPlace> caught;
    double nearest = 0;
    const int shots = std::min<int>(project.NbShots, project.ShotTimes.Last_Row());
    const int receivers = std::min<int>(project.NbReceivers, project.ShotTimes.Last_Column());
    for (int shot = 1; shot <= shots; ++shot) {
        for (int receiver = 1; receiver <= receivers; ++receiver) {
            const double pick = project.ShotTimes(shot, receiver);
            if (!(pick > 0) || std::abs(time - pick) >= catch_time) continue;
            const double place = project.ReceiverData(ReceiverDistance, receiver);
            if (std::abs(distance - place) >= catch_distance) continue;
            const double apart = std::hypot(distance - place, time - pick);
            if (caught && apart > nearest) continue;
            caught = PickPlace{shot, receiver};
            nearest = apart;
        }
    }
    return caught;
}

void MovePick::Catch() {
    CurveView& view = Work.Curves;
    if (view.PickMoving != 0) return;
    const std::optional<PickPlace> caught = Pick_Near(Work.Project, view.MouseDistance, view.MouseTime);
    if (!caught) return;
    view.PickMoving = 1;
    view.PickShot = static_cast<std::int16_t>(caught->Shot);
    view.PickReceiver = static_cast<std::int16_t>(caught->Receiver);
    view.DragStartX = 0;  // the first click of the two began a band
    Pressed.reset();
    Outside.Show.Canvas_Of(Canvas::Dromo).Set_Pointer(PointerShape::PickMove);
    Draw_Caught_Pick(Outside.Show.Canvas_Of(Canvas::Dromo), Work);
}

void MovePick::Press(const PointerEvent& press) {
    Pressed = press;
}

void MovePick::Release(const PointerEvent& release) {
    if (!Pressed) return;
    CurveView& view = Work.Curves;
    const bool same_place = release.X == Pressed->X && release.Y == Pressed->Y;
    Pressed.reset();
    Answer answer = Answer::No;
    if (same_place) {
        answer = Outside.Ask.Message(
            "Delete geophone " + CStr(view.PickReceiver) + " of shot " + CStr(view.PickShot), Work.AppTitle,
            Icon::Question, Buttons::YesNoCancel);
    }
    view.PickMoving = 0;
    Outside.Show.Canvas_Of(Canvas::Dromo).Set_Pointer(PointerShape::Cross);
    if (answer != Answer::Yes && answer != Answer::No) {
        // A closed box lets the pick go where it was, without its ring.
        const PickPlace place{view.PickShot, view.PickReceiver};
        if (Work.Project.ShotTimes.Has(place.Shot, place.Receiver))
            Refresh_Curves(Work, Outside, std::span(&place, 1));
        return;
    }
    // Answered with no, the pick takes the pointer's time like any other move.
    Store(answer == Answer::Yes ? 0 : view.PickFactor * std::max(0.0, release.Y));
}

void MovePick::Store(double time_ms) {
    const PickPlace place{Work.Curves.PickShot, Work.Curves.PickReceiver};
    // Another project may have been opened between the double click and the release.
    if (!Work.Project.ShotTimes.Has(place.Shot, place.Receiver)) return;
    const float& time = Work.Project.ShotTimes(place.Shot, place.Receiver);
    const float before = time;
    EditScope edit(Work, "Move pick of shot " + CStr(place.Shot) + ", receiver " + CStr(place.Receiver));
    Set_Pick(Work, place, static_cast<float>(time_ms), PickDigits::All, PickOrigin::Moved);
    edit.End();
    // The notice of the edit draws a pick that has moved; the ring around one whose time stays goes too.
    if (time == before) Refresh_Curves(Work, Outside, std::span(&place, 1));
    if (Save) Save();
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
