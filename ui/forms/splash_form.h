#pragma once

#include <QFrame>
#include <memory>

#include "app/splash.h"
#include "ui/form.h"

namespace tarnvik {

/// Form of frmSplash, the start dialog.
class SplashForm : public Form {
    Q_OBJECT

  public:
    SplashForm(Session& session, QtDisplay& display);

  private:
    void Run_After_Closing(std::function<void(frmSplash&)> command);

    std::shared_ptr<frmSplash> Logic;
};

/// Decoration of the start dialog: a shot, its rays refracted along two interfaces to a spread of receivers,
/// and above the ground the travel times that they give.
class RefractionSketch : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;
    QSize sizeHint() const override { return {430, 380}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarnvik
