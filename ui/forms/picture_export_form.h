#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of PictureExport, "Save picture".
class PictureExportForm : public Form {
    Q_OBJECT

  public:
    PictureExportForm(Session& session, QtDisplay& display);
};

}  // namespace tarnvik
