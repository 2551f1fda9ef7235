// Each control of the dialog that saves a picture.

#include "control_table.h"

namespace tarnvik {
namespace {

class ExportControls : public Controls {};

TEST_F(ExportControls, of_the_picture_to_save_do_their_work) {
    PictureExport& logic = Program.SavePicture;
    Display.Select_Tab(Tab::Curves);
    Display.Show_Curves();
    const auto form = [this]() -> QWidget* {
        if (Display.Is_Open(Dialog::PictureExport)) return Display.Open_Form(Dialog::PictureExport);
        return Open(Dialog::PictureExport);
    };
    const auto chosen = [&](int& field, int entry, std::function<bool()> done) {
        return [&field, entry, done](QWidget* control) {
            auto* list = qobject_cast<QComboBox*>(control);
            list->setFocus();
            list->setCurrentIndex(entry);
            EXPECT_EQ(field, entry);
            EXPECT_TRUE(done());
        };
    };
    const auto typed = [&](std::string& field, const char* text) {
        return [this, &field, &logic, text](QWidget* control) {
            Type(control, text);
            EXPECT_EQ(field, text);
            EXPECT_EQ(Text(Display.Open_Form(Dialog::PictureExport)->findChild<QLabel*>("Outcome")),
                      QString::fromStdString(logic.Outcome));
        };
    };
    const auto save = [&] { return form()->findChild<QPushButton*>("Save")->isEnabled(); };
    const std::vector<Row> rows = {
        {"Size", chosen(logic.Size, 2, [&] { return logic.Width == "297" && logic.Millimetres; })},
        {"Pixels",
         [&](QWidget* control) {
             EXPECT_TRUE(form()->findChild<QAbstractButton*>("Millimetres")->isChecked());
             Click(control);
             EXPECT_FALSE(logic.Millimetres);
             EXPECT_EQ(logic.Width, "3508");
         }},
        {"Millimetres",
         [&](QWidget* control) {
             Click(control);
             EXPECT_TRUE(logic.Millimetres);
             EXPECT_EQ(logic.Width, "297");
             logic.Size = 0;
             logic.Size_Chosen();
             EXPECT_TRUE(form()->findChild<QAbstractButton*>("Pixels")->isChecked());
             EXPECT_EQ(logic.Width, "1200") << "shown, not converted";
         }},
        {"PictureWidth", typed(logic.Width, "800")},
        {"PictureHeight", typed(logic.Height, "600")},
        {"Dpi", typed(logic.Dpi, "72")},
        {"TitleBlock", Ticked(logic.TitleBlock)},
        {"Picture", chosen(logic.Choice, 1, [&] { return !save(); })},
        {"Save",
         [&](QWidget* control) {
             logic.Choice = 0;
             logic.TitleBlock = true;
             logic.Picture_Chosen();
             Prompts.Expect_File("Save picture", Folder / "curves.png");
             Click(control);
             EXPECT_FALSE(Display.Is_Open(Dialog::PictureExport));
             EXPECT_EQ(QImage(QString::fromStdString(Folder / "curves.png")).size(), QSize(800, 600));
         }},
        {"Cancel", Clicked({[] {}, [this] { return !Display.Is_Open(Dialog::PictureExport); }})},
    };
    Check_All(form, rows);
    Display.Select_Tab(Tab::Record);
    QTimer::singleShot(0, qApp, [this] { Display.Close_Dialog(Dialog::PictureExport); });
    Run_Command(Program, "Export_M");
    EXPECT_EQ(logic.Chosen(), Page::Record) << "the picture in sight";
}

}  // namespace
}  // namespace tarnvik
