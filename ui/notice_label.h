#pragma once

#include <QLabel>

namespace tarnvik {

/// One line of text that never widens its window: the middle gives way where there is no room, and the
/// tooltip has the whole. Used for paths and for notices, which end in their reason.
class NoticeLabel : public QLabel {
    Q_OBJECT

  public:
    /// A prominent notice stands on amber as long as there is a text.
    explicit NoticeLabel(bool prominent, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    bool Prominent;
};

}  // namespace tarnvik
