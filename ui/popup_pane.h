#pragma once

#include <QFrame>
#include <QToolButton>

namespace tarnvik {

/// Controls that are not needed at every moment: a pane that opens below its button and closes with Escape or
/// a press beside it. What was typed into one of its fields counts then.
class PopupPane : public QFrame {
    Q_OBJECT

  public:
    /// `button` opens the pane, and owns it.
    explicit PopupPane(QToolButton* button);

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void Open();
    QToolButton* Button;
};

}  // namespace tarnvik
