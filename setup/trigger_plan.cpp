#include "setup/trigger_plan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <functional>
#include <optional>
#include <sstream>
#include <string_view>
#include <system_error>

#include "core/check_sum.h"
#include "core/files.h"
#include "core/text/number.h"
#include "processing/move_samples.h"
#include "records/spread_layout.h"
#include "records/su_file.h"
#include "records/su_replace.h"
#include "setup/trigger_correction.h"

namespace tarnvik {

namespace {

constexpr const char* cell_format = "###0.00";
constexpr double told_from = 0.15;  ///< ms that words and project may differ by without a shift

/// Traces of the shot's receivers, 0 where the file has none that is whole.
std::vector<std::int64_t> Traces_Of(const Workspace& workspace, SuTraces& file, int shot) {
    const SpreadLayout layout(workspace, file);
    std::vector<std::int64_t> traces;
    for (int receiver = 1; receiver <= workspace.Project.NbReceivers; ++receiver) {
        const auto trace = layout.Trace_Of({shot, receiver});
        const bool whole =
            trace && file.Nb_Samples() >= 0 && Trace_Position(*trace + 1, file.Nb_Samples()) <= file.Length();
        traces.push_back(whole ? *trace : 0);
    }
    return traces;
}

std::vector<std::int64_t> Without_Gaps(std::vector<std::int64_t> traces) {
    std::erase(traces, 0);
    return traces;
}

void Plan_Picks(const Project& project, TriggerPlan& plan) {
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        // The time that the table shows.
        const double time = Val(Format(project.ShotTimes(plan.Shot, receiver), cell_format));
        const double corrected = Corrected_Time(time, plan.Shift);
        const auto word = CInt(corrected * 10);
        if (!word && plan.Refusal.empty()) {
            plan.Refusal = "Impossible, receiver " + CStr(receiver) + " would get " + CStr(corrected) +
                           " ms: a header word holds -3276.8 to 3276.7 ms";
        }
        plan.Times.push_back(corrected);
        plan.Words.push_back(word.value_or(0));
    }
}

void Plan_Records(const Workspace& workspace, TriggerPlan& plan) {
    const Project& project = workspace.Project;
    const std::string no_correction = ", no correction possible on SU file";
    SuTraces file(Su_Path(project));
    if (file.Is_Open()) {
        plan.Traces = Traces_Of(workspace, file, plan.Shot);
        if (Without_Gaps(plan.Traces).empty()) {
            plan.NoRecords = project.SuFile + " has no trace of shot " + CStr(plan.Shot) + no_correction;
        } else if (file.Sample_Interval() == 0) {
            plan.NoRecords = project.SuFile + " has no sample interval" + no_correction;
        } else if (const auto samples = Samples_Of_Shift(plan.Shift, file.Sample_Interval())) {
            plan.ShiftSamples = *samples;
        } else if (plan.Refusal.empty()) {
            plan.Refusal = "Impossible, " + CStr(plan.Shift) + " ms are more than 32767 samples";
        }
    } else if (File_Exists(Su_Path(project)) && plan.Refusal.empty()) {
        plan.Refusal = project.SuFile + " cannot be read: " + file.Reason();
    } else {
        plan.NoRecords = project.SuFile + " is missing" + no_correction;
    }
    std::vector<std::int64_t> traces = Without_Gaps(plan.Traces);
    if (traces.empty()) {
        plan.Traces.assign(plan.Times.size(), 0);
        const std::int64_t receivers = project.NbReceivers;
        traces = {(plan.Shot - 1) * receivers + 1, plan.Shot * receivers};
    }
    const auto [first, last] = std::minmax_element(traces.begin(), traces.end());
    plan.FirstTrace = *first;
    plan.LastTrace = *last;
}

/// The twin of the project's records, where there is one; it holds the same traces.
std::string Twin_Of(const Workspace& workspace) {
    const std::string& twin = workspace.Record.TwinSuFile;
    return !twin.empty() && twin != Su_Path(workspace.Project) && File_Exists(twin) ? twin : std::string();
}

/// What the plan makes of a trace of a file, by the file's own sample interval.
std::function<void(std::int64_t, TraceInHand&)> Correction(const TriggerPlan& plan, int interval) {
    const int samples = Samples_Of_Shift(plan.Shift, interval).value_or(plan.ShiftSamples);
    return [&plan, samples](std::int64_t trace, TraceInHand& hand) {
        const auto place = std::find(plan.Traces.begin(), plan.Traces.end(), trace);
        if (place == plan.Traces.end()) return;
        hand.Set_Word(words::First_Breaks, plan.Words[static_cast<std::size_t>(place - plan.Traces.begin())]);
        std::vector<float> moved(hand.Samples.size());
        Move_Samples(hand.Samples, samples, moved);
        hand.Samples = std::move(moved);
    };
}

/// Sum over the samples of the traces of a shot, each moved later by some places.
std::uint32_t Sum_Of_Samples(SuTraces& file, const TriggerPlan& plan, int later) {
    std::string sums;
    std::vector<float> samples(static_cast<std::size_t>(std::max(file.Nb_Samples(), 0)));
    std::vector<float> moved(samples.size());
    for (const std::int64_t trace : Without_Gaps(plan.Traces)) {
        file.Samples(trace, samples);
        Move_Samples(samples, later, moved);
        const std::uint32_t sum =
            Check_Sum({reinterpret_cast<const char*>(moved.data()), moved.size() * sizeof(float)});
        sums.append(reinterpret_cast<const char*>(&sum), sizeof sum);
    }
    return Check_Sum(sums);
}

// The note beside the records: one line for each shot, with the shift in ms and the sum of the samples that
// the correction makes. It is there before the records change and goes when the project is saved; one that is
// found later tells of a correction that was cut short between the two, also where no pick does.

struct ShiftNote {
    int Shot = 0;
    double Shift = 0;
    std::uint32_t Sum = 0;
};

std::string Note_File(const Project& project) {
    return Su_Path(project) + ".timebreak";
}

std::vector<ShiftNote> Read_Notes(const Project& project) {
    std::vector<ShiftNote> notes;
    std::istringstream text(Read_File(Note_File(project)).value_or(""));
    text.imbue(std::locale::classic());
    for (ShiftNote note; text >> note.Shot >> note.Shift >> note.Sum;)
        notes.push_back(note);
    return notes;
}

/// Answers why the notes could not be written.
std::string Write_Notes(const Project& project, const std::vector<ShiftNote>& notes) {
    if (notes.empty()) {
        std::error_code failed;
        std::filesystem::remove(Note_File(project), failed);
        return {};
    }
    std::ostringstream text;
    text.imbue(std::locale::classic());
    for (const ShiftNote& note : notes)
        text << note.Shot << ' ' << note.Shift << ' ' << note.Sum << '\n';
    return Replace_File(Note_File(project), text.str());
}

std::vector<ShiftNote> Notes_Of_Others(const Project& project, int shot) {
    std::vector<ShiftNote> notes = Read_Notes(project);
    std::erase_if(notes, [shot](const ShiftNote& note) { return note.Shot == shot; });
    return notes;
}

std::optional<double> Shift_Of_Picks(const Project& project, const TriggerPlan& plan,
                                     const std::string& path) {
    SuTraces file(path);
    std::vector<double> times;
    std::vector<double> words;
    for (std::size_t place = 0; place < plan.Traces.size(); ++place) {
        times.push_back(project.ShotTimes(plan.Shot, static_cast<int>(place) + 1));
        words.push_back(plan.Traces[place] == 0 ? 0 : file.Pick_Ms(plan.Traces[place]));
    }
    return Common_Shift(times, words);
}

/// What a note tells that still goes with the samples.
double Shift_Of_Note(const Project& project, const TriggerPlan& plan) {
    SuTraces file(Su_Path(project));
    for (const ShiftNote& note : Read_Notes(project)) {
        if (note.Shot == plan.Shot && note.Sum == Sum_Of_Samples(file, plan, 0)) return note.Shift;
    }
    return 0;
}

}  // namespace

TriggerPlan Plan_Trigger_Correction(const Workspace& workspace, int shot, double shift) {
    TriggerPlan plan;
    plan.Shot = shot;
    plan.Shift = shift;
    const Project& project = workspace.Project;
    if (shot < 1 || shot > project.NbShots || !project.ShotTimes.Has(shot, project.NbReceivers)) {
        plan.Refusal = "Wrong Shot number";
        return plan;
    }
    Plan_Picks(project, plan);
    Plan_Records(workspace, plan);
    return plan;
}

double Shifted_Already(const Workspace& workspace, const TriggerPlan& plan) {
    if (!plan.NoRecords.empty()) return 0;
    const Project& project = workspace.Project;
    const std::optional<double> by_picks = Shift_Of_Picks(project, plan, Su_Path(project));
    if (by_picks && std::abs(*by_picks) >= told_from) return *by_picks;
    if (const std::string twin = Twin_Of(workspace); !twin.empty()) {
        const std::optional<double> by_twin = Shift_Of_Picks(project, plan, twin);
        if (by_twin && std::abs(*by_twin) >= told_from) return *by_twin;
    }
    // Picks that agree speak against a note, unless its shift is too small to be seen in them.
    const double noted = Shift_Of_Note(project, plan);
    return by_picks && std::abs(noted) >= told_from ? 0 : noted;
}

std::string Shift_Records(Workspace& workspace, const TriggerPlan& plan) {
    const Project& project = workspace.Project;
    const std::string path = Su_Path(project);
    const std::vector<std::int64_t> traces = Without_Gaps(plan.Traces);
    std::vector<ShiftNote> notes = Notes_Of_Others(project, plan.Shot);
    const auto put_notes_back = [&project, before = Read_Notes(project)] { Write_Notes(project, before); };
    {
        SuTraces file(path);
        if (plan.ShiftSamples != 0)
            notes.push_back({plan.Shot, plan.Shift, Sum_Of_Samples(file, plan, plan.ShiftSamples)});
    }
    if (const std::string reason = Write_Notes(project, notes); !reason.empty()) return path + ": " + reason;
    std::vector<std::string> files{path};
    if (const std::string twin = Twin_Of(workspace); !twin.empty()) files.push_back(twin);
    for (const std::string& file : files) {
        const int interval = SuTraces(file).Sample_Interval();
        const std::string reason = Replace_Traces(file, &workspace.Edits, traces, Correction(plan, interval));
        if (reason.empty()) continue;
        put_notes_back();
        return file + ": " + reason;
    }
    return {};
}

void Forget_Shift_Note(const Workspace& workspace, int shot) {
    if (!File_Exists(Note_File(workspace.Project))) return;
    Write_Notes(workspace.Project, Notes_Of_Others(workspace.Project, shot));
}

}  // namespace tarnvik
