#include <gtest/gtest.h>

#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <filesystem>

#include "app/documents.h"
#include "core/files.h"
#include "ui/help_window.h"
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

TEST(HelpPages, are_read_walked_and_searched_where_the_desktop_has_no_program_for_them) {
    const test::TemporaryFolder folder;
    QImage(3000, 300, QImage::Format_RGB32).save(QString::fromStdString(folder / "wide.png"));
    const auto page = [&folder](const char* name, const std::string& body) {
        EXPECT_EQ(Replace_File(folder / name, "<html><body>" + body + "</body></html>"), "");
        return QString::fromStdString(folder / name);
    };
    const QString first = page(
        "first.html", "<p>Curves</p><p>knee, knee</p><img src=\"wide.png\"><a href=\"second.html\">on</a>");
    page("second.html", "<p>Depths</p>");
    page("index.html", "<p>All chapters</p>");
    HelpWindow window;
    EXPECT_FALSE(window.Show_Page(first + ".gone"));
    ASSERT_TRUE(window.Show_Page(first));
    QApplication::processEvents();
    auto* pages = window.findChild<QTextBrowser*>("Pages");
    EXPECT_TRUE(pages->toPlainText().contains("Curves"));
    EXPECT_EQ(pages->horizontalScrollBar()->maximum(), 0) << "the picture is no wider than the window";
    auto* wanted = window.findChild<QLineEdit*>("Wanted");
    QTest::keyClicks(wanted, "knee");
    QTest::keyClick(wanted, Qt::Key_Return);
    const int place = pages->textCursor().position();
    QTest::keyClick(wanted, Qt::Key_Return);
    EXPECT_GT(pages->textCursor().position(), place);
    QTest::keyClick(wanted, Qt::Key_Return);
    EXPECT_EQ(pages->textCursor().position(), place) << "behind the last comes the first";
    emit pages->anchorClicked(QUrl("second.html"));
    EXPECT_TRUE(pages->toPlainText().contains("Depths"));
    QTest::mouseClick(window.findChild<QToolButton*>("Back"), Qt::LeftButton);
    EXPECT_TRUE(pages->toPlainText().contains("Curves"));
    QTest::mouseClick(window.findChild<QToolButton*>("Contents"), Qt::LeftButton);
    EXPECT_TRUE(pages->toPlainText().contains("All chapters"));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace tarnvik
