#include "depth/fcalcul_pointer.h"

#include <cmath>
#include <optional>

#include "core/fault.h"
#include "core/text/number.h"
#include "traveltime/regression_vitesse.h"

namespace tarnvik {

namespace {

using Family = AwaitedField::Family;

/// The intercept that comes with a velocity, none for layer 1.
std::optional<AwaitedField> Intercept_Of(AwaitedField velocity) {
    if (velocity.Row < 2) return std::nullopt;
    return AwaitedField{Family::Intercept, velocity.Row - 1, velocity.On};
}

bool Filled_By_Click(const std::optional<AwaitedField>& awaited) {
    return awaited && awaited->Of != Family::Velocity;
}

}  // namespace

void FcalculPointer::Press(const PointerEvent& event) {
    const int shot = Form.Shot();
    if (shot == 0) return;
    Forget_Wrong_Receivers(Work);
    const std::optional<AwaitedField>& awaited = Work.Velocity.Awaited;
    if (!Filled_By_Click(awaited)) {
        if (event.LeftButton) Band.Start(event);
        return;
    }
    Band.Close();
    std::string* field = Form.Field_Of(*awaited);
    if (awaited->Of == Family::Intercept) {
        *field = CStr(static_cast<int>(Work.Curves.MouseTime));
    } else {
        const double distance = Int(Work.Project.LineLength * event.X / regression_width);
        *field = CStr(std::abs(Work.Project.ShotDistance(shot) - distance));
    }
    Outside.Show.Show_Fields();
    Outside.Show.Bring_To_Front(Dialog::Fcalcul);
}

void FcalculPointer::Move(const PointerEvent& event) {
    if (Form.Shot() == 0 || !Band.Is_Open()) return;
    Band.Update(event);
    Tell_Band_Velocity(Work);
    Outside.Show.Show_Fields();
}

void FcalculPointer::Release(const PointerEvent& event) {
    const std::optional<AwaitedField> awaited = Work.Velocity.Awaited;
    const int shot = Form.Shot();
    const int receivers = Work.Project.NbReceivers;
    if (shot == 0 || receivers < 1 || !event.LeftButton || !Band.Is_Open()) return;
    if (Filled_By_Click(awaited)) return;
    Band.End(event);
    const CurveView& view = Work.Curves;
    const bool longer_than_zero = view.DragStartX != view.DragEndX || view.DragStartY != view.DragEndY;
    const double spacing = regression_width / receivers;
    int first = static_cast<int>(Int(view.DragStartX / spacing)) + 1;
    int last = static_cast<int>(Rounded(view.DragEndX / spacing));
    Band.Close();
    if (!longer_than_zero) return;

    VelocityWork& work = Work.Velocity;
    work.CurrentShot = static_cast<std::int16_t>(shot);
    // A first layer begins at the shot: its line goes through it.
    const bool first_layer = awaited && awaited->Row == 1;
    const bool fitted = Regression_Vitesse(Work, Outside, shot, first, last,
                                           first_layer ? StretchLine::ThroughShot : StretchLine::Free,
                                           work.VelocityResult, awaited ? awaited->Row : 0);
    if (fitted) {
        Work.Fields.Text1 = Velocity_Text(Work.Settings, work.VelocityResult);
        Fill_Velocity(work.VelocityResult);
    }
    Outside.Show.Show_Fields();
    Outside.Show.Bring_To_Front(Dialog::Fcalcul);
}

/// The velocity and its intercept into the field that has the focus; an end shot has one branch only and
/// takes them on both sides.
void FcalculPointer::Fill_Velocity(double velocity) {
    std::optional<AwaitedField>& awaited = Work.Velocity.Awaited;
    if (awaited) {
        const auto fill = [&](AwaitedField field) {
            *Form.Field_Of(field) = CStr(velocity);
            if (const auto intercept = Intercept_Of(field))
                *Form.Field_Of(*intercept) = CStr(Work.Velocity.InterceptResult);
        };
        fill(*awaited);
        if (Form.End_Shot()) fill(awaited->Other_Side());
    }
    awaited.reset();
}

}  // namespace tarnvik
