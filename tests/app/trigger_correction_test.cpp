#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "app/commands.h"
#include "app/start.h"
#include "core/project_file.h"
#include "core/text/number.h"
#include "live_session.h"
#include "records/su_file.h"
#include "support/su_builder.h"

namespace tarnvik::test {

namespace fs = std::filesystem;

constexpr const char* record_question = "Record the new First Break Time ?";
constexpr const char* leave_question = "Save trace translation ?";

class TriggerCorrection : public LiveSession {
  protected:
    TriggerCorrection() {
        EXPECT_TRUE(Open_File_Named(Program, Path));
        Samples = SuTraces(Su).Nb_Samples();
        Interval = SuTraces(Su).Sample_Interval();
    }
    Erase_TT& Opened(int shot = 3) {
        Run_Command(Program, "erase");
        Dialog().Load();  // as the form does
        Dialog().Choose(shot);
        return Dialog();
    }
    Erase_TT& Dialog() { return Program.TriggerFault; }

    bool Save(int shot, const std::string& shift) {
        Opened(shot).Shift = shift;
        Prompts.Expect(record_question, Answer::Yes);
        return Dialog().Save_TT_Translation();
    }
    /// The file as the correction makes it, written down step by step.
    std::string Corrected(const std::string& before, const Project& line, int shot, double shift) const {
        std::string after = before;
        const auto length = static_cast<std::size_t>(240 + 4 * Samples);
        const double exact = -1 * (shift * 1000 / Interval);
        const auto later = static_cast<long>(std::nearbyint(exact));
        for (int r = 1; r <= line.NbReceivers; ++r) {
            const std::size_t start =
                static_cast<std::size_t>((shot - 1) * line.NbReceivers + r - 1) * length;
            const double time = std::round(line.ShotTimes(shot, r) * 100.0) / 100;
            const auto word = static_cast<std::int16_t>(std::nearbyint(time > 0 ? (time - shift) * 10 : 0));
            std::memcpy(after.data() + start + 222, &word, 2);
            for (long i = 0; i < Samples; ++i) {
                const long from = i - later;
                float value = 0;
                if (from >= 0 && from < Samples)
                    std::memcpy(&value, before.data() + start + 240 + 4 * from, 4);
                std::memcpy(after.data() + start + 240 + 4 * i, &value, 4);
            }
        }
        return after;
    }
    /// A file as it was when somebody opened it. Writing in place would show there, and be torn by a kill.
    struct Held {
        explicit Held(const std::string& path) : Stream(path, std::ios::binary) {}
        std::string Content() {
            return {std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>()};
        }
        std::ifstream Stream;
    };
    Project Filed() const {
        Project project;
        Parse_Project(*Read_File(Path), project);
        return project;
    }
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Folder.Path))
            names.insert(entry.path().filename().string());
        return names;
    }

    const std::string Su = Folder / "demo1.su";
    std::int32_t Samples = 0;
    int Interval = 1;
};

TEST_F(TriggerCorrection, moves_picks_words_and_samples_of_its_shot_alone_and_undo_is_exact) {
    chmod(Su.c_str(), 0640);
    Line.ShotTimes(3, 5) = 0;  // no pick stays none
    const auto names = Names();
    for (const double shift : {1.3, -2.6, 0.25}) {
        SCOPED_TRACE(shift);
        const Project before = Line;
        const std::string records = *Read_File(Su);
        const std::string expected = Corrected(records, Line, 3, shift);
        ASSERT_NE(records, expected);
        Held old(Su);
        ASSERT_TRUE(Save(3, CStr(shift)));
        EXPECT_EQ(old.Content(), records);
        EXPECT_EQ(*Read_File(Su), expected);
        EXPECT_EQ(Dialog().Shift, "0") << "the curve stands where it was carried to";
        const Project filed = Filed();
        for (int r = 1; r <= Line.NbReceivers; ++r) {
            const double time = before.ShotTimes(3, r);
            EXPECT_NEAR(Line.ShotTimes(3, r), time > 0 ? time - shift : 0, 0.006);
            EXPECT_NEAR(filed.ShotTimes(3, r), Line.ShotTimes(3, r), 0.011);
            EXPECT_EQ(Line.ShotTimes(2, r), before.ShotTimes(2, r));
        }
        Held shifted(Su);
        EXPECT_EQ(Program.Work.Edits.Undo(Line), "");
        EXPECT_EQ(shifted.Content(), expected);
        EXPECT_EQ(*Read_File(Su), records);
        EXPECT_EQ(Line.ShotTimes(3, 7), before.ShotTimes(3, 7));
        EXPECT_EQ(Program.Work.Edits.Redo(Line), "");
        EXPECT_EQ(*Read_File(Su), expected);
        EXPECT_EQ(Program.Work.Edits.Undo(Line), "");
    }
    struct stat state {};
    stat(Su.c_str(), &state);
    EXPECT_EQ(state.st_mode & 0777U, 0640U);
    EXPECT_EQ(Names(), names) << "nothing is left beside the files";
}

TEST_F(TriggerCorrection, the_twin_follows_and_a_shift_beyond_the_record_empties_it) {
    const std::string twin = Folder / "twin.su";
    ASSERT_EQ(Copy_File(Su, twin), "");
    Program.Work.Record.TwinSuFile = twin;
    const std::string records = *Read_File(Su);
    const std::string expected = Corrected(records, Line, 1, -2000);
    ASSERT_TRUE(Save(1, "-2000"));
    EXPECT_EQ(*Read_File(Su), expected);
    EXPECT_EQ(*Read_File(twin), expected);
    EXPECT_EQ(Program.Work.Edits.Undo(Line), "");
    EXPECT_EQ(*Read_File(twin), records);
}

TEST_F(TriggerCorrection, what_cannot_be_written_is_refused_with_everything_as_it_stood) {
    const std::string records = *Read_File(Su);
    const std::string filed = *Read_File(Path);
    const float time = Line.ShotTimes(3, 7);
    const auto refused = [&](const std::string& shift, const std::string& words) {
        SCOPED_TRACE(words);
        Opened().Shift = shift;
        EXPECT_FALSE(Dialog().Save_TT_Translation());
        EXPECT_NE(Prompts.Last_Text().find(words), std::string::npos) << Prompts.Last_Text();
        EXPECT_EQ(*Read_File(Su), records);
        EXPECT_EQ(*Read_File(Path), filed);
        EXPECT_EQ(Line.ShotTimes(3, 7), time);
        EXPECT_FALSE(Program.Work.Edits.Can_Undo());
        EXPECT_FALSE(File_Exists(Su + ".timebreak"));
        Dialog().Shift = "0";
        Dialog().Move_TT();
    };
    refused("-3500", "receiver 1 would get 3552.82 ms");
    refused("99999", "-3276.8 to 3276.7 ms");
    Opened().Shot = "9";
    EXPECT_FALSE((Dialog().Shift = "5", Dialog().Save_TT_Translation()));
    EXPECT_EQ(Prompts.Last_Text(), "Wrong Shot number");
    Dialog().Shot = "3";
    Prompts.Expect(record_question, Answer::No);
    EXPECT_FALSE(Dialog().Save_TT_Translation());
    EXPECT_EQ(*Read_File(Su), records);

    // No new file can be made beside the old one.
    fs::create_directory(Su + ".new");
    Prompts.Expect(record_question, Answer::Yes);
    refused("5", "Nothing has been recorded");
    fs::remove(Su + ".new");
    chmod(Su.c_str(), 0444);
    Prompts.Expect(record_question, Answer::Yes);
    refused("5", "Nothing has been recorded");
    chmod(Su.c_str(), 0644);
    // The twin fails when the records are written already.
    const std::string twin = Folder / "twin.su";
    ASSERT_EQ(Replace_File(twin, records.substr(0, 5000)), "");
    Program.Work.Record.TwinSuFile = twin;
    Prompts.Expect(record_question, Answer::Yes);
    refused("5", "beyond the end of the file");
    EXPECT_EQ(*Read_File(twin), records.substr(0, 5000));
}

TEST_F(TriggerCorrection, without_records_the_picks_alone_move) {
    fs::remove(Su);
    const float time = Line.ShotTimes(3, 7);
    ASSERT_TRUE(Save(3, "2"));
    EXPECT_TRUE(Prompts.Said(Line.SuFile + " is missing, no correction possible on SU file"));
    EXPECT_NEAR(Line.ShotTimes(3, 7), time - 2, 0.006);
    EXPECT_FALSE(File_Exists(Su));
    // Records that end before the shot.
    Prompts.Messages.clear();
    SuBuilder(24, 100).Records(24).Write(Su);
    ASSERT_TRUE(Save(3, "2"));
    EXPECT_TRUE(Prompts.Said(Line.SuFile + " has no trace of shot 3, no correction possible on SU file"));
}

TEST_F(TriggerCorrection, a_second_shift_of_shifted_records_is_told) {
    const std::string records = *Read_File(Su);
    const std::string filed = *Read_File(Path);
    const Project before = Line;
    ASSERT_TRUE(Save(3, "5"));
    const std::string shifted = *Read_File(Su);
    Opened().Shift = "1";
    Prompts.Expect(record_question, Answer::No);
    Dialog().Save_TT_Translation();  // saved as a whole: nothing to tell

    // The records as the killed program left them, the project as it was.
    ASSERT_EQ(Replace_File(Path, filed), "");
    Dialog().Drop_Shift();
    ASSERT_TRUE(Open_File_Named(Program, Path));
    Opened().Shift = "5";
    Prompts.Expect(record_question, Answer::Yes);
    Prompts.Expect_Start("The field records of shot 3 are shifted by 5 ms already", Answer::No);
    EXPECT_FALSE(Dialog().Save_TT_Translation());
    EXPECT_EQ(*Read_File(Su), shifted);
    Dialog().Drop_Shift();

    // A shot without picks has but the note, which stays until the project is saved.
    ASSERT_EQ(Replace_File(Su, records), "");
    for (int r = 1; r <= Line.NbReceivers; ++r)
        Line.ShotTimes(2, r) = 0;
    FileRoutines files;
    files.SaveProject = [](Workspace&, Ports&) { return false; };
    Erase_TT unsaved(Program.Work, Program.Outside, files);
    unsaved.Load();
    unsaved.Shot = "2";
    unsaved.Shift = "-3";
    Prompts.Expect(record_question, Answer::Yes);
    ASSERT_TRUE(unsaved.Save_TT_Translation());
    ASSERT_TRUE(File_Exists(Su + ".timebreak"));
    Opened(2).Shift = "-3";
    Prompts.Expect(record_question, Answer::Yes);
    Prompts.Expect_Start("The field records of shot 2 are shifted by -3 ms already", Answer::Yes);
    EXPECT_TRUE(Dialog().Save_TT_Translation());
    EXPECT_FALSE(File_Exists(Su + ".timebreak"));
}

TEST_F(TriggerCorrection, keys_drag_and_steps_carry_the_curve_and_the_rest_of_the_picture_stays) {
    Erase_TT& dialog = Opened();
    dialog.Command1();
    dialog.Command5();
    EXPECT_EQ(dialog.Shift, "-2.25");
    dialog.Command2();
    dialog.Command6();
    EXPECT_EQ(dialog.Shift, "0");
    Program.Pointer.Key(33);
    Program.Pointer.Key(40);
    EXPECT_EQ(dialog.Shift, "-1.75") << "up is later";
    Program.Work.Curves.ZeroOnTop = true;
    Program.Pointer.Key(33);
    EXPECT_EQ(dialog.Shift, "0.25") << "up on the screen";
    Program.Work.Curves.ZeroOnTop = false;

    const double x = Position_Ecran(Line, 7);
    const auto at = [&](double ms) {
        return PointerEvent{x, ms / Program.Work.Curves.TimeFactor, true, false};
    };
    const double shown = Line.ShotTimes(3, 7) - 0.25;
    Program.Pointer.Press(at(shown));
    Program.Pointer.Move(at(shown + 3));
    Program.Pointer.Release(at(shown + 3));
    EXPECT_NEAR(Val(dialog.Shift), -2.75, 0.03);
    EXPECT_EQ(Program.Work.Curves.DragStartX, 0) << "no band was drawn";
    EXPECT_EQ(dialog.Shot, "3") << "a curve that is carried chooses no shot";
    const Mark text = Program.Work.Curves.Overlays[tarnvik::Dialog::Erase_TT].Moving().back();
    EXPECT_EQ(text.Words, "3");
    // Away from the curve there is still the band.
    Program.Pointer.Press({2, 97, true, false});
    Program.Pointer.Move({20, 90, true, false});
    EXPECT_NE(Program.Work.Curves.DragStartX, 0);
    Program.Pointer.Release({20, 90, true, false});
    EXPECT_NEAR(Val(dialog.Shift), -2.75, 0.03);

    dialog.OnlySelected = true;
    dialog.Check1_Clicked();
    EXPECT_EQ(Program.Work.Curves.ShotAlone, 3);
    Prompts.Expect(leave_question, Answer::No);
    dialog.Choose(4);
    EXPECT_EQ(dialog.Shift, "0");
    EXPECT_EQ(Program.Work.Curves.ShotAlone, 4);
    dialog.Command1();
    const float time = Line.ShotTimes(4, 9);
    Prompts.Expect(leave_question, Answer::Yes);
    Prompts.Expect(record_question, Answer::Yes);
    dialog.Close();
    EXPECT_NEAR(Line.ShotTimes(4, 9), time + 0.25, 0.006);
    EXPECT_EQ(Program.Work.Curves.ShotAlone, 0);
    EXPECT_TRUE(Program.Work.Curves.Overlays.empty());
    EXPECT_EQ(Program.Work.Mode.Current(), DisplayMode::Dromo);
}

TEST_F(TriggerCorrection, another_project_is_not_shifted_by_what_was_left) {
    Opened().Command1();
    Prompts.Expect(leave_question, Answer::No);
    EXPECT_TRUE(Open_File_Named(Program, Path));
    Opened().Command1();
    Line.CurrentFile = Folder / "other.tv5";
    Dialog().Close();  // no question
}

/// Many records, so that a kill meets the writing.
TEST_F(TriggerCorrection, a_kill_while_saving_or_undoing_leaves_all_traces_old_or_new) {
    constexpr int traces = 120;
    constexpr int samples = 3000;
    SuBuilder builder(traces, samples, 250);
    builder.Records(24);
    std::mt19937 random(7);
    for (int trace = 1; trace <= traces; ++trace) {
        std::vector<float> values(samples);
        for (float& value : values)
            value = static_cast<float>(random());
        builder.Samples(trace, values);
        const int shot = (trace - 1) / 24 + 1;
        builder.Put16(trace, 222, *CInt(Line.ShotTimes(shot, (trace - 1) % 24 + 1) * 10));
    }
    builder.Write(Su);
    const std::string filed = *Read_File(Path);
    const std::string before = *Read_File(Su);
    Samples = samples;
    Interval = 250;
    const std::string after = Corrected(before, Line, 3, 5);
    int old_files = 0;
    int new_files = 0;
    for (int round = 0; round < 12; ++round) {
        ASSERT_EQ(Replace_File(Path, filed), "");
        ASSERT_EQ(Replace_File(Su, before), "");
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            ScriptedPrompts prompts;
            LiveDisplay display;
            RecordingLauncher launcher;
            Session program({prompts, display, launcher}, Folder / "Tarnvik32.INI");
            display.Attach(program);
            Open_File_Named(program, Path);
            program.TriggerFault.Load();
            program.TriggerFault.Shot = "3";
            [[maybe_unused]] const auto told = write(ready[1], "x", 1);
            while (true) {
                program.TriggerFault.Shift = "5";
                prompts.Expect(record_question, Answer::Yes);
                program.TriggerFault.Save_TT_Translation();
                program.Work.Edits.Undo(program.Work.Project);
            }
        }
        char byte = 0;
        ASSERT_EQ(read(ready[0], &byte, 1), 1);
        usleep(static_cast<useconds_t>(random() % 60000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        close(ready[0]);
        close(ready[1]);
        const std::string found = *Read_File(Su);
        ASSERT_TRUE(found == before || found == after) << "round " << round;
        (found == before ? old_files : new_files) += 1;
    }
    EXPECT_GT(old_files, 0);
    EXPECT_GT(new_files, 0) << "no kill met a record that was written";
}

}  // namespace tarnvik::test
