#pragma once

#include "ui/form.h"
#include "ui/picture_box.h"

namespace tarnvik {

/// Form of RulerF: a time strip to lay against a curve.
class RulerForm : public Form {
    Q_OBJECT

  public:
    RulerForm(Session& session, QtDisplay& display);
    void Refresh() override;

  private:
    Session& Program;
    PictureBox* regle = nullptr;
};

}  // namespace tarnvik
