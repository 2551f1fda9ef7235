#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <string>
#include <vector>

#include "core/text/number.h"
#include "records/auto_pik.h"
#include "records/picking.h"
#include "records/record_zoom.h"
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

/// A line of two records of four channels, 20 samples at 1 ms, its first record on screen. `tracl` runs on
/// through the file. Redrawing the curves fills Buildgrid from ShotTimes, as the program does.
class RecordOnScreen : public ::testing::Test {
  protected:
    static constexpr int channels = 4;
    static constexpr int traces = 8;
    static constexpr int samples = 20;
    static constexpr int trace_bytes = 240 + samples * 4;
    static constexpr int pick_offset = 222;
    static constexpr int life_offset = 28;

    RecordOnScreen() : File(traces, samples) {
        File.Records(channels);
        for (int trace = 1; trace <= traces; ++trace)
            File.Put32(trace, 0, trace);
        Work.Project.SuFile = Folder / "line.su";
        Work.Project.NbShots = 2;
        Work.Project.NbReceivers = channels;
        Redimension_Project(Work.Project);
        Work.Record.NbSamples = Work.Record.SamplesWord = Work.Record.LastSample = samples;
        Work.Record.FirstSample = 1;
        Work.Record.SampleInterval = 1000;
        Work.Record.ChannelsPerRecord = channels;
        Work.Fields.HScroll2 = {1, 1, 2};
        Show(1);
        Work.Grids.Buildgrid.Resize(channels + 3, 2 + 4);
        Work.Grids.size_grid.Resize(channels, 1);
        Ports.Display.OnShowCurves = [this] { Fill_Grid(); };
        Fill_Grid();
    }

    /// Puts a record on screen as the display would.
    void Show(int record) {
        const int first = (record - 1) * channels + 1;
        Work.Fields.HScroll2.Value = record;
        Work.Record.FirstTrace = first;
        Work.Record.LastTrace = first + channels - 1;
        Work.Record.RecordWidth = channels * 2000.0;
        Work.Fields.Text9 = std::to_string(first);
        Work.Fields.Text10 = std::to_string(first + channels - 1);
        Work.Fields.Text18 = std::to_string(first);
        Ports.Display.Canvas_Of(Canvas::Ecran).Scale(first * 2000.0, 1, (first + channels) * 2000.0, samples);
    }
    void Fill_Grid() {
        for (int shot = 1; shot <= 2; ++shot) {
            for (int receiver = 1; receiver <= channels; ++receiver) {
                Work.Grids.Buildgrid.Set_Text(receiver, shot,
                                              Format(Work.Project.ShotTimes(shot, receiver), "###0.00"));
            }
        }
    }
    void Write() { Before = Content_Of(File.Write(Work.Project.SuFile)); }

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
