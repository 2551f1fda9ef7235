#include "records/su_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "core/files.h"
#include "core/text/number.h"

namespace tarnvik {

static_assert(std::endian::native == std::endian::little,
              "SU files are read as they are; a big-endian machine needs a swap here");

namespace {

template <class T>
T Value_At(const char* bytes) {
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

}  // namespace

SuTraces::SuTraces(const std::string& path, Access access) : File(path, access) {
    File.Read(Header_Word(words::ns).Offset, &Word_Of_Samples, 2);
    File.Read(Header_Word(words::dt).Offset, &Interval, 2);
}

std::optional<std::int32_t> SuTraces::Nb_Traces() const {
    const std::int64_t length = Trace_Length(Nb_Samples());
    if (length == 0) return std::nullopt;
    return CLng(static_cast<double>(File.Length()) / static_cast<double>(length));
}

std::optional<double> SuTraces::Word(std::int64_t trace, int word) {
    const HeaderWord& entry = Header_Word(word);
    std::array<char, 4> bytes{};
    const std::int64_t position = Trace_Position(trace, Nb_Samples()) + entry.Offset;
    if (!File.Read(position, bytes.data(), Size_Of_Word(entry.Type))) return std::nullopt;
    return Word_From_Bytes(bytes.data(), entry.Type);
}

bool SuTraces::Read_Header(std::int64_t trace, TraceHeader& header) {
    return File.Read(Trace_Position(trace, Nb_Samples()), header.Bytes.data(), header_length);
}

std::optional<std::int16_t> SuTraces::Channel(std::int64_t trace) {
    std::int16_t channel = 0;
    const std::int64_t position = Trace_Position(trace, Nb_Samples()) + Header_Word(words::tracf).Offset;
    if (!File.Read(position, &channel, sizeof channel)) return std::nullopt;
    return channel;
}

Stored SuWriter::Put(std::int64_t position, const void* source, std::int64_t count) {
    const std::string_view fresh(static_cast<const char*>(source),
                                 static_cast<std::size_t>(std::max(count, std::int64_t{0})));
    Former.assign(fresh.size(), '\0');
    const bool known = File.Read(position, Former.data(), count);
    if (!File.Write(position, source, count)) return Stored::No;
    if (known && Recorder != nullptr) Recorder->Note_File_Change(Path, position, Former, fresh);
    return Stored::Yes;
}

Stored SuWriter::Set_Word(std::int64_t trace, int word, double value) {
    const auto bytes = Bytes_Of_Word(word, value);
    if (!bytes) return Stored::DoesNotFit;
    const std::int64_t position = Trace_Position(trace, Nb_Samples()) + Header_Word(word).Offset;
    return Put(position, bytes->data(), std::ssize(*bytes));
}

Stored SuWriter::Set_Header(std::int64_t trace, const TraceHeader& before, const TraceHeader& after) {
    const std::int64_t start = Trace_Position(trace, Nb_Samples());
    const auto bytes_of = [](const TraceHeader& header) {
        return std::string_view(header.Bytes.data(), header.Bytes.size());
    };
    const ByteChanges changes = ByteChanges::Between(bytes_of(before), bytes_of(after));
    for (const ByteChanges::Run& run : changes.All()) {
        const std::int64_t position = start + run.Position;
        if (!File.Write(position, run.After.data(), std::ssize(run.After))) return Stored::No;
        if (Recorder != nullptr) Recorder->Note_File_Change(Path, position, run.Before, run.After);
    }
    return Stored::Yes;
}

Stored SuWriter::Set_Record_And_Channel(std::int64_t trace, std::int32_t record, std::int32_t channel) {
    const std::array<std::int32_t, 2> both = {record, channel};
    const std::int64_t position = Trace_Position(trace, Nb_Samples()) + Header_Word(words::fldr).Offset;
    return Put(position, both.data(), sizeof both);
}

std::int32_t SuTraces::Samples(std::int64_t trace, std::span<float> target) {
    const auto wanted = std::min<std::int64_t>(std::ssize(target), Nb_Samples());
    if (wanted <= 0) return 0;
    const std::int64_t position = Trace_Position(trace, Nb_Samples()) + header_length;
    return static_cast<std::int32_t>(File.Read_Some(position, target.data(), wanted * 4) / 4);
}

std::optional<float> SuTraces::Sample(std::int64_t trace, std::int32_t sample) {
    float value = 0;
    if (sample < 1 || sample > Nb_Samples()) return std::nullopt;
    const std::int64_t position = Trace_Position(trace, Nb_Samples()) + header_length + (sample - 1) * 4;
    if (File.Read_Some(position, &value, 4) != 4) return std::nullopt;
    return value;
}

Stored SuWriter::Set_Samples(std::int64_t trace, std::span<const float> source) {
    const auto count = std::clamp<std::int64_t>(Nb_Samples(), 0, std::ssize(source));
    const std::int64_t position = Trace_Position(trace, Nb_Samples()) + header_length;
    return Put(position, source.data(), count * 4);
}

SuTraces::Trace SuTraces::Read_Trace(std::int64_t trace, std::span<float> samples) {
    Trace result;
    std::array<char, header_length> header{};
    const std::int64_t position = Trace_Position(trace, Nb_Samples());
    File.Read_Some(position, header.data(), header_length);
    result.Identification = Value_At<std::int16_t>(header.data() + Header_Word(words::trid).Offset);
    result.PickMs = Value_At<std::int16_t>(header.data() + Header_Word(words::First_Breaks).Offset) / 10.0;
    result.SamplesRead = Samples(trace, samples);
    return result;
}

namespace {

/// Full in the way of this machine or of the ones that users' projects come from ("C:\\DATA\\line.su").
bool Is_Full_Path(const std::string& path) {
    const auto separates = [](char letter) { return letter == '/' || letter == '\\'; };
    return !path.empty() &&
           (separates(path.front()) || (path.size() > 2 && path[1] == ':' && separates(path[2])));
}

std::string In_Project_Folder(const Project& project, const std::string& name) {
    std::string folder = project.ProjectDir.empty() ? Folder_Of(project.CurrentFile) : project.ProjectDir;
    if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') folder += '/';
    return folder + name;
}

}  // namespace

std::string Su_Path(const Project& project) {
    const std::string& name = project.SuFile;
    return name.empty() || Is_Full_Path(name) ? name : In_Project_Folder(project, name);
}

std::string Su_File_Beside(const Project& project) {
    const std::string& name = project.SuFile;
    if (name.empty() || !Is_Full_Path(name)) return {};
    std::string beside = In_Project_Folder(project, Name_Of(name));
    std::error_code failed;
    if (!File_Exists(beside) || std::filesystem::equivalent(beside, name, failed)) return {};
    return beside;
}

bool Recherche_Nb_Trace(RecordView& view, const std::string& path) {
    const SuTraces file(path);
    if (!file.Is_Open()) return false;
    if (file.Length() >= Header_Word(words::ns).Offset + 2) {
        view.SamplesWord = file.Samples_Word();
        view.NbSamples = file.Nb_Samples();
    }
    if (file.Length() >= Header_Word(words::dt).Offset + 2) view.SampleInterval = file.Sample_Interval();
    if (const auto count = file.Nb_Traces()) view.NbTraces = *count;
    return true;
}

}  // namespace tarnvik
