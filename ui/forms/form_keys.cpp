#include "ui/forms/form_keys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QShortcut>
#include <utility>

namespace tarnvik {

namespace {

void On_Key(QWidget* form, const QKeySequence& key, const std::function<void()>& run) {
    auto* shortcut = new QShortcut(key, form);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, form, run);
}

}  // namespace

void On_Enter(QWidget* form, std::function<void()> run) {
    const auto pressed = [run = std::move(run)] {
        if (auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
            button != nullptr && !button->isCheckable()) {
            button->click();
            return;
        }
        run();
    };
    On_Key(form, Qt::Key_Return, pressed);
    On_Key(form, Qt::Key_Enter, pressed);
}

void On_Escape(QWidget* form, std::function<void()> run) {
    On_Key(form, Qt::Key_Escape, run);
}

void On_Ctrl_Enter(QWidget* form, std::function<void()> run) {
    On_Key(form, Qt::CTRL | Qt::Key_Return, run);
    On_Key(form, Qt::CTRL | Qt::Key_Enter, run);
}

}  // namespace tarnvik
