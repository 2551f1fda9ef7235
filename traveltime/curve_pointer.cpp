#include "traveltime/curve_pointer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/text/number.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curve_selection.h"
#include "traveltime/move_pick.h"
#include "traveltime/rubber_band.h"
#include "traveltime/velocity_ruler.h"

namespace tarnvik {

namespace {

/// Mode "DROMO": with the left button a band that tells its velocity.
class DromoPointer : public CurvePointerHandler {
  public:
    DromoPointer(Workspace& workspace, Ports& ports) : Work(workspace), Band(workspace, ports) {}

    void Press(const PointerEvent& event) override {
        if (event.LeftButton) Band.Start(event);
    }
    void Move(const PointerEvent& event) override {
        if (!event.LeftButton || !Band.Is_Open()) return;
        Band.Update(event);
        Tell_Band_Velocity(Work);
    }
    void Release(const PointerEvent& event) override {
        if (event.LeftButton) Band.End(event);
    }

  private:
    Workspace& Work;
    RubberBand Band;
};

bool Has_Project(const Project& project) {
    return project.NbReceivers > 0 && project.ReceiverData.Has(ReceiverDistance, project.NbReceivers);
}

}  // namespace

double Pick_Factor(double max_time) {
    return max_time <= 50 ? 0.5 : Time_Factor(max_time);
}

double Receiver_At(double x, int receivers, PointerMoment moment) {
    const double spacing = curve_picture_width / receivers;
    if (moment == PointerMoment::Move) return Rounded((x + spacing) / spacing);
    const double nearest = Rounded(x / spacing);
    return moment == PointerMoment::Press ? nearest : std::clamp<double>(nearest, 1, receivers);
}

CurvePointer::CurvePointer(Workspace& workspace, Ports& ports)
    : Work(workspace),
      Outside(ports),
      DromoMode(std::make_unique<DromoPointer>(workspace, ports)),
      Moving(std::make_unique<MovePick>(workspace, ports)) {}

CurvePointer::~CurvePointer() = default;

void CurvePointer::Register(DisplayMode mode, CurvePointerHandler* handler) {
    Handlers[mode] = handler;
}

void CurvePointer::Register(Dialog dialog, CurvePointerHandler* handler) {
    DialogHandlers[dialog] = handler;
}

CurvePointerHandler* CurvePointer::Of_Dialog() const {
    for (const auto& [dialog, handler] : DialogHandlers) {
        if (Work.Mode.Held_By(dialog)) return handler;
    }
    return nullptr;
}

void CurvePointer::Take_Pick_Factor() {
    CurveView& view = Work.Curves;
    const DisplayMode mode = Work.Mode.Current();
    if (mode == DisplayMode::Quick) return;
    const bool as_drawn = Is_Profile(mode) || mode == DisplayMode::Abc || mode == DisplayMode::Fantom;
    view.PickFactor = as_drawn ? view.TimeFactor : Pick_Factor(view.MaxTime);
}

std::string CurvePointer::Read_Out_Text(PointerMoment moment) const {
    const CurveView& view = Work.Curves;
    const std::string unit = Work.Settings.Metric() ? "m" : "f";
    const bool abc = Work.Mode.Current() == DisplayMode::Abc;
    if (abc || Is_Profile(Work.Mode.Current())) {
        const ProfileView& profile = Work.Profile;
        const double factor = profile.ProfileVFactor * (abc ? 4.0 : 1.0);
        const double elevation =
            Divide((100 - view.MouseTime) * factor, profile.ProfileVScale) - profile.ProfileMinElevation;
        return " Elevation= " + CStr(elevation) + unit;
    }
    std::string text = CStr(view.MouseTime) + "ms Coord= " + CStr(view.MouseDistance) + unit;
    if (moment != PointerMoment::Press) text += " Geo=" + CStr(view.MouseReceiver);
    return text;
}

bool CurvePointer::Read_Out(const PointerEvent& event, PointerMoment moment) {
    const Project& project = Work.Project;
    CurveView& view = Work.Curves;
    if (!Has_Project(project)) return false;
    Take_Pick_Factor();
    const double distance = Int(100 * (project.LineLength * event.X / curve_picture_width)) / 100;
    view.MouseDistance = std::clamp(distance, 0.0, std::max(0.0, project.LineLength));
    Store_If_It_Fits(view.MouseReceiver, Receiver_At(event.X, project.NbReceivers, moment));
    const double latest = Rounded(view.PickFactor * curve_picture_height);
    Store_If_It_Fits(view.MouseTime, std::clamp(Int(view.PickFactor * event.Y), 0.0, latest));
    if (moment == PointerMoment::Press) {
        Store_If_It_Fits(view.DownDistance, view.MouseDistance);
        view.DownTime = view.MouseTime;
        view.DownX = event.X;
        view.DownY = event.Y;
    }
    try {
        Work.Fields.Text1 = Read_Out_Text(moment);
    } catch (const Fault&) {
        // No profile has been drawn: the text stays.
    }
    return true;
}

/// What takes the mouse: the dialog that the press belongs to, or else the mode in force; null for one that
/// nothing reacts in.
CurvePointerHandler* CurvePointer::Handler() const {
    if (Taken != nullptr) return Taken;
    const DisplayMode mode = Work.Mode.Current();
    const auto found = Handlers.find(mode);
    if (found != Handlers.end()) return found->second;
    return mode == DisplayMode::Dromo ? DromoMode.get() : nullptr;
}

void CurvePointer::Dispatch(void (CurvePointerHandler::*what)(const PointerEvent&),
                            const PointerEvent& event) {
    CurvePointerHandler* handler = Handler();
    if (handler == nullptr) return;
    try {
        (handler->*what)(event);
    } catch (const Fault&) {
        // What could not be computed is left as it was.
    }
}

bool CurvePointer::Shows_Curves() const {
    const DisplayMode mode = Work.Mode.Current();
    switch (mode) {
        case DisplayMode::Dromo:
        case DisplayMode::Both:
        case DisplayMode::Vitesse:
        case DisplayMode::Vitesse2:
        case DisplayMode::Velocity:
        case DisplayMode::Fantom:
        case DisplayMode::Delay:
        case DisplayMode::Calcul:
            return true;
        default:
            return false;
    }
}

/// Without a button the curve under the pointer is lit and told.
void CurvePointer::Hover(const PointerEvent& event) {
    if (event.LeftButton || event.RightButton || Work.Curves.PickMoving != 0 || !Shows_Curves()) return;
    Light_Curve(Work, Outside, event.X, event.Y);
    if (const std::string lit = Lit_Text(Work); !lit.empty()) Work.Fields.Text1 += "   " + lit;
}

/// A click on a curve while no dialog has the picture.
void CurvePointer::Choose(const PointerEvent& release) {
    constexpr double still = 3;  // pixels that a hand moves in a click
    const DisplayMode mode = Work.Mode.Current();
    if (!release.LeftButton || !On_Choose || (mode != DisplayMode::Dromo && mode != DisplayMode::Both))
        return;
    const Picture& dromo = Outside.Show.Canvas_Of(Canvas::Dromo);
    const Frame frame = dromo.Current_Frame();
    const double moved = std::hypot(frame.To_Pixel_X(release.X) - frame.To_Pixel_X(Work.Curves.DownX),
                                    frame.To_Pixel_Y(release.Y) - frame.To_Pixel_Y(Work.Curves.DownY));
    if (moved > still) return;
    const auto found = Curve_At(Work, frame, release.X, release.Y, Pointer_Reach(dromo));
    if (found) On_Choose(*found);
}

void CurvePointer::Leave() {
    Unlight_Curve(Work, Outside);
    if (CurvePointerHandler* handler = Handler()) handler->Leave();
}

void CurvePointer::Press(const PointerEvent& event) {
    if (!Read_Out(event, PointerMoment::Press)) return;
    if (Work.Curves.PickMoving != 0) {
        Moving->Press(event);
    } else {
        CurvePointerHandler* dialog = Of_Dialog();
        Taken = dialog != nullptr && dialog->Takes(event) ? dialog : nullptr;
        Dispatch(&CurvePointerHandler::Press, event);
    }
    Outside.Show.Show_Fields();
}

void CurvePointer::Move(const PointerEvent& event) {
    if (!Read_Out(event, PointerMoment::Move)) return;
    if (Work.Curves.PickMoving == 0) Dispatch(&CurvePointerHandler::Move, event);
    Hover(event);
    if (Work.Curves.RulerShown) Move_Velocity_Cross(Work, Outside, event.X, event.Y);
    Outside.Show.Show_Fields();
}

void CurvePointer::Release(const PointerEvent& event) {
    if (!Read_Out(event, PointerMoment::Release)) return;
    if (Work.Curves.PickMoving != 0) {
        Moving->Release(event);
    } else {
        Dispatch(&CurvePointerHandler::Release, event);
        if (std::exchange(Taken, nullptr) == nullptr) Choose(event);
    }
    Outside.Show.Show_Fields();
}

void CurvePointer::Double_Click(const PointerEvent& event) {
    if (!Read_Out(event, PointerMoment::Press)) return;
    // Where other curves stand, no pick lies under the pointer.
    const DisplayMode mode = Work.Mode.Current();
    if (mode != DisplayMode::Grm && mode != DisplayMode::GrmV) Moving->Catch();
    Outside.Show.Show_Fields();
}

void CurvePointer::Key(int code) {
    if (!Has_Project(Work.Project)) return;
    CurvePointerHandler* dialog = Of_Dialog();
    CurvePointerHandler* handler = Handler();
    if ((dialog != nullptr && dialog->Key(code)) || (handler != nullptr && handler->Key(code))) {
        Outside.Show.Show_Fields();
        return;
    }
    Velocity_Ruler_Key(Work, Outside, code);
}

}  // namespace tarnvik
