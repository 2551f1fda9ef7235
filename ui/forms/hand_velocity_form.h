#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of SpeedF3, "Velocity 2".
class HandVelocityForm : public Form {
    Q_OBJECT

  public:
    HandVelocityForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Closed() override;

  private:
    Session& Program;
    QWidget* ShotBox = nullptr;
};

}  // namespace tarnvik
