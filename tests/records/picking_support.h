#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <functional>
#include <string>
#include <vector>

#include "core/edits/project_block.h"
#include "core/text/number.h"
#include "records/auto_pik.h"
#include "records/picking.h"
#include "records/record_choice.h"
#include "records/record_display.h"
#include "records/record_zoom.h"
#include "records/su_loading.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {

/// While it lives no byte can be written to any file, as on a full disk.
class NothingCanBeWritten {
  public:
    NothingCanBeWritten() {
        getrlimit(RLIMIT_FSIZE, &Limit);
        Former = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit none{0, Limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~NothingCanBeWritten() {
        setrlimit(RLIMIT_FSIZE, &Limit);
        std::signal(SIGXFSZ, Former);
    }

  private:
    rlimit Limit{};
    void (*Former)(int) = nullptr;
};

/// A line of two records of five channels, 20 samples at 1 ms, loaded and shown as the program does it: the
/// display draws on ecran, and an edit shows on it and in Buildgrid.
class RecordOnScreen : public ::testing::Test {
  protected:
    static constexpr int channels = 5;
    static constexpr int traces = 10;
    static constexpr int samples = 20;
    static constexpr int trace_bytes = 240 + samples * 4;
    static constexpr int pick_offset = 222;
    static constexpr int life_offset = 28;
    static constexpr int shot_offset = 16;     ///< `ep`
    static constexpr int geophone_offset = 0;  ///< `tracl`

    RecordOnScreen() : File(traces, samples) {
        File.Records(channels);
        for (int trace = 1; trace <= traces; ++trace)
            File.Sample(trace, 5, 100).Sample(trace, 9, -50);
        Work.Project.SuFile = Folder / "line.su";
        Work.Project.NbShots = 2;
        Work.Project.NbReceivers = channels;
        Redimension_Project(Work.Project);
        Work.Grids.Buildgrid.Resize(channels + 3, 2 + 4);
        Work.Edits.On_Change = [this](const ChangeNotice& notice) {
            Fill_Grid();
            Show_Change_On_Record(Work, Ports.Ports, notice, {});
        };
        Ports.Display.OnDisplayRecord = [this] { Display_Record(Work, Ports.Ports, Su_Path(Work.Project)); };
    }

    /// Writes the file and opens it on its first record; the history starts here.
    void Write() {
        Before = Content_Of(File.Write(Work.Project.SuFile));
        Open_Records(Work, Ports.Ports);
        Fill_Grid();
        Work.Edits.Start(Work.Project, true);
        Ports.Display.Calls.clear();
    }
    /// The same with a twin beside it.
    void Write_With_Twin() {
        Work.Project.SuFile = Folder / "line_flt.su";
        File.Write(Folder / "line.su");
        Write();
        ASSERT_EQ(Work.Record.TwinSuFile, Folder / "line.su");
    }
    void Show(int record) { Go_To_Record(Work, Ports.Ports, record); }
    void Fill_Grid() {
        for (int shot = 1; shot <= 2; ++shot) {
            for (int receiver = 1; receiver <= Work.Project.NbReceivers; ++receiver) {
                Work.Grids.Buildgrid.Set_Text(receiver, shot,
                                              Format(Work.Project.ShotTimes(shot, receiver), "###0.00"));
            }
        }
    }
    /// Everything that the user's work stands in.
    std::string State() const {
        return Content_Of(Work.Project.SuFile) + Content_Of(Work.Record.TwinSuFile) +
               Project_Block(Work.Project);
    }
    /// The action is one edit of this name, which undo takes back to the last byte and redo does again.
    void Expect_Edit(const std::string& name, const std::function<void()>& action) {
        SCOPED_TRACE(name);
        const std::string before = State();
        const std::size_t done = Work.Edits.Done();
        action();
        const std::string after = State();
        EXPECT_NE(after, before);
        ASSERT_EQ(Work.Edits.Done(), done + 1);
        EXPECT_EQ(Work.Edits.Undo_Name(), name);
        EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
        EXPECT_EQ(State(), before);
        EXPECT_EQ(Work.Edits.Redo(Work.Project), "");
        EXPECT_EQ(State(), after);
        Fill_Grid();
        Ports.Display.Display_Record();
    }

    static double Middle(int trace) { return trace * 2000.0 + 1000; }
    void Click(int trace, double sample, int button = 1) {
        Pointer.Press({Middle(trace), sample, button});
        Pointer.Release({Middle(trace), sample, button});
    }
    static std::int16_t Word_In(const std::string& bytes, int trace, int offset = pick_offset) {
        const auto at = static_cast<std::size_t>((trace - 1) * trace_bytes + offset);
        const int low = static_cast<unsigned char>(bytes.at(at));
        return static_cast<std::int16_t>(low | static_cast<unsigned char>(bytes.at(at + 1)) << 8);
    }
    std::vector<int> File_Words() const {
        const std::string bytes = Content_Of(Work.Project.SuFile);
        std::vector<int> words;
        for (int trace = 1; trace <= traces; ++trace)
            words.push_back(Word_In(bytes, trace));
        return words;
    }
    std::vector<float> Times(int shot) const {
        std::vector<float> times;
        for (int receiver = 1; receiver <= channels; ++receiver)
            times.push_back(Work.Project.ShotTimes(shot, receiver));
        return times;
    }
    /// Sample of the pick mark of a trace on ecran, in the colour of any origin; 0 without one; -1 with
    /// several.
    double Mark(int trace) {
        double found = 0;
        for (const PickOrigin origin : {PickOrigin::Hand, PickOrigin::Automatic, PickOrigin::Moved}) {
            for (const Drawn& line :
                 Ports.Display.Pictures[Canvas::Ecran].Of(Drawn::Verb::Line, Pick_Colour(origin))) {
                if (line.X1 != trace * 2000.0 + 251) continue;
                found = found == 0 ? line.Y1 : -1;
            }
        }
        return found;
    }
    /// The file with the words of some traces changed is what must be on the disk, to the last byte.
    void Expect_Only(SuBuilder expected, const std::string& path) {
        EXPECT_EQ(Content_Of(path), expected.Bytes) << path;
    }

    TemporaryFolder Folder;
    SuBuilder File;
    std::string Before;
    Workspace Work;
    TestPorts Ports;
    AutoPik Automatic{Work, Ports.Ports};
    RecordZoom Zoom{Work, Ports.Ports};
    RecordPointer Pointer{Work, Ports.Ports, Automatic, Zoom};
};

}  // namespace tarnvik::test
