#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "app/commands.h"
#include "app/session.h"
#include "app/start.h"
#include "core/files.h"
#include "core/ports/silent_picture.h"
#include "core/project_file.h"
#include "demo/demo_line.h"
#include "demo/demo_records.h"
#include "live_session.h"
#include "records/record_choice.h"

namespace tarnvik {

namespace {

using Random = std::mt19937;

int Any(Random& random, int last) {
    return static_cast<int>(random() % static_cast<unsigned>(last)) + 1;
}

/// A user who answers as it comes: yes, no, cancel, numbers good and bad. Files are never chosen.
class RandomPrompts : public Prompts {
  public:
    explicit RandomPrompts(Random& random) : Dice(random) {}
    Answer Message(const std::string&, const std::string&, Icon, Buttons buttons) override {
        switch (buttons) {
            case Buttons::Ok:
                return Answer::Ok;
            case Buttons::OkCancel:
                return Any(Dice, 4) == 1 ? Answer::Cancel : Answer::Ok;
            default:
                return Any(Dice, 4) == 1 ? Answer::No : Any(Dice, 6) == 1 ? Answer::Cancel : Answer::Yes;
        }
    }
    std::string Input(const std::string&, const std::string&, const std::string& initial) override {
        switch (Any(Dice, 5)) {
            case 1:
                return {};
            case 2:
                return "abc";
            case 3:
                return std::to_string(Any(Dice, 12));
            default:
                return initial;
        }
    }
    std::string Open_File(const FileRequest&) override { return {}; }
    std::string Save_File(const FileRequest&) override { return {}; }
    std::optional<Colour> Choose_Colour(Colour) override { return std::nullopt; }
    std::optional<std::string> Choose_Font(const std::string&) override { return std::nullopt; }

  private:
    Random& Dice;
};

/// Everything is drawn, on pictures that nobody sees.
class UnseenDisplay : public test::LiveDisplay {
  public:
    Picture& Canvas_Of(Canvas canvas) override { return Unseen[canvas]; }

  private:
    std::map<Canvas, SilentPicture> Unseen;
};

void Put(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// The demo line with filtered records and their twin, in a window that nobody sees.
class Hand {
  public:
    explicit Hand(unsigned seed) : Dice(seed) {
        Project demo = Demo_Project();
        const std::string records = Demo_Records(demo);
        Put(Folder / "line_flt.su", records);
        Put(Folder / "line.su", records);
        demo.SuFile = Folder / "line_flt.su";
        Put(Folder / "line.tv5", Project_Bytes(demo));
        Display.Attach(Program);
        EXPECT_TRUE(Open_File_Named(Program, Folder / "line.tv5"));
        Start = State();
    }

    /// What undo and redo must give back: project and both files of records.
    std::string State() {
        return Project_Block(Program.Work.Project) + Read_File(Folder / "line_flt.su").value_or("") +
               Read_File(Folder / "line.su").value_or("");
    }

    void Act() {
        Workspace& work = Program.Work;
        const Project& project = work.Project;
        switch (Any(Dice, 14)) {
            case 1:
            case 2:
            case 3:
                On_Record();
                break;
            case 4:
                Program.PickTable.Type(Any(Dice, project.NbReceivers + 2), Any(Dice, project.NbShots + 2),
                                       std::to_string(Any(Dice, 9000) / 100.0));
                break;
            case 5:
                Program.PickTable.Paste(Any(Dice, project.NbReceivers), Any(Dice, project.NbShots),
                                        "12.5\t13\n14\tx\n");
                break;
            case 6: {
                const int row = Any(Dice, project.NbReceivers);
                Program.PickTable.Clear({row, 1, row + 1, 2});
                break;
            }
            case 7:
                Program.RemarkTable.Type(Any(Dice, 10), Any(Dice, 4) - 1, std::string(Dice() % 9U, 'r'));
                break;
            case 8:
                On_Curves();
                break;
            case 9:
                Program.Depths.Display_Shot(Any(Dice, project.NbShots));
                Any(Dice, 2) == 1 ? Program.Depths.Command1() : Program.Depths.Command3();
                break;
            case 10:
                Program.Speed.Load();
                Program.Speed.Command5();
                Program.Record.Load();
                Program.Record.Command1();
                break;
            case 11:
                Run_Command(Program, Any_Of({"Command16", "Command20", "Command11", "Command3", "Command6",
                                             "LineLength", "Remove_Shot", "S2", "BI_M", "SaveName", "Zerop",
                                             "TT_Mnu"}));
                break;
            case 12:
                Program.AutomaticPicking.Pick_auto();
                if (Any(Dice, 3) == 1) Program.AutomaticPicking.Reset();
                break;
            default:
                Walk();
                break;
        }
    }

    /// Back to the start, forth to where the hand stands now.
    void Check() {
        Edits& edits = Program.Work.Edits;
        const std::string now = State();
        const std::size_t done = edits.Done();
        ASSERT_EQ(edits.Go_To(Program.Work.Project, 0), "");
        ASSERT_TRUE(State() == Start) << edits.All().size() << " edits";
        ASSERT_EQ(edits.Go_To(Program.Work.Project, done), "");
        ASSERT_TRUE(State() == now) << edits.All().size() << " edits";
    }

    std::size_t Made() { return Program.Work.Edits.All().size(); }
    bool Has_Strays() {
        for (const Edit& edit : Program.Work.Edits.All()) {
            if (edit.Name == "Change" || edit.Name == "Field records") return true;
        }
        return false;
    }

  private:
    const char* Any_Of(std::initializer_list<const char*> names) {
        return names.begin()[Dice() % names.size()];
    }

    void On_Record() {
        const RecordView& record = Program.Work.Record;
        const double x = record.FirstTrace * 2000.0 + static_cast<double>(Dice() % 48000U);
        const double y = static_cast<double>(Dice() % 500U);
        const int button = Any(Dice, 3) == 1 ? 2 : 1;
        Program.RecordMouse.Press({x, y, button});
        if (button == 2 && Any(Dice, 2) == 1) {
            Program.RecordMouse.Move({x, y + 40, 2});
            Program.RecordMouse.Move({x, y + 50, 2});
        }
        Program.RecordMouse.Release({x, y + 50, button});
        if (Any(Dice, 5) == 1) {
            Go_To_Record(Program.Work, Program.Outside, Any(Dice, 5));
        }
    }

    void On_Curves() {
        const double x = static_cast<double>(Dice() % 9600U) / 100;
        const double y = static_cast<double>(Dice() % 6000U) / 100;
        Program.Pointer.Double_Click({x, y, true});
        Program.Pointer.Press({x, y, true});
        const double further = y + (Any(Dice, 3) == 1 ? 0 : 2);
        Program.Pointer.Release({x, further, true});
    }

    void Walk() {
        Edits& edits = Program.Work.Edits;
        for (int steps = Any(Dice, 4); steps > 0; --steps)
            EXPECT_EQ(Any(Dice, 3) == 1 ? edits.Redo(Program.Work.Project) : edits.Undo(Program.Work.Project),
                      "");
    }

    test::TemporaryFolder Folder;
    Random Dice;
    RandomPrompts Prompts{Dice};
    UnseenDisplay Display;
    test::RecordingLauncher Launcher;
    Session Program{{Prompts, Display, Launcher}, Folder / "Tarnvik32.INI"};
    std::string Start;
};

}  // namespace

TEST(Endurance, RandomActionsOfAllKindsGoBackToTheFirstBytes) {
    for (const unsigned seed : {1U, 2U, 3U}) {
        Hand hand(seed);
        for (int action = 1; action <= 1000; ++action) {
            hand.Act();
            if (action % 100 == 0) hand.Check();
            if (HasFatalFailure()) return;
        }
        EXPECT_GT(hand.Made(), 100U) << seed;
        EXPECT_FALSE(hand.Has_Strays()) << "a change came in by another door";
    }
}

}  // namespace tarnvik
