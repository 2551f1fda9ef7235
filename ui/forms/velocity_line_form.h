#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of vELINE, "Velocity line".
class VelocityLineForm : public Form {
    Q_OBJECT

  public:
    VelocityLineForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Closed() override;

  private:
    Session& Program;
    QWidget* FirstBox = nullptr;
};

}  // namespace tarnvik
