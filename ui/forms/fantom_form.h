#pragma once

#include <QComboBox>
#include <QScrollBar>

#include "ui/form.h"

namespace tarnvik {

/// Form of FantomF, "Shot Translation".
class FantomForm : public Form {
    Q_OBJECT

  public:
    FantomForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Called() override;
    void Closed() override;

  private:
    void Pair_Box(QComboBox* box, std::string& shot);

    Session& Program;
    QComboBox* FixedBox = nullptr;
    QComboBox* MovingBox = nullptr;
    QScrollBar* Slider = nullptr;
};

}  // namespace tarnvik
