// What one step of the hand costs while an offset curve or the total time line is moved over 72 shots and 120
// receivers: the edit of the total time included. A frame has 16 ms.

#include <benchmark/benchmark.h>

#include "depth/delay_f.h"
#include "largest_line.h"
#include "support/test_ports.h"

namespace {

using namespace tarnvik;

struct Bench {
    Workspace Work = bench::Largest_Line();
    test::ScriptedPrompts Prompts;
    test::RecordingDisplay Display;
    test::RecordingLauncher Launcher;
    Ports World{Prompts, Display, Launcher};
    DelayF Form{Work, World};

    Bench() { Form.Load(); }
    void Move(benchmark::State& state, DelayF::Handle what) {
        int value = 0;
        for (auto _ : state) {
            value = value == 40 ? 0 : value + 1;
            Form.Move(what, value);
            Display.Calls.clear();
        }
    }
};

void Curve_Moved_By_A_Unit(benchmark::State& state) {
    Bench().Move(state, DelayF::Handle::LeftCurve);
}
BENCHMARK(Curve_Moved_By_A_Unit)->Unit(benchmark::kMillisecond);

void Total_Time_Line_Moved_By_A_Unit(benchmark::State& state) {
    Bench().Move(state, DelayF::Handle::TotalLine);
}
BENCHMARK(Total_Time_Line_Moved_By_A_Unit)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
