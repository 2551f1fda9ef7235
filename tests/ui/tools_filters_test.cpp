#include <gtest/gtest.h>
#include <qcustomplot.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <cmath>

#include "core/files.h"
#include "core/settings_file.h"
#include "records/su_file.h"
#include "support/su_builder.h"
#include "support/test_ports.h"
#include "ui/forms/enhancement_form.h"
#include "ui/forms/spectrum_form.h"
#include "ui/picture_box.h"

namespace tarnvik::test {
namespace {

class FilterWindows : public testing::Test {
  protected:
    /// Two records of six channels, 400 samples of 0.5 ms: 40 Hz on channel 1, 80 Hz on the others; hum of 50
    /// Hz on all of them, and a pick.
    std::string Records(const std::string& name) {
        SuBuilder builder(12, 400, 500);
        builder.Records(6);
        for (int trace = 1; trace <= 12; ++trace) {
            const double hertz = trace % 6 == 1 ? 40 : 80;
            for (int sample = 1; sample <= 400; ++sample) {
                const double angle = 2 * 3.14159265358979 * sample * 0.0005;
                builder.Sample(trace, sample,
                               static_cast<float>(100 * std::sin(hertz * angle) + 20 * std::sin(50 * angle)));
            }
            builder.Put16(trace, 222, 100 + trace);
        }
        return builder.Write(Folder / name);
    }
    template <class Control>
    static Control* Find(QWidget& form, const char* name) {
        auto* control = form.findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name;
        return control;
    }
    static void Type(QWidget& form, const char* name, const char* text) {
        auto* field = Find<QLineEdit>(form, name);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
    }
    static void Click(QWidget& form, const char* name) {
        QTest::mouseClick(Find<QAbstractButton>(form, name), Qt::LeftButton, {}, QPoint(8, 8));
        QApplication::processEvents();
    }
    template <class FormType>
    static void Show(FormType& form, int* closed) {
        form.Close_Me = [closed] { ++*closed; };
        form.resize(1200, 700);
        form.show();
        form.Refresh();
        form.activateWindow();
        QApplication::processEvents();
    }

    TemporaryFolder Folder;
    ScriptedPrompts Prompts;
    RecordingLauncher Launcher;
    RecordingDisplay Display;
    Ports Outside{Prompts, Display, Launcher};
    std::string Settings = Folder / "Tarnvik32.INI";
    int Closed = 0;
};

TEST_F(FilterWindows, a_record_is_tried_and_the_file_filtered_with_its_picks) {
    const std::string in = Records("line.su");
    const std::string out = Folder / "line_flt.su";
    auto made = std::make_unique<Enhancement>(Outside, "Tarnvik", Settings);
    Enhancement& logic = *made;
    logic.Take_Up(in);
    EXPECT_EQ(logic.Output, out);
    EnhancementForm form(std::move(made));
    Show(form, &Closed);
    auto* after = Find<PictureBox>(form, "AfterPicture");
    auto* hint = Find<QLabel>(form, "Hint");
    EXPECT_EQ(hint->text(), "Record 1 of 2, traces 1 to 6 of 12");

    // A choice is seen at once; one that cannot be used is told and is not written.
    const QImage usual = after->Canvas().Image().copy();
    Click(form, "NotchOn");
    Type(form, "F3", "60");
    Type(form, "F4", "70");
    QTest::qWait(20);
    EXPECT_NE(after->Canvas().Image(), usual);
    EXPECT_EQ(Find<QComboBox>(form, "Preset")->currentText(), "As typed");
    Type(form, "F4", "10");
    QTest::qWait(20);
    EXPECT_TRUE(hint->text().contains("must not fall")) << hint->text().toStdString();
    EXPECT_FALSE(Find<QPushButton>(form, "Write")->isEnabled());
    Type(form, "F4", "70");
    // Traces 2 to 7 alone, of these 7 turned round; the second record is where that is seen.
    Click(form, "Reverse");
    Type(form, "FirstTrace", "2");
    Type(form, "LastTrace", "7");
    Type(form, "FirstReversed", "7");
    Find<QScrollBar>(form, "RecordSlider")->setValue(2);
    QTest::qWait(20);
    EXPECT_EQ(hint->text(), "Record 2 of 2, traces 7 to 12 of 12");
    const StrongBand band = Strong_Band(logic.Spectrum_After());
    EXPECT_NEAR(band.Peak, 80, 3) << "only one of six is filtered";

    const std::string before = Content_Of(in);
    QTest::keyClick(&form, Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(File_Exists(out)) << Prompts.Last_Text();
    EXPECT_NE(Prompts.Last_Text().find("12 traces written to"), std::string::npos);
    EXPECT_NE(Prompts.Last_Text().find("its twin line.su"), std::string::npos);
    EXPECT_EQ(Content_Of(in), before);
    SuTraces filtered(out);
    SuTraces original(in);
    EXPECT_EQ(filtered.Pick_Ms(7), 10.7);
    EXPECT_EQ(filtered.Sample(1, 100), original.Sample(1, 100));
    const double top = 100 * std::sin(2 * 3.14159265358979 * 40 * 0.1065);  // sample 213
    EXPECT_NEAR(filtered.Sample(7, 213).value_or(0), -top, 2);
    EXPECT_NEAR(filtered.Sample(3, 213).value_or(100), 0, 2);

    // Once more asks first, and no leaves the file.
    const std::string whole = Content_Of(out);
    Type(form, "LastTrace", "9");
    QTest::qWait(20);
    Prompts.Expect(out + " is there already. Replace it ?", Answer::No);
    Click(form, "Write");
    EXPECT_EQ(Content_Of(out), whole);
    // The choices are remembered, and the filtered file leads back to its original.
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_EQ(Closed, 1);
    form.Closed();
    Enhancement again(Outside, "Tarnvik", Settings);
    EXPECT_TRUE(again.NotchOn && again.Reverse);
    EXPECT_EQ(again.F3, "60");
    Prompts.Expect_Start("line_flt.su is a filtered file.", Answer::Yes);
    again.Take_Up(out);
    EXPECT_EQ(again.Input, in);
    again.Take_Up(Folder / "none.su");
    EXPECT_NE(Prompts.Last_Text().find("does not exist"), std::string::npos);
    EXPECT_EQ(again.Input, in);
}

TEST_F(FilterWindows, the_spectrum_is_that_of_the_area_told) {
    const std::string file = Records("my line.su");
    auto made = std::make_unique<SpectrumOfTraces>(Outside, "Tarnvik", Settings);
    SpectrumOfTraces& logic = *made;
    logic.Take_Arguments("f=" + file + " ftr=7 ltr=7 fpt=1 lpt=400");
    SpectrumForm form(std::move(made));
    Show(form, &Closed);
    EXPECT_EQ(logic.File, file);
    EXPECT_NEAR(logic.Band().Peak, 40, 1);
    EXPECT_NEAR(logic.Band().PeakAmplitude, 100, 5);
    auto* plot = Find<QCustomPlot>(form, "SpectrumPlot");
    EXPECT_EQ(plot->graphCount(), 3) << "the band, the trace and the mean";

    Type(form, "FirstTrace", "8");
    EXPECT_FALSE(logic.Has_Result()) << "behind the last one";
    EXPECT_TRUE(Find<QLabel>(form, "Hint")->text().contains("before the first"));
    EXPECT_FALSE(Find<QPushButton>(form, "SaveNumbers")->isEnabled());
    Type(form, "LastTrace", "12");
    EXPECT_NEAR(logic.Band().Peak, 80, 1);
    EXPECT_EQ(plot->graphCount(), 7);
    Click(form, "EachTrace");
    EXPECT_EQ(plot->graphCount(), 2);
    Find<QComboBox>(form, "Shown")->setCurrentIndex(SpectrumOfTraces::Decibel);
    emit Find<QComboBox>(form, "Shown")->activated(SpectrumOfTraces::Decibel);
    EXPECT_EQ(plot->yAxis->range().upper, 20);
    const QPoint at(static_cast<int>(plot->xAxis->coordToPixel(80)), plot->height() / 2);
    QTest::mouseMove(plot, at);
    QMouseEvent moved(QEvent::MouseMove, at, plot->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(plot, &moved);
    const QString readout = Find<QLabel>(form, "SpectrumReadout")->text();
    EXPECT_TRUE(readout.contains("period 12.") && readout.contains("mean: ") && readout.contains("dB"))
        << readout.toStdString();

    Prompts.Expect_File("Numbers of the spectrum", Folder / "numbers");
    Click(form, "SaveNumbers");
    const std::string numbers = Read_File(Folder / "numbers.csv").value_or("");
    EXPECT_EQ(numbers.rfind("Frequency_Hz;Mean_amplitude;Mean_dB;Phase_of_sum_deg;Trace_8;", 0), 0U);
    EXPECT_EQ(std::count(numbers.begin(), numbers.end(), '\n'),
              static_cast<std::ptrdiff_t>(logic.Mean_Spectrum().Amplitude.size()) + 1);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_EQ(Closed, 1);
}

}  // namespace
}  // namespace tarnvik::test
