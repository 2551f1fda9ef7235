#pragma once

#include <QScrollBar>
#include <map>
#include <string>

#include "ui/form.h"

class QLineEdit;

namespace Ui {
class DepthForm;
}

namespace tarnvik {

/// Scroll bar whose steps may each open a message: a held arrow makes one step, since it would go on stepping
/// behind the message.
class ShotScrollBar : public QScrollBar {
    Q_OBJECT

  public:
    using QScrollBar::QScrollBar;
    void Stop_Stepping() { setRepeatAction(SliderNoAction); }
};

/// Form of Fcalcul, "Depth Computation".
class DepthForm : public Form {
    Q_OBJECT

  public:
    DepthForm(Session& session, QtDisplay& display);
    bool eventFilter(QObject* watched, QEvent* event) override;
    void Opened() override;
    void Called() override;
    void Closed() override;

  private:
    void Save_And_Go_On();
    QLineEdit* Control(const char* name);
    void Bind_Shot(const Ui::DepthForm& controls);
    void Bind_Layers();
    void Bind_Refractors();
    void Picture_Field(const char* control, AwaitedField field);
    void Mean_Field(const char* control, const std::string& field);
    void Show_For_Layers(int layers, std::initializer_list<QWidget*> controls);

    Session& Program;
    std::map<QObject*, AwaitedField> PictureFields;
    QLineEdit* LastEntered = nullptr;
    QLineEdit* LayerCount = nullptr;
};

}  // namespace tarnvik
