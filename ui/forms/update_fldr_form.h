#pragma once

#include "ui/form.h"

class QLineEdit;

namespace tarnvik {

class Update_FLDR;

/// Form of Update_FLDR, "Update FLDR and TRACF".
class UpdateFldrForm : public Form {
    Q_OBJECT

  public:
    UpdateFldrForm(Session& session, QtDisplay& display);
    void Opened() override;

  private:
    void Renumber();
    void Return_Pressed();

    Update_FLDR& Logic;
    QLineEdit* Input = nullptr;
};

}  // namespace tarnvik
