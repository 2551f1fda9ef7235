#include "traveltime/speed_f2_pointer.h"

#include <algorithm>

namespace tarnvik {

void SpeedF2Pointer::Press(const PointerEvent&) {
    // The read-out counts from 0 at the line's first receiver; a number that none has is of no use here.
    const int receivers = std::max<int>(1, Work.Project.NbReceivers);
    Form.Take_Receiver(std::clamp<int>(Work.Curves.MouseReceiver, 1, receivers));
}

}  // namespace tarnvik
