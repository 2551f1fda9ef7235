#pragma once

#include <QTimer>

#include "ui/form.h"
#include "ui/picture_box.h"

namespace tarnvik {

/// Form of Travel_Time_2: the curves once more, in a window of their own beside the field record.
class SecondWindowForm : public Form {
    Q_OBJECT

  public:
    SecondWindowForm(Session& session, QtDisplay& display);
    void Closed() override;

  private:
    Session& Program;
    QTimer Resized;
};

}  // namespace tarnvik
