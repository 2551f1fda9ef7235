#include "app/recovery.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "app/start.h"
#include "core/project_file.h"
#include "core/project_save.h"
#include "live_session.h"
#include "records/set_pick.h"

namespace tarnvik::test {

class Recovery : public LiveSession {
  protected:
    Recovery() { Program.Keep_Journals(); }

    /// A program of its own that works on the line and is killed.
    void Work_Until_Killed(const std::function<void(Session&)>& work) {
        const pid_t child = fork();
        if (child == 0) {
            ScriptedPrompts prompts;
            LiveDisplay display;
            RecordingLauncher launcher;
            Session program({prompts, display, launcher}, Folder / "Tarnvik32.INI");
            display.Attach(program);
            program.Keep_Journals();
            work(program);
            kill(getpid(), SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
    }
    std::vector<JournalContent> Left() { return Journals_Left_Behind(Program.JournalFolder); }
    std::string Question() {
        const auto left = Left();
        return left.empty() ? "no journal" : Lost_Work_Question(left[0]);
    }
};

TEST_F(Recovery, edits_of_a_killed_program_come_back_as_edits_that_can_be_undone) {
    const std::string filed = *Read_File(Path);
    Project as_filed;
    Parse_Project(filed, as_filed);
    const double length = as_filed.LineLength;
    Work_Until_Killed([this](Session& program) {
        Open_File_Named(program, Path);
        Set_Pick(program.Work, {1, 3}, 41.5);
        Set_Pick(program.Work, {2, 4}, 42.5);
        program.Work.Edits.Undo(program.Work.Project);
        // Killed within an edit: that one alone is lost.
        const EditScope scope(program.Work, "Lost");
        program.Work.Project.LineLength += 5;
        kill(getpid(), SIGKILL);
    });
    ASSERT_EQ(Left().size(), 1U);
    const std::string question = Question();
    EXPECT_NE(question.find(Path + " : the program ended at "), std::string::npos) << question;
    EXPECT_NE(question.find("1 edit is not in the project file (last: Pick shot 1, receiver 3)"),
              std::string::npos)
        << question;
    EXPECT_EQ(question.find("has been changed since"), std::string::npos) << question;

    Prompts.Expect(question, Answer::Yes);
    Form_Load(Program, "");
    EXPECT_TRUE(Display.Opened.empty()) << "no start dialog over the work that came back";
    EXPECT_EQ(Line.CurrentFile, Path);
    EXPECT_EQ(Line.ShotTimes(1, 3), 41.5F);
    EXPECT_NE(Line.ShotTimes(2, 4), 42.5F);
    EXPECT_EQ(Line.LineLength, length);
    EXPECT_FALSE(Program.Work.Edits.Is_Saved());
    EXPECT_EQ(*Read_File(Path), filed);
    EXPECT_TRUE(Left().empty()) << "the former journal has gone over into the new one";
    EXPECT_EQ(Program.Work.Edits.Undo_Name(), "Pick shot 1, receiver 3");
    EXPECT_EQ(Program.Work.Edits.Undo(Line), "");
    EXPECT_NE(Line.ShotTimes(1, 3), 41.5F);
    EXPECT_TRUE(Program.Work.Edits.Is_Saved());
}

TEST_F(Recovery, what_came_back_outlives_a_second_kill) {
    Work_Until_Killed([this](Session& program) {
        Open_File_Named(program, Path);
        Set_Pick(program.Work, {1, 3}, 41.5);
    });
    const std::string question = Question();
    Work_Until_Killed([&question](Session& program) {
        static_cast<ScriptedPrompts&>(program.Outside.Ask).Expect(question, Answer::Yes);
        Form_Load(program, "");
        Set_Pick(program.Work, {1, 4}, 43.5);
    });
    ASSERT_EQ(Left().size(), 1U);
    Prompts.Expect(Question(), Answer::Yes);
    Form_Load(Program, "\"" + Path + "\"");
    EXPECT_EQ(Line.ShotTimes(1, 3), 41.5F);
    EXPECT_EQ(Line.ShotTimes(1, 4), 43.5F);
}

TEST_F(Recovery, a_new_line_that_was_never_saved_comes_back) {
    const std::string fresh = Folder / "fresh.tv5";
    Work_Until_Killed([this, &fresh](Session& program) {
        Open_File_Named(program, Path);
        program.Work.Project.CurrentFile = fresh;
        program.Work.Edits.Start(program.Work.Project, false);
        Set_Pick(program.Work, {2, 2}, 12.5);
    });
    Prompts.Expect(Question(), Answer::Yes);
    Form_Load(Program, "");
    EXPECT_GT(Line.NbShots, 1);
    EXPECT_EQ(Line.CurrentFile, fresh);
    EXPECT_EQ(Line.ShotTimes(2, 2), 12.5F);
    EXPECT_FALSE(Program.Work.Edits.Is_Saved());
    EXPECT_TRUE(Write_Project(Program.Work, Program.Outside));
    EXPECT_TRUE(File_Exists(fresh));
}

TEST_F(Recovery, no_puts_it_away_a_closed_box_keeps_it_and_opening_the_project_asks_too) {
    Work_Until_Killed([this](Session& program) {
        Open_File_Named(program, Path);
        Set_Pick(program.Work, {1, 3}, 41.5);
    });
    const std::string question = Question();
    Prompts.Expect(question, Answer::Cancel);
    Form_Load(Program, "");
    EXPECT_EQ(Left().size(), 1U);
    Prompts.Expect(question, Answer::Cancel);
    Form_Load(Program, "\"" + Path + "\"");
    EXPECT_EQ(Left().size(), 1U) << "asked once, not at the start and again at the opening";
    Prompts.Expect(question, Answer::No);
    EXPECT_TRUE(Open_File_Named(Program, Path));
    EXPECT_TRUE(Left().empty());
    EXPECT_NE(Line.ShotTimes(1, 3), 41.5F);
}

TEST_F(Recovery, a_saved_a_discarded_and_a_regularly_ended_session_leave_nothing) {
    const auto journals = [this] {
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(Program.JournalFolder))
            count += entry.path().extension() == ".journal" ? 1 : 0;
        return count;
    };
    Open_File_Named(Program, Path);
    Set_Pick(Program.Work, {1, 3}, 41.5);
    EXPECT_EQ(journals(), 1);
    EXPECT_TRUE(Write_Project(Program.Work, Program.Outside));
    EXPECT_EQ(journals(), 0);
    Set_Pick(Program.Work, {1, 3}, 42.5);
    Prompts.Expect(Path + " has edits that are not saved.", Answer::No);
    EXPECT_TRUE(Open_File_Named(Program, Path));
    EXPECT_EQ(journals(), 0);
    EXPECT_EQ(Line.ShotTimes(1, 3), 41.5F);
    Set_Pick(Program.Work, {1, 3}, 43.5);
    EXPECT_EQ(journals(), 1);
    End_Session(Program);
    EXPECT_EQ(journals(), 0);
}

TEST_F(Recovery, a_project_file_written_by_another_program_meanwhile_is_told) {
    Work_Until_Killed([this](Session& program) {
        Open_File_Named(program, Path);
        Set_Pick(program.Work, {1, 3}, 41.5);
    });
    std::string other = *Read_File(Path);
    other.replace(other.find("\r\n", 40) + 2, 0, " 17 ");
    ASSERT_EQ(Replace_File(Path, other), "");
    EXPECT_NE(Question().find("The project file has been changed since."), std::string::npos);
}

TEST_F(Recovery, a_save_that_cuts_a_pick_to_hundredths_is_no_change_from_elsewhere) {
    Work_Until_Killed([this](Session& program) {
        Open_File_Named(program, Path);
        Set_Pick(program.Work, {1, 3}, 41.50391, PickDigits::All);
        Write_Project(program.Work, program.Outside);
        Set_Pick(program.Work, {1, 4}, 42.5);
    });
    EXPECT_EQ(Question().find("has been changed since"), std::string::npos) << Question();
}

}  // namespace tarnvik::test
