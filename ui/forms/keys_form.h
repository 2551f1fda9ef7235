#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of the list of keys and gestures.
class KeysForm : public Form {
    Q_OBJECT

  public:
    KeysForm(Session& session, QtDisplay& display);
    QSize sizeHint() const override { return {560, 640}; }
};

}  // namespace tarnvik
