#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of confirm, "Record data".
class ConfirmForm : public Form {
    Q_OBJECT

  public:
    ConfirmForm(Session& session, QtDisplay& display);
    void Opened() override;

  private:
    Session& Program;
};

}  // namespace tarnvik
