#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of Zoom, "Enlargement factors".
class ZoomForm : public Form {
    Q_OBJECT

  public:
    ZoomForm(Session& session, QtDisplay& display);
};

}  // namespace tarnvik
