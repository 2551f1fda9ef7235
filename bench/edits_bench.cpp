#include <benchmark/benchmark.h>

#include <filesystem>

#include "core/edits/edits.h"
#include "core/workspace.h"
#include "largest_line.h"

namespace {

using namespace tarnvik;

/// The largest line with a journal beside it, as the window has it.
struct Line {
    Line() : Work(bench::Largest_Line()) {
        Journals = (std::filesystem::temp_directory_path() / "edits_bench_journal").string();
        Work.Edits.Start(Work.Project, true);
        Work.Edits.Keep_Journals_In(Journals);
    }
    ~Line() {
        Work.Edits.Drop_Journal();
        std::filesystem::remove_all(Journals);
    }
    void Pick(int step) {
        const EditScope edit(Work, "Pick");
        Work.Project.ShotTimes(1 + step % 72, 1 + step % 120) += 0.25F;
    }
    Workspace Work;
    std::string Journals;
};

/// What the door costs a pick: both blocks, the difference, the record in the journal.
void One_Edit_With_Journal(benchmark::State& state) {
    Line line;
    int step = 0;
    for (auto _ : state)
        line.Pick(++step);
}
BENCHMARK(One_Edit_With_Journal)->Unit(benchmark::kMicrosecond);

/// Back and forth over a hundred edits, without redraws.
void Hundred_Steps_Of_History(benchmark::State& state) {
    Line line;
    for (int step = 0; step < 100; ++step)
        line.Pick(step);
    for (auto _ : state) {
        for (int step = 0; step < 100; ++step)
            line.Work.Edits.Undo(line.Work.Project);
        for (int step = 0; step < 100; ++step)
            line.Work.Edits.Redo(line.Work.Project);
    }
}
BENCHMARK(Hundred_Steps_Of_History)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
