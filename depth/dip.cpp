#include "depth/dip.h"

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/dipping_refractor.h"

namespace tarnvik {

void DipComputation::Calcul_dip() {
    Dip.clear();
    try {
        Dip = CStr(Dip_Of_Refractor(Val(Velocity1), Val(UpDip), Val(DownDip)));
    } catch (const Fault&) {
        Outside.Ask.Say("Calculation not possible", Work.AppTitle, Icon::Critical);
    }
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
