#pragma once

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/workspace.h"

namespace tarnvik {

/// Ties the controls of a form to the fields of its logic: one line each. What the user does goes into the
/// field at once and then runs the reaction; Refresh carries the fields back, and touches only controls that
/// show something else, so that a half-typed text stays. Fields and controls must outlive the binder.
class FieldBinder {
  public:
    using Reaction = std::function<void()>;

    FieldBinder() = default;
    FieldBinder(const FieldBinder&) = delete;
    FieldBinder& operator=(const FieldBinder&) = delete;

    /// The reaction runs at each letter typed.
    void Text(QLineEdit* control, std::string& field, Reaction changed = {});
    /// The reaction runs when Return is pressed or the control is left after a change.
    void Finished_Text(QLineEdit* control, std::string& field, Reaction finished);
    void Text(QLabel* control, const std::string& field);
    void Tick(QAbstractButton* control, bool& field, Reaction changed = {});
    /// Position in a list, from 0.
    void Choice(QComboBox* control, int& field, Reaction changed = {});
    /// Text of a list that can be typed over.
    void Text(QComboBox* control, std::string& field, Reaction changed = {});
    /// The reaction runs when an entry is chosen, the same one again included, or what was typed is finished.
    void Finished_Text(QComboBox* control, std::string& field, Reaction finished);
    /// The entries of a list, kept while they do not change. Comes before the text of the same control.
    void Entries(QComboBox* control, const std::vector<std::string>& entries);
    /// A field that cannot be typed into has the ground of the window, light or dark.
    void Flat(QLineEdit* control);
    /// A result: it can be selected and copied, not typed over, and looks unlike an input.
    void Result(QLineEdit* control, const std::string& field);
    /// One of several option buttons; the button's id in the group is the value.
    void Choice(QButtonGroup* group, int& field, Reaction changed = {});
    void Scroll(QScrollBar* control, ScrollBar& field, Reaction changed = {});
    /// A number from 1 to a limit that may change.
    void Scroll(QScrollBar* control, std::int32_t& field, std::function<int()> last, Reaction changed);
    /// A number that is typed as text; a text that is none counts by the digits that it begins with. The
    /// reaction runs when Return is pressed or the control is left after a change. A value that the field
    /// cannot hold leaves it as it was.
    void Finished_Number(QLineEdit* control, double& field, Reaction finished);
    void Finished_Number(QLineEdit* control, std::int32_t& field, Reaction finished);

    /// A button that runs a command.
    void Command(QAbstractButton* button, Reaction run);
    /// A control that is usable, or shown, only while a condition holds.
    void Enabled(QWidget* control, std::function<bool()> condition);
    void Shown(QWidget* control, std::function<bool()> condition);
    /// A control that the user has entered tells the logic.
    void On_Focus(QWidget* control, Reaction entered);
    /// Anything else that follows the fields.
    void Follow(Reaction refresh) { Refreshers.push_back(std::move(refresh)); }

    /// Carries all fields to their controls.
    void Refresh();

  private:
    template <class Value, class Parse>
    void Typed_Number(QLineEdit* control, Value& field, Parse parse, Reaction finished);
    std::vector<Reaction> Refreshers;
};

}  // namespace tarnvik
