// The windows that make sheets of paper, used by mouse and keys, and the files that come out of them.

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDragEnterEvent>
#include <QImageReader>
#include <QMimeData>
#include <QSvgRenderer>
#include <QTableWidget>
#include <QtTest>
#include <algorithm>
#include <cmath>

#include "app/session.h"
#include "core/files.h"
#include "support/line_with_depths.h"
#include "support/metafile_reader.h"
#include "support/test_ports.h"
#include "ui/forms/joined_profiles_form.h"
#include "ui/forms/line_sheet_form.h"
#include "ui/forms/record_sheets_form.h"

namespace tarnvik {
namespace {

using test::PlayedMetafile;

int Pages_Of_Pdf(const std::string& bytes) {
    int pages = 0;
    for (std::size_t at = bytes.find("/Type /Page\n"); at != std::string::npos;
         at = bytes.find("/Type /Page\n", at + 1))
        ++pages;
    return pages;
}

class SheetWindows : public ::testing::Test {
  protected:
    SheetWindows() {
        for (const char* name : {"demo1.tv5", "demo1.su"})
            EXPECT_EQ(Copy_File(std::string(TARNVIK_DEMO_FOLDER) + "/" + name, Folder / name), "");
        test::Write_Demo_Line(Path, true);
    }
    void Show(Form& form) {
        form.Refresh();
        form.resize(1200, 720);
        form.show();
        form.Close_Me = [this] { ++Closed; };
        QApplication::processEvents();
    }
    template <class Control>
    static Control* Find(QWidget& form, const char* name) {
        auto* control = form.findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name;
        return control;
    }
    static void Type(QWidget* control, const QString& text) {
        auto* line = qobject_cast<QLineEdit*>(control);
        if (auto* combo = qobject_cast<QComboBox*>(control)) line = combo->lineEdit();
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, text);
        QTest::keyClick(line, Qt::Key_Tab);
    }
    static void Press(QWidget& form, const char* name) {
        auto* button = Find<QAbstractButton>(form, name);
        // A check box takes the mouse on its mark and text alone.
        const QPoint place = qobject_cast<QCheckBox*>(button) != nullptr ? QPoint(8, button->height() / 2)
                                                                         : button->rect().center();
        QTest::mouseClick(button, Qt::LeftButton, {}, place);
    }
    static void Choose(QWidget& form, const char* name, int index) {
        auto* box = Find<QComboBox>(form, name);
        box->setCurrentIndex(index);
        emit box->activated(index);
    }
    static void Drop(QWidget& form, const QStringList& files) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls.append(QUrl::fromLocalFile(file));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&form, &enter);
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&form, &drop);
        QApplication::processEvents();
    }
    std::string Saved(QWidget& form, const std::string& name) {
        Ports.Prompts.Expect_File("Save sheets", Folder / name);
        Press(form, "Save");
        return Read_File(Folder / name).value_or("");
    }
    /// Pixels of the preview that are not white.
    static int Ink_Of_Preview(QWidget& form) {
        const QImage& image = Find<SheetPaper>(form, "Paper")->Image();
        int ink = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                ink += image.pixel(x, y) != qRgb(255, 255, 255);
        }
        return ink;
    }

    test::TemporaryFolder Folder;
    test::TestPorts Ports;
    Session Program{Ports.Ports, Folder / "Tarnvik32.INI"};
    std::string Path = Folder / "line.tv5";
    int Closed = 0;
};

// With a ruler on the drawing that comes out: places of receivers of the curves, and the width of the
// section.
TEST_F(SheetWindows, SheetOfALineHasItsTrueSizeInEveryFile) {
    LineSheetForm form(Program);
    Show(form);
    EXPECT_FALSE(Find<QPushButton>(form, "Save")->isEnabled());
    Drop(form, {QString::fromStdString(Path)});
    EXPECT_EQ(Find<QLabel>(form, "LineName")->text(), "line.tv5");
    Choose(form, "Paper", 1);
    Press(form, "Upright");
    EXPECT_EQ(
        Find<SheetPaper>(form, "Paper")->Image().width() > Find<SheetPaper>(form, "Paper")->Image().height(),
        true)
        << "the preview has the shape of the paper";
    Press(form, "Section");
    Type(Find<QComboBox>(form, "Scale"), "1:500");
    EXPECT_TRUE(Find<QLabel>(form, "Outcome")->text().startsWith("Horizontal 1:500"))
        << Find<QLabel>(form, "Outcome")->text().toStdString();
    EXPECT_GT(Ink_Of_Preview(form), 2000);

    const PlayedMetafile played = test::Play_Metafile(Saved(form, "sheet.wmf"));
    ASSERT_EQ(played.Fault, "");
    const double unit = 25.4 / played.UnitsAnInch;
    EXPECT_NEAR(played.Width * unit, 420, 0.5);
    std::vector<double> upright;
    for (const auto& line : played.All(PlayedMetafile::Polyline)) {
        if (line.Ink == 0xC0C0C0 && line.Places.size() == 4 && line.Places[0] == line.Places[2])
            upright.push_back(line.Places[0] * unit);
    }
    ASSERT_EQ(upright.size(), 24U) << "a line for each receiver";
    const auto [left, right] = std::minmax_element(upright.begin(), upright.end());
    EXPECT_NEAR(*right - *left, 230, 0.2) << "115 m at 1:500";

    const QImage image = QImage::fromData(QByteArray::fromStdString(Saved(form, "sheet.png")));
    EXPECT_NEAR(image.width() / (image.dotsPerMeterX() / 1000.0), 420, 0.2);
    EXPECT_NEAR(image.height() / (image.dotsPerMeterY() / 1000.0), 297, 0.2);
    QSvgRenderer drawing(QByteArray::fromStdString(Saved(form, "sheet.svg")));
    EXPECT_TRUE(drawing.isValid());
    const std::string pdf = Saved(form, "sheet.pdf");
    EXPECT_EQ(Pages_Of_Pdf(pdf), 1);
    EXPECT_NE(pdf.find("[0 0 1191"), std::string::npos) << "A3 in points";

    Type(Find<QComboBox>(form, "Scale"), "1:200");
    EXPECT_TRUE(Find<QPushButton>(form, "TakeFitting")->isVisible());
    Press(form, "TakeFitting");
    EXPECT_FALSE(Find<QPushButton>(form, "TakeFitting")->isVisible());
    Type(Find<QLineEdit>(form, "Client"), "Council");
    EXPECT_EQ(form.Logic.Client, "Council");
    QTest::keyClick(Find<QLineEdit>(form, "Client"), Qt::Key_Escape);
    EXPECT_EQ(Closed, 1);
}

TEST_F(SheetWindows, RecordsTurnTheirPagesAndGoToNumberedFiles) {
    RecordSheetsForm form(Program);
    Show(form);
    Drop(form, {QString::fromStdString(Folder / "demo1.tv5")});
    auto* number = Find<QLabel>(form, "PageNumber");
    EXPECT_EQ(number->text(), "Page 1 of 5");
    const int first = Ink_Of_Preview(form);
    Press(form, "PageAfter");
    EXPECT_EQ(number->text(), "Page 2 of 5");
    EXPECT_NE(Ink_Of_Preview(form), first);
    Press(form, "PageBefore");
    EXPECT_EQ(number->text(), "Page 1 of 5");
    EXPECT_FALSE(Find<QToolButton>(form, "PageBefore")->isEnabled());
    EXPECT_EQ(Ink_Of_Preview(form), first) << "the same page once more is the same";

    Type(Find<QLineEdit>(form, "Records"), "1-3");
    Choose(form, "Grid", 1);
    EXPECT_EQ(number->text(), "Page 1 of 2");
    EXPECT_EQ(Find<QLabel>(form, "Outcome")->text(), "3 records on 2 pages");
    Choose(form, "Resolution", 0);
    EXPECT_EQ(Saved(form, "r.png"), "") << "numbered files alone";
    for (const char* name : {"r_01.png", "r_02.png"}) {
        QImageReader reader(QString::fromStdString(Folder / name));
        EXPECT_EQ(reader.size(), QSize(1169, 827)) << name;
    }
    EXPECT_EQ(Pages_Of_Pdf(Saved(form, "r.pdf")), 2);
    Type(Find<QLineEdit>(form, "Records"), "7");
    EXPECT_FALSE(Find<QPushButton>(form, "Save")->isEnabled());
    EXPECT_EQ(Find<QLabel>(form, "Outcome")->text(), "The file holds records 1 to 5");
}

TEST_F(SheetWindows, ProfilesAreJoinedByTheirList) {
    JoinedProfilesForm form(Program);
    Show(form);
    Drop(form, {QString::fromStdString(Path), QString::fromStdString(Folder / "demo1.tv5")});
    auto* list = Find<QTableWidget>(form, "Lines");
    const auto cell = [list](int row, int column) { return list->item(row, column)->text().toStdString(); };
    ASSERT_EQ(list->rowCount(), 2);
    EXPECT_EQ(cell(0, 0) + cell(0, 1) + cell(0, 2) + cell(0, 3), "line0120Shots");
    EXPECT_EQ(cell(1, 1) + " " + cell(1, 2), "120 240");
    Type(Find<QLineEdit>(form, "Offset"), "130");
    EXPECT_EQ(cell(1, 1) + " " + cell(1, 2), "130 250") << "the line that was added last is selected";
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0, 0)).center());
    EXPECT_EQ(Find<QLineEdit>(form, "Offset")->text(), "");
    EXPECT_FALSE(Find<QPushButton>(form, "Up")->isEnabled());
    Press(form, "Down");
    EXPECT_EQ(cell(1, 0), "line");
    EXPECT_EQ(cell(1, 1), "250");
    Press(form, "Reversed");
    EXPECT_EQ(cell(1, 0), "line <");
    const int filled = Ink_Of_Preview(form);
    Press(form, "Filled");
    EXPECT_LT(Ink_Of_Preview(form), filled);
    EXPECT_EQ(Pages_Of_Pdf(Saved(form, "p.pdf")), 1);
    Ports.Prompts.Expect_File("Save joined interfaces", Folder / "t.csv");
    Press(form, "Csv");
    EXPECT_TRUE(Read_File(Folder / "t.csv").value_or("").starts_with("Line,Distance,"));
    Ports.Prompts.Expect_File("Save set of profiles", Folder / "s.tvset");
    Press(form, "SaveSet");
    Press(form, "Remove");
    Press(form, "Remove");
    EXPECT_FALSE(Find<QPushButton>(form, "Save")->isEnabled());
    Drop(form, {QString::fromStdString(Folder / "s.tvset")});
    EXPECT_EQ(list->rowCount(), 2);
    EXPECT_EQ(cell(1, 0) + cell(1, 1), "line <250");
}

}  // namespace
}  // namespace tarnvik
