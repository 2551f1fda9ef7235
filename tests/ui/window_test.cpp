#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QStyle>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include "app/commands.h"
#include "app/dialog_rows.h"
#include "app/session.h"
#include "app/start.h"
#include "support/test_ports.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/shot_grid.h"
#include "ui/icon_family.h"
#include "ui/main_window.h"
#include "ui/qt_display.h"
#include "window_fixture.h"

namespace tarnvik {
namespace {

TEST_F(Window, has_an_icon_and_a_button_for_each_toolbar_key_and_an_entry_for_each_menu_command) {
    for (const Command& command : Command_Table()) {
        if (command.Caption == "-") continue;
        const QString name =
            QString::fromUtf8(command.Name.data(), static_cast<qsizetype>(command.Name.size()));
        auto* action = Find<QAction>(name.toUtf8().constData());
        ASSERT_NE(action, nullptr) << command.Name;
        EXPECT_EQ(action->isEnabled(), Refusal_Of(command, Program).empty() && action->isVisible())
            << command.Name;
        EXPECT_FALSE(command.Menu.empty() && Family_Icon(name).isNull()) << command.Name;
        EXPECT_FALSE(!command.Available() && action->statusTip().isEmpty()) << command.Name;
    }
    for (const QAction* entry : Screen->menuBar()->actions()) {
        const QMenu* menu = entry->menu();
        EXPECT_TRUE(menu->style()->styleHint(QStyle::SH_Menu_AllowActiveAndDisabled, nullptr, menu))
            << "a disabled entry could not say what it is";
    }
    auto* zero = Find<QAction>("Zerop");
    zero->trigger();
    EXPECT_TRUE(zero->isChecked());
    EXPECT_TRUE(Program.Work.Curves.ZeroOnTop);
}

TEST_F(Window, every_dialog_with_a_form_opens_refreshes_and_closes) {
    // The reciprocal method begins where delay times have been computed.
    Program.Work.Project.GrmData(1, 1) = Program.Work.Project.TotalTime = 30;
    for (const DialogRow& row : Dialog_Rows()) {
        const Dialog dialog = row.Which;
        Display.Open_Dialog(dialog, false);
        QApplication::processEvents();
        ASSERT_TRUE(Display.Is_Open(dialog)) << static_cast<int>(dialog);
        Display.Show_Fields();
        Display.Show_Grids();
        EXPECT_TRUE(Display.Open_Form(dialog)->isVisible()) << static_cast<int>(dialog);
        Display.Bring_To_Front(dialog);
        Display.Close_Dialog(dialog);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(Display.Is_Open(dialog));
    }
    Display.Open_Dialog(Dialog::frmSplash, false);
    EXPECT_NE(Display.Open_Form(Dialog::frmSplash)->findChild<QPushButton*>("Command6"), nullptr);
}

TEST_F(Window, tool_windows_and_windows_come_back_where_they_were) {
    Display.Open_Dialog(Dialog::RulerF, false);
    auto* dock = Dock_Of(Dialog::RulerF);
    ASSERT_NE(dock, nullptr);
    EXPECT_FALSE(dock->isFloating());
    dock->setFloating(true);
    dock->setGeometry(120, 90, 130, 420);
    Display.Close_Dialog(Dialog::RulerF);
    Display.Open_Dialog(Dialog::RulerF, false);
    dock = Dock_Of(Dialog::RulerF);
    EXPECT_TRUE(dock->isFloating());
    EXPECT_EQ(dock->geometry(), QRect(120, 90, 130, 420));

    Display.Open_Dialog(Dialog::Travel_Time_2, false);
    Display.Open_Form(Dialog::Travel_Time_2)->setGeometry(40, 50, 500, 300);
    Display.Close_Dialog(Dialog::Travel_Time_2);
    Display.Open_Dialog(Dialog::Travel_Time_2, false);
    EXPECT_EQ(Display.Open_Form(Dialog::Travel_Time_2)->size(), QSize(500, 300));
}

TEST_F(Window, tool_windows_stand_with_the_picture_that_they_work_on_and_never_widen_the_window) {
    Screen->resize(1000, 650);
    QApplication::processEvents();
    Display.Open_Dialog(Dialog::Fcalcul, false);
    Display.Open_Dialog(Dialog::AutoPik, false);
    QApplication::processEvents();
    EXPECT_EQ(Screen->size(), QSize(1000, 650));
    auto* tabs = Find<QTabWidget>("SSTab1");
    EXPECT_EQ(tabs->currentIndex(), static_cast<int>(Tab::Record));
    EXPECT_TRUE(Dock_Of(Dialog::AutoPik)->isVisible());
    EXPECT_FALSE(Dock_Of(Dialog::Fcalcul)->isVisible());
    Display.Select_Tab(Tab::Curves);
    EXPECT_FALSE(Dock_Of(Dialog::AutoPik)->isVisible());
    EXPECT_TRUE(Dock_Of(Dialog::Fcalcul)->isVisible());

    // Side by side both pictures are in sight, and so are their tool windows.
    Find<QAction>("SideBySide_M")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->currentIndex(), static_cast<int>(Tab::Record));
    EXPECT_TRUE(Find<PictureBox>("Dromo")->isVisible());
    EXPECT_TRUE(Find<PictureBox>("Ecran")->isVisible());
    EXPECT_TRUE(Display.Is_Open(Dialog::AutoPik));
    Display.Select_Tab(Tab::Curves);
    EXPECT_EQ(tabs->currentIndex(), static_cast<int>(Tab::Record));
    EXPECT_EQ(Screen->size(), QSize(1000, 650));
    Find<QAction>("SideBySide_M")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(tabs->count(), 3);
    EXPECT_FALSE(Dock_Of(Dialog::Fcalcul)->isVisible());

    // The letters of the menus and those of the tool windows' buttons are different ones.
    QString letters;
    for (const QAction* menu : Screen->menuBar()->actions())
        letters += menu->text()[menu->text().indexOf('&') + 1].toUpper();
    Display.Open_Dialog(Dialog::SpeedF, false);
    for (const Dialog dialog : {Dialog::Fcalcul, Dialog::AutoPik, Dialog::SpeedF}) {
        for (const QPushButton* button : Display.Open_Form(dialog)->findChildren<QPushButton*>()) {
            const qsizetype at = button->text().indexOf('&');
            EXPECT_FALSE(at >= 0 && letters.contains(button->text()[at + 1].toUpper()))
                << button->text().toStdString();
        }
    }
}

TEST_F(Window, a_project_that_is_dropped_is_opened_after_the_drop) {
    const QString path = QString::fromStdString(Folder / "none.tv5");
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(path)});
    QDropEvent drop({100, 100}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    Program.Work.Edits.Start(Program.Work.Project, true);
    Prompts.Expect("This file does not exist !", Answer::Ok);
    QDragEnterEvent enter({100, 100}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Screen.get(), &enter);
    QApplication::sendEvent(Screen.get(), &drop);
    EXPECT_TRUE(Prompts.Messages.empty());
    QApplication::processEvents();
    EXPECT_TRUE(Prompts.Said("This file does not exist !"));
}

TEST_F(Window, the_pointer_on_the_curves_is_read_where_it_was_drawn) {
    auto* dromo = Find<PictureBox>("Dromo");
    QTest::mouseMove(dromo, Pixel(dromo, 48, 50));
    QApplication::processEvents();
    EXPECT_NEAR(Program.Work.Curves.MouseDistance, 27.5, 0.1);
    EXPECT_NEAR(Program.Work.Curves.MouseTime, 50 * Program.Work.Curves.PickFactor, 1);
    EXPECT_EQ(Find<QLabel>("Text1")->text().toStdString(), Program.Work.Fields.Text1);
    // The margin belongs to the edge of the picture.
    QTest::mouseMove(dromo, QPoint(1, 1));
    EXPECT_EQ(Program.Work.Curves.MouseDistance, 0);
}

TEST_F(Window, the_pictures_keep_their_drawing_when_the_size_changes_in_any_mode) {
    auto* dromo = Find<PictureBox>("Dromo");
    for (const DisplayMode mode : {DisplayMode::Dromo, DisplayMode::Vitesse, DisplayMode::None}) {
        Program.Work.Mode.Display(mode);
        Screen->resize(Screen->width() - 60, Screen->height() - 40);
        QTest::qWait(1);
        EXPECT_FALSE(Blank(dromo)) << Word_Of(mode);
        EXPECT_EQ(Program.Work.Mode.Current(), mode);
    }
}

TEST_F(Window, undo_takes_back_in_a_field_only_while_it_is_typed_into) {
    Display.Open_Dialog(Dialog::Fcalcul, false);
    Screen->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Screen.get()));
    QLineEdit field(Screen.get());
    field.show();
    field.setFocus();
    const float before = Program.Work.Project.ShotTimes(1, 3);
    {
        const EditScope edit(Program.Work, "Pick");
        Program.Work.Project.ShotTimes(1, 3) = 55;
    }
    EXPECT_TRUE(Find<QLabel>("Unsaved")->isVisible());
    EXPECT_EQ(Find<QAction>("Undo_M")->text(), "&Undo: Pick");
    QTest::keyClicks(&field, "12");
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), "") << "the field's own letters first";
    EXPECT_EQ(Program.Work.Project.ShotTimes(1, 3), 55);
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Program.Work.Project.ShotTimes(1, 3), before);
    EXPECT_FALSE(Find<QAction>("Undo_M")->isEnabled());
    EXPECT_FALSE(Find<QAction>("Undo_M")->statusTip().isEmpty());
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Program.Work.Project.ShotTimes(1, 3), 55);
}

TEST_F(Window, the_tables_have_the_font_that_was_chosen) {
    Program.Work.Settings.FontName = "Courier";
    Display.Show_Fields();
    EXPECT_EQ(Find<QTableView>("Buildgrid")->font().family(), "Courier");
    EXPECT_EQ(Find<QTableView>("remark_grid")->font().family(), "Courier");
}

TEST_F(Window, cancel_keeps_the_window) {
    Prompts.Expect("Record ", Answer::Cancel);
    EXPECT_FALSE(Screen->close());
    EXPECT_FALSE(Display.Ended());
    EXPECT_TRUE(Screen->isVisible());
}

TEST_F(Window, closing_the_window_asks_both_questions_every_time) {
    Prompts.Expect("Record ", Answer::No);
    Prompts.Expect("Record a Back Up file of ", Answer::No);
    Screen->close();
    EXPECT_TRUE(Display.Ended());
    Display.Open_Dialog(Dialog::Zoom, false);
    EXPECT_FALSE(Display.Is_Open(Dialog::Zoom)) << "nothing opens while the program ends";
}

}  // namespace
}  // namespace tarnvik
