#pragma once

#include "ui/form.h"

namespace tarnvik {

/// Form of GRM.
class GrmForm : public Form {
    Q_OBJECT

  public:
    GrmForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Called() override;
    void Closed() override;

  private:
    Session& Program;
    QLineEdit* First = nullptr;
};

}  // namespace tarnvik
