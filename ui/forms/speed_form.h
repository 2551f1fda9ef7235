#pragma once

#include "ui/form.h"

namespace Ui {
class SpeedForm;
}

namespace tarnvik {

/// Form of SpeedF, "Velocity calculation".
class SpeedForm : public Form {
    Q_OBJECT

  public:
    SpeedForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Called() override;
    void Closed() override;

  private:
    void Bind_Stretch(const Ui::SpeedForm& controls);
    void Bind_Layer(const Ui::SpeedForm& controls);
    void Bind_Results(const Ui::SpeedForm& controls);

    Session& Program;
    QWidget* FirstBox = nullptr;
    QWidget* LastBox = nullptr;
};

}  // namespace tarnvik
