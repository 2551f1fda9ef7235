#include "depth/velocity_line.h"

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/dipping_refractor.h"
#include "traveltime/velocity_ruler.h"

namespace tarnvik {

void VelocityLine::Load() {
    Work.Curves.RulerShown = true;
    Results_Changed();
    Outside.Show.Show_Fields();
}

void VelocityLine::Close() {
    Work.Curves.RulerShown = false;
    Erase_Velocity_Cross(Work, Outside);
    Outside.Show.Close_Dialog(Dialog::vELINE);
    Outside.Show.Show_Fields();
}

void VelocityLine::Results_Changed() {
    Erase_Velocity_Cross(Work, Outside);
    Work.Curves.CrossVelocity1 = Val(DownDip);
    Work.Curves.CrossVelocity2 = Val(UpDip);
}

void VelocityLine::compute_dip() {
    const double v1 = Val(Velocity1);
    double v2 = Val(Velocity2);
    const double dip = Val(Dip);
    if (dip != 0) Velocity1 = CStr(v1);
    DownDip.clear();
    UpDip.clear();
    if (v1 >= v2) {
        Outside.Ask.Say("Velocity 2 must be > Velocity 1", Work.AppTitle, Icon::Critical);
        v2 = v1 + 1;
        Velocity2 = CStr(v2);
    }
    try {
        const DippingVelocities apparent = Apparent_Velocities(v1, v2, dip);
        DownDip = CStr(apparent.Down);
        UpDip = CStr(apparent.Up);
    } catch (const Fault&) {
        Outside.Ask.Say("Calculation not possible", Work.AppTitle, Icon::Critical);
    }
    Results_Changed();
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
