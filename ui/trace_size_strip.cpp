#include "ui/trace_size_strip.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "app/session.h"

namespace tarnvik {

namespace {
constexpr int side_room = 3;
}  // namespace

TraceSizeStrip::TraceSizeStrip(Session& session, PictureBox& record) : Program(session), Record(record) {
    setObjectName("size_grid");
    setAccessibleName(tr("Size factors of the traces"));
    setMouseTracking(true);
    QFont small = font();
    small.setPointSizeF(std::max(6.0, small.pointSizeF() - 1.5));
    setFont(small);
    setFixedHeight(fontMetrics().height() + 2);
}

double TraceSizeStrip::Left() const {
    return Record.Canvas().Window().left() / Record.devicePixelRatioF();
}

double TraceSizeStrip::Width() const {
    return Record.Canvas().Window().width() / Record.devicePixelRatioF();
}

void TraceSizeStrip::Refresh() {
    const TextGrid& sizes = Program.Work.Grids.size_grid;
    QStringList texts;
    for (int row = 0; row < sizes.Rows(); ++row)
        texts << QString::fromStdString(sizes.Text(row, 0));
    // Without a record the rows stand empty.
    if (std::all_of(texts.cbegin(), texts.cend(), [](const QString& text) { return text.isEmpty(); }))
        texts.clear();
    int widest = 0;
    for (const QString& text : std::as_const(texts))
        widest = std::max(widest, fontMetrics().horizontalAdvance(text));
    const bool upright = !texts.isEmpty() && Width() / static_cast<double>(texts.size()) < widest + side_room;
    const int height = (upright ? std::max(widest, fontMetrics().height()) : fontMetrics().height()) + 2;
    if (height != this->height()) setFixedHeight(height);
    if (texts == Texts && upright == Upright && sizes.CurrentRow == Current) return;
    Texts = texts;
    Upright = upright;
    Current = sizes.CurrentRow;
    update();
}

void TraceSizeStrip::paintEvent(QPaintEvent*) {
    if (Texts.isEmpty()) return;
    QPainter painter(this);
    const double step = Width() / static_cast<double>(Texts.size());
    const bool room = step >= fontMetrics().ascent();
    const QColor mark = palette().color(QPalette::Highlight);
    for (int row = 0; row < Texts.size(); ++row) {
        const QRectF cell(Left() + row * step, 0, step, height());
        const bool changed = Texts[row] != "1";
        if (changed) {
            QColor light = mark;
            light.setAlphaF(0.35F);
            painter.fillRect(cell.adjusted(0.5, 0, -0.5, 0), light);
        }
        if (row == Current) painter.fillRect(QRectF(cell.left(), height() - 2, step, 2), mark);
        if (!room) continue;
        painter.setPen(
            palette().color(changed ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
        if (Upright) {
            painter.save();
            painter.translate(cell.center());
            painter.rotate(-90);
            painter.drawText(QRectF(-height() / 2.0, -step / 2, height(), step), Qt::AlignCenter, Texts[row]);
            painter.restore();
        } else {
            painter.drawText(cell, Qt::AlignCenter, Texts[row]);
        }
    }
}

void TraceSizeStrip::Point_At(double x) {
    Program.TraceSizeMouse.Move(x - Left(), Width());
    Refresh();
}

void TraceSizeStrip::mouseMoveEvent(QMouseEvent* event) {
    Point_At(event->position().x());
}

void TraceSizeStrip::mousePressEvent(QMouseEvent* event) {
    if (Texts.isEmpty()) return;
    Point_At(event->position().x());
    Program.TraceSizeMouse.Press(event->button() == Qt::LeftButton ? 1 : 2);
}

void TraceSizeStrip::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second of two quick clicks is a click like the first.
    mousePressEvent(event);
}

bool TraceSizeStrip::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    if (Texts.isEmpty()) return true;
    const auto* help = static_cast<QHelpEvent*>(event);
    Point_At(help->pos().x());
    QToolTip::showText(help->globalPos(),
                       QString::fromStdString(Program.TraceSizeMouse.ToolTip) + "\n" +
                           tr("Left click doubles the size of the trace, right click halves it"),
                       this);
    return true;
}

}  // namespace tarnvik
