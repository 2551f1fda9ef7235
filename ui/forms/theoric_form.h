#pragma once

#include "ui/form.h"

namespace Ui {
class TheoricForm;
}

namespace tarnvik {

/// Form of Theoric_F, "Tarnvik Theoric travel time".
class TheoricForm : public Form {
    Q_OBJECT

  public:
    TheoricForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Closed() override;

  private:
    void Bind_Rows();
    void Show_Units(const Ui::TheoricForm& controls);

    Session& Program;
};

}  // namespace tarnvik
