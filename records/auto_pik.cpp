#include "records/auto_pik.h"

#include <algorithm>
#include <vector>

#include "core/fault.h"
#include "core/project_save.h"
#include "core/text/number.h"
#include "records/record_display.h"
#include "records/record_files.h"
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
}

void AutoPik::Form_Unload() {
    Work.Record.AutoPickMode = 0;
}

void AutoPik::Set_Start(double x, double y) {
    Work.Record.DownX = x;
    Work.Record.DownY = y;
    FirstTime = CStr(Int(y * Work.Record.SampleInterval / 100) / 10);
    Outside.Show.Show_Fields();
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
    if (Val(Window) > 0) {
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

void AutoPik::Store_Picks(RecordFiles& files, const AutomaticPicks& picks, int first) {
    int trace = first;
    for (const auto& word : picks.Words) {
        // A fragment at the end of the file may count as a trace and have no room for a pick.
        const bool has_room = files.Traces().Word(trace, words::First_Breaks).has_value();
        if (word && has_room) files.Set_Word(trace, words::First_Breaks, *word);
        ++trace;
    }
}

void AutoPik::Repair_Spikes(RecordFiles& files) {
    const TraceRange range = Shown_Traces(Work.Record, files.Last_Trace());
    std::vector<std::int16_t> found;
    for (int trace = range.First; trace <= range.Last; ++trace) {
        found.push_back(static_cast<std::int16_t>(files.Traces().Word_Or_Zero(trace, words::First_Breaks)));
    }
    std::vector<std::int16_t> repaired = found;
    Repair_Low_Spikes(repaired);
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (repaired[i] == found[i]) continue;
        files.Set_Word(range.First + static_cast<int>(i), words::First_Breaks, repaired[i]);
    }
}

void AutoPik::Unsaved_To_Times(PickSetter& setter, const AutomaticPicks& picks, int first) {
    std::vector<std::int16_t> found;
    for (const auto& word : picks.Words)
        found.push_back(word.value_or(0));
    Repair_Low_Spikes(found);
    for (std::size_t i = 0; i < found.size(); ++i) {
        const auto place = setter.Layout().Place_Of(first + static_cast<std::int64_t>(i));
        if (place && picks.Words[i]) setter.Set_Time(*place, found[i] / 10.0);
    }
}

void AutoPik::Pick_auto() {
    EditScope edit(Work, "Automatic picking of record " + CStr(Work.Record.Record),
                   "automatic picking " + CStr(Work.Record.Record));
    try {
        PickSetter setter(Work, PickOrigin::Automatic);
        RecordFiles& files = setter.Files();
        if (!files.Is_Open()) throw Fault(files.Traces().Reason());
        const AutomaticPickingParameters with = Read_Parameters(files);
        FileSource source(files.Traces());
        const AutomaticPicks picks = Pick_Record(with, source);
        Work.Record.ReferenceTrace = picks.ReferenceTrace;
        if (picks.ProcessedTrace != 0) {
            ReferenceTrace = CStr(picks.ReferenceTrace);
            ProcessedTrace = CStr(picks.ProcessedTrace);
        }
        Store_Picks(files, picks, with.FirstTrace);
        if (!files.Failed()) Repair_Spikes(files);
        if (files.Failed()) {
            Unsaved_To_Times(setter, picks, with.FirstTrace);
        } else {
            Take_Header_Picks(setter);
        }
        files.Tell_Faults("Automatic picks");
    } catch (const Fault& fault) {
        Work.Fields.Status = "No automatic picks: " + Work.Project.SuFile + ", " + fault.what();
    }
    edit.End();
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
