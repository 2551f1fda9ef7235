#include "app/record_choices.h"

#include <algorithm>

#include "app/commands.h"
#include "app/start.h"
#include "live_session.h"
#include "records/record_zoom.h"

namespace tarnvik::test {
namespace {

TEST(RecordChoices, RecordsStartReadableAndComeBackAsTheyWereLeft) {
    LiveWorld first;
    first.Program.Keep_Display_Choices();
    const RecordView& view = first.Program.Work.Record;
    ASSERT_TRUE(Load_And_Show(first.Program, first.Path));
    EXPECT_TRUE(view.EqualiseTraces && view.EqualiseInSight && view.ClipAmplitude);
    EXPECT_GE(view.AmplitudeGain, 1);
    EXPECT_TRUE(first.Program.Work.Edits.Is_Saved()) << "looking is no edit";

    // The user makes his own choices; another project does not know of them.
    first.Program.Work.Record.AgcWindow = 40;
    first.Program.Work.Record.ClipAmplitude = false;
    first.Program.RecordWheel.Turn_Gain(3);
    Run_Command(first.Program, "CrossHair");
    Run_Command(first.Program, "Snap_Every");
    Run_Command(first.Program, "Snap_Peak");
    const double chosen = view.AmplitudeGain;
    const std::string other = first.Folder / "other.tv5";
    ASSERT_EQ(Copy_File(first.Path, other), "");
    ASSERT_TRUE(Load_And_Show(first.Program, other));
    EXPECT_TRUE(view.ClipAmplitude);
    End_Session(first.Program);

    // The next start of the program.
    Session second({first.Prompts, first.Display, first.Launcher}, first.Folder / "Tarnvik32.INI");
    first.Display.Attach(second);
    second.Keep_Display_Choices();
    ASSERT_TRUE(Load_And_Show(second, first.Path));
    const RecordView& again = second.Work.Record;
    EXPECT_EQ(again.AmplitudeGain, chosen);
    EXPECT_EQ(again.AgcWindow, 40);
    EXPECT_FALSE(again.ClipAmplitude || again.CrossHair);
    EXPECT_TRUE(again.Picking.SnapEvery && again.Picking.Feature == SnapTo::Peak);
    EXPECT_TRUE(again.EqualiseTraces);
    second.Work.Record.AmplitudeGain = 9;
    RecordZoom(second.Work, second.Outside).Show_Whole();
    EXPECT_EQ(second.Work.Choices.Number(first.Path, "record.gain"), 9);

    // Without a file of choices, as in a run without a screen, the display is the plain one.
    LiveWorld plain;
    ASSERT_TRUE(Load_And_Show(plain.Program, plain.Path));
    EXPECT_FALSE(plain.Program.Work.Record.EqualiseTraces || plain.Program.Work.Record.ClipAmplitude);
    EXPECT_EQ(plain.Program.Work.Record.AmplitudeGain, 1);
}

TEST(DisplayChoicesFile, OutlivesStrangeNamesAndContents) {
    TemporaryFolder folder;
    const std::string path = folder / "Displays.txt";
    DisplayChoices choices;
    choices.Keep_In(path);
    choices.Set("/a]b=[c\n/line.tv5", "x=y", "1");  // the name ends at its first "="
    choices.Set("/lines/é.tv5", "name", " two\nlines = ");
    choices.Set_Number("/lines/é.tv5", "gain", -0.25);
    choices.Set("", "gain", "3");
    EXPECT_EQ(choices.Save(), "");
    DisplayChoices again;
    again.Keep_In(path);
    EXPECT_EQ(again.Get("/lines/é.tv5", "name"), " two lines = ");
    EXPECT_EQ(again.Number("/lines/é.tv5", "gain"), -0.25);
    EXPECT_TRUE(again.Knows("/a]b=[c\n/line.tv5"));
    EXPECT_FALSE(again.Knows(""));
    EXPECT_FALSE(again.Get("/lines/é.tv5", "nothing"));
    // Of very many projects those used last stay.
    for (int i = 0; i < 300; ++i)
        again.Set_Number("project " + std::to_string(i), "gain", i);
    EXPECT_FALSE(again.Knows("/lines/é.tv5"));
    EXPECT_EQ(again.Number("project 299", "gain"), 299);
    ASSERT_EQ(Replace_File(path, std::string("gain=1\n[\n[p]\r\n=2\ngain=7\r\n\0\xff", 28)), "");
    DisplayChoices wild;
    wild.Keep_In(path);
    EXPECT_EQ(wild.Number("p", "gain"), 7);
}

}  // namespace
}  // namespace tarnvik::test
