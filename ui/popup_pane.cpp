#include "ui/popup_pane.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

namespace tarnvik {

PopupPane::PopupPane(QToolButton* button) : QFrame(button, Qt::Popup), Button(button) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    // The press that closes the pane shall not pick as well.
    setAttribute(Qt::WA_NoMouseReplay);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setArrowType(Qt::NoArrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, &PopupPane::Open);
}

void PopupPane::Open() {
    adjustSize();
    const QRect screen = Button->screen()->availableGeometry();
    QPoint place = Button->mapToGlobal(QPoint(0, Button->height()));
    place.setX(std::max(screen.left(), std::min(place.x(), screen.right() - width())));
    if (place.y() + height() > screen.bottom())
        place.setY(std::max(screen.top(), Button->mapToGlobal(QPoint(0, 0)).y() - height()));
    move(place);
    show();
    focusNextChild();
}

void PopupPane::hideEvent(QHideEvent* event) {
    // A field that only loses its window would keep what was typed to itself.
    if (QWidget* inside = focusWidget()) inside->clearFocus();
    QFrame::hideEvent(event);
}

}  // namespace tarnvik
