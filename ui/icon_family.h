#pragma once

#include <QIcon>
#include <QString>

namespace tarnvik {

/// An icon of the program's own family by its name (the key of the command it belongs to); empty when there
/// is none. It is drawn in the palette's text colour with one accent, sharp at any size and density.
QIcon Family_Icon(const QString& name);

}  // namespace tarnvik
