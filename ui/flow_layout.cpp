#include "ui/flow_layout.h"

#include <algorithm>

namespace tarnvik {

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() {
    qDeleteAll(Items);
}

void FlowLayout::addItem(QLayoutItem* item) {
    Items.append(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return Items.value(index);
}

QLayoutItem* FlowLayout::takeAt(int index) {
    return index >= 0 && index < Items.size() ? Items.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const {
    return Arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::minimumSize() const {
    QSize largest;
    for (const QLayoutItem* item : Items)
        largest = largest.expandedTo(item->minimumSize());
    const QMargins room = contentsMargins();
    return largest + QSize(room.left() + room.right(), room.top() + room.bottom());
}

QSize FlowLayout::sizeHint() const {
    return minimumSize();
}

void FlowLayout::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    Arrange(place, true);
}

int FlowLayout::Arrange(const QRect& place, bool apply) const {
    const QRect room = place.marginsRemoved(contentsMargins());
    int top = room.top();
    int line_height = 0;
    int left = room.left();
    QList<QLayoutItem*> line;
    const auto end_line = [&] {
        int x = room.left();
        for (QLayoutItem* item : line) {
            const QSize size = item->sizeHint();
            if (apply) item->setGeometry(QRect(x, top, size.width(), line_height));
            x += size.width() + spacing();
        }
        line.clear();
    };
    for (QLayoutItem* item : Items) {
        const QSize size = item->sizeHint();
        if (!line.isEmpty() && left + size.width() > room.right() + 1) {
            end_line();
            top += line_height + spacing();
            left = room.left();
            line_height = 0;
        }
        line.append(item);
        left += size.width() + spacing();
        line_height = std::max(line_height, size.height());
    }
    end_line();
    return top + line_height - place.top() + contentsMargins().bottom();
}

}  // namespace tarnvik
