#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "app/commands.h"
#include "support/field_names.h"
#include "window_fixture.h"

namespace tarnvik {
namespace {

class Forms : public Window {
  protected:
    Forms() {
        // The program that the test before ended has told all event loops to end; a loop of its own forgets
        // it.
        QTimer::singleShot(0, qApp, [] { QApplication::exit(); });
        QApplication::exec();
        QApplication::setActiveWindow(Screen.get());
        Program.Work.Project.CurrentFile = Folder / "line.tv5";
    }
    Form* Open(Dialog dialog) {
        Display.Open_Dialog(dialog, false);
        return Display.Open_Form(dialog);
    }
    void Click_Curves(double x, double y) {
        auto* dromo = Find<PictureBox>("Dromo");
        QTest::mouseClick(dromo, Qt::LeftButton, {}, Pixel(dromo, x, y));
    }
};

TEST_F(Forms, depth_rows_follow_the_count_of_layers_when_it_is_typed_to_its_end) {
    Form* form = Open(Dialog::Fcalcul);
    const auto shown = [form](const char* control) {
        return !form->findChild<QLineEdit*>(control)->isHidden();
    };
    auto* count = form->findChild<QLineEdit*>("Text21");
    for (const int layers : {5, 2, 3, 4}) {
        count->setFocus();
        count->selectAll();
        QTest::keyClicks(count, QString::number(layers));
        EXPECT_NE(Program.Depths.VisibleLayers, layers) << "not while it is typed";
        QTest::keyClick(count, Qt::Key_Return);
        EXPECT_TRUE(shown("Text3") && shown("Text31") && shown("Text27"));
        EXPECT_EQ(shown("Text9"), layers >= 3) << layers;
        EXPECT_EQ(shown("Text37") && shown("Text28") && shown("Text23"), layers >= 3) << layers;
        EXPECT_EQ(shown("Text15") && shown("Text49") && shown("Text34"), layers >= 4) << layers;
        EXPECT_EQ(shown("Text6") || shown("Text41") || shown("Text25") || shown("Text30"), layers == 5);
    }
    EXPECT_FALSE(Program.Depths.Unsaved) << "Return took the count and did not compute";
}

TEST_F(Forms, mean_fields_refuse_the_focus_and_results_can_be_copied) {
    Form* form = Open(Dialog::Fcalcul);
    auto* side = form->findChild<QLineEdit*>("Text31");
    side->setFocus();
    QTest::mouseClick(form->findChild<QLineEdit*>("Text17"), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_TRUE(Prompts.Said("You must correct the upper line"));
    EXPECT_EQ(Program.Work.Velocity.Awaited, test::Field("IT1A")) << "the field before keeps the focus";
    auto* result = form->findChild<QLineEdit*>("Text27");
    EXPECT_TRUE(result->isReadOnly());
    EXPECT_NE(result->palette().color(QPalette::Base), side->palette().color(QPalette::Base));
    EXPECT_NE(result->focusPolicy(), Qt::NoFocus);
}

TEST_F(Forms, depth_picks_a_time_computes_by_return_and_marks_what_is_not_saved) {
    Form* form = Open(Dialog::Fcalcul);
    auto* save = form->findChild<QPushButton*>("Command4");
    form->findChild<QLineEdit*>("Text31")->setFocus();
    Click_Curves(10, 20);
    const std::string picked = Program.Depths.InterceptA[1];
    EXPECT_EQ(picked, std::to_string(Program.Work.Curves.MouseTime));
    EXPECT_EQ(form->findChild<QLineEdit*>("Text31")->text().toStdString(), picked);
    EXPECT_NE(save->palette().color(QPalette::Button), QColor(Qt::red));
    QTest::keyClick(form->findChild<QLineEdit*>("Text31"), Qt::Key_Return);
    EXPECT_TRUE(Program.Depths.Unsaved);
    EXPECT_NE(form->findChild<QLineEdit*>("Text27")->text(), "");
    EXPECT_EQ(save->palette().color(QPalette::Button), QColor(Qt::red));
    save->click();
    EXPECT_NE(save->palette().color(QPalette::Button), QColor(Qt::red));
    EXPECT_TRUE(QFile::exists(QString::fromStdString(Folder / "line.tv5")));

    form->findChild<QScrollBar*>("HScroll1")->setValue(2);
    EXPECT_EQ(Program.Depths.ShotLabel, "2");
    QTest::keyClick(form->findChild<QLineEdit*>("Text2"), Qt::Key_Escape);
    EXPECT_FALSE(Display.Is_Open(Dialog::Fcalcul));
    EXPECT_EQ(Program.Work.Mode.Current(), DisplayMode::Dromo);
}

TEST_F(Forms, velocity_takes_receivers_from_the_curves_and_return_computes) {
    Form* form = Open(Dialog::SpeedF);
    EXPECT_EQ(Program.Work.Mode.Current(), DisplayMode::Vitesse);
    form->findChild<QComboBox*>("Combo2")->setEditText("1");
    Click_Curves(2 * 8.0, 30);
    EXPECT_EQ(form->findChild<QComboBox*>("Combo3")->currentText(), "2");
    form->findChild<QComboBox*>("Combo4")->lineEdit()->setFocus();
    Click_Curves(9 * 8.0, 30);
    EXPECT_EQ(form->findChild<QComboBox*>("Combo4")->currentText(), "9");
    auto* velocity = form->findChild<QLineEdit*>("Text4");
    EXPECT_EQ(velocity->text(), "");
    QTest::keyClick(form->findChild<QComboBox*>("Combo4")->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(velocity->text(), "500");
    EXPECT_EQ(velocity->text().toStdString(), Program.Speed.Velocity);
    EXPECT_FALSE(Blank(form->findChild<PictureBox*>("Picture2")));

    // By the window's own button.
    form->parentWidget()->close();
    EXPECT_FALSE(Display.Is_Open(Dialog::SpeedF));
    EXPECT_EQ(Program.Work.Mode.Current(), DisplayMode::Dromo);
}

}  // namespace
}  // namespace tarnvik
