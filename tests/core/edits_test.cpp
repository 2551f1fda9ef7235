#include "core/edits/edits.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "core/edits/journal.h"
#include "core/files.h"
#include "core/positioned_file.h"
#include "core/workspace.h"
#include "support/small_project.h"
#include "support/test_ports.h"

namespace tarnvik {

namespace {

using test::TemporaryFolder;

/// Writes a file without waiting for the disk.
void Put(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A project of some size and a file beside it that stands for its records.
struct Line {
    explicit Line(const TemporaryFolder& folder) : Records(folder / "line.su") {
        Work.Project.NbShots = 6;
        Work.Project.NbReceivers = 24;
        Redimension_Project(Work.Project);
        Work.Project.LineLength = 115;
        Work.Project.CurrentFile = folder / "line.tv5";
        Put(Records, std::string(4000, 'r'));
        Work.Edits.Start(Work.Project, true);
    }

    std::string Block() const { return Project_Block(Work.Project); }
    std::string Bytes() const { return Read_File(Records).value_or(""); }

    void Write_Records(std::int64_t position, const std::string& bytes) {
        PositionedFile file(Records, PositionedFile::Access::Write);
        std::string before(bytes.size(), '\0');
        ASSERT_TRUE(file.Read(position, before.data(), std::ssize(before)));
        ASSERT_TRUE(file.Write(position, bytes.data(), std::ssize(bytes)));
        Work.Edits.Note_File_Change(Records, position, before, bytes);
    }

    /// One edit of a kind that the random number chooses.
    void Random_Edit(std::mt19937& random) {
        Project& project = Work.Project;
        const auto any = [&random](int last) {
            return static_cast<int>(random() % static_cast<unsigned>(last)) + 1;
        };
        const EditScope edit(Work, "Edit " + std::to_string(random() % 1000), any(6) == 1 ? "drag" : "");
        const int shot = any(std::max<int>(1, project.NbShots));
        const int receiver = any(project.NbReceivers);
        switch (random() % 9) {
            case 0:
            case 1:
                project.ShotTimes(shot, receiver) = static_cast<float>(random() % 10000) / 100;
                project.PickOrigins(shot, receiver) = static_cast<PickOrigin>(random() % 3);
                Write_Records(any(3990), std::to_string(random() % 100));
                break;
            case 2:
                project.LineLength = any(500) / 3.0;
                project.TotalTime = any(100);
                break;
            case 3:
                project.remark_grid.Set_Text(any(8) + 1, 3, std::string(random() % 12, 'x'));
                break;
            case 4:
                project.VelocityA(shot, any(5)) = static_cast<std::int16_t>(random() % 6000);
                project.InterceptB(shot, any(4)) = any(900) / 7.0;
                break;
            case 5:
                for (int i = 1; i <= project.NbReceivers; ++i)
                    project.ReceiverData(ReceiverDistance, i) += 0.25F;
                break;
            case 6:
                project.SuFile = std::string(random() % 5, 's') + ".su";
                break;
            case 7: {
                // A line of other counts, as after a shot was taken out.
                const std::string former = Project_Block(project);
                project.NbShots = static_cast<std::int16_t>(any(8));
                Redimension_Project(project);
                project.ShotTimes(1, 1) = static_cast<float>(former.size());
                break;
            }
            default:
                // Written over and over within one edit, overlapping too.
                Write_Records(100, std::to_string(random() % 90 + 10));
                Write_Records(100, std::to_string(random() % 90 + 10));
                Write_Records(99, "abcd");
                Write_Records(100, "zz");
                break;
        }
    }

    Workspace Work;
    std::string Records;
};

}  // namespace

TEST(Edits, AreMadeByTheOutermostScopeAndOnlyWhenSomethingChanged) {
    TemporaryFolder folder;
    Line line(folder);
    Edits& edits = line.Work.Edits;
    int told = 0;
    edits.On_Change = [&told](const ChangeNotice&) { ++told; };
    { const EditScope looking(line.Work, "Look"); }
    EXPECT_TRUE(edits.All().empty());
    {
        const EditScope outer(line.Work, "Kill shot 1, receiver 2");
        {
            const EditScope inner(line.Work, "Pick");
            line.Work.Project.ShotTimes(1, 2) = 5;
        }
        EXPECT_EQ(edits.Undo(line.Work.Project), "") << "an edit in work is not undone";
        line.Write_Records(8, "x");
    }
    ASSERT_EQ(edits.All().size(), 1U);
    EXPECT_EQ(edits.Undo_Name(), "Kill shot 1, receiver 2");
    EXPECT_EQ(told, 2);

    const std::string block = line.Block();
    const std::string bytes = line.Bytes();
    EditScope refused(line.Work, "Shift");
    line.Work.Project.ShotTimes(3, 3) = 9;
    line.Write_Records(20, "yyy");
    refused.Give_Up();
    EXPECT_TRUE(line.Block() == block);
    EXPECT_TRUE(line.Bytes() == bytes);
    EXPECT_EQ(edits.All().size(), 1U);

    edits.Undo(line.Work.Project);
    for (int y = 0; y < 5; ++y) {
        const EditScope drag(line.Work, "Drag", "drag 1");
        line.Work.Project.ShotTimes(2, 2) = static_cast<float>(y + 1);
        line.Write_Records(40, std::to_string(y));
    }
    {
        const EditScope drag(line.Work, "Drag", "drag 2");
        line.Work.Project.ShotTimes(2, 2) = 77;
    }
    ASSERT_EQ(edits.All().size(), 2U) << "the undone edit is gone, each drag is one";
    edits.Undo(line.Work.Project);
    EXPECT_EQ(line.Work.Project.ShotTimes(2, 2), 5);
    edits.Undo(line.Work.Project);
    EXPECT_EQ(line.Work.Project.ShotTimes(2, 2), 0);
    EXPECT_TRUE(line.Bytes() == std::string(4000, 'r'));
}

TEST(Edits, NoticesNameWhatChanged) {
    TemporaryFolder folder;
    Line line(folder);
    ChangeNotice last;
    line.Work.Edits.On_Change = [&last](const ChangeNotice& notice) { last = notice; };
    {
        const EditScope edit(line.Work, "Two picks");
        line.Work.Project.ShotTimes(2, 7) = 12.5F;
        line.Work.Project.ShotTimes(2, 9) = 13;
        line.Work.Project.ShotDepth(4) = 0.5;
    }
    const std::vector<PickPlace> picks = {{2, 7}, {2, 9}};
    EXPECT_EQ(last.Picks, picks);
    ProjectParts parts;
    parts.Add(ProjectPart::Times);
    parts.Add(ProjectPart::Shots);
    EXPECT_EQ(last.Parts, parts);
    line.Work.Edits.Undo(line.Work.Project);
    EXPECT_EQ(last.Picks, picks);
    EXPECT_EQ(last.Happened, ChangeNotice::Kind::Undone);
    {
        const EditScope edit(line.Work, "Remark");
        line.Work.Project.remark_grid.Resize(10, 4);
        line.Work.Project.remark_grid.Set_Text(2, 3, "bridge");
        line.Write_Records(4, "q");
    }
    EXPECT_TRUE(last.Parts.Has(ProjectPart::Remarks));
    EXPECT_FALSE(last.Parts.Has(ProjectPart::Times));
    ASSERT_EQ(last.Files.size(), 1U);
    line.Work.Edits.On_Change = {};
}

TEST(Edits, TellWhetherTheFileHoldsTheProject) {
    TemporaryFolder folder;
    Line line(folder);
    Project& project = line.Work.Project;
    Edits& edits = line.Work.Edits;
    const auto change = [&](auto what) {
        const EditScope edit(line.Work, "Change");
        what();
    };
    change([&] { line.Write_Records(3, "k"); });
    EXPECT_TRUE(edits.Is_Saved()) << "the records are written at once";
    change([&] { project.GrmData(1, 1) = 3; });
    change([&] { project.PickOrigins(2, 3) = PickOrigin::Moved; });
    EXPECT_TRUE(edits.Is_Saved()) << "kept in a file of its own";
    change([&] { project.ShotTimes(1, 1) = 3; });
    EXPECT_FALSE(edits.Is_Saved());
    edits.Undo(project);
    EXPECT_TRUE(edits.Is_Saved());
    edits.Redo(project);
    // As a save does: the total time in memory stands 1 higher behind it.
    project.TotalTime += 1;
    edits.Saved(project);
    EXPECT_TRUE(edits.Is_Saved());
    change([&] { project.remark_grid.Set_Text(2, 3, "x"); });
    edits.Undo(project);
    EXPECT_TRUE(edits.Is_Saved());
    EXPECT_EQ(project.TotalTime, 1);
    edits.Undo(project);
    EXPECT_FALSE(edits.Is_Saved()) << "the file holds what was undone";
    EXPECT_EQ(project.TotalTime, 0);
}

TEST(Edits, LeaveAloneWhatAnotherProgramWrote) {
    TemporaryFolder folder;
    Line line(folder);
    {
        const EditScope edit(line.Work, "Pick");
        line.Work.Project.ShotTimes(1, 1) = 4;
        line.Write_Records(10, "aa");
        line.Write_Records(2000, "bb");
    }
    std::string other = line.Bytes();
    other[2001] = '!';
    Put(line.Records, other);
    const std::string block = line.Block();
    EXPECT_NE(line.Work.Edits.Undo(line.Work.Project).find("another program"), std::string::npos);
    EXPECT_TRUE(line.Block() == block);
    EXPECT_TRUE(line.Bytes() == other);
    EXPECT_TRUE(line.Work.Edits.Can_Undo());
    std::filesystem::remove(line.Records);
    EXPECT_NE(line.Work.Edits.Undo(line.Work.Project), "");
}

TEST(Journal, AKillLosesNothingButTheEditOnHand) {
    TemporaryFolder folder;
    const std::string journals = folder / "journal";
    std::mt19937 random(99);
    for (int trial = 0; trial < 200; ++trial) {
        Line line(folder);
        int told[2];
        ASSERT_EQ(pipe(told), 0);
        const unsigned seed = random();
        const pid_t child = fork();
        if (child == 0) {
            std::mt19937 hand(seed);
            line.Work.Edits.Keep_Journals_In(journals);
            for (int step = 0; step < 100000; ++step) {
                line.Random_Edit(hand);
                if (step % 7 == 6) line.Work.Edits.Undo(line.Work.Project);
                if (step % 21 == 20) line.Work.Edits.Redo(line.Work.Project);
                [[maybe_unused]] const auto put = write(told[1], &step, sizeof step);
            }
            _exit(0);
        }
        close(told[1]);
        usleep(static_cast<useconds_t>(500 + random() % 4000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        int done = -1;
        for (int step = 0; read(told[0], &step, sizeof step) == sizeof step;)
            done = step;
        close(told[0]);

        // The same hand again, as far as it told, and one step further.
        Line until(folder);
        std::mt19937 hand(seed);
        const auto take_step = [&](int step) {
            until.Random_Edit(hand);
            if (step % 7 == 6) until.Work.Edits.Undo(until.Work.Project);
            if (step % 21 == 20) until.Work.Edits.Redo(until.Work.Project);
        };
        const std::string start = until.Block();
        std::vector<std::string> expected;
        for (int step = 0; step <= done; ++step)
            take_step(step);
        expected.push_back(until.Block());
        // Within the step on hand each of its edits may have come or not.
        until.Random_Edit(hand);
        expected.push_back(until.Block());
        if ((done + 1) % 7 == 6) until.Work.Edits.Undo(until.Work.Project);
        expected.push_back(until.Block());
        if ((done + 1) % 21 == 20) until.Work.Edits.Redo(until.Work.Project);
        expected.push_back(until.Block());

        const auto left = Journals_Left_Behind(journals);
        if (left.empty()) {
            EXPECT_TRUE(expected.front() == start) << "edits without a journal";
            std::filesystem::remove_all(journals);
            continue;
        }
        ASSERT_EQ(left.size(), 1U);
        EXPECT_EQ(left.front().ProjectFile, line.Work.Project.CurrentFile);
        Line restored(folder);
        ASSERT_TRUE(restored.Work.Edits.Restore(restored.Work.Project, left.front()));
        EXPECT_NE(std::find(expected.begin(), expected.end(), restored.Block()), expected.end()) << trial;
        Remove_Journal(left.front());
        std::filesystem::remove_all(journals);
    }
}

TEST(Journal, GivesBackTheHistoryAfterSavesDragsAndStepsBehindItsBeginning) {
    TemporaryFolder folder;
    const std::string journals = folder / "journal";
    Line line(folder);
    Edits& edits = line.Work.Edits;
    edits.Keep_Journals_In(journals);
    std::mt19937 hand(7);
    int restored_histories = 0;
    for (int step = 0; step < 400; ++step) {
        switch (hand() % 8U) {
            case 0:
            case 1:
                edits.Undo(line.Work.Project);
                break;
            case 2:
                edits.Redo(line.Work.Project);
                break;
            case 3:
                if (step % 3 != 0) break;
                line.Work.Project.TotalTime += 1;
                edits.Saved(line.Work.Project);
                break;
            default:
                line.Random_Edit(hand);
        }
        if (!std::filesystem::exists(journals) || std::filesystem::is_empty(journals)) continue;
        const JournalContent content =
            Read_Journal(std::filesystem::directory_iterator(journals)->path().string());
        Workspace again;
        ASSERT_TRUE(again.Edits.Restore(again.Project, content)) << step;
        ASSERT_TRUE(Project_Block(again.Project) == line.Block()) << step;
        const std::size_t done = again.Edits.Done();
        ASSERT_EQ(again.Edits.Go_To(again.Project, 0), "") << step;
        ASSERT_TRUE(Project_Block(again.Project) == content.Base) << step;
        ASSERT_EQ(again.Edits.Go_To(again.Project, done), "") << step;
        ASSERT_TRUE(Project_Block(again.Project) == line.Block()) << step;
        ++restored_histories;
    }
    EXPECT_GT(restored_histories, 200);
    // The records go back to their first bytes and forth again.
    const std::size_t last = edits.Done();
    const std::string last_bytes = line.Bytes();
    ASSERT_EQ(edits.Go_To(line.Work.Project, 0), "");
    EXPECT_TRUE(line.Bytes() == std::string(4000, 'r'));
    ASSERT_EQ(edits.Go_To(line.Work.Project, last), "");
    EXPECT_TRUE(line.Bytes() == last_bytes);
}

TEST(Journal, OnAFullDiskKeepsWhatItHasAndGoesOnWhenThereIsRoom) {
    TemporaryFolder folder;
    const std::string journals = folder / "journal";
    Line line(folder);
    Edits& edits = line.Work.Edits;
    edits.Keep_Journals_In(journals);
    const auto pick = [&line](int receiver) {
        const EditScope edit(line.Work, "Pick");
        line.Work.Project.ShotTimes(1, receiver) = 5;
    };
    const auto restored_block = [&] {
        Workspace again;
        const std::string path = std::filesystem::directory_iterator(journals)->path().string();
        EXPECT_TRUE(again.Edits.Restore(again.Project, Read_Journal(path)));
        return Project_Block(again.Project);
    };
    pick(1);
    EXPECT_FALSE(edits.Journal_Fails());
    const std::string first = line.Block();

    // A file that may not grow is what a full disk is to the one that writes it.
    const auto size = std::filesystem::file_size(std::filesystem::directory_iterator(journals)->path());
    const auto former = signal(SIGXFSZ, SIG_IGN);
    rlimit room{};
    getrlimit(RLIMIT_FSIZE, &room);
    rlimit full = room;
    full.rlim_cur = size + 20;
    setrlimit(RLIMIT_FSIZE, &full);
    pick(2);
    EXPECT_TRUE(edits.Journal_Fails());
    edits.Undo(line.Work.Project);
    pick(3);
    setrlimit(RLIMIT_FSIZE, &room);
    signal(SIGXFSZ, former);
    EXPECT_TRUE(edits.Journal_Fails());
    EXPECT_TRUE(restored_block() == first);
    pick(4);
    EXPECT_FALSE(edits.Journal_Fails());
    EXPECT_TRUE(restored_block() == line.Block());
}

TEST(Journal, CutAnywhereItGivesWhatIsWhole) {
    TemporaryFolder folder;
    Line line(folder);
    const std::string journals = folder / "journal";
    line.Work.Edits.Keep_Journals_In(journals);
    for (int i = 1; i <= 3; ++i) {
        const EditScope edit(line.Work, "Pick " + std::to_string(i));
        line.Work.Project.ShotTimes(1, i) = static_cast<float>(i);
    }
    EXPECT_TRUE(Journals_Left_Behind(journals).empty()) << "held by this program";
    const std::string path = std::filesystem::directory_iterator(journals)->path().string();
    const std::string whole = Read_File(path).value_or("");
    const std::string copy = folder / "copy.journal";
    std::size_t most = 0;
    for (std::size_t length = 0; length <= whole.size(); length += length + 60 < whole.size() ? 41 : 1) {
        Put(copy, whole.substr(0, length));
        const JournalContent content = Read_Journal(copy);
        ASSERT_GE(content.Records.size(), most);
        most = content.Records.size();
        Line restored(folder);
        if (!content.File.empty()) {
            ASSERT_TRUE(restored.Work.Edits.Restore(restored.Work.Project, content));
            for (std::size_t i = 1; i <= content.Records.size(); ++i)
                EXPECT_EQ(restored.Work.Project.ShotTimes(1, static_cast<int>(i)), static_cast<float>(i));
            EXPECT_EQ(restored.Work.Edits.Is_Saved(), content.Records.empty());
        }
    }
    EXPECT_EQ(most, 3U);
    line.Work.Edits.Drop_Journal();
    EXPECT_FALSE(File_Exists(path));
}

}  // namespace tarnvik
