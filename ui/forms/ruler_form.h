#pragma once

#include <QPointer>

#include "ui/form.h"
#include "ui/picture_box.h"

namespace tarnvik {

/// Form of RulerF: a time strip to lay against a curve or a trace. Whatever its own size, a time stands as
/// far from the next one as on the picture that it is laid against, and at the same height when both begin at
/// the same one.
class RulerForm : public Form {
    Q_OBJECT

  public:
    RulerForm(Session& session, QtDisplay& display);
    void Refresh() override;

  private:
    Session& Program;
    PictureBox* regle = nullptr;
    QPointer<PictureBox> Curves;
    QPointer<PictureBox> Record;
};

}  // namespace tarnvik
