#pragma once

#include "core/pick_place.h"

namespace tarnvik {

class Session;

/// The user has chosen a shot on the curves or in their list, with a receiver or 0: the list, the record, the
/// table's current cell and the dialogs that stand open go to it.
void Choose_Shot(Session& session, PickPlace place);

}  // namespace tarnvik
