#pragma once

#include "ui/form.h"

class QKeyEvent;
class QWheelEvent;

namespace tarnvik {

/// Form of Erase_TT, "Time Time  break correction".
class EraseForm : public Form {
    Q_OBJECT

  public:
    EraseForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Closed() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void wheelEvent(QWheelEvent* event) override;

  private:
    bool Step_By_Key(const QKeyEvent& event);
    void Step_By_Wheel(const QWheelEvent& event);

    Session& Program;
    QLineEdit* ShiftBox = nullptr;
    QWidget* Picture = nullptr;  ///< of the curves
    int Turned = 0;              ///< of the wheel since the last whole step
};

}  // namespace tarnvik
