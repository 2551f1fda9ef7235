#include "ui/field_binder.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <optional>
#include <utility>

#include "core/text/number.h"

namespace tarnvik {

namespace {

void React(const FieldBinder::Reaction& reaction) {
    if (reaction) reaction();
}

/// Tells when a control gets the focus.
class FocusWatcher : public QObject {
  public:
    FocusWatcher(QWidget* control, FieldBinder::Reaction entered)
        : QObject(control), Entered(std::move(entered)) {
        control->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) Entered();
        return QObject::eventFilter(watched, event);
    }

  private:
    FieldBinder::Reaction Entered;
};

/// The arrow keys of a level bar go where they point: Qt turns them round together with those of upright
/// bars.
class ArrowKeys : public QObject {
  public:
    explicit ArrowKeys(QScrollBar* bar) : QObject(bar), Bar(bar) { bar->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && Bar->orientation() == Qt::Horizontal) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Left || key == Qt::Key_Right) {
                Bar->triggerAction(key == Qt::Key_Left ? QAbstractSlider::SliderSingleStepSub
                                                       : QAbstractSlider::SliderSingleStepAdd);
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    QScrollBar* Bar;
};

}  // namespace

void FieldBinder::Text(QLineEdit* control, std::string& field, Reaction changed) {
    QObject::connect(control, &QLineEdit::textEdited, control, [&field, changed](const QString& typed) {
        field = typed.toStdString();
        React(changed);
    });
    Follow([control, &field] {
        const QString text = QString::fromStdString(field);
        if (control->text() != text) control->setText(text);
    });
}

void FieldBinder::Finished_Text(QLineEdit* control, std::string& field, Reaction finished) {
    Text(control, field);
    QObject::connect(control, &QLineEdit::editingFinished, control, [control, finished] {
        if (!control->isModified()) return;
        control->setModified(false);
        React(finished);
    });
}

void FieldBinder::Text(QLabel* control, const std::string& field) {
    Follow([control, &field] {
        const QString text = QString::fromStdString(field);
        if (control->text() != text) control->setText(text);
    });
}

void FieldBinder::Tick(QAbstractButton* control, bool& field, Reaction changed) {
    QObject::connect(control, &QAbstractButton::toggled, control, [&field, changed](bool on) {
        field = on;
        React(changed);
    });
    Follow([control, &field] {
        const QSignalBlocker silent(control);
        control->setChecked(field);
    });
}

void FieldBinder::Choice(QComboBox* control, int& field, Reaction changed) {
    QObject::connect(control, &QComboBox::currentIndexChanged, control, [&field, changed](int index) {
        field = index;
        React(changed);
    });
    Follow([control, &field] {
        const QSignalBlocker silent(control);
        if (control->currentIndex() != field) control->setCurrentIndex(field);
    });
}

void FieldBinder::Text(QComboBox* control, std::string& field, Reaction changed) {
    QObject::connect(control, &QComboBox::currentTextChanged, control,
                     [&field, changed](const QString& typed) {
                         field = typed.toStdString();
                         React(changed);
                     });
    Follow([control, &field] {
        const QString text = QString::fromStdString(field);
        if (control->currentText() == text) return;
        const QSignalBlocker silent(control);
        // The keys go on from the entry that is shown.
        const int entry = control->findText(text);
        if (control->isEditable() && entry < 0) {
            control->setEditText(text);
        } else {
            control->setCurrentIndex(entry);
            if (control->isEditable()) control->setEditText(text);
        }
    });
}

void FieldBinder::Finished_Text(QComboBox* control, std::string& field, Reaction finished) {
    Text(control, field);
    QObject::connect(control, &QComboBox::textActivated, control, [&field, finished](const QString& chosen) {
        field = chosen.toStdString();
        React(finished);
    });
    QLineEdit* typed = control->lineEdit();
    if (typed == nullptr) return;
    QObject::connect(typed, &QLineEdit::editingFinished, control, [typed, finished] {
        if (!typed->isModified()) return;
        typed->setModified(false);
        React(finished);
    });
}

void FieldBinder::Entries(QComboBox* control, const std::vector<std::string>& entries) {
    Follow([control, &entries] {
        QStringList texts;
        for (const std::string& entry : entries)
            texts << QString::fromStdString(entry);
        bool same = texts.size() == control->count();
        for (int index = 0; same && index < control->count(); ++index)
            same = control->itemText(index) == texts[index];
        if (same) return;
        const QSignalBlocker silent(control);
        control->clear();
        control->addItems(texts);
    });
}

void FieldBinder::Flat(QLineEdit* control) {
    Follow([control] {
        const QPalette usual = control->parentWidget()->palette();
        QPalette flat = usual;
        flat.setColor(QPalette::Base, usual.color(QPalette::Window));
        if (control->palette() != flat) control->setPalette(flat);
    });
}

void FieldBinder::Result(QLineEdit* control, const std::string& field) {
    control->setReadOnly(true);
    control->setFocusPolicy(Qt::ClickFocus);
    Flat(control);
    Follow([control, &field] {
        const QString text = QString::fromStdString(field);
        if (control->text() != text) control->setText(text);
    });
}

void FieldBinder::Choice(QButtonGroup* group, int& field, Reaction changed) {
    QObject::connect(group, &QButtonGroup::idToggled, group, [&field, changed](int id, bool on) {
        if (!on) return;
        field = id;
        React(changed);
    });
    Follow([group, &field] {
        QAbstractButton* button = group->button(field);
        const QSignalBlocker silent(group);
        if (button != nullptr && !button->isChecked()) button->setChecked(true);
    });
}

void FieldBinder::Scroll(QScrollBar* control, ScrollBar& field, Reaction changed) {
    new ArrowKeys(control);
    QObject::connect(control, &QScrollBar::valueChanged, control, [&field, changed](int value) {
        field.Value = value;
        React(changed);
    });
    Follow([control, &field] {
        const QSignalBlocker silent(control);
        // A range may run to the negative side, its end below its beginning.
        control->setRange(std::min(field.Min, field.Max), std::max(field.Min, field.Max));
        control->setValue(field.Value);
    });
}

void FieldBinder::Scroll(QScrollBar* control, std::int32_t& field, std::function<int()> last,
                         Reaction changed) {
    new ArrowKeys(control);
    QObject::connect(control, &QScrollBar::valueChanged, control, [&field, changed](int value) {
        field = value;
        React(changed);
    });
    Follow([control, &field, last = std::move(last)] {
        const QSignalBlocker silent(control);
        control->setRange(1, std::max(1, last()));
        control->setValue(field);
    });
}

template <class Value, class Parse>
void FieldBinder::Typed_Number(QLineEdit* control, Value& field, Parse parse, Reaction finished) {
    QObject::connect(control, &QLineEdit::editingFinished, control, [control, &field, parse, finished] {
        if (!control->isModified()) return;
        control->setModified(false);
        if (const auto number = parse(Val(control->text().toStdString()))) field = *number;
        React(finished);
    });
    Follow([control, &field] {
        const QString text = QString::fromStdString(CStr(field));
        // What is being typed stays until it is finished.
        if (!(control->isModified() && control->hasFocus()) && control->text() != text)
            control->setText(text);
    });
}

void FieldBinder::Finished_Number(QLineEdit* control, double& field, Reaction finished) {
    Typed_Number(
        control, field, [](double value) { return std::optional(value); }, std::move(finished));
}

void FieldBinder::Finished_Number(QLineEdit* control, std::int32_t& field, Reaction finished) {
    Typed_Number(
        control, field, [](double value) { return CLng(value); }, std::move(finished));
}

void FieldBinder::Command(QAbstractButton* button, Reaction run) {
    QObject::connect(button, &QAbstractButton::clicked, button, [run = std::move(run)] { run(); });
}

void FieldBinder::Enabled(QWidget* control, std::function<bool()> condition) {
    Follow([control, condition = std::move(condition)] { control->setEnabled(condition()); });
}

void FieldBinder::Shown(QWidget* control, std::function<bool()> condition) {
    Follow([control, condition = std::move(condition)] { control->setVisible(condition()); });
}

void FieldBinder::On_Focus(QWidget* control, Reaction entered) {
    new FocusWatcher(control, std::move(entered));
}

void FieldBinder::Refresh() {
    for (const Reaction& refresh : Refreshers)
        refresh();
}

}  // namespace tarnvik
