#pragma once

#include <QToolButton>

#include "ui/field_binder.h"

namespace tarnvik {

class Session;

/// Button with the menu of picking: what the keys do, what a pick snaps to and what stands beside the picks.
/// Its tool tip tells the colours.
QToolButton* Picking_Menu(Session& session, FieldBinder& fields);

/// What the colours of the picks mean, as rich text.
QString Pick_Legend();

}  // namespace tarnvik
