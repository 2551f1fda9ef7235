#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "core/edits/edits.h"
#include "core/edits/journal.h"
#include "core/edits/kept_files.h"
#include "core/files.h"
#include "core/positioned_file.h"
#include "core/workspace.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using test::TemporaryFolder;

void Put(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A line whose records are replaced as a whole.
struct Line {
    explicit Line(const TemporaryFolder& folder) : Records(folder / "line.su"), Folder(folder.Path) {
        Work.Project.NbShots = 3;
        Work.Project.NbReceivers = 4;
        Redimension_Project(Work.Project);
        Work.Project.CurrentFile = folder / "line.tv5";
        if (!File_Exists(Records)) Put(Records, Former);
        Work.Edits.Start(Work.Project, true);
    }
    std::string Bytes() const { return Read_File(Records).value_or("none"); }
    std::string Replace(const std::string& path, const std::string& bytes, double length) {
        EditScope edit(Work, "Replace");
        const std::string fresh = Name_Aside(path);
        Work.Edits.Note_Passing(fresh);
        Put(fresh, bytes);
        const std::string reason = Work.Edits.Replace_Whole_File(path, fresh);
        Work.Edits.Passed(fresh);
        if (length > 0) Work.Project.LineLength = length;
        return reason;
    }
    void Pick(char letter) {
        const EditScope edit(Work, "Pick");
        PositionedFile file(Records, PositionedFile::Access::Write);
        std::string before(1, '\0');
        file.Read(10, before.data(), 1);
        file.Write(10, &letter, 1);
        Work.Edits.Note_File_Change(Records, 10, before, std::string(1, letter));
    }
    int Hidden() const {
        int hidden = 0;
        for (const auto& entry : std::filesystem::directory_iterator(Folder))
            hidden += Is_Name_Aside(entry.path().string()) ? 1 : 0;
        return hidden;
    }
    const std::string Former = std::string(300, 'a');
    const std::string Fresh = std::string(200, 'b');
    Workspace Work;
    std::string Records;
    std::string Folder;
};

TEST(WholeFiles, go_back_and_forth_with_the_project_and_the_picks_between) {
    const TemporaryFolder folder;
    {
        Line line(folder);
        Edits& edits = line.Work.Edits;
        std::vector<std::string> replaced;
        edits.On_Change = [&replaced](const ChangeNotice& notice) { replaced = notice.Replaced; };
        line.Pick('1');
        const std::string picked = line.Bytes();
        ASSERT_EQ(line.Replace(line.Records, line.Fresh, 77), "");
        EXPECT_EQ(replaced, std::vector{line.Records});
        line.Pick('2');
        const std::string later = line.Bytes();
        ASSERT_EQ(line.Replace(folder / "new.su", "new", 0), "");
        EXPECT_EQ(line.Hidden(), 1) << "there was no file before the second";
        for (int round = 0; round < 2; ++round) {
            ASSERT_EQ(edits.Go_To(line.Work.Project, 0), "");
            EXPECT_EQ(line.Bytes(), line.Former);
            EXPECT_EQ(line.Work.Project.LineLength, 0);
            EXPECT_FALSE(File_Exists(folder / "new.su"));
            ASSERT_EQ(edits.Go_To(line.Work.Project, 1), "");
            EXPECT_EQ(line.Bytes(), picked);
            ASSERT_EQ(edits.Go_To(line.Work.Project, 4), "");
            EXPECT_EQ(line.Bytes(), later);
            EXPECT_EQ(Read_File(folder / "new.su"), "new");
        }
        ASSERT_EQ(edits.Go_To(line.Work.Project, 1), "");
        line.Pick('3');  // the redone future is gone, and its files with it
        EXPECT_EQ(line.Hidden(), 0);
        ASSERT_EQ(line.Replace(line.Records, line.Fresh, 0), "");
    }
    EXPECT_EQ(Line(folder).Hidden(), 0);
    EXPECT_EQ(Line(folder).Bytes(), std::string(200, 'b'));
}

TEST(WholeFiles, another_programs_file_is_not_undone_and_a_given_up_edit_leaves_nothing) {
    const TemporaryFolder folder;
    Line line(folder);
    Edits& edits = line.Work.Edits;
    {
        EditScope edit(line.Work, "Given up");
        Put(Name_Aside(line.Records), "x");
        line.Pick('7');  // within the scope, before the file is replaced
        ASSERT_EQ(line.Replace(line.Records, line.Fresh, 5), "");
        ASSERT_EQ(line.Replace(line.Records, line.Fresh + "c", 5), "");
        edit.Give_Up();
    }
    EXPECT_EQ(line.Bytes(), line.Former);
    EXPECT_EQ(line.Work.Project.LineLength, 0);
    EXPECT_FALSE(edits.Can_Undo());

    ASSERT_EQ(line.Replace(line.Records, line.Fresh, 5), "");
    Put(line.Records, "of another program");
    EXPECT_EQ(edits.Undo(line.Work.Project), line.Records + " was changed by another program");
    EXPECT_EQ(line.Bytes(), "of another program");
    EXPECT_EQ(line.Work.Project.LineLength, 5);
    line.Pick('4');
    ASSERT_EQ(edits.Undo(line.Work.Project), "");
    EXPECT_EQ(edits.Undo(line.Work.Project), line.Records + " was changed by another program")
        << "an edit of ours on top does not make it ours";

    Put(line.Records, line.Former);
    std::filesystem::permissions(line.Records, std::filesystem::perms::owner_read);
    EXPECT_EQ(line.Replace(line.Records, line.Fresh, 0), "the file is marked read-only");
    EXPECT_EQ(line.Bytes(), line.Former);
}

TEST(WholeFiles, a_project_that_is_given_up_gets_its_file_back_and_a_saved_one_keeps_it) {
    const TemporaryFolder folder;
    Line line(folder);
    ASSERT_EQ(line.Replace(line.Records, line.Fresh, 5), "");
    line.Pick('2');
    ASSERT_EQ(line.Replace(folder / "extract.su", "stays", 0), "");
    line.Work.Edits.Close();
    EXPECT_EQ(line.Bytes(), line.Former);
    EXPECT_EQ(Read_File(folder / "extract.su"), "stays");
    EXPECT_EQ(line.Hidden(), 0);

    line.Work.Edits.Start(line.Work.Project, true);
    ASSERT_EQ(line.Replace(line.Records, line.Fresh, 6), "");
    line.Work.Edits.Saved(line.Work.Project);
    ASSERT_EQ(line.Work.Edits.Undo(line.Work.Project), "");
    EXPECT_EQ(line.Bytes(), line.Former);
    line.Work.Edits.Close();
    EXPECT_EQ(line.Bytes(), line.Fresh) << "the project file was saved with this one";
}

/// A program that replaces, picks, undoes and saves until it is killed; then what a next start does.
TEST(WholeFiles, a_kill_at_any_moment_leaves_one_of_the_two_files_and_nothing_hidden_behind) {
    for (int round = 0; round < 40; ++round) {
        const TemporaryFolder folder;
        const std::string journals = folder / "journal";
        const Line before(folder);
        const pid_t child = fork();
        if (child == 0) {
            Line line(folder);
            line.Work.Edits.Keep_Journals_In(journals);
            Put(folder / "begun", "");
            for (int turn = 1;; ++turn) {
                line.Replace(line.Records, line.Fresh, turn);
                line.Work.Edits.Undo(line.Work.Project);
                line.Work.Edits.Redo(line.Work.Project);
                line.Work.Edits.Undo(line.Work.Project);
                if (turn % 4 == 0) line.Work.Edits.Saved(line.Work.Project);
            }
        }
        while (!File_Exists(folder / "begun"))
            usleep(100);
        usleep(static_cast<useconds_t>(500 + 700 * round));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        ASSERT_TRUE(before.Bytes() == before.Former || before.Bytes() == before.Fresh);

        Clear_Kept_Files(journals);
        const std::vector<JournalContent> left = Journals_Left_Behind(journals);
        for (const JournalContent& journal : left) {
            if (round % 2 == 0) {
                Give_Up_Files(journal);
                Remove_Journal(journal);
                EXPECT_EQ(before.Bytes(), before.Former) << "the project file tells of no other";
                continue;
            }
            Line next(folder);
            next.Work.Edits.Keep_Journals_In(journals);
            ASSERT_TRUE(next.Work.Edits.Restore(next.Work.Project, journal));
            Remove_Journal(journal);
            const bool done = next.Work.Project.LineLength > 0;
            EXPECT_EQ(next.Bytes(), done ? next.Fresh : next.Former) << "file and project go together";
            if (done) {
                EXPECT_EQ(next.Work.Edits.Undo(next.Work.Project), "");
                EXPECT_EQ(next.Bytes(), next.Former);
            }
            next.Work.Edits.Close();
        }
        Clear_Kept_Files(journals);
        EXPECT_EQ(before.Hidden(), 0) << round;
    }
}

}  // namespace
}  // namespace tarnvik
