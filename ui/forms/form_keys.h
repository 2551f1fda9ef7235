#pragma once

#include <functional>

class QWidget;

namespace tarnvik {

/// Return or Enter anywhere in a form. On a button it presses that button instead.
void On_Enter(QWidget* form, std::function<void()> run);
/// Escape anywhere in a form.
void On_Escape(QWidget* form, std::function<void()> run);

/// Ctrl with Return or Enter, whatever has the focus in the form.
void On_Ctrl_Enter(QWidget* form, std::function<void()> run);

}  // namespace tarnvik
