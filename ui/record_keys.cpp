#include "ui/record_keys.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QShortcut>
#include <QTabBar>
#include <QTextEdit>
#include <QTimer>

#include "app/commands.h"
#include "app/session.h"
#include "ui/picture_box.h"

namespace tarnvik {

namespace {

constexpr std::string_view held_key = "P";

bool Is_Arrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

bool Is_Field(const QObject* control) {
    const auto* line = qobject_cast<const QLineEdit*>(control);
    return (line != nullptr && !line->isReadOnly()) ||
           qobject_cast<const QAbstractSpinBox*>(control) != nullptr ||
           qobject_cast<const QTextEdit*>(control) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(control) != nullptr;
}

/// True for a control that does something of its own with the key.
bool Needs(const QWidget* control, int key) {
    if (Is_Field(control) || qobject_cast<const QComboBox*>(control) != nullptr ||
        qobject_cast<const QAbstractItemView*>(control) != nullptr)
        return true;
    if (qobject_cast<const QAbstractSlider*>(control) != nullptr ||
        qobject_cast<const QTabBar*>(control) != nullptr)
        return Is_Arrow(key);
    return qobject_cast<const QAbstractButton*>(control) != nullptr && key == Qt::Key_Space;
}

bool Is_Picking_Key(int key, Qt::KeyboardModifiers modifiers) {
    const QKeySequence pressed(key | static_cast<int>(modifiers & ~Qt::KeypadModifier));
    for (const Command& command : Picking_Commands()) {
        if (command.Shortcut.empty()) continue;
        const QKeySequence known(
            QString::fromUtf8(command.Shortcut.data(), qsizetype(command.Shortcut.size())),
            QKeySequence::PortableText);
        if (known == pressed) return true;
    }
    return false;
}

}  // namespace

RecordKeys::RecordKeys(Session& session, QWidget* page, PictureBox* record)
    : QObject(page), Program(session), Page(page), Record(record) {
    for (const Command& command : Picking_Commands()) {
        // Escape belongs to the dialogs too, and a held key is no shortcut.
        if (command.Shortcut.empty() || command.Shortcut == "Esc" || command.Shortcut == held_key) continue;
        const QKeySequence key(QString::fromUtf8(command.Shortcut.data(), qsizetype(command.Shortcut.size())),
                               QKeySequence::PortableText);
        auto* shortcut = new QShortcut(key, page);
        shortcut->setAutoRepeat(command.Name.starts_with("Cursor_"));
        connect(shortcut, &QShortcut::activated, this,
                [this, name = command.Name] { Run_Command(Program, name); });
    }
    qApp->installEventFilter(this);
}

bool RecordKeys::In_Charge() const {
    return Page->isVisible() && Page->window()->isActiveWindow() &&
           QApplication::activePopupWidget() == nullptr;
}

bool RecordKeys::Key_Pressed(QWidget* at, int key, bool plain) {
    if (!plain || !In_Charge()) return false;
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (at == Record && key == Qt::Key_Escape) {
        Run_Command(Program, "Cursor_Hide");
        return true;
    }
    if (key == Qt::Key_P && !Needs(at, key)) {
        Program.Work.Record.Picking.Painting = true;
        Record->setCursor(Qt::UpArrowCursor);
        return false;
    }
    if ((enter || key == Qt::Key_Escape) && Is_Field(at)) {
        // Escape takes back what was typed, as far as it did not count with each letter.
        auto* line = qobject_cast<QLineEdit*>(at);
        if (key == Qt::Key_Escape && line != nullptr && Page->isAncestorOf(line)) {
            while (line->isUndoAvailable())
                line->undo();
        }
        // After the field's own handling.
        QTimer::singleShot(0, Record, [this, at = QPointer<QWidget>(at)] {
            if (at && at->hasFocus() && In_Charge()) Record->setFocus();
        });
    }
    return false;
}

/// After the control has done what it was clicked for.
void RecordKeys::Give_Back_Later() {
    QTimer::singleShot(0, Record, [this] {
        if (In_Charge() && Page->isAncestorOf(QApplication::focusWidget())) Record->setFocus();
    });
}

bool RecordKeys::Pressed_On_Record(Qt::MouseButton button) {
    const RecordView& view = Program.Work.Record;
    const bool awaited = view.ZoomMode == 1 || view.SpectrumRequest == 1 ||
                         (button == Qt::RightButton && view.AutoPickMode == -1);
    return FieldLeft && !awaited && (button == Qt::LeftButton || button == Qt::RightButton);
}

bool RecordKeys::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::ShortcutOverride: {
            auto* at = qobject_cast<QWidget*>(watched);
            const auto* key = static_cast<QKeyEvent*>(event);
            if (at != nullptr && at != Record && In_Charge() && Needs(at, key->key()) &&
                Is_Picking_Key(key->key(), key->modifiers())) {
                event->accept();
                return true;
            }
            break;
        }
        case QEvent::KeyPress: {
            auto* at = qobject_cast<QWidget*>(watched);
            const auto* key = static_cast<QKeyEvent*>(event);
            const bool plain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
            if (at != nullptr && at->hasFocus() && !key->isAutoRepeat() && Key_Pressed(at, key->key(), plain))
                return true;
            break;
        }
        case QEvent::KeyRelease: {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_P && !key->isAutoRepeat() && Program.Work.Record.Picking.Painting) {
                Program.Work.Record.Picking.Painting = false;
                Record->setCursor(Qt::CrossCursor);
            }
            break;
        }
        case QEvent::WindowDeactivate:
            // The key may be let go in another window.
            if (watched == Page->window()) Program.Work.Record.Picking.Painting = false;
            break;
        case QEvent::FocusOut:
            if (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason && Is_Field(watched))
                FieldLeft = true;
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            if (watched == Record && Pressed_On_Record(static_cast<QMouseEvent*>(event)->button()))
                return true;
            break;
        case QEvent::MouseButtonRelease:
            FieldLeft = false;
            // A tick that was set by the mouse would take the next Space for itself.
            if (const auto* tick = qobject_cast<QAbstractButton*>(watched);
                tick != nullptr && Page->isAncestorOf(tick))
                Give_Back_Later();
            break;
        case QEvent::FocusIn:
            // The list of a choice has closed.
            if (const auto* list = qobject_cast<QComboBox*>(watched);
                list != nullptr && Page->isAncestorOf(list) &&
                static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason)
                Give_Back_Later();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tarnvik
