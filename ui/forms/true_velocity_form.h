#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of SpeedF2, "True Velocity Calculation".
class TrueVelocityForm : public Form {
    Q_OBJECT

  public:
    TrueVelocityForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Called() override;
    void Closed() override;

  private:
    Session& Program;
    QWidget* FirstBox = nullptr;
    QWidget* LastBox = nullptr;
};

}  // namespace tarnvik
