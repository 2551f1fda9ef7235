#include "ui/picture_gestures.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "ui/picture_box.h"

namespace tarnvik {

namespace {

constexpr double wheel_zoom = 1.25;
constexpr double angle_a_step = 120;
constexpr double share_a_step = 0.1;  // of the window that one step of the wheel pans

}  // namespace

PictureGestures::PictureGestures(PictureBox* box) : QObject(box), Box(box) {
    box->installEventFilter(this);
}

QPointF PictureGestures::World(QPointF place) const {
    const double ratio = Box->devicePixelRatioF();
    const QPointF inside = place * ratio - Box->Canvas().Window().topLeft();
    const Frame frame = Box->Canvas().Current_Frame();
    return {frame.To_World_X(inside.x()), frame.To_World_Y(inside.y())};
}

bool PictureGestures::Wheel(QWheelEvent* event) {
    // Some systems turn the wheel sideways while a key is held.
    const QPoint angle = event->angleDelta();
    const double steps = (angle.y() != 0 ? angle.y() : angle.x()) / angle_a_step;
    const Qt::KeyboardModifiers keys = event->modifiers();
    const bool time = keys.testFlag(Qt::ControlModifier);
    const bool distance = keys.testFlag(Qt::ShiftModifier);
    if (time || distance) {
        const double more = std::pow(wheel_zoom, steps);
        const Frame frame = Box->Canvas().Current_Frame();
        const QPointF at = World(event->position());
        const auto within = [](double value, double a, double b) {
            return std::clamp(value, std::min(a, b), std::max(a, b));
        };
        const QPointF held(within(at.x(), frame.Left, frame.Right), within(at.y(), frame.Top, frame.Bottom));
        if (Enlarge) Enlarge(held, distance ? more : 1, time ? more : 1);
        return true;
    }
    if (!Pan) return true;
    const Frame frame = Box->Canvas().Current_Frame();
    const bool sideways = angle.y() == 0 || (Whole_Height && Whole_Height());
    // Turned away from the hand the wheel shows what lies above, or to the left.
    if (sideways) {
        Pan(-steps * share_a_step * (frame.Right - frame.Left), 0);
    } else {
        Pan(0, steps * share_a_step * (frame.Top - frame.Bottom));
    }
    return true;
}

bool PictureGestures::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Wheel:
            event->accept();
            return Wheel(static_cast<QWheelEvent*>(event));
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonPress: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() != Qt::MiddleButton) break;
            Dragging = true;
            DragPlace = mouse->position();
            return true;
        }
        case QEvent::MouseMove: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (!Dragging) break;
            const QPointF before = World(DragPlace);
            const QPointF now = World(mouse->position());
            DragPlace = mouse->position();
            if (Pan) Pan(before.x() - now.x(), before.y() - now.y());
            return true;
        }
        case QEvent::MouseButtonRelease: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() != Qt::MiddleButton || !Dragging) break;
            Dragging = false;
            return true;
        }
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress: {
            // Another picture beside this one knows the key too: it goes to the one that has the focus.
            auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() != Qt::Key_Home || key->modifiers() != Qt::NoModifier || !Show_All) break;
            key->accept();
            if (event->type() == QEvent::KeyPress) Show_All();
            return true;
        }
        case QEvent::Leave:
            if (Left) Left();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tarnvik
