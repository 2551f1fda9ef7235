#include "processing/enhancement.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/files.h"
#include "core/project_file.h"
#include "core/settings_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/filters/filter_file.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_times.h"
#include "processing/traces/trace_words.h"
#include "records/record_display.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

constexpr const char* section = "reverse";
constexpr const char* filtered_ending = "_flt.su";
constexpr const char* as_typed = "As typed";
constexpr std::int64_t traces_without_records = 48;  ///< shown of a file whose records are not known
constexpr int longest_drawn = 32767;                 ///< samples of a trace that the picture counts
constexpr double gain_step = 1.5;

bool Ends_In(const std::string& text, const std::string& ending) {
    return text.size() > ending.size() && LCase(Right(text, ending.size())) == ending;
}

std::string Output_For(const std::string& input) {
    return Ends_In(input, ".su") ? input.substr(0, input.size() - 3) + filtered_ending
                                 : input + filtered_ending;
}

/// The number that a field holds; a Fault that names it where it holds none.
double Number_Of(const std::string& text, const std::string& what) {
    const auto value = Number_In(Trim(text));
    if (!value) throw Fault(what + ": \"" + text + "\" is no number");
    return *value;
}

std::int64_t Count_Of(const std::string& text, const std::string& what) {
    const double value = Number_Of(text, what);
    if (value != Int(value) || std::abs(value) > 2e9) throw Fault(what + ": " + text + " is no whole number");
    return static_cast<std::int64_t>(value);
}

/// Traces from two fields; an empty one is that end of the file.
TraceStretch Stretch_Of(const std::string& first, const std::string& last, std::int64_t traces,
                        const std::string& what) {
    TraceStretch stretch{1, traces};
    if (!Trim(first).empty()) stretch.First = Count_Of(first, what + ", first trace");
    if (!Trim(last).empty()) stretch.Last = Count_Of(last, what + ", last trace");
    if (stretch.First < 1 || stretch.Last > traces || stretch.First > stretch.Last)
        throw Fault(what + ": this file holds traces 1 to " + std::to_string(traces) +
                    ", the first one comes before the last");
    return stretch;
}

/// The part of a stretch that lies within `count` traces from `first` on, counted from there.
TraceStretch Within(const TraceStretch& stretch, std::int64_t first, std::int64_t count) {
    return {std::max<std::int64_t>(stretch.First - first + 1, 1), std::min(stretch.Last - first + 1, count)};
}

/// The SU file that a path stands for; empty with a reason where it stands for none.
std::string Su_File_Of(const std::string& path, std::string& reason) {
    if (!File_Exists(path)) {
        reason = path + ": This file does not exist !";
    } else if (Ends_In(path, ".tv5")) {
        Project project;
        const auto bytes = Read_File(path);
        if (bytes) Parse_Project(*bytes, project);
        project.CurrentFile = path;
        const std::string records = project.SuFile.empty() ? std::string() : Su_Path(project);
        if (records.empty())
            reason = path + " names no field records";
        else if (File_Exists(records))
            return records;
        else
            reason = records + ", the field records of " + path + ": This file does not exist !";
    } else {
        return path;
    }
    return {};
}

}  // namespace

/// A file of the traces of one record, for the drawing routine of the records; it goes with this object.
class Enhancement::RecordCopy {
  public:
    RecordCopy() : Name((std::filesystem::temp_directory_path() / "tarnvik-record-XXXXXX").string()) {
        const int handle = mkstemp(Name.data());
        if (handle < 0)
            Name.clear();
        else
            close(handle);
    }
    ~RecordCopy() {
        if (!Name.empty()) unlink(Name.c_str());
    }
    RecordCopy(const RecordCopy&) = delete;
    RecordCopy& operator=(const RecordCopy&) = delete;

    void Fill(const std::string& bytes) const {
        std::error_code failed;
        std::filesystem::resize_file(Name, bytes.size(), failed);
        PositionedFile file(Name, PositionedFile::Access::Write);
        file.Write(0, bytes.data(), static_cast<std::int64_t>(bytes.size()));
    }
    const std::string& Path() const { return Name; }

  private:
    std::string Name;
};

Enhancement::Enhancement(Ports& ports, std::string title, std::string settings_file)
    : Outside(ports),
      Title(std::move(title)),
      SettingsFile(std::move(settings_file)),
      Original(std::make_unique<RecordCopy>()),
      Result(std::make_unique<RecordCopy>()) {
    View.Record.AmplitudeGain = 1;
    Offer_Presets();
    Show_Corners(Presets.front().Band);
    Recall();
}

Enhancement::~Enhancement() = default;

/// What is remembered, by its key.
std::vector<std::pair<const char*, bool*>> Enhancement::Ticks() {
    return {{"Mean", &RemoveMean}, {"Drift", &RemoveDrift}, {"Notch", &NotchOn},
            {"Band", &BandOn},     {"Mute", &MuteOn},       {"Agc", &AgcOn},
            {"Balance", &Balance}, {"Reverse", &Reverse},   {"Equalise", &EqualiseTraces}};
}

std::vector<std::pair<const char*, std::string*>> Enhancement::Texts() {
    return {{"Hertz", &HumHertz}, {"Harmonics", &Harmonics}, {"F1", &F1},      {"F2", &F2}, {"F3", &F3},
            {"F4", &F4},          {"MuteMs", &MuteMs},       {"AgcMs", &AgcMs}};
}

void Enhancement::Remember() {
    if (SettingsFile.empty()) return;
    const auto put = [this](const char* key, const std::string& value) {
        if (Read_Setting(SettingsFile, section, key) != value)
            Write_Setting(SettingsFile, section, key, value);
    };
    for (const auto& [key, on] : Ticks())
        put(key, *on ? "1" : "0");
    for (const auto& [key, text] : Texts())
        put(key, *text);
    put("Preset", PresetName);
    put("Style", CStr(Style));
}

void Enhancement::Recall() {
    if (SettingsFile.empty()) return;
    const auto get = [this](const char* key) { return Read_Setting(SettingsFile, section, key); };
    for (const auto& [key, on] : Ticks()) {
        if (const std::string value = get(key); !value.empty()) *on = value == "1";
    }
    for (const auto& [key, text] : Texts()) {
        if (const std::string value = get(key); !value.empty()) *text = value;
    }
    if (const std::string name = get("Preset"); !name.empty()) PresetName = name;
    Style = std::clamp(CLng(Val(get("Style"))).value_or(0), 0, int{TwoColours});
}

/// The presets follow the sampling; the one that was chosen stays by its name.
void Enhancement::Offer_Presets() {
    constexpr double usual_interval = 250;
    Presets = Band_Presets(Interval > 0 ? Interval : usual_interval);
    PresetEntries.clear();
    Preset = static_cast<int>(Presets.size());
    for (const BandPreset& preset : Presets) {
        if (preset.Name == PresetName) {
            Preset = static_cast<int>(PresetEntries.size());
            Show_Corners(preset.Band);
        }
        PresetEntries.emplace_back(preset.Name);
    }
    PresetEntries.emplace_back(as_typed);
}

void Enhancement::Show_Corners(const BandPass& band) {
    F1 = CStr(band.F1);
    F2 = CStr(band.F2);
    F3 = CStr(band.F3);
    F4 = CStr(band.F4);
}

void Enhancement::Preset_Chosen() {
    if (Preset < 0 || Preset >= static_cast<int>(Presets.size())) {
        PresetName = as_typed;
        return;
    }
    const BandPreset& preset = Presets[static_cast<std::size_t>(Preset)];
    PresetName = preset.Name;
    Show_Corners(preset.Band);
}

void Enhancement::Corner_Typed() {
    PresetName = as_typed;
    Preset = static_cast<int>(Presets.size());
}

void Enhancement::Ask_For_Input() {
    const std::string path =
        Outside.Ask.Open_File({"SU file to enhance", "Seismic Unix (SU)|*.su|Projects|*.tv5|All files|*.*|",
                               "*.su", Folder_Of(Taken)});
    if (!path.empty()) Take_Up(path);
}

void Enhancement::Ask_For_Output() {
    std::string path = Outside.Ask.Save_File(
        {"Filtered SU file", "Seismic Unix (SU)|*.su|All files|*.*|", Name_Of(Output), Folder_Of(Output)});
    if (path.empty()) return;
    // The dialog has asked for the name as it was typed.
    Agreed = Ends_In(path, ".su") ? path : std::string();
    Output = Ends_In(path, ".su") ? path : path + ".su";
}

void Enhancement::Input_Typed() {
    if (Input != Taken) Take_Up(Input);
}

void Enhancement::Take_Up(const std::string& path) {
    std::string reason;
    std::string records = Su_File_Of(path, reason);
    if (Ends_In(records, filtered_ending)) {
        const std::string original = Derived_File(records, filtered_ending, ".su");
        if (File_Exists(original) &&
            Outside.Ask.Ask_Yes(Name_Of(records) + " is a filtered file. Filter its original " +
                                    Name_Of(original) + " again, in its place ?",
                                Title))
            records = original;
    }
    const TraceResult looked = With_Failure_As_Text([&](TraceResult&) {
        if (!reason.empty()) return;
        FileSource source(records);
        const TraceReader reader(source);
        Samples = reader.Samples();
        Interval = Interval_Us(reader.First_Header());
        NbTraces = source.Length().value_or(0) / static_cast<std::int64_t>(reader.Trace_Bytes());
    });
    if (reason.empty() && !looked.Went_Well()) reason = records + ": " + looked.Failure;
    if (!reason.empty()) {
        Outside.Ask.Say(reason, Title, Icon::Critical);
        Input = Taken;
        return;
    }
    Input = Taken = records;
    Output = Output_For(records);
    Agreed.clear();
    TracesPerRecord = 0;
    if (Samples <= longest_drawn) {
        SuTraces file(records);
        TracesPerRecord = Channels_Per_Record(file, static_cast<std::int32_t>(NbTraces));
    }
    if (TracesPerRecord < 1) TracesPerRecord = std::min(NbTraces, traces_without_records);
    Record = 1;
    RecordRead = 0;
    FirstTrace = LastTrace = FirstReversed = LastReversed = {};
    Offer_Presets();
    Update();
}

int Enhancement::Nb_Records() const {
    return TracesPerRecord > 0 ? static_cast<int>((NbTraces + TracesPerRecord - 1) / TracesPerRecord) : 0;
}

std::int64_t Enhancement::First_Of_Record() const {
    return (std::int64_t{Record} - 1) * TracesPerRecord + 1;
}

FilterRequest Enhancement::Typed_Request() const {
    FilterRequest request;
    FilterChoice& choice = request.Choice;
    choice.RemoveMean = RemoveMean;
    choice.RemoveDrift = RemoveDrift;
    choice.Balance = Balance;
    choice.Reverse = Reverse;
    if (NotchOn)
        choice.Hum =
            HumChoice{Number_Of(HumHertz, "Notch"), static_cast<int>(Count_Of(Harmonics, "Harmonics"))};
    if (BandOn)
        choice.Band = BandPass{Number_Of(F1, "Band pass, F1"), Number_Of(F2, "Band pass, F2"),
                               Number_Of(F3, "Band pass, F3"), Number_Of(F4, "Band pass, F4")};
    if (MuteOn) choice.Mute = Number_Of(MuteMs, "Mute");
    if (AgcOn) choice.Agc = Number_Of(AgcMs, "AGC");
    const std::string refusal = Refusal(choice, Samples, Interval);
    if (!refusal.empty()) throw Fault(refusal);
    request.Traces = Stretch_Of(FirstTrace, LastTrace, NbTraces, "Traces");
    if (Reverse && !(Trim(FirstReversed).empty() && Trim(LastReversed).empty()))
        request.Reversed = Stretch_Of(FirstReversed, LastReversed, NbTraces, "Polarity");
    return request;
}

std::optional<FilterRequest> Enhancement::Request() {
    try {
        return Typed_Request();
    } catch (const Fault& fault) {
        Hint = fault.what();
        return std::nullopt;
    }
}

void Enhancement::Read_Record() {
    Record = std::clamp(Record, 1, std::max(Nb_Records(), 1));
    if (RecordRead == Record) return;
    RecordRead = Record;
    const std::int64_t count = std::min(TracesPerRecord, NbTraces - First_Of_Record() + 1);
    RecordBytes.assign(static_cast<std::size_t>(count * Trace_Length(Samples)), '\0');
    FileSource(Taken).Read_At(Trace_Position(First_Of_Record(), Samples), RecordBytes.data(),
                              RecordBytes.size());
    OriginalSpectrum = Mean_Spectrum(RecordBytes);
    Original->Fill(RecordBytes);
}

void Enhancement::Filter_Record() {
    const auto request = Request();
    Usable = request.has_value();
    if (!request) {
        Result->Fill(RecordBytes);
        ResultSpectrum = OriginalSpectrum;
        return;
    }
    FilterRequest here = *request;
    const std::int64_t count = std::ssize(RecordBytes) / Trace_Length(Samples);
    here.Traces = Within(request->Traces, First_Of_Record(), count);
    if (request->Reversed) {
        here.Reversed = Within(*request->Reversed, First_Of_Record(), count);
        if (here.Reversed->First > here.Reversed->Last) {
            here.Choice.Reverse = false;
            here.Reversed.reset();
        }
    }
    const bool touched = here.Traces.First <= here.Traces.Last && !here.Choice.Does_Nothing();
    MemorySource source(RecordBytes);
    MemorySink sink;
    sink.Bytes.reserve(RecordBytes.size());
    const TraceResult result = touched ? Filter_Traces(here, source, sink) : TraceResult();
    if (!touched) sink.Bytes = RecordBytes;
    if (!result.Went_Well()) {
        Usable = false;
        Hint = result.Failure;
        sink.Bytes = RecordBytes;
    }
    Result->Fill(sink.Bytes);
    ResultSpectrum = Mean_Spectrum(sink.Bytes);
}

void Enhancement::Update() {
    Hint.clear();
    Usable = false;
    if (!Has_Input()) return;
    const TraceResult result = With_Failure_As_Text([this](TraceResult&) {
        Read_Record();
        Filter_Record();
    });
    if (!result.Went_Well()) {
        RecordRead = 0;
        RecordBytes.clear();
        Usable = false;
        Hint = result.Failure;
    }
    if (!Hint.empty()) return;
    const std::int64_t last = std::min(First_Of_Record() + TracesPerRecord - 1, NbTraces);
    Hint = "Record " + std::to_string(Record) + " of " + std::to_string(Nb_Records()) + ", traces " +
           std::to_string(First_Of_Record()) + " to " + std::to_string(last) + " of " +
           std::to_string(NbTraces);
    if (Samples > longest_drawn) Hint += "; its traces are too long to be drawn";
}

/// Of traces that lie evenly among those of the record; dead ones tell nothing.
Spectrum Enhancement::Mean_Spectrum(const std::string& bytes) const {
    const std::int64_t length = Trace_Length(Samples);
    const std::int64_t count = std::ssize(bytes) / length;
    if (count < 1 || Interval <= 0) return {};
    SpectrumMaker maker(static_cast<std::size_t>(Samples), Interval, Taper::Ends, 2);
    std::vector<float> trace(static_cast<std::size_t>(Samples));
    const std::int64_t step = std::max<std::int64_t>(1, (count + spectrum_traces - 1) / spectrum_traces);
    for (std::int64_t i = step / 2; i < count; i += step) {
        const char* record = bytes.data() + i * length;
        if (TraceWord(words::trid).Value(record) == dead_trace) continue;
        std::copy_n(record + header_length, trace.size() * sizeof(float),
                    reinterpret_cast<char*>(trace.data()));
        maker.Of(trace);
    }
    return maker.Mean_Of_All();
}

/// The view of a copy, for a picture of this size. False where there is nothing to draw.
bool Enhancement::Set_Picture(const Picture& picture, const RecordCopy& copy) {
    if (RecordBytes.empty() || Samples > longest_drawn) return false;
    RecordView& view = View.Record;
    const auto count = static_cast<std::int32_t>(std::ssize(RecordBytes) / Trace_Length(Samples));
    view.SamplesWord = static_cast<std::int16_t>(Samples);
    view.ChannelsPerRecord = static_cast<std::int16_t>(std::min(count, 32767));
    view.FirstTrace = 1;
    view.LastTrace = count;
    view.FirstSample = 1;
    view.LastSample = static_cast<std::int16_t>(Samples);
    view.Style = Style;
    view.EqualiseTraces = view.EqualiseInSight = EqualiseTraces;
    View.Project.SuFile = copy.Path();
    if (!Open_Record(View, copy.Path())) return false;
    Measure_Record(View, picture.Current_Frame(), copy.Path());
    return true;
}

void Enhancement::Draw(Picture& picture, const RecordCopy& copy) {
    picture.Clear();
    if (Set_Picture(picture, copy)) Draw_Traces(View, picture, copy.Path());
}

void Enhancement::Draw_Scale(Picture& picture) {
    picture.Clear();
    if (Set_Picture(picture, *Original)) Draw_Time_Scale(View.Record, picture);
}

void Enhancement::Larger() {
    View.Record.AmplitudeGain *= gain_step;
}

void Enhancement::Smaller() {
    View.Record.AmplitudeGain /= gain_step;
}

/// True when the output may be written, asked where something stands there.
bool Enhancement::May_Write_Output() {
    if (Trim(Output).empty()) {
        Outside.Ask.Say("The filtered file needs a name", Title, Icon::Warning);
        return false;
    }
    if (!Ends_In(Output, ".su")) Output += ".su";
    std::error_code failed;
    if (std::filesystem::equivalent(Taken, Output, failed)) {
        Outside.Ask.Say(Output + " is the file that is filtered; the result needs a name of its own", Title,
                        Icon::Critical);
        return false;
    }
    if (!File_Exists(Output) || Output == Agreed) return true;
    return Outside.Ask.Ask_Yes(Output + " is there already. Replace it ?", Title, Icon::Warning);
}

bool Enhancement::Write(const TraceProgress& progress) {
    if (!Has_Input()) return false;
    const auto request = Request();
    if (!request) {
        Outside.Ask.Say(Hint, Title, Icon::Critical);
        return false;
    }
    if (!May_Write_Output()) return false;
    Remember();
    const TraceResult result = Filter_File(*request, Taken, Output, progress);
    Agreed.clear();
    if (!result.Went_Well()) {
        const bool stopped = result.Failure == "stopped";
        Outside.Ask.Say(stopped ? "Stopped: " + Output + " was not written" : Output + ": " + result.Failure,
                        Title, stopped ? Icon::Information : Icon::Critical);
        return false;
    }
    std::string text = std::to_string(result.Written) + " traces written to " + Output + ".";
    for (const std::string& note : result.Notes)
        text += "\r\n" + note + ".";
    text += "\r\n\"Load a new SU file\" in the main program shows it";
    if (Output == Output_For(Taken)) text += " with its twin " + Name_Of(Taken) + ": picks then go to both";
    Outside.Ask.Say(text + ".", Title, Icon::Information);
    return true;
}

void Enhancement::Close() {
    Remember();
}

}  // namespace tarnvik
