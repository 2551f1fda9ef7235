#include <gtest/gtest.h>

#include <QShortcut>
#include <QTest>
#include <filesystem>

#include "app/documents.h"
#include "core/files.h"
#include "ui/tools/tool_window.h"
#include "window_fixture.h"

namespace tarnvik {
namespace {

/// The pages of some chapters lie beside the program.
class Help : public Window {
  protected:
    Help() {
        Launcher.Folder = Folder.Path;
        std::filesystem::create_directories(Folder / "manual/html");
        for (const char* chapter : {"record", "tables", "curves", "velocity", "zoom", "header_editor",
                                    "save_picture", "spectrum"}) {
            EXPECT_EQ(Replace_File(Folder / (std::string("manual/html/") + chapter + ".html"), ""), "");
        }
    }
    /// The chapter that F1 opens while this window has the keyboard.
    std::string Chapter_By_Key(QWidget* window) {
        window->activateWindow();
        QApplication::setActiveWindow(window);
        QApplication::processEvents();
        Launcher.Started.clear();
        QTest::keyClick(window->focusWidget() != nullptr ? window->focusWidget() : window, Qt::Key_F1);
        QApplication::processEvents();
        if (Launcher.Started.size() != 1) return std::to_string(Launcher.Started.size()) + " documents";
        return std::filesystem::path(Launcher.Started.front()).stem().string();
    }
};

TEST_F(Help, the_key_opens_the_chapter_of_what_is_in_front) {
    EXPECT_EQ(Chapter_By_Key(Screen.get()), "curves");
    Display.Select_Tab(Tab::Tables);
    EXPECT_EQ(Chapter_By_Key(Screen.get()), "tables");
    Display.Select_Tab(Tab::Record);
    EXPECT_EQ(Chapter_By_Key(Screen.get()), "record");

    // A tool window beside the picture counts while the keyboard is in it.
    Display.Open_Dialog(Dialog::SpeedF, false);
    QWidget* in_dialog = Display.Open_Form(Dialog::SpeedF)->findChild<QWidget*>("Combo2");
    in_dialog->setFocus();
    EXPECT_EQ(Chapter_By_Key(Screen.get()), "velocity");
    Find<PictureBox>("Dromo")->setFocus();
    Screen->setFocus();
    EXPECT_EQ(Chapter_By_Key(Screen.get()), "curves");
    Display.Close_Dialog(Dialog::SpeedF);

    // Windows of their own, and boxes over the main one.
    Display.Open_Dialog(Dialog::Header, false);
    EXPECT_EQ(Chapter_By_Key(Display.Open_Form(Dialog::Header)->window()), "header_editor");
    Display.Close_Dialog(Dialog::Header);
    Display.Open_Dialog(Dialog::PictureExport, false);
    EXPECT_EQ(Chapter_By_Key(Display.Open_Form(Dialog::PictureExport)->window()), "save_picture");
}

std::unique_ptr<Form> Bare_Form(ToolStart&) {
    return std::make_unique<Form>();
}

TEST_F(Help, a_tool_beside_the_program_has_its_chapter) {
    const ToolRow row{"SUSPECTRE", "Spectrum", Bare_Form, "spectrum"};
    ToolStart start{Program, {}};
    ToolWindow tool(row, start, QString::fromStdString(Folder / "Windows.ini"));
    tool.show();
    EXPECT_EQ(Chapter_By_Key(&tool), "spectrum");
    for (const ToolRow& own : Tool_Rows()) {
        EXPECT_TRUE(std::filesystem::exists(std::string(TARNVIK_MANUAL_SOURCES) + "/" + own.Chapter + ".md"))
            << own.Name << ": " << own.Chapter;
    }
}

}  // namespace
}  // namespace tarnvik
