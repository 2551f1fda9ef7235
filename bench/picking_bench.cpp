#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "records/auto_pik.h"
#include "records/picking.h"
#include "support/test_ports.h"

namespace {

using namespace tarnvik;

constexpr int traces = 120;
constexpr int samples = 4000;
constexpr int interval_us = 125;

/// One record: a decaying 50 Hz wavelet behind a break that moves out by 4 samples a trace, with noise
/// before.
std::string Record_Bytes() {
    std::mt19937 random(1);
    std::normal_distribution<float> noise(0, 0.01F);
    std::string bytes;
    for (int trace = 1; trace <= traces; ++trace) {
        std::string header(240, '\0');
        const auto put = [&](std::size_t offset, std::int16_t value) {
            std::memcpy(&header[offset], &value, sizeof value);
        };
        put(4, 1);
        put(8, 1);
        put(12, static_cast<std::int16_t>(trace));
        put(28, 1);
        put(114, samples);
        put(116, interval_us);
        std::vector<float> values(samples);
        const int start = 100 + 4 * trace;
        for (int i = 0; i < samples; ++i) {
            const double time = (i - start) * interval_us * 1e-6;
            const double wave =
                i < start ? 0 : std::exp(-20 * time) * std::sin(2 * std::numbers::pi * 50 * time);
            values[static_cast<std::size_t>(i)] = static_cast<float>(wave) + noise(random);
        }
        bytes += header;
        bytes.append(reinterpret_cast<const char*>(values.data()), values.size() * sizeof(float));
    }
    return bytes;
}

/// The record on screen, with a project of 72 shots around it.
struct Station {
    Station() {
        W.Project.SuFile = Folder / "record.su";
        std::ofstream(W.Project.SuFile, std::ios::binary) << Record_Bytes();
        W.Project.NbShots = 72;
        W.Project.NbReceivers = traces;
        Redimension_Project(W.Project);
        W.Grids.Buildgrid.Resize(traces + 3, 72 + 4);
        W.Record.NbSamples = W.Record.SamplesWord = samples;
        W.Record.SampleInterval = interval_us;
        W.Record.ChannelsPerRecord = traces;
        W.Record.FirstTrace = 1;
        W.Record.LastTrace = traces;
        W.Record.RecordWidth = traces * 2000.0;
        W.Record.DownX = 60 * 2000.0 + 1000;
        Automatic.StartShift = "-3";
        Automatic.Window = "30";
        Automatic.FirstTime = "40";
        Automatic.MinAmplitude = "0.05";
    }
    test::TemporaryFolder Folder;
    Workspace W;
    test::TestPorts Ports;
    AutoPik Automatic{W, Ports.Ports};
    RecordZoom Zoom{W, Ports.Ports};
    RecordPointer Pointer{W, Ports.Ports, Automatic, Zoom};
};

/// A whole run of the dialog without the redraws: 120 traces of 4,000 samples from the file, the picks into
/// file and table, the table of 72 shots.
void Automatic_Picking(benchmark::State& state) {
    Station station;
    for (auto _ : state) {
        station.Automatic.Pick_auto();
        station.Ports.Display.Calls.clear();
    }
}
BENCHMARK(Automatic_Picking)->Unit(benchmark::kMillisecond);

/// The same with a window over the whole trace and a minimum that nothing reaches.
void Automatic_Picking_Nothing_Found(benchmark::State& state) {
    Station station;
    station.Automatic.Window = "2000";
    station.Automatic.MinAmplitude = "2";
    station.Automatic.FirstTime = "0";
    station.Automatic.StartShift = "-4000";
    for (auto _ : state) {
        station.Automatic.Pick_auto();
        station.Ports.Display.Calls.clear();
    }
}
BENCHMARK(Automatic_Picking_Nothing_Found)->Unit(benchmark::kMillisecond);

void Pick_By_Click(benchmark::State& state) {
    Station station;
    for (auto _ : state) {
        station.Pointer.Press({60 * 2000.0 + 1000, 400, 1});
        station.Pointer.Release({60 * 2000.0 + 1000, 400, 1});
        station.Ports.Display.Calls.clear();
        station.Ports.Display.Pictures.clear();
    }
}
BENCHMARK(Pick_By_Click)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
