#include "processing/spectrum_of_traces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>

#include "core/files.h"
#include "core/settings_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_result.h"
#include "processing/traces/trace_times.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

constexpr const char* section = "SUSPECTRE";
constexpr int closeness = 4;  ///< values for each that the length of the stretch resolves
constexpr std::int64_t record_without_channels = 24;

/// A whole number from 1 to `most`; a Fault that names the field otherwise.
std::int64_t Number_Up_To(const std::string& text, std::int64_t most, const std::string& what) {
    const auto value = Number_In(Trim(text));
    if (!value || *value != Int(*value) || *value < 1 || *value > static_cast<double>(most))
        throw Fault(what + ": \"" + text + "\" is no number from 1 to " + std::to_string(most));
    return static_cast<std::int64_t>(*value);
}

std::string Figures(double value, const char* form = "%.6g") {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), form, value);
    return text.data();
}

}  // namespace

SpectrumOfTraces::SpectrumOfTraces(Ports& ports, std::string title, std::string settings_file)
    : Outside(ports), Title(std::move(title)), SettingsFile(std::move(settings_file)) {
    const auto choice = [this](const char* key, int& field, int most) {
        const std::string value = SettingsFile.empty() ? "" : Read_Setting(SettingsFile, section, key);
        if (!value.empty()) field = std::clamp(CLng(Val(value)).value_or(0), 0, most);
    };
    int log = LogFrequency ? 1 : 0;
    int each = EachTrace ? 1 : 0;
    choice("Shown", Shown, Phase);
    choice("Taper", Window, static_cast<int>(Taper::Hann));
    choice("LogFrequency", log, 1);
    choice("EachTrace", each, 1);
    LogFrequency = log == 1;
    EachTrace = each == 1;
}

void SpectrumOfTraces::Close() {
    if (SettingsFile.empty()) return;
    for (const auto& [key, value] : {std::pair("Shown", Shown),
                                     {"Taper", Window},
                                     {"LogFrequency", LogFrequency ? 1 : 0},
                                     {"EachTrace", EachTrace ? 1 : 0}})
        Write_Setting(SettingsFile, section, key, CStr(value));
}

void SpectrumOfTraces::Take_Arguments(const std::string& line) {
    // The last one of each counts: the file's name, which stands first, may hold anything.
    std::string rest = line;
    const auto take = [&rest](std::string_view key, std::string& field) {
        const auto at = LCase(rest).rfind(" " + std::string(key) + "=");
        if (at == std::string::npos) return;
        const auto value = at + key.size() + 2;
        const auto end = std::min(rest.find(' ', value), rest.size());
        field = rest.substr(value, end - value);
        rest.erase(at, end - at);
    };
    std::string last_sample;
    std::string first_sample;
    std::string last_trace;
    std::string first_trace;
    take("lpt", last_sample);
    take("fpt", first_sample);
    take("ltr", last_trace);
    take("ftr", first_trace);
    rest = Trim(rest);
    if (LCase(rest).starts_with("f=")) rest = Trim(rest.substr(2));
    if (rest.size() > 1 && rest.front() == '"' && rest.back() == '"') rest = rest.substr(1, rest.size() - 2);
    if (rest.empty()) return;
    Take_Up(rest);
    for (const auto& [given, field] : {std::pair(&first_trace, &FirstTrace),
                                       {&last_trace, &LastTrace},
                                       {&first_sample, &FirstSample},
                                       {&last_sample, &LastSample}}) {
        if (!given->empty()) *field = *given;
    }
    Compute();
}

void SpectrumOfTraces::Take_Up(const std::string& path) {
    File = path;
    FirstTrace = FirstSample = "1";
    SuTraces file(path);
    const auto traces = file.Nb_Traces().value_or(0);
    const std::int64_t channels = file.Nb_Samples() > 0 ? Channels_Per_Record(file, traces) : 0;
    LastTrace = std::to_string(
        std::min<std::int64_t>({channels > 0 ? channels : record_without_channels, traces, most_traces}));
    LastSample = CStr(file.Nb_Samples());
    Compute();
}

void SpectrumOfTraces::Ask_For_File() {
    const std::string path =
        Outside.Ask.Open_File({"SU file", "Seismic Unix (SU)|*.su|All files|*.*|", "*.su", Folder_Of(File)});
    if (!path.empty()) Take_Up(path);
}

void SpectrumOfTraces::Compute() {
    Each.clear();
    Mean = {};
    Hint.clear();
    Result.clear();
    if (File.empty()) return;
    const TraceResult result = With_Failure_As_Text([this](TraceResult&) { Read(); });
    if (!result.Went_Well()) {
        Each.clear();
        Hint = result.Failure;
    }
}

void SpectrumOfTraces::Read() {
    FileSource source(File);
    const TraceReader reader(source);
    const int interval = Interval_Us(reader.First_Header());
    if (interval == 0) throw Fault(File + ": dt, the sample interval, is 0");
    const auto length = static_cast<std::int64_t>(reader.Trace_Bytes());
    const std::int64_t traces = source.Length().value_or(0) / length;
    const std::int64_t first = Number_Up_To(FirstTrace, traces, "First trace");
    const std::int64_t last = Number_Up_To(LastTrace, traces, "Last trace");
    const std::int64_t from = Number_Up_To(FirstSample, reader.Samples(), "First sample");
    const std::int64_t to = Number_Up_To(LastSample, reader.Samples(), "Last sample");
    if (last < first) throw Fault("The last trace comes before the first");
    if (last - first >= most_traces) throw Fault("Maximum " + std::to_string(most_traces) + " traces");
    if (to <= from) throw Fault("The last sample must come behind the first");
    FirstRead = first;
    SpectrumMaker maker(static_cast<std::size_t>(to - from + 1), interval, static_cast<Taper>(Window),
                        closeness);
    std::vector<float> row(static_cast<std::size_t>(to - from + 1));
    for (std::int64_t trace = first; trace <= last; ++trace) {
        source.Read_At((trace - 1) * length + header_length + (from - 1) * 4,
                       reinterpret_cast<char*>(row.data()), row.size() * sizeof(float));
        Each.push_back(maker.Of(row));
    }
    Mean = maker.Mean_Of_All();
    const double ms = interval / 1000.0;
    const double seconds = static_cast<double>(row.size()) * ms / 1000;
    Hint = Name_Of(File) + ": traces " + std::to_string(first) + " to " + std::to_string(last) + ", " +
           Figures(static_cast<double>(from) * ms) + " to " + Figures(static_cast<double>(to) * ms) +
           " ms; resolves " + Figures(1 / seconds, "%.3g") + " Hz";
    const StrongBand band = Band();
    Result = band.PeakAmplitude > 0
                 ? "Peak " + Figures(band.Peak, "%.1f") + " Hz, amplitude " +
                       Figures(band.PeakAmplitude, "%.4g") + "; -6 dB from " + Figures(band.Low, "%.1f") +
                       " to " + Figures(band.High, "%.1f") + " Hz"
                 : "All samples are the same";
}

std::vector<double> SpectrumOfTraces::Values(const Spectrum& spectrum) const {
    if (Shown == Phase) return spectrum.Phase;
    if (Shown == Linear) return spectrum.Amplitude;
    const double reference = Band().PeakAmplitude;
    std::vector<double> values;
    for (const double amplitude : spectrum.Amplitude)
        values.push_back(Decibels(amplitude, reference, lowest_decibel));
    return values;
}

std::string SpectrumOfTraces::Numbers() const {
    std::string text = "Frequency_Hz;Mean_amplitude;Mean_dB;Phase_of_sum_deg";
    for (std::size_t i = 0; i < Each.size(); ++i)
        text += ";Trace_" + std::to_string(FirstRead + static_cast<std::int64_t>(i));
    text += "\r\n";
    const double reference = Band().PeakAmplitude;
    for (std::size_t i = 0; i < Mean.Amplitude.size(); ++i) {
        text += Figures(static_cast<double>(i) * Mean.Step, "%.9g") + ";" + Figures(Mean.Amplitude[i]) + ";" +
                Figures(Decibels(Mean.Amplitude[i], reference, -200)) + ";" + Figures(Mean.Phase[i]);
        for (const Spectrum& one : Each)
            text += ";" + Figures(one.Amplitude[i]);
        text += "\r\n";
    }
    return text;
}

void SpectrumOfTraces::Save_Numbers() {
    if (!Has_Result()) return;
    std::string path =
        Outside.Ask.Save_File({"Numbers of the spectrum", "CSV|*.csv|All files|*.*|",
                               Derived_File(Name_Of(File), ".su", "_spectrum.csv"), Folder_Of(File)});
    if (path.empty()) return;
    if (LCase(Right(path, 4)) != ".csv") {
        path += ".csv";
        // The dialog has asked for the name without the ending.
        if (File_Exists(path) && !Outside.Ask.Ask_Yes(path + " is there already. Replace it ?", Title))
            return;
    }
    const std::string reason = Replace_File(path, Numbers());
    Outside.Ask.Say(reason.empty() ? path + " has been written" : path + " cannot be written: " + reason,
                    Title, reason.empty() ? Icon::Information : Icon::Critical);
}

}  // namespace tarnvik
