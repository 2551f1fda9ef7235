#pragma once

#include "ui/form.h"

class QComboBox;

namespace Ui {
class DelayForm;
}

namespace tarnvik {

/// Form of DelayF, "Delay times".
class DelayForm : public Form {
    Q_OBJECT

  public:
    DelayForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Closed() override;

  private:
    void Bind_Shots(const Ui::DelayForm& controls);
    void Bind_Bars(const Ui::DelayForm& controls);

    Session& Program;
    QWidget* LeftBar = nullptr;
};

}  // namespace tarnvik
