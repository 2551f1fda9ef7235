#include "records/auto_pik.h"

#include <algorithm>
#include <vector>

#include "core/fault.h"
#include "core/project_save.h"
#include "core/text/number.h"
#include "records/pick_proposal.h"
#include "records/record_display.h"
#include "records/record_files.h"
#include "records/record_reading.h"
#include "records/set_pick.h"

namespace tarnvik {

namespace {

constexpr const char* help =
    "HOW TO PICK FIRST BREAKS\n"
    "All traces are scaled to maximum amplitude=1000\n"
    "Before to pick FBP, clean the record (dead traces and reversed geophones)\n"
    "1.- You must start picking module, press A button\n"
    "2.- You must click with the mouse right button on the LOWEST FBP time\n"
    "3.  Move the scroll bar until picking is OK\n"
    "You can correct manually any FBP, click on the good value with the left button\n"
    "4.- Verify Windows length value to perform the picking\n"
    "5.- Verify the minimal frequency of the FBP\n"
    "6.- Adapt start time (ms) from last picking value (Usually -2 ms to 5 ms)\n"
    "7.- First Breaks are automatically saved in SU trace header and TV5 file";

class FileSource : public TraceSource {
  public:
    explicit FileSource(SuTraces& file) : File(file) {}
    std::optional<std::int16_t> Identification(int trace) override {
        const auto word = File.Word(trace, words::trid);
        if (!word) return std::nullopt;
        return static_cast<std::int16_t>(*word);
    }
    void Read_Samples(int trace, std::span<float> target) override { File.Samples(trace, target); }

  private:
    SuTraces& File;
};

/// A time in ms as a number of samples; `otherwise` where it is none of 16 bits.
int Samples_In(double ms, double sample_ms, int otherwise = 0) {
    const auto samples = CInt(ms / sample_ms);
    return samples ? *samples : otherwise;
}

/// The traces shown, cut to the file.
struct TraceRange {
    int First = 1;
    int Last = 0;
};
TraceRange Shown_Traces(const RecordView& record, int last_of_file) {
    return {std::clamp(record.FirstTrace, 1, last_of_file + 1),
            std::clamp(record.LastTrace, 0, last_of_file)};
}

}  // namespace

void AutoPik::Form_Load() {
    Work.Record.AutoPickMode = -1;
    Show_Half_Cycle();
}

void AutoPik::Form_Unload() {
    Work.Record.AutoPickMode = 0;
}

void AutoPik::Set_Start(double x, double y) {
    Work.Record.DownX = x;
    Work.Record.DownY = y;
    FirstTime = CStr(Int(y * Work.Record.SampleInterval / 100) / 10);
    Parameter_Changed();
}

double AutoPik::Frequency_Or_50() const {
    const auto frequency = CInt(Val(Frequency));
    return frequency && *frequency != 0 ? *frequency : 50;
}

void AutoPik::Show_Half_Cycle() {
    if (Work.Record.SampleInterval == 0) return;
    const auto samples = CInt(1000000.0 / Work.Record.SampleInterval / (Frequency_Or_50() * 2));
    if (samples) HalfCycle = CStr(*samples);
}

void AutoPik::Sensitivity_Changed() {
    Sensitivity = CStr(SensitivityBar.Value / 1000.0);
    Pick_auto();
}

void AutoPik::Frequency_Changed() {
    Show_Half_Cycle();
    Parameter_Changed();
}

void AutoPik::Parameter_Changed() {
    if (Val(Window) > 0 && !FirstTime.empty()) {
        Pick_auto();
    } else {
        Outside.Show.Show_Fields();
    }
}

void AutoPik::Info() {
    Outside.Ask.Say(help, Work.AppTitle, Icon::Information);
}

void AutoPik::Reset() {
    if (Outside.Ask.Message(" Erase FBP values of  " + Record_Identity(Work.Record), Work.AppTitle,
                            Icon::Critical, Buttons::OkCancel) != Answer::Ok) {
        return;
    }
    EditScope edit(Work, "Reset FBP of record " + CStr(Work.Record.Record));
    PickSetter picks(Work);
    RecordFiles& files = picks.Files();
    const TraceRange range = Shown_Traces(Work.Record, files.Last_Trace());
    for (int trace = range.First; trace <= range.Last; ++trace)
        picks.Set_Trace(trace, 0);
    if (!files.Is_Open()) files.Set_Word(range.First, words::First_Breaks, 0);
    files.Tell_Faults("Reset");
    edit.End();
    Outside.Show.Show_Fields();
}

void AutoPik::Save() {
    Write_Project(Work, Outside);
}

AutomaticPickingParameters AutoPik::Read_Parameters(RecordFiles& files) {
    RecordView& record = Work.Record;
    AutomaticPickingParameters with;
    // The half cycle is shown first and read back, so that a value typed into HalfCycle does not survive.
    Show_Half_Cycle();
    // The sensitivity is checked and shown only: the search has no step for it, and users' eyes know the
    // field.
    if (Val(Sensitivity) == 0) Sensitivity = "0.0001";
    if (Val(Sensitivity) > 1) Sensitivity = "1";
    const double sample_ms = Sample_Ms(record);
    with.StartShift = Samples_In(Val(StartShift), sample_ms);
    with.FirstStart = Samples_In(Val(FirstTime), sample_ms);
    // A window beyond 16 bits means the whole trace.
    with.WindowLength = Samples_In(Val(Window), sample_ms, Val(Window) > 0 ? files.Traces().Nb_Samples() : 0);
    with.HalfCycle = CInt(Val(HalfCycle)).value_or(0);
    with.MinAmplitude = Val(MinAmplitude);
    with.PickShift = Val(PickShift);
    with.Negative = Negative;
    with.Absolute = Absolute;
    with.NbSamples = files.Traces().Nb_Samples();
    with.SampleInterval = record.SampleInterval;
    const TraceRange shown = Shown_Traces(record, files.Last_Trace());
    with.FirstTrace = shown.First;
    with.LastTrace = shown.Last;
    with.ReferenceTrace = Trace_At(record, record.DownX).value_or(0);
    return with;
}

bool AutoPik::Keeps(const PickSetter& setter, std::int64_t trace) const {
    if (ReplaceHand) return false;
    const auto place = setter.Layout().Place_Of(trace);
    return place && setter.By_Hand(*place);
}

void AutoPik::Store_Picks(PickSetter& setter, const AutomaticPicks& picks, int first) {
    RecordFiles& files = setter.Files();
    int trace = first;
    for (const auto& word : picks.Words) {
        // A fragment at the end of the file may count as a trace and have no room for a pick.
        const bool has_room = files.Traces().Word(trace, words::First_Breaks).has_value();
        const bool kept = Keeps(setter, trace);
        if (kept) ++Kept;
        if (word && has_room && !kept) files.Set_Word(trace, words::First_Breaks, *word);
        ++trace;
    }
}

void AutoPik::Repair_Spikes(PickSetter& setter, int first, int last) {
    RecordFiles& files = setter.Files();
    std::vector<std::int16_t> found;
    for (int trace = first; trace <= last; ++trace) {
        found.push_back(static_cast<std::int16_t>(files.Traces().Word_Or_Zero(trace, words::First_Breaks)));
    }
    std::vector<std::int16_t> repaired = found;
    Repair_Low_Spikes(repaired);
    for (std::size_t i = 0; i < found.size(); ++i) {
        const int trace = first + static_cast<int>(i);
        if (repaired[i] == found[i] || Keeps(setter, trace)) continue;
        files.Set_Word(trace, words::First_Breaks, repaired[i]);
    }
}

void AutoPik::Unsaved_To_Times(PickSetter& setter, const AutomaticPicks& picks, int first) {
    std::vector<std::int16_t> found;
    for (const auto& word : picks.Words)
        found.push_back(word.value_or(0));
    Repair_Low_Spikes(found);
    for (std::size_t i = 0; i < found.size(); ++i) {
        const std::int64_t trace = first + static_cast<std::int64_t>(i);
        const auto place = setter.Layout().Place_Of(trace);
        if (place && picks.Words[i] && !Keeps(setter, trace)) setter.Set_Time(*place, found[i] / 10.0);
    }
}

/// Picks the traces of one record into the file, or into the project where the file does not take them.
void AutoPik::Run(PickSetter& setter, const AutomaticPickingParameters& with) {
    RecordFiles& files = setter.Files();
    FileSource source(files.Traces());
    const AutomaticPicks picks = Pick_Record(with, source);
    if (picks.ProcessedTrace != 0) {
        Work.Record.ReferenceTrace = picks.ReferenceTrace;
        ReferenceTrace = CStr(picks.ReferenceTrace);
        ProcessedTrace = CStr(picks.ProcessedTrace);
    }
    Store_Picks(setter, picks, with.FirstTrace);
    if (!files.Failed()) Repair_Spikes(setter, with.FirstTrace, with.LastTrace);
    if (files.Failed()) Unsaved_To_Times(setter, picks, with.FirstTrace);
}

void AutoPik::Tell_Kept() {
    if (Kept == 0 || !Work.Fields.Status.empty()) return;
    Work.Fields.Status = "Automatic picking: " + CStr(Kept) +
                         (Kept == 1 ? " pick made by hand stays" : " picks made by hand stay") +
                         " (tick \"Replace picks made by hand\" to pick them too)";
}

/// What follows when the words of all records picked are in the file.
void AutoPik::Finish(PickSetter& setter) {
    if (!setter.Files().Failed()) Take_Header_Picks(setter, !ReplaceHand);
    setter.Tell_Faults("Automatic picks");
    Tell_Kept();
}

void AutoPik::Pick_auto() {
    EditScope edit(Work, "Automatic picking of record " + CStr(Work.Record.Record),
                   "automatic picking " + CStr(Work.Record.Record));
    Kept = 0;
    try {
        PickSetter setter(Work, PickOrigin::Automatic);
        RecordFiles& files = setter.Files();
        if (!files.Is_Open()) throw Fault(files.Traces().Reason());
        Work.Record.ReferenceTrace = 0;
        Run(setter, Read_Parameters(files));
        Finish(setter);
    } catch (const Fault& fault) {
        Work.Fields.Status = "No automatic picks: " + Work.Project.SuFile + ", " + fault.what();
    }
    edit.End();
    Outside.Show.Show_Fields();
}

/// Sets reference trace and start of the search of a record whose traces stand in the parameters. Where its
/// nearest trace shows no arrival the first one is searched from the time that was marked elsewhere.
void AutoPik::Take_Start(const PickSetter& setter, AutomaticPickingParameters& with) {
    const RecordView& view = Work.Record;
    const int marked = Trace_At(view, view.DownX).value_or(0);
    const SpreadLayout& spread = setter.Layout();
    const bool here = !FirstTime.empty() && spread.Record_Of(marked) == spread.Record_Of(with.FirstTrace);
    with.ReferenceTrace = here ? marked : with.FirstTrace;
    with.FirstStart = Samples_In(Val(FirstTime), Sample_Ms(view));
    if (here) return;
    RecordReading record(Work, with.FirstTrace, with.LastTrace);
    const auto nearest = Nearest_Arrival(record);
    if (!nearest) return;
    constexpr double before_onset_ms = 1;
    with.ReferenceTrace = nearest->Trace;
    with.FirstStart =
        std::max(0, Samples_In(nearest->Sample, 1) - Samples_In(before_onset_ms, Sample_Ms(view)));
}

void AutoPik::Pick_All(const Progress& progress) {
    EditScope edit(Work, "Automatic picking of all records");
    Kept = 0;
    try {
        PickSetter setter(Work, PickOrigin::Automatic);
        RecordFiles& files = setter.Files();
        if (!files.Is_Open()) throw Fault(files.Traces().Reason());
        AutomaticPickingParameters with = Read_Parameters(files);
        const int channels = setter.Layout().Channels();
        const int records = channels > 0 ? files.Last_Trace() / channels : 0;
        for (int record = 1; record <= records; ++record) {
            if (progress && !progress(record - 1, records)) {
                edit.Give_Up();
                Work.Fields.Status = "Automatic picking stopped: all picks are as they were";
                Outside.Show.Show_Fields();
                return;
            }
            with.FirstTrace = static_cast<int>(setter.Layout().First_Trace(record));
            with.LastTrace = static_cast<int>(setter.Layout().Last_Trace(record));
            Take_Start(setter, with);
            Run(setter, with);
        }
        Finish(setter);
    } catch (const Fault& fault) {
        Work.Fields.Status = "No automatic picks: " + Work.Project.SuFile + ", " + fault.what();
    }
    edit.End();
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
