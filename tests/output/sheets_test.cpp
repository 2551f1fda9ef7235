// Sheets of paper: where the panels of a line stand, names of the files, and profiles of several lines
// joined.

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "core/text/number.h"
#include "output/sheets/joined_profiles.h"
#include "output/sheets/line_layout.h"
#include "support/line_with_depths.h"
#include "support/recording_picture.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

LineLayoutWish Three_Panels() {
    LineLayoutWish wish;
    wish.Width = 420;
    wish.Height = 297;
    wish.LineLength = 120;
    LinePanel curves;
    curves.Layout = Curves_Layout();
    LinePanel profile;
    profile.Layout = Profile_Layout();
    profile.Before = profile.Behind = 120.0 / 18;
    profile.Height = 40;
    LinePanel section;
    section.Layout = Section_Layout();
    section.Height = 30;
    section.Room = {.Right = 78, .Above = 42};
    wish.Panels = {curves, profile, section};
    return wish;
}

TEST(LineLayout, KeepsTheScaleAndThePanelsUnderEachOther) {
    LineLayoutWish wish = Three_Panels();
    for (const double scale : {0.0, 500.0, 1000.0}) {
        wish.Scale = scale;
        const LineLayout layout = Lay_Out_Line(wish);
        EXPECT_EQ(layout.Fault, "");
        const double unit = 1000 / layout.Scale;  // mm of a metre
        EXPECT_TRUE(scale == 0 || layout.Scale == scale);
        EXPECT_GE(layout.Exaggeration, 1);
        const auto& windows = layout.Windows;
        ASSERT_EQ(windows.size(), 3U);
        EXPECT_NEAR(windows[0].Width, 120 * unit, 1e-9);
        for (const std::size_t panel : {0U, 1U, 2U}) {
            EXPECT_NEAR(windows[panel].Left + wish.Panels[panel].Before * unit, layout.Origin, 1e-9);
            const SheetArea area = Area_Around(windows[panel], wish.Panels[panel].Layout);
            EXPECT_GE(area.Left, 10 - 1e-9);
            EXPECT_LE(area.Right(), wish.Width - 10 + 1e-6);
            EXPECT_LE(area.Bottom(), layout.Block.Top);
            if (panel == 0) continue;
            const SheetArea above = Area_Around(windows[panel - 1], wish.Panels[panel - 1].Layout);
            EXPECT_GE(area.Top, above.Bottom() - 1e-9) << "no panel wipes the one above it";
        }
        EXPECT_NEAR(windows[1].Height, 40 * unit * layout.Exaggeration, 1e-9);
        EXPECT_NEAR(windows[2].Height, 30 * unit * layout.Exaggeration + 42 / points_a_millimetre, 1e-9);
    }
    // Fitting takes the largest round scale: the next larger one has no room.
    wish.Scale = 0;
    const double fitting = Lay_Out_Line(wish).Scale;
    wish.Scale = fitting * 0.8;
    EXPECT_EQ(Lay_Out_Line(wish).NextScale, fitting);
    wish.LineLength = 1200;
    wish.Panels[1].Before = wish.Panels[1].Behind = 1200.0 / 18;
    wish.Scale = 0;
    EXPECT_NEAR(Lay_Out_Line(wish).Scale, 4000, 1e-6)
        << "350 mm are left for 1200 m and 133 m around the profile";
}

TEST(LineLayout, TellsWhatDoesNotFitAndWhatDoes) {
    LineLayoutWish wish = Three_Panels();
    wish.Scale = 200;
    LineLayout layout = Lay_Out_Line(wish);
    EXPECT_NE(layout.Fault.find("1:200 does not fit the paper: it needs "), std::string::npos);
    EXPECT_NE(layout.Fault.find("there are 420 x 297 mm. " + std::string("1:") +
                                std::to_string(static_cast<int>(layout.NextScale)) + " fits"),
              std::string::npos)
        << layout.Fault;
    wish.Scale = layout.NextScale;
    EXPECT_EQ(Lay_Out_Line(wish).Fault, "") << "what is offered is true";

    // Elevations that are too high at any scale across.
    wish.Scale = 500;
    wish.VerticalScale = 100;
    layout = Lay_Out_Line(wish);
    EXPECT_EQ(layout.NextScale, 0);
    ASSERT_GT(layout.NextVertical, 100);
    wish.VerticalScale = layout.NextVertical;
    const LineLayout taken = Lay_Out_Line(wish);
    EXPECT_EQ(taken.Fault, "");
    EXPECT_EQ(taken.Scale, 500);
    EXPECT_NEAR(taken.Vertical_Scale(), layout.NextVertical, 1e-9);
    // A paper without room for anything is told, and nothing hangs.
    wish.Width = wish.Height = 50;
    EXPECT_EQ(Lay_Out_Line(wish).Fault, "The paper is too small for this sheet");
}

class OneSource : public SheetSource {
  public:
    const std::vector<Sheet>& Sheets() const override { return All; }
    std::string Refusal() const override { return {}; }
    bool May_Draw() override { return true; }
    std::string File_Name() const override { return "name"; }
    std::string Folder() const override { return {}; }
    std::vector<std::string> Sources() const override { return {Read}; }
    std::vector<Sheet> All = std::vector<Sheet>(3);
    std::string Read;
};

TEST(SheetFiles, AreNumberedAndNeverReplacedUnasked) {
    EXPECT_EQ(Sheet_Files("a/b.pdf", 12), std::vector<std::string>{"a/b.pdf"});
    EXPECT_EQ(Sheet_Files("a/b.png", 1), std::vector<std::string>{"a/b.png"});
    EXPECT_EQ(Sheet_Files("a.d/b.c.PNG", 2), (std::vector<std::string>{"a.d/b.c_01.PNG", "a.d/b.c_02.PNG"}));
    EXPECT_EQ(Sheet_Files("b.svg", 100)[8], "b_009.svg");

    TemporaryFolder folder;
    TestPorts ports;
    OneSource source;
    source.Read = folder / "line.png";
    std::vector<std::string> written;
    const SheetWriter write = [&](const std::vector<Sheet>&, const std::vector<std::string>& files) {
        written = files;
        return std::string();
    };
    const auto save = [&](const std::string& name) {
        written.clear();
        std::string ending = ".png";
        ports.Prompts.Expect_File("Save", folder / name);
        return Save_Sheets(ports.Ports, "Save", source, ending, write) ? ending : "";
    };
    EXPECT_EQ(save("x"), ".png") << "the kind of the last time";
    EXPECT_EQ(ports.Prompts.FileRequests.back().DefaultName, "name.png");
    EXPECT_EQ(written.size(), 3U);
    EXPECT_EQ(written.back(), folder / "x_03.png");
    ASSERT_EQ(Replace_File(folder / "y_02.svg", "kept"), "");
    ports.Prompts.Expect_File("Save", folder / "y.svg");
    ports.Prompts.Expect(folder / "y_02.svg already exists, overwrite ?", Answer::No);
    std::string ending;
    written.clear();
    EXPECT_FALSE(Save_Sheets(ports.Ports, "Save", source, ending, write));
    EXPECT_TRUE(written.empty());
    EXPECT_EQ(save("z.tv5"), "") << "no kind of sheets";
    source.All.resize(1);
    ASSERT_EQ(Replace_File(source.Read, "data"), "");
    EXPECT_EQ(save("line.png"), "") << "what it is drawn from stays";
    EXPECT_EQ(save("one.wmf"), ".wmf");
    EXPECT_EQ(written, std::vector<std::string>{folder / "one.wmf"});
}

TEST(Papers, AreKeptAsText) {
    PaperChoice paper;
    paper.Choice = PaperChoice::own_size;
    paper.OwnWidth = "800.5";
    paper.OwnHeight = "40";
    EXPECT_NE(paper.Fault(), "");
    paper.OwnHeight = "297";
    PaperChoice other;
    other.Take(paper.Text());
    EXPECT_EQ(other.Width(), 800.5);
    EXPECT_EQ(other.Height(), 297);
    other.Take("");
    other.Take("77 1");
    EXPECT_EQ(other.Choice, PaperChoice::own_size);
    other.Choice = 1;
    other.Upright = true;
    EXPECT_EQ(other.Width(), 297);
}

/// Two copies of the demo line, the second one without depths.
class Joined : public ::testing::Test {
  protected:
    Joined() {
        Write_Demo_Line(First, true);
        Write_Demo_Line(Second, false);
        Profiles.Add({First, Second, First});
    }
    void Choose(int line, const std::string& offset, bool reversed = false) {
        Profiles.Select(line);
        Profiles.Offset = offset;
        Profiles.Reversed = reversed;
        Profiles.Line_Changed();
    }
    TemporaryFolder Folder;
    std::string First = Folder / "first.tv5";
    std::string Second = Folder / "second, b.tv5";
    TestPorts Test;
    Settings UserSettings;
    JoinedProfiles Profiles{Test.Ports, UserSettings, "Title"};
    std::vector<JoinedLine>& Lines = Profiles.Lines;
};

TEST_F(Joined, LinesFollowEachOtherOrStandWhereTheUserPutsThem) {
    ASSERT_EQ(Lines.size(), 3U);
    EXPECT_EQ(Lines[1].PlaceOf, 120);
    EXPECT_EQ(Lines[2].PlaceOf, 240);
    Choose(1, "200", true);
    EXPECT_EQ(Lines[1].Joined(0), 320) << "its beginning is at the far end";
    EXPECT_EQ(Lines[1].Joined(117.5), 202.5);
    EXPECT_EQ(Lines[2].PlaceOf, 320) << "behind the one before it";
    const ReportCurve ground = Lines[1].Joined(Lines[1].Ground);
    EXPECT_TRUE(std::is_sorted(ground.begin(), ground.end(),
                               [](const ReportPoint& a, const ReportPoint& b) { return a.X < b.X; }));
    EXPECT_EQ(*Curve_At(ground, 202.5), *Curve_At(Lines[1].Ground, 117.5));
    Choose(2, "own");
    EXPECT_EQ(Lines[2].PlaceOf, 0);
    EXPECT_EQ(Profiles.Offset, "own");
    EXPECT_EQ(Profiles.Extent().Right, 320);
    Profiles.Select(1);
    Profiles.Move(-1);
    EXPECT_EQ(Lines[0].File, Second);
    EXPECT_EQ(Lines[1].PlaceOf, 320);
    Profiles.Remove();
    EXPECT_EQ(Lines[0].PlaceOf, 0);
    // A file that is no project is told and not added.
    ASSERT_EQ(Replace_File(Folder / "no.tv5", "nonsense"), "");
    Profiles.Add({Folder / "no.tv5", Folder / "missing.tv5"});
    EXPECT_EQ(Lines.size(), 2U);
    EXPECT_NE(Test.Prompts.Last_Text().find("missing.tv5: This file does not exist !"), std::string::npos);
}

TEST_F(Joined, SetComesBackAlsoFromAnotherFolder) {
    Choose(1, "150.5", true);
    Profiles.Title = "Valley";
    Profiles.Scale = "1:2000";
    Test.Prompts.Expect_File("Save set of profiles", Folder / "all");
    Profiles.Save_Set();
    const std::string elsewhere = Folder / "moved";
    std::filesystem::create_directory(elsewhere);
    for (const std::string name : {"all.tvset", "first.tv5", "second, b.tv5"})
        std::filesystem::rename(Folder / name, elsewhere + "/" + name);
    JoinedProfiles next(Test.Ports, UserSettings, "Title");
    EXPECT_EQ(next.Read_Set(elsewhere + "/all.tvset"), "");
    ASSERT_EQ(next.Lines.size(), 3U);
    EXPECT_EQ(next.Lines[1].PlaceOf, 150.5);
    EXPECT_TRUE(next.Lines[1].Reversed);
    EXPECT_EQ(next.Title + next.Scale, "Valley1:2000");
    EXPECT_EQ(next.Table(), Profiles.Table());
    // A line that has gone stays in the list and is told; the others are drawn.
    std::filesystem::remove(elsewhere + "/second, b.tv5");
    EXPECT_NE(next.Read_Set(elsewhere + "/all.tvset").find("second, b.tv5"), std::string::npos);
    EXPECT_EQ(next.Lines.size(), 3U);
    EXPECT_EQ(next.Refusal(), "");
    EXPECT_NE(next.Read_Set(elsewhere + "/first.tv5"), "");
    // Nothing of the user's is written over.
    Test.Prompts.Expect_File("Save joined interfaces", elsewhere + "/first.tv5");
    const std::string before = *Read_File(elsewhere + "/first.tv5");
    next.Save_Table();
    EXPECT_EQ(*Read_File(elsewhere + "/first.tv5"), before);
}

TEST_F(Joined, TableHoldsTheInterfacesAtTheirJoinedPlaces) {
    Choose(2, "", true);
    const std::string table = Profiles.Table();
    EXPECT_TRUE(table.starts_with("Line,Distance,Own distance,Ground,Interface 1,Interface 2\r\n")) << table;
    const auto ground = *Curve_At(Lines[0].Ground, 60);
    const auto row = [&](const std::string& name, double at, bool depths) {
        const auto number = [](double value) { return CStr(Rounded(value * 1000) / 1000); };
        return name + "," + number(at) + ",60," + number(ground) + "," + (depths ? number(ground - 6) : "") +
               "," + (depths ? number(ground - 19) : "") + "\r\n";
    };
    EXPECT_NE(table.find(row("first", 60, true)), std::string::npos) << table;
    EXPECT_NE(table.find(row("\"second, b\"", 180, false)), std::string::npos);
    EXPECT_NE(table.find(row("first", 300, true)), std::string::npos)
        << "reversed: its middle stays the middle";
}

TEST_F(Joined, DrawingHasItsScaleAndEveryLine) {
    Choose(2, "", true);
    Profiles.Scale = "1:1000";
    Profiles.Exaggeration = "2";
    Profiles.Changed();
    ASSERT_EQ(Profiles.Sheets().size(), 1U);
    RecordingPicture paper(420 / 25.4 * 96, 297 / 25.4 * 96);
    const ReportFrame frame = Draw_Joined(Profiles, paper);
    EXPECT_TRUE(frame.Fits);
    const Frame window = paper.Current_Frame();
    const double across = (window.Right - window.Left) / window.Width;  // m of a pixel
    const double upward = (window.Top - window.Bottom) / window.Height;
    EXPECT_NEAR(25.4 / 96 / across, 1, 1e-9) << "a metre is a millimetre";
    EXPECT_NEAR(across / upward, 2, 1e-9);
    // The ground of each line, at its place; the last one mirrored.
    for (const JoinedLine& line : Lines) {
        const ReportCurve ground = line.Joined(line.Ground);
        int drawn = 0;
        for (std::size_t i = 1; i < ground.size(); ++i)
            drawn +=
                paper.Has_Line(ground[i - 1].X, ground[i - 1].Z, ground[i].X, ground[i].Z, colours::Black);
        EXPECT_EQ(drawn, static_cast<int>(ground.size()) - 1) << line.Name;
    }
    const double middle = *Curve_At(Lines[0].Ground, 60);
    for (const double at : {60.0, 300.0}) {
        bool found = false;
        for (const Drawn& each : paper.Of(Drawn::Verb::Line))
            found = found || (each.X2 == at && std::abs(each.Y2 - (middle - 19)) < 1e-5);
        EXPECT_TRUE(found) << "second interface below the middle shot at " << at;
    }
    for (const char* text :
         {"first", "second, b (no depths)", "< first", "Horizontal 1:1000", "Vertical 1:500",
          "Vertical exaggeration 2.0", "Layer 1: 600 m/s", "Layer 3: 3800 m/s"})
        EXPECT_NE(paper.Printed(text), nullptr) << text;
    EXPECT_EQ(paper.Of(Drawn::Verb::Polygon, Layer_Fill(1)).size(), 2U) << "lines with depths";
    const Drawn* name = paper.Printed("second, b (no depths)");
    EXPECT_GT(name->X1, 120);
    EXPECT_LT(name->X1, 240);
}

}  // namespace
}  // namespace tarnvik::test
