// The tools that work on lists of files, started and used as the user does: conversion, merge_file, add_csv.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QUrl>

#include "core/files.h"
#include "records/su_file.h"
#include "support/field_file_builder.h"
#include "support/su_builder.h"
#include "support/test_ports.h"
#include "ui/tools/tool_window.h"

namespace tarnvik::test {
namespace {

class ListTools : public testing::Test {
  protected:
    /// The window of a tool as the main program starts it.
    QWidget& Start(std::string_view tool, const QStringList& arguments) {
        for (const ToolRow& row : Tool_Rows()) {
            if (row.Name != tool) continue;
            ToolStart start{Program, arguments};
            Screen = std::make_unique<ToolWindow>(row, start, QString::fromStdString(Folder / "Windows.ini"));
        }
        Screen->show();
        Screen->activateWindow();
        QApplication::processEvents();
        return *Screen;
    }
    template <class Control>
    Control* Find(const char* name) {
        auto* control = Screen->findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name;
        return control;
    }
    void Click(const char* name) {
        QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton, {}, QPoint(8, 8));
        QApplication::processEvents();
    }
    void Type(const char* name, const char* text) {
        auto* field = Find<QLineEdit>(name);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
    }
    void Drop(const std::vector<std::string>& paths) {
        QMimeData dropped;
        QList<QUrl> urls;
        for (const std::string& path : paths)
            urls << QUrl::fromLocalFile(QString::fromStdString(path));
        dropped.setUrls(urls);
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Screen.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Screen.get(), &drop);
        QApplication::processEvents();
        QApplication::processEvents();
    }
    QStringList Column(int column) {
        const QAbstractItemModel* model = Find<QTableView>("Files")->model();
        QStringList texts;
        for (int row = 1; row < model->rowCount(); ++row)
            texts << model->index(row, column).data().toString();
        return texts;
    }
    std::string Su(const char* name, int first_record) {
        SuBuilder file(6, 40, 500);
        file.Records(3);
        for (int trace = 1; trace <= 6; ++trace)
            file.Put32(trace, 8, first_record + (trace - 1) / 3);
        return file.Write(Folder / name);
    }

    TemporaryFolder Folder;
    ScriptedPrompts Prompts;
    RecordingLauncher Launcher;
    RecordingDisplay Display;
    Session Program{{Prompts, Display, Launcher}, Folder / "Tarnvik32.INI"};
    std::unique_ptr<ToolWindow> Screen;
};

TEST_F(ListTools, su_files_are_dropped_put_in_order_by_keys_and_merged) {
    const std::string a = Su("a.su", 7);
    const std::string b = Su("b.su", 1);
    Start("merge_file", {QString::fromStdString(a)});
    Drop({b, a});
    EXPECT_EQ(Column(1), (QStringList{"a.su", "b.su"}));
    auto* list = Find<QTableView>("Files");
    list->setFocus();
    EXPECT_EQ(list->currentIndex().row(), 1);
    QTest::keyClick(list, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Column(1), (QStringList{"b.su", "a.su"}));
    EXPECT_EQ(list->currentIndex().row(), 2) << "the row stays with its file";
    Click("SortByRecord");
    EXPECT_EQ(Column(8), (QStringList{"1 - 2", "7 - 8"}));
    Type("FirstRecord", "11");
    EXPECT_EQ(Column(9), (QStringList{"11 - 12", "13 - 14"}));
    Type("FirstRecord", "x");
    EXPECT_FALSE(Find<QPushButton>("Go")->isEnabled());
    Type("FirstRecord", "21");
    QTest::keyClick(Find<QLineEdit>("FirstRecord"), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Prompts.Last_Text(), Folder / "merged.su has been recorded, 12 traces of 2 files");
    EXPECT_EQ(SuTraces(Folder / "merged.su").Word(12, words::fldr), 24);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(Column(1).size(), 1);
    QTest::keyClick(Screen.get(), Qt::Key_Escape);
    EXPECT_FALSE(Screen->isVisible());
}

TEST_F(ListTools, tables_are_grouped_as_their_preview_shows) {
    Replace_File(Folder / "a.csv", "X;Z\r\n1;2\r\n");
    Replace_File(Folder / "b.csv", "X\r\n");
    Start("add_csv", {});
    Prompts.Expect_File("CSV File selection", Folder / "a.csv");
    Click("AddFiles");
    const QAbstractItemModel* preview = Find<QTableView>("Preview")->model();
    EXPECT_EQ(preview->index(1, 3).data().toString(), "a");
    Click("LineColumn");
    EXPECT_EQ(preview->columnCount(), 3);
    Drop({Folder / "b.csv"});
    EXPECT_FALSE(Find<QPushButton>("Go")->isEnabled());
    EXPECT_TRUE(Find<QLabel>("Hint")->text().contains("b.csv"));
    Find<QTableView>("Files")->selectRow(2);
    Click("RemoveFile");
    Prompts.Expect_File("CSV File selection", Folder / "all.csv");
    Click("AskOut");
    Click("Go");
    EXPECT_EQ(Read_File(Folder / "all.csv"), "X;Z\r\n1;2\r\n");
}

TEST_F(ListTools, seismograph_files_are_looked_at_and_converted) {
    const auto shot = [this](const char* name, int number) {
        Seg2Builder file;
        for (int channel = 1; channel <= 4; ++channel)
            file.Add({"SAMPLE_INTERVAL 0.001", "CHANNEL_NUMBER " + std::to_string(channel),
                      "SHOT_SEQUENCE_NUMBER " + std::to_string(number)},
                     std::vector<float>(30, static_cast<float>(number)));
        EXPECT_EQ(Replace_File(Folder / name, file.Bytes()), "");
        return QString::fromStdString(Folder / name);
    };
    Replace_File(Folder / "broken.sg2", "no seismograph wrote this");
    // The code of the launch is no file.
    Start("SEG2SU", {"412", shot("b.sg2", 1), shot("a.sg2", 2)});
    EXPECT_EQ(Screen->windowTitle(), "SEG2 to SU conversion");
    Drop({Folder / "broken.sg2"});
    EXPECT_EQ(Column(1), (QStringList{"a.sg2", "b.sg2", "broken.sg2"}));
    EXPECT_EQ(Column(2), (QStringList{"SEG-2", "SEG-2", "not usable"}));
    EXPECT_TRUE(Find<QPlainTextEdit>("Details")->toPlainText().contains("DELAY"))
        << "what was assumed is told: " << Find<QPlainTextEdit>("Details")->toPlainText().toStdString();
    Find<QComboBox>("Order")->setCurrentIndex(1);
    emit Find<QComboBox>("Order")->activated(1);
    EXPECT_EQ(Column(7), (QStringList{"1", "2", ""}));
    EXPECT_FALSE(Find<QLineEdit>("Spacing")->isEnabled());
    Click("Typed");
    Type("Spacing", "2");
    Type("Shots", "-2, 8");
    Find<QTableView>("Files")->selectRow(3);
    EXPECT_TRUE(Find<QPlainTextEdit>("Details")->toPlainText().contains("Fault"));
    Click("Go");
    EXPECT_TRUE(
        Prompts.Said(Folder / "line.su has been recorded, 8 traces in 2 records\r\n1 of 3 files could not "
                              "be used: the report tells why"));
    SuTraces su(Folder / "line.su");
    EXPECT_EQ(su.Sample(1, 1), 1);
    EXPECT_EQ(su.Word(8, words::fldr), 2);
    EXPECT_TRUE(Find<QPlainTextEdit>("Report")->toPlainText().contains("broken.sg2"));
    Prompts.Expect_File("Report of the conversion", Folder / "report.txt");
    Click("SaveReport");
    EXPECT_TRUE(File_Exists(Folder / "report.txt"));
}

}  // namespace
}  // namespace tarnvik::test
