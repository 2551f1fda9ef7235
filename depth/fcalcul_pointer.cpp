#include "depth/fcalcul_pointer.h"

#include <cmath>

#include "core/fault.h"
#include "core/text/number.h"
#include "traveltime/regression_vitesse.h"

namespace tarnvik {

namespace {

bool Of_Family(const std::string& field, const char* family) {
    return field.starts_with(family);
}

/// "V3A" for "V3B" and the other way round.
std::string Other_Side(std::string field) {
    field.back() = field.back() == 'A' ? 'B' : 'A';
    return field;
}

/// The intercept that comes with a velocity: "IT2A" for "V3A", none for layer 1.
std::string Intercept_Of(const std::string& velocity_field) {
    const int refractor = velocity_field[1] - '1';
    return "IT" + CStr(refractor) + velocity_field.back();
}

}  // namespace

void FcalculPointer::Press(const PointerEvent& event) {
    const int shot = Form.Shot();
    if (shot == 0) return;
    const std::string& focus = Work.Velocity.FocusField;
    std::string* field = Form.Field_Named(focus);
    const bool intercept = Of_Family(focus, "IT");
    const bool critical_distance = Of_Family(focus, "CD");
    if (field == nullptr || (!intercept && !critical_distance)) {
        if (event.LeftButton) Band.Start(event);
        return;
    }
    Band.Close();
    if (intercept) {
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
    const std::string& focus = Work.Velocity.FocusField;
    const int shot = Form.Shot();
    const int receivers = Work.Project.NbReceivers;
    if (shot == 0 || receivers < 1 || !event.LeftButton || !Band.Is_Open()) return;
    if (Of_Family(focus, "IT") || Of_Family(focus, "CD")) return;
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
    const bool fitted = Regression_Vitesse(Work, Outside, shot, first, last, work.VelocityResult);
    if (fitted) Fill_Velocity(work.VelocityResult);
    Outside.Show.Show_Fields();
    Outside.Show.Bring_To_Front(Dialog::Fcalcul);
}

/// The velocity and its intercept into the field that has the focus; an end shot has one branch only and
/// takes them on both sides.
void FcalculPointer::Fill_Velocity(double velocity) {
    std::string& focus = Work.Velocity.FocusField;
    if (Of_Family(focus, "V") && Form.Field_Named(focus) != nullptr) {
        const auto fill = [&](const std::string& name) {
            *Form.Field_Named(name) = CStr(velocity);
            if (std::string* intercept = Form.Field_Named(Intercept_Of(name)))
                *intercept = CStr(Work.Velocity.InterceptResult);
        };
        fill(focus);
        if (Form.End_Shot()) fill(Other_Side(focus));
    }
    focus.clear();
}

}  // namespace tarnvik
