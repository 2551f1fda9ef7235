#include "ui/notice_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tarnvik {

namespace {
constexpr int side_room = 6;
const QColor amber(255, 193, 79);
}  // namespace

NoticeLabel::NoticeLabel(bool prominent, QWidget* parent) : QLabel(parent), Prominent(prominent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    if (!prominent) return;
    QFont heavy = font();
    heavy.setBold(true);
    setFont(heavy);
}

QSize NoticeLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * side_room, fontMetrics().height() + 4};
}

QSize NoticeLabel::minimumSizeHint() const {
    return {4 * side_room, fontMetrics().height() + 4};
}

void NoticeLabel::paintEvent(QPaintEvent*) {
    if (text().isEmpty()) return;
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width() - 2 * side_room);
    QRect place = rect();
    if (Prominent) {
        place.setWidth(std::min(width(), fontMetrics().horizontalAdvance(shown) + 2 * side_room));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(amber);
        painter.drawRoundedRect(place, 3, 3);
    }
    painter.setPen(Prominent ? QColor(Qt::black) : palette().color(foregroundRole()));
    painter.drawText(place.adjusted(side_room, 0, -side_room, 0), static_cast<int>(alignment()), shown);
}

bool NoticeLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const bool cut = fontMetrics().horizontalAdvance(text()) + 2 * side_room > width();
        if (cut) {
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
            return true;
        }
    }
    return QLabel::event(event);
}

}  // namespace tarnvik
