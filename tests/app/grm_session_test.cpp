// GRM from the opening of a line to the profile: who has the picture, and what an undo brings back.

#include "app/commands.h"
#include "app/dialog_commands.h"
#include "app/pages.h"
#include "app/start.h"
#include "core/grm_file.h"
#include "depth/grm_picture.h"
#include "live_session.h"

namespace tarnvik {
namespace {

class GrmSession : public test::LiveSession {
  protected:
    GrmSession() {
        GrmContent content{69.4, 4, Array2<double>(9, 24)};
        for (int r = 1; r <= 24; ++r) {
            content.Data(1, r) = 33 + 1.5 * r;
            content.Data(2, r) = 71 - 1.4 * r;
        }
        EXPECT_EQ(Replace_File(Folder / "demo1.grm", Grm_Bytes(content, 24)), "");
        EXPECT_TRUE(Open_File_Named(Program, Path));
    }
    bool Grm_Drawn() { return Dromo().Printed("GRM Velocity function") != nullptr; }
    test::RecordingPicture& Dromo() { return Display.Pictures[Canvas::Dromo]; }
    /// The dialog opens as its form does.
    void Open_Grm() {
        Run_Command(Program, "GRM_mnu");
        ASSERT_TRUE(Display.Is_Open(Dialog::GRM));
        Program.GrmAnalysis.Load();
    }
};

TEST_F(GrmSession, HasThePictureUntilItCloses) {
    EXPECT_EQ(Line.TotalTime, 69.4) << "of the GRM file";
    EXPECT_EQ(Program.Work.Grm.GrmXY, 4);
    Open_Grm();
    EXPECT_FALSE(Grm_Drawn()) << "nothing computed yet";
    Program.GrmAnalysis.Command1();
    EXPECT_TRUE(Grm_Drawn());
    EXPECT_EQ(Word_Of(Program.Work.Mode.Current()), "GRMV");
    const Colour of_two = 255;
    EXPECT_EQ(Dromo().Of(test::Drawn::Verb::Circle, of_two).size(), 2U * 22);
    ASSERT_NE(Dromo().Printed("12"), nullptr);

    // The same on paper, and with its name.
    test::RecordingPicture paper, below, beside;
    Draw_Page(Program, Page::Curves, {paper, below, beside});
    EXPECT_EQ(paper.Texts(), Dromo().Texts());
    EXPECT_NE(Page_Title(Program, Page::Curves, {}, 1)[0].find("GRM velocity function"), std::string::npos);

    // Hovering tells the point; on the way no pick can be caught.
    const double x = Position_Ecran(Line, 7);
    const double y = Height_Of_Grm_Value(Program.Work, 1, Program.Work.Grm.Curves[1].Points[4].Value);
    Program.Pointer.Move({x, y, false, false});
    EXPECT_NE(Program.Work.Fields.Text1.find("XY= 4, receiver 7: Tv= "), std::string::npos);
    Program.Pointer.Double_Click({x, y, true, false});
    EXPECT_EQ(Program.Work.Curves.PickMoving, 0);

    // Another dialog takes the picture and gives it back.
    Run_Command(Program, "vitess1");
    EXPECT_FALSE(Grm_Drawn());
    Program.Speed.Close();
    EXPECT_TRUE(Grm_Drawn());
    Run_Command(Program, "dromo");
    EXPECT_FALSE(Grm_Drawn()) << "the travel times were asked for";
    Program.GrmAnalysis.GrmOption = GRM::TimeDepthCurves;
    Program.GrmAnalysis.Command1();
    EXPECT_NE(Dromo().Printed(" GRM Time depth curves"), nullptr);
    Program.GrmAnalysis.Close();
    EXPECT_EQ(Dromo().Printed(" GRM Time depth curves"), nullptr);
    EXPECT_EQ(Program.Work.Mode.Current(), DisplayMode::Dromo);
}

TEST_F(GrmSession, DepthsAreAnEditThatCurvesAndGridFollow) {
    Open_Grm();
    Program.GrmAnalysis.Command1();
    GRM_depth& grid = Program.GrmDepths;
    Display.Open_Dialog(Dialog::GRM_depth, false);
    grid.Load();
    EXPECT_EQ(grid.XYDistance, "4");
    for (const int row : {1, 24}) {
        int column = GRM_depth::V1;
        for (const char* value : {"600", "1600", "3800", "3"})
            grid.Type(row, column++, value);
    }
    const double before = Program.Work.Grm.Curves[0].Points[0].Value;
    grid.TotalTime = "79.4";
    grid.Command2();
    ASSERT_TRUE(grid.GrmReady);
    EXPECT_EQ(Program.Work.Profile.DrawnMode, DisplayMode::Profil4);
    EXPECT_FALSE(Display.Pictures[Canvas::Dromo1].Of(test::Drawn::Verb::Arc, 128).empty());
    EXPECT_NEAR(Program.Work.Grm.Curves[0].Points[0].Value, before + 5, 1e-9) << "half the change";
    const std::string depth = grid.GRM_Grid.Text(12, GRM_depth::Bedrock);
    ASSERT_NE(depth, "");

    while (Program.Work.Edits.Can_Undo())
        Run_Command(Program, "Undo_M");
    EXPECT_EQ(Line.TotalTime, 69.4);
    EXPECT_EQ(grid.TotalTime, "69.4");
    EXPECT_EQ(grid.GRM_Grid.Text(12, GRM_depth::Bedrock), "");
    EXPECT_EQ(Program.Work.Grm.Curves[0].Points[0].Value, before);
    while (Program.Work.Edits.Can_Redo())
        Run_Command(Program, "Redo_M");
    EXPECT_EQ(grid.GRM_Grid.Text(12, GRM_depth::Bedrock), depth);
    EXPECT_TRUE(grid.Is_Interpolated(12, GRM_depth::V1));
    // A delay computation while the grid is open: it must not write the former times back.
    {
        const EditScope edit(Program.Work, "Delay times");
        Line.GrmData(1, 12) = 55.5;
    }
    EXPECT_EQ(grid.GRM_Grid.Text(12, GRM_depth::Offset1), "55.5");
}

TEST_F(GrmSession, AsksForTheTotalTimeOrRefuses) {
    Line.TotalTime = 0;
    EXPECT_EQ(Refusal_Of(*Find_Command("GRM_mnu"), Program),
              "First, you must determine Total time (=Reciprocal time) with Delay module");
    const std::string question =
        "You must enter Total time (=Reciprocal time determined with Delay module) <0 for EXIT";
    Prompts.Expect_Input(question, "0");
    Prompts.Expect_Input(question, "");
    Run_Command(Program, "GRM");
    EXPECT_FALSE(Display.Is_Open(Dialog::GRM)) << "cancelled";
    Prompts.Expect_Input(question, "-1");
    Run_Command(Program, "GRM");
    EXPECT_EQ(Line.TotalTime, -1) << "stays";
    EXPECT_FALSE(Display.Is_Open(Dialog::GRM));
    Line.TotalTime = 0;
    Prompts.Expect_Input(question, "70");
    Run_Command(Program, "GRM");
    EXPECT_TRUE(Display.Is_Open(Dialog::GRM));
    Line.GrmData = Array2<double>(Project::GrmRows, 24);
    Display.Open.clear();
    Run_Command(Program, "GRM");
    EXPECT_EQ(Prompts.Last_Text(), "First, you must determine Delay Times");
    EXPECT_FALSE(Display.Is_Open(Dialog::GRM));
}

}  // namespace
}  // namespace tarnvik
