// Sheets of a line and of its records: what is drawn, where, and in which size.

#include <algorithm>
#include <cmath>

#include "app/line_sheet.h"
#include "app/record_sheets.h"
#include "core/settings_file.h"
#include "live_session.h"
#include "records/record_display.h"
#include "records/record_files.h"
#include "support/line_with_depths.h"

namespace tarnvik::test {
namespace {

constexpr double pixels_a_millimetre = 96 / 25.4;

/// What a page of a sheet draws, with the places on the paper.
struct Played {
    RecordingPicture Main;
    RecordingPicture StripX;
    RecordingPicture StripY;
    SheetArea Window;

    explicit Played(const SheetPart& part)
        : Main(Window_In(part.Area, part.Layout).Width * pixels_a_millimetre,
               Window_In(part.Area, part.Layout).Height * pixels_a_millimetre),
          Window(Window_In(part.Area, part.Layout)) {
        part.Draw(Main, StripX, StripY);
    }
    /// Millimetres on the paper of a world place.
    double X(double x) const {
        const Frame frame = Main.Current_Frame();
        return Window.Left + (x - frame.Left) / (frame.Right - frame.Left) * Window.Width;
    }
    double Y(double y) const {
        const Frame frame = Main.Current_Frame();
        return Window.Top + (y - frame.Top) / (frame.Bottom - frame.Top) * Window.Height;
    }
};

class LineSheets : public LiveSession {
  protected:
    void Open(bool depths, bool unsaved = false) {
        Write_Demo_Line(Path, depths);
        Sheet_.Open(Path, Path, unsaved);
    }
    const SheetPart& Part(std::size_t index) const { return Sheet_.Sheets().front().Parts.at(index); }
    std::vector<std::string> Block() const {
        return Played(Sheet_.Sheets().front().Parts.back()).Main.Texts();
    }
    bool Block_Says(const std::string& text) const {
        const auto texts = Block();
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
    LineSheet Sheet_{Program};
};

// The measure as it is found with a ruler: places of the same receivers on the curves, on the profile and on
// the section.
TEST_F(LineSheets, HaveTheTrueMeasureAndTheirDistancesUnderEachOther) {
    Open(true);
    Sheet_.Paper.Choice = 1;
    for (const bool vertical : {false, true}) {
        Sheet_.Scale = "1:500";
        Sheet_.VerticalScale = vertical ? "1:400" : "fitting";
        Sheet_.Paper.Upright = true;
        Sheet_.Paper.Choice = 2;
        Sheet_.Changed();
        ASSERT_EQ(Sheet_.Outcome.substr(0, 16), "Horizontal 1:500");
        ASSERT_EQ(Sheet_.Notes().size(), 0U) << Sheet_.Notes().front();
        const double vertical_scale = Sheet_.Laid_Out().Vertical_Scale();
        if (vertical) {
            EXPECT_NEAR(vertical_scale, 400, 1e-9);
        }
        const double origin = Sheet_.Laid_Out().Origin;
        const auto place = [&](double distance) { return origin + distance * 2; };

        const Played curves(Part(0));
        const auto lines = curves.Main.Of(Drawn::Verb::Line, colours::LightGrey);
        for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver) {
            const double wanted = place(Line.ReceiverData(ReceiverDistance, receiver));
            EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const Drawn& line) {
                return line.X1 == line.X2 && std::abs(curves.X(line.X1) - wanted) < 1e-4;
            })) << receiver;
        }
        const auto frame = curves.Main.Of(Drawn::Verb::Box, colours::Black).front();
        EXPECT_NEAR(curves.X(frame.X2) - curves.X(frame.X1), 240, 1e-6) << "120 m at 1:500";

        const Played profile(Part(1));
        const auto marks = profile.Main.Of(Drawn::Verb::FilledBox, colours::Yellow);
        ASSERT_EQ(marks.size(), static_cast<std::size_t>(Line.NbReceivers));
        const auto tip = [&](std::size_t index) {
            return std::pair(profile.X((marks[index].X1 + marks[index].X2) / 2), profile.Y(marks[index].Y1));
        };
        const Played section(Part(2));
        std::vector<Drawn> ground;
        for (const Drawn& line : section.Main.Of(Drawn::Verb::Line, colours::Black)) {
            if (line.X1 != line.X2 && line.X2 > line.X1) ground.push_back(line);
        }
        for (const int receiver : {1, 9, 24}) {
            const double distance = Line.ReceiverData(ReceiverDistance, receiver);
            const double elevation = Line.ReceiverData(ReceiverElevation, receiver);
            const auto [x, y] = tip(static_cast<std::size_t>(receiver - 1));
            EXPECT_NEAR(x, place(distance), 1e-4);
            const double rise = elevation - Line.ReceiverData(ReceiverElevation, 1);
            EXPECT_NEAR(tip(0).second - y, rise * 1000 / vertical_scale, 1e-4) << receiver;
            const auto there = std::find_if(ground.begin(), ground.end(), [&](const Drawn& line) {
                return std::abs(line.X2 - distance) < 1e-6 || std::abs(line.X1 - distance) < 1e-6;
            });
            ASSERT_NE(there, ground.end()) << receiver;
            EXPECT_NEAR(section.X(distance), place(distance), 1e-4);
        }
        EXPECT_NEAR(section.Y(90) - section.Y(100), 10000 / vertical_scale, 1e-4);
        EXPECT_TRUE(Block_Says("Horizontal 1:500"));
    }
    EXPECT_TRUE(Block_Says("Vertical 1:400"));
    EXPECT_TRUE(Block_Says("Vertical exaggeration 1.25"));
    EXPECT_TRUE(Program.Work.Edits.All().empty()) << "the line is only looked at";
}

TEST_F(LineSheets, TellWhatTheyLackAndThatALineIsNotSaved) {
    Open(false, true);
    const Sheet& sheet = Sheet_.Sheets().front();
    ASSERT_EQ(sheet.Parts.size(), 3U) << "curves, note and title block";
    EXPECT_EQ(Played(Part(1)).Main.Texts(),
              std::vector<std::string>{
                  "Without profile and section: the line has no depths by intercept times yet"});
    EXPECT_TRUE(Block_Says("With changes that are not saved"));
    EXPECT_FALSE(Block_Says("Vertical exaggeration 1.0"));
    Open(true);
    EXPECT_EQ(Sheet_.Sheets().front().Parts.size(), 4U);
    EXPECT_FALSE(Block_Says("With changes that are not saved"));
    Sheet_.WithCurves = Sheet_.WithSection = false;
    Sheet_.Changed();
    EXPECT_EQ(Sheet_.Sheets().front().Parts.size(), 2U);
    Sheet_.Source = static_cast<int>(SectionSource::Grm);
    Sheet_.Changed();
    EXPECT_TRUE(Sheet_.Sheets().empty());
    EXPECT_EQ(Sheet_.Outcome, "Without the profile: the line has no depths by GRM yet");
    EXPECT_NE(Sheet_.Refusal(), "");
    ASSERT_EQ(Replace_File(Path, "nonsense"), "");
    Sheet_.Open(Path, Path, false);
    EXPECT_EQ(Sheet_.Refusal(), "No line is open");
    EXPECT_FALSE(Sheet_.May_Draw());
}

TEST_F(LineSheets, OfferTheScaleThatFits) {
    Open(true);
    Sheet_.Scale = "1:200";
    Sheet_.Changed();
    EXPECT_FALSE(Sheet_.Fits());
    const double fitting = Sheet_.Laid_Out().NextScale;
    Prompts.Expect_Start("1:200 does not fit the paper: it needs ", Answer::No);
    EXPECT_FALSE(Sheet_.May_Draw());
    EXPECT_EQ(Sheet_.Scale, "1:200");
    Prompts.Expect_Start("1:200 does not fit the paper: it needs ", Answer::Yes);
    EXPECT_TRUE(Sheet_.May_Draw());
    EXPECT_EQ(Sheet_.Laid_Out().Scale, fitting);
}

TEST_F(LineSheets, RememberTheTextsOfEachProject) {
    Open(true);
    Sheet_.Client = "Council";
    Sheet_.Title = "Dam";
    Sheet_.Remarks = "Frozen ground between 20 and 40 m, some traces with noise of the road";
    Sheet_.North = "N 35 E";
    Sheet_.Paper.Choice = 3;
    Sheet_.Changed();
    EXPECT_TRUE(Block_Says("Dam"));
    EXPECT_TRUE(Block_Says("N 35 E"));
    EXPECT_TRUE(Block_Says("Frozen ground between 20 and 40 m, some")) << "broken between words";
    const std::string other = Write_Demo_Line(Folder / "other.tv5", true);
    LineSheet next(Program);
    next.Open(other, other, false);
    EXPECT_EQ(next.Title + next.Remarks, "");
    EXPECT_EQ(next.Client, "Council") << "the same one most times";
    EXPECT_EQ(next.Paper.Choice, 3);
    next.Open(Path, Path, false);
    EXPECT_EQ(next.Title + next.North, "DamN 35 E");
}

class Records : public LiveSession {
  protected:
    Records() { Sheets.Open_Line(Path, Path); }
    /// Texts of the captions of a page.
    std::vector<std::string> Captions(std::size_t page) const {
        std::vector<std::string> found;
        const Sheet& sheet = Sheets.Sheets().at(page);
        for (std::size_t part = 1; part < sheet.Parts.size(); part += 2)
            found.push_back(Played(sheet.Parts[part]).Main.Texts().at(0));
        return found;
    }
    RecordSheets Sheets{Program};
};

TEST_F(Records, StandOnAsManyPagesAsTheyNeed) {
    EXPECT_EQ(Sheets.Outcome, "5 records on 5 pages");
    const struct {
        const char* List;
        int Grid;
        std::size_t Pages;
        std::vector<int> Records;
    } cases[] = {{"all", 3, 2, {1, 2, 3, 4, 5}},
                 {"4-2", 1, 2, {2, 3, 4}},
                 {" 5, 1;3-3, 1 ", 4, 1, {1, 3, 5}},
                 {"5", 7, 1, {5}}};
    for (const auto& c : cases) {
        Sheets.Records = c.List;
        Sheets.Grid = c.Grid;
        Sheets.Changed();
        EXPECT_EQ(Sheets.Chosen(), c.Records) << c.List;
        ASSERT_EQ(Sheets.Sheets().size(), c.Pages) << c.List;
        std::size_t at = 0;
        for (std::size_t page = 0; page < c.Pages; ++page) {
            for (const std::string& caption : Captions(page)) {
                EXPECT_TRUE(caption.starts_with("Record " + std::to_string(c.Records.at(at)))) << caption;
                ++at;
            }
            for (const SheetPart& part : Sheets.Sheets()[page].Parts) {
                EXPECT_GE(part.Area.Left, 10 - 1e-9);
                EXPECT_LE(part.Area.Right(), 287 + 1e-9);
                EXPECT_LE(part.Area.Bottom(), 200 + 1e-9);
            }
        }
        EXPECT_EQ(at, c.Records.size());
    }
    for (const char* bad : {"6", "0", "1-", "x", "1 2", "1-9", "2,,3"}) {
        Sheets.Records = bad;
        Sheets.Changed();
        EXPECT_TRUE(Sheets.Sheets().empty()) << bad;
        EXPECT_FALSE(Sheets.May_Draw());
        EXPECT_TRUE(Prompts.Said(Sheets.Outcome));
    }
}

TEST_F(Records, AreDrawnFromTheirTracesWithTheLook) {
    Sheets.Records = "3";
    Sheets.Changed();
    ASSERT_EQ(Captions(0).at(0), "Record 3, shot 3 at 60 m, receivers 1 to 24, from 2.5 to 117.5 m");
    const auto head = Played(Sheets.Sheets().front().Parts.front()).Main.Texts();
    EXPECT_EQ(head.at(0), "demo1.tv5   demo1.su");
    EXPECT_TRUE(head.at(1).ends_with("page 1 of 1"));
    const Played whole(Sheets.Sheets().front().Parts.at(2));
    EXPECT_EQ(whole.Main.Current_Frame().Left, (2 * 24 + 1) * trace_width) << "traces 49 to 72";
    EXPECT_EQ(whole.Main.Current_Frame().Bottom, 500);
    EXPECT_EQ(whole.Main.Of(Drawn::Verb::Line, colours::Red).size(), 0U)
        << "the demo's headers have no picks";
    EXPECT_FALSE(whole.StripX.Texts().empty()) << "the header";
    {
        RecordFiles files(Program.Work);
        for (int trace = 49; trace <= 72; ++trace)
            files.Set_Word(trace, words::First_Breaks, 200);
    }
    const auto marks = [&] {
        return Played(Sheets.Sheets().front().Parts.at(2)).Main.Of(Drawn::Verb::Line, colours::Red).size();
    };
    EXPECT_EQ(marks(), 24U);
    Sheets.Picks = false;
    Sheets.FirstSample = "101";
    Sheets.LastSample = "300";
    Sheets.Style = WiggleOnly;
    Sheets.Header = false;
    Sheets.Changed();
    EXPECT_EQ(marks(), 0U);
    const Played part(Sheets.Sheets().front().Parts.at(2));
    EXPECT_EQ(part.Main.Current_Frame().Top, 101);
    EXPECT_EQ(part.Main.Current_Frame().Bottom, 300);
    EXPECT_TRUE(part.Main.Of(Drawn::Verb::Polygon).empty()) << "no area in a wiggle";
    EXPECT_GT(part.Window.Height, whole.Window.Height) << "the header's room is the record's";
    Sheets.LastSample = "501";
    Sheets.Changed();
    EXPECT_EQ(Sheets.Refusal(), "Samples are 1 to 500, the first below the last");
}

// A record is drawn with its own amplitudes, whichever was drawn before it.
TEST_F(Records, LookTheSameInAnyOrder) {
    Sheets.Equalise = false;
    Sheets.Changed();
    const auto draw = [&](std::size_t page) {
        std::vector<PixelPoint> points;
        for (const Drawn& trace : Played(Sheets.Sheets().at(page).Parts.at(2)).Main.Of(Drawn::Verb::Polyline))
            points.insert(points.end(), trace.Points.begin(), trace.Points.end());
        return points;
    };
    const auto second = draw(1);
    ASSERT_FALSE(second.empty());
    draw(4);
    EXPECT_EQ(draw(1), second);
}

TEST_F(Records, OfAFileWithoutAProjectAreDrawnToo) {
    Sheets.Open_File(Folder / "demo1.su");
    EXPECT_EQ(Sheets.File_Text(), "demo1.su, 5 records of 24 traces");
    EXPECT_EQ(Captions(1).at(0), "Record 2, FLDR 2, traces 25 to 48");
    EXPECT_EQ(Sheets.Sources(), std::vector<std::string>{Folder / "demo1.su"});
    ASSERT_EQ(Replace_File(Folder / "short.su", "abc"), "");
    Sheets.Open_File(Folder / "short.su");
    EXPECT_TRUE(Prompts.Said(Folder / "short.su: no records found in this file")) << Prompts.Last_Text();
    EXPECT_EQ(Sheets.Refusal(), "No records are open");
}

}  // namespace
}  // namespace tarnvik::test
