#pragma once

#include <functional>

class QWidget;

namespace tarnvik {

/// Return or Enter anywhere in a form. On a button it presses that button instead.
void On_Enter(QWidget* form, std::function<void()> run);
/// Escape anywhere in a form.
void On_Escape(QWidget* form, std::function<void()> run);

}  // namespace tarnvik
