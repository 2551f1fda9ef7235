#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "app/commands.h"
#include "core/files.h"
#include "ui/form.h"
#include "window_fixture.h"

namespace tarnvik {

/// What the user's act brings about beside the field: `Done` after it and, once `Before` has run, not without
/// it.
struct Effect {
    std::function<void()> Before = [] {};
    std::function<bool()> Done = [] { return true; };
};

/// The main window over the demo line and its field records: 5 shots, 24 receivers, the outer shots offset.
/// Each control of a page is driven as a hand does; the table of a page names all that it has.
class Controls : public WindowTest {
  protected:
    struct Row {
        const char* Name;
        std::function<void(QWidget*)> Check;  ///< gets the control
    };
    Controls() {
        // The program that the test before ended has told all event loops to end; a loop of its own forgets
        // it.
        QTimer::singleShot(0, qApp, [] { QApplication::exit(); });
        QApplication::exec();
        for (const char* name : {"/demo1.tv5", "/demo1.su"}) {
            EXPECT_EQ(Copy_File(std::string(TARNVIK_DEMO_FOLDER) + name, Folder.Path + name), "");
        }
        Show_Window(1280, 900);
        QApplication::setActiveWindow(Screen.get());
        Work.Settings.RecentFiles[0] = Path;
        Run_Command(Program, "F1_F");
        QApplication::processEvents();
    }

    Form* Open(Dialog dialog) {
        Display.Open_Dialog(dialog, false);
        QApplication::processEvents();
        return Display.Open_Form(dialog);
    }
    QWidget* Page_Of(Tab tab) {
        Display.Select_Tab(tab);
        QApplication::processEvents();
        return Screen->findChild<QTabWidget*>("SSTab1")->widget(static_cast<int>(tab));
    }

    /// Goes through the table, whose checks may close a form and open it again, and looks whether a control
    /// is missing there.
    static void Check_All(const std::function<QWidget*()>& page, const std::vector<Row>& rows) {
        std::set<std::string> known;
        for (const Row& row : rows)
            EXPECT_TRUE(known.insert(row.Name).second) << row.Name;
        for (const QWidget* control : page()->findChildren<QWidget*>()) {
            const std::string name = control->objectName().toStdString();
            // The arrows of a row of tabs are its own.
            if (qobject_cast<QTabBar*>(control->parentWidget()) != nullptr) continue;
            if (Is_Control(control) && !name.empty() && !control->objectName().startsWith("qt_")) {
                EXPECT_TRUE(known.contains(name)) << name << " is in no row";
            }
        }
        for (const Row& row : rows) {
            SCOPED_TRACE(row.Name);
            auto* control = page()->findChild<QWidget*>(row.Name);
            ASSERT_NE(control, nullptr);
            row.Check(control);
            QApplication::processEvents();
            // Forms that were closed are gone.
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    /// A field that each letter typed reaches at once.
    std::function<void(QWidget*)> Typed(std::string& field, Effect effect = {}) {
        return [this, &field, effect](QWidget* control) {
            Shows(control, field);
            control->setFocus();
            effect.Before();
            Type(control, "1.5");
            EXPECT_EQ(field, "1.5");
            EXPECT_TRUE(effect.Done());
        };
    }
    /// A field that counts when Return is pressed.
    template <class Number>
    std::function<void(QWidget*)> Finished(Number& field, Number shown, Number typed, Effect effect = {}) {
        return [this, &field, shown, typed, effect](QWidget* control) {
            field = shown;
            Display.Show_Fields();
            EXPECT_EQ(Text(control).toDouble(), shown);
            effect.Before();
            Type(control, QString::number(typed));
            Display.Show_Fields();
            EXPECT_EQ(Text(control).toDouble(), typed) << "what is being typed stays";
            EXPECT_EQ(field, shown) << "not before Return";
            QTest::keyClick(control, Qt::Key_Return);
            EXPECT_EQ(field, typed);
            EXPECT_TRUE(effect.Done());
            field = shown;
            Display.Show_Fields();
            EXPECT_EQ(Text(control).toDouble(), shown) << "nothing is being typed any more";
            field = typed;
            Display.Show_Fields();
        };
    }
    /// What the logic shows and nobody can type.
    template <class Field>
    std::function<void(QWidget*)> Shown(Field& field) {
        return [this, &field](QWidget* control) {
            Shows(control, field);
            if (qobject_cast<QLabel*>(control) != nullptr) return;
            auto* edit = qobject_cast<QLineEdit*>(control);
            ASSERT_NE(edit, nullptr);
            EXPECT_TRUE(edit->isReadOnly());
            QTest::keyClicks(edit, "9");
            EXPECT_EQ(field, "3.25");
        };
    }
    std::function<void(QWidget*)> Ticked(bool& field, Effect effect = {}) {
        return [this, &field, effect](QWidget* control) {
            auto* tick = qobject_cast<QAbstractButton*>(control);
            for (const bool on : {true, false}) {
                field = !on;
                Display.Show_Fields();
                EXPECT_EQ(tick->isChecked(), !on);
                effect.Before();
                Click(tick);
                EXPECT_EQ(field, on);
                EXPECT_EQ(tick->isChecked(), on);
                EXPECT_TRUE(effect.Done());
            }
        };
    }
    static std::function<void(QWidget*)> Clicked(Effect effect) {
        return [effect](QWidget* control) {
            effect.Before();
            EXPECT_FALSE(effect.Done()) << "before the click";
            Click(control);
            EXPECT_TRUE(effect.Done());
        };
    }
    /// The picture is another one.
    Effect Redraws(const char* picture) {
        return {[this, picture] { Box(picture)->Canvas().Clear(); },
                [this, picture] { return !Blank(Box(picture)); }};
    }

    static void Click(QWidget* control) {
        EXPECT_TRUE(control->isEnabled());
        const int x = qobject_cast<QPushButton*>(control) != nullptr ? control->width() / 2 : 8;
        QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(x, control->height() / 2));
    }
    static void Type(QWidget* control, const QString& text) {
        EXPECT_TRUE(control->isEnabled());
        auto* list = qobject_cast<QComboBox*>(control);
        auto* edit = list != nullptr ? list->lineEdit() : qobject_cast<QLineEdit*>(control);
        ASSERT_NE(edit, nullptr);
        control->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    static QString Text(const QWidget* control) {
        if (const auto* edit = qobject_cast<const QLineEdit*>(control)) return edit->text();
        if (const auto* list = qobject_cast<const QComboBox*>(control)) return list->currentText();
        if (const auto* label = qobject_cast<const QLabel*>(control)) return label->text();
        return {};
    }
    template <class Field>
    void Shows(QWidget* control, Field& field) {
        field = "3.25";
        Display.Show_Fields();
        EXPECT_EQ(Text(control), "3.25");
    }
    PictureBox* Box(const char* name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* box = window->findChild<PictureBox*>(name)) return box;
        }
        return nullptr;
    }

    const std::string Path = Folder / "demo1.tv5";
    Workspace& Work = Program.Work;
    Project& Line = Program.Work.Project;

  private:
    static bool Is_Control(const QWidget* widget) {
        return qobject_cast<const QLineEdit*>(widget) != nullptr ||
               qobject_cast<const QComboBox*>(widget) != nullptr ||
               qobject_cast<const QAbstractButton*>(widget) != nullptr ||
               qobject_cast<const QScrollBar*>(widget) != nullptr ||
               qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
               qobject_cast<const QAbstractItemView*>(widget) != nullptr;
    }
};

}  // namespace tarnvik
