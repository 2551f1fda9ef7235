// Exports and the import by their menu entries.

#include "app/commands.h"
#include "app/live_session.h"

namespace tarnvik::test {
namespace {

class ExportCommands : public LiveSession {
  protected:
    void Expect_SeisOpt(const std::string& path, Answer real_distances) {
        Prompts.Expect_File("Tarnvik File selection", path);
        Prompts.Expect_Input("Distance to add to ALL original distances", "0");
        Prompts.Expect_Input("Elevation to add to ALL original elevations", "0");
        Prompts.Expect(" Do you want to compute real distances (if there a slopes) ?", real_distances);
    }
};

TEST_F(ExportCommands, take_the_line_in_memory_as_it_stands_and_any_other_from_its_file) {
    Prompts.Expect_File("Tarnvik File selection", Path);
    Program.Hooks.OfferSuFile = {};
    Run_Command(Program, "open");
    const Array2<float> as_filed = Line.ReceiverData;
    Line.ReceiverData(ReceiverElevation, 1) = 105;
    Expect_SeisOpt(Path, Answer::No);
    Run_Command(Program, "optim");
    EXPECT_TRUE(Read_File(Folder / "demo1_rec").value_or("").starts_with("2.50 105.00\r\n"));
    // Another line: its own values, and the one in memory stays even where distances are corrected.
    const std::string other = Folder / "other.tv5";
    ASSERT_EQ(Copy_File(Path, other), "");
    const Array2<float> before = Line.ReceiverData;
    Expect_SeisOpt(other, Answer::Yes);
    Run_Command(Program, "optim");
    EXPECT_TRUE(Read_File(Folder / "other_rec").value_or("").starts_with("2.50 100.11\r\n"));
    EXPECT_EQ(Line.ReceiverData, before);
    EXPECT_TRUE(Program.Work.Edits.All().empty());
    // In memory the corrected distances are an edit that goes back.
    for (const char* ending : {"_src", "_rec", "_obs"})
        std::filesystem::remove(Folder / (std::string("demo1") + ending));
    Expect_SeisOpt(Path, Answer::Yes);
    Run_Command(Program, "optim");
    EXPECT_NE(Line.ReceiverData, before);
    Run_Command(Program, "Undo_M");
    EXPECT_EQ(Line.ReceiverData, before);
}

TEST_F(ExportCommands, bring_picks_of_another_program_in_as_a_project) {
    ASSERT_EQ(Replace_File(Folder / "line.sgt",
                           "4 # p\n# x z\n0 10\n2 11\n4 12\n6 13\n4 # d\n# s g t\n1 2 0.004\n1 3 0.008\n"
                           "4 2 0.0075\n4 3 0.004\n"),
              "");
    Prompts.Expect_File("Select a file of picks", Folder / "line.sgt");
    Prompts.Expect_File("Select a new Tarnvik File Name", Folder / "line");
    Run_Command(Program, "ImportPicks_M");
    EXPECT_EQ(Line.CurrentFile, Folder / "line.tv5");
    EXPECT_EQ(Line.NbShots, 2);
    EXPECT_EQ(Line.NbReceivers, 2);
    EXPECT_EQ(Line.LineLength, 6);
    EXPECT_EQ(Line.ShotTimes(2, 1), 7.5F);
    EXPECT_GT(Display.Count("curves"), 0);
    EXPECT_TRUE(
        Prompts.Last_Text().starts_with((Folder / "line.tv5") + "\r\n4 picks, 2 shots, 2 receivers."));
    EXPECT_TRUE(Program.Work.Edits.Is_Saved());
}

}  // namespace
}  // namespace tarnvik::test
