#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of `dip`, "Tarnvik Dip computation".
class DipForm : public Form {
    Q_OBJECT

  public:
    DipForm(Session& session, QtDisplay& display);
    void Opened() override;

  private:
    QWidget* FirstBox = nullptr;
};

}  // namespace tarnvik
