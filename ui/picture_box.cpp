#include "ui/picture_box.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSvgRenderer>
#include <QTimer>
#include <algorithm>
#include <cmath>

namespace tarnvik {

namespace {

constexpr double points_an_inch = 72;
constexpr int pick_pointer_size = 24;

QCursor Pick_Cursor(double ratio) {
    QPixmap pixmap(QSize(pick_pointer_size, pick_pointer_size) * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(QStringLiteral(":/icons/pick-move.svg")).render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return QCursor(pixmap, pick_pointer_size / 2, pick_pointer_size / 2);
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent), Paper({1, 1}, 1) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(16, 16);
    Paper.OnChanged = [this](const QRect& changed) {
        update(QRectF(changed.x() / Ratio, changed.y() / Ratio, changed.width() / Ratio,
                      changed.height() / Ratio)
                   .toAlignedRect());
    };
    Paper.OnPointer = [this](PointerShape shape) { Show_Pointer(shape); };
}

int PictureBox::Key_Code(int qt_key) {
    switch (qt_key) {
        case Qt::Key_PageUp:
            return 33;
        case Qt::Key_PageDown:
            return 34;
        case Qt::Key_Left:
            return 37;
        case Qt::Key_Up:
            return 38;
        case Qt::Key_Right:
            return 39;
        case Qt::Key_Down:
            return 40;
        case Qt::Key_Plus:
            return 107;
        case Qt::Key_Minus:
            return 109;
        default:
            return 0;
    }
}

void PictureBox::Fit_Paper() {
    Ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * Ratio).toSize();
    const double density = logicalDpiX() / points_an_inch * Ratio;
    if (pixels == Paper.Size() && density == Paper.Pixels_Per_Point()) return;
    Paper.Resize(pixels, density);
    emit Resized();
}

void PictureBox::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Fit_Paper();
}

void PictureBox::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Fit_Paper();
}

void PictureBox::paintEvent(QPaintEvent* event) {
    // The window has come to a screen of another density.
    if (devicePixelRatioF() != Ratio) QTimer::singleShot(0, this, [this] { Fit_Paper(); });
    const QImage& image = Paper.Image();
    // A view on the same pixels that knows the density: nothing is copied.
    QImage view(image.constBits(), image.width(), image.height(), image.bytesPerLine(), image.format());
    const QRect changed = event->rect();
    QPainter painter(this);
    painter.drawImage(
        QRectF(changed), view,
        QRectF(changed.x() * Ratio, changed.y() * Ratio, changed.width() * Ratio, changed.height() * Ratio));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(QRectF(Paper.Window().left() / Ratio, Paper.Window().top() / Ratio,
                               Paper.Window().width() / Ratio, Paper.Window().height() / Ratio));
    for (const auto& [layer, marks] : Marks) {
        for (const Mark& mark : marks)
            Paint_Mark(painter, mark);
    }
}

QPointF PictureBox::Place_Of(double x, double y) const {
    const Frame frame = Paper.Current_Frame();
    return QPointF(Paper.Window().left() + frame.To_Pixel_X(x), Paper.Window().top() + frame.To_Pixel_Y(y)) /
           Ratio;
}

QRect PictureBox::Extent(const Mark& mark) const {
    const QPointF from = Place_Of(mark.X1, mark.Y1);
    if (mark.Shape == Mark::Kind::Text) {
        const QSize size = fontMetrics().size(0, QString::fromStdString(mark.Words));
        return QRect(from.toPoint(), size).adjusted(-4, -4, 4, 4);
    }
    const QPointF to = mark.Shape == Mark::Kind::Dot ? from : Place_Of(mark.X2, mark.Y2);
    const int margin = 4 * mark.Width + 2;
    return QRectF(from, to).normalized().toAlignedRect().adjusted(-margin, -margin, margin, margin);
}

void PictureBox::Show_Marks(MarkLayer layer, std::vector<Mark> marks) {
    std::vector<Mark>& shown = Marks[layer];
    if (shown == marks) return;
    for (const Mark& mark : shown)
        update(Extent(mark));
    shown = std::move(marks);
    for (const Mark& mark : shown)
        update(Extent(mark));
}

void PictureBox::Paint_Mark(QPainter& painter, const Mark& mark) const {
    const QColor colour(mark.InColour & 255, mark.InColour >> 8 & 255, mark.InColour >> 16 & 255);
    const double width = mark.Width * logicalDpiX() / points_an_inch;
    const QPointF from = Place_Of(mark.X1, mark.Y1);
    painter.setPen(QPen(colour, width, mark.Dashed ? Qt::DashLine : Qt::SolidLine));
    painter.setBrush(Qt::NoBrush);
    switch (mark.Shape) {
        case Mark::Kind::Line:
            painter.drawLine(from, Place_Of(mark.X2, mark.Y2));
            break;
        case Mark::Kind::Box:
            painter.drawRect(QRectF(from, Place_Of(mark.X2, mark.Y2)).normalized());
            break;
        case Mark::Kind::Dot:
            painter.setPen(Qt::NoPen);
            painter.setBrush(colour);
            painter.drawEllipse(from, 1.5 * width, 1.5 * width);
            break;
        case Mark::Kind::Text: {
            const QString words = QString::fromStdString(mark.Words);
            const QRectF room(from, QSizeF(fontMetrics().size(0, words)));
            painter.fillRect(room.adjusted(-2, 0, 2, 0), QColor(255, 255, 255, 220));
            painter.drawText(room, Qt::AlignLeft | Qt::AlignTop, words);
            break;
        }
    }
}

PictureEvent PictureBox::At(QPointF place, Qt::MouseButtons buttons) const {
    const Frame frame = Paper.Current_Frame();
    const double across = place.x() * Ratio - Paper.Window().left();
    const double down = place.y() * Ratio - Paper.Window().top();
    return {frame.To_World_X(std::clamp(across, 0.0, frame.Width)),
            frame.To_World_Y(std::clamp(down, 0.0, frame.Height)),
            buttons.testFlag(Qt::LeftButton),
            buttons.testFlag(Qt::RightButton),
            buttons.testFlag(Qt::MiddleButton),
            across,
            down};
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    emit Pressed(At(event->position(), event->button()));
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    emit Moved(At(event->position(), event->buttons()));
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    emit Released(At(event->position(), event->button()));
}

void PictureBox::mouseDoubleClickEvent(QMouseEvent* event) {
    emit Double_Clicked(At(event->position(), event->button()));
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    const int code = Key_Code(event->key());
    if (code == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    emit Key_Pressed(code);
}

void PictureBox::wheelEvent(QWheelEvent* event) {
    constexpr double angle_a_step = 120;
    const QPoint angle = event->angleDelta();
    emit Wheel_Turned((angle.y() != 0 ? angle.y() : angle.x()) / angle_a_step, event->modifiers(),
                      At(event->position(), event->buttons()));
    event->accept();
}

void PictureBox::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    emit Left();
}

void PictureBox::Show_Pointer(PointerShape shape) {
    switch (shape) {
        case PointerShape::Arrow:
            setCursor(Qt::ArrowCursor);
            break;
        case PointerShape::Cross:
            setCursor(Qt::CrossCursor);
            break;
        case PointerShape::Hourglass:
            setCursor(Qt::WaitCursor);
            break;
        case PointerShape::PickMove:
            setCursor(Pick_Cursor(devicePixelRatioF()));
            break;
        case PointerShape::Resize:
            setCursor(Qt::SizeAllCursor);
            break;
    }
}

}  // namespace tarnvik
