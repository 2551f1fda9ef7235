#include "processing/merge_file.h"

#include <algorithm>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/natural_order.h"
#include "core/text/number.h"
#include "processing/su_names.h"
#include "processing/typed_number.h"

namespace tarnvik {

namespace {

constexpr const char* headings[] = {
    "",        "File",          "Traces",     "Records",     "Channels",
    "Samples", "Interval (ms)", "Delay (ms)", "Numbers now", "Numbers in the new file"};

std::string Range(std::int32_t first, std::int32_t last) {
    return first == last ? CStr(first) : CStr(first) + " - " + CStr(last);
}

std::string Count(std::int64_t number) {
    return CStr(static_cast<double>(number));
}

}  // namespace

MergeFile::MergeFile(Ports& ports, std::string title)
    : FirstRecord("1"), Outside(ports), Title(std::move(title)) {
    Look();
}

void MergeFile::Ask_For_Files() {
    const std::string folder = Paths.empty() ? std::string() : Folder_Of(Paths.back());
    Add(Outside.Ask.Open_Files({"SU files to merge", "SU File |*.SU|All files|*.*|", "*.SU", folder}));
}

void MergeFile::Add(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        const bool there = std::any_of(Paths.begin(), Paths.end(),
                                       [&path](const std::string& one) { return Same_File(one, path); });
        if (!there) Paths.push_back(path);
    }
    if (!Paths.empty() && Row == 0) Row = 1;
    if (!Paths.empty() && (Out.empty() || Out == Proposed))
        Out = Proposed = Folder_Of(Paths.front()) + "merged.su";
    Look();
}

void MergeFile::Remove() {
    if (Row < 1 || Row > static_cast<int>(Paths.size())) return;
    Paths.erase(Paths.begin() + (Row - 1));
    Row = std::min(Row, static_cast<int>(Paths.size()));
    Look();
}

void MergeFile::Move(int by) {
    const int to = Row + by;
    if (Row < 1 || to < 1 || to > static_cast<int>(Paths.size())) return;
    std::swap(Paths[static_cast<std::size_t>(Row) - 1], Paths[static_cast<std::size_t>(to) - 1]);
    Row = to;
    Look();
}

void MergeFile::Move_Up() {
    Move(-1);
}

void MergeFile::Move_Down() {
    Move(1);
}

void MergeFile::Sort_By_Name() {
    std::stable_sort(Paths.begin(), Paths.end(), [](const std::string& one, const std::string& other) {
        return Comes_Before(Name_Of(one), Name_Of(other));
    });
    Look();
}

void MergeFile::Sort_By_Record() {
    std::vector<std::pair<std::int32_t, std::string>> numbered;
    for (const MergePart& part : Plan.Parts)
        numbered.emplace_back(part.FirstRecord, part.Path);
    std::stable_sort(numbered.begin(), numbered.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    std::transform(numbered.begin(), numbered.end(), Paths.begin(),
                   [](const auto& entry) { return entry.second; });
    Look();
}

void MergeFile::Ask_For_Out() {
    const std::string path = Outside.Ask.Save_File({"SU File selection", "SU File |*.SU|All files|*.*|",
                                                    Out.empty() ? "merged.su" : Out, Folder_Of(Out)});
    if (path.empty()) return;
    Out = Agreed = path;  // the file dialog has asked whether a file of that name may go
    Look();
}

void MergeFile::Changed() {
    Look();
}

std::optional<std::int32_t> MergeFile::First_Number() const {
    const auto typed = Typed_Number(FirstRecord);
    constexpr double most = 2147483647;
    if (!typed || *typed < 1 || *typed > most || *typed != Int(*typed)) return std::nullopt;
    return static_cast<std::int32_t>(*typed);
}

MergeRequest MergeFile::Request() const {
    MergeRequest request;
    request.Files = Paths;
    request.NumberAnew = NumberAnew;
    request.FirstRecord = First_Number().value_or(1);
    request.Samples = Length == 0 ? MergeRequest::Length::Shortest : MergeRequest::Length::Longest;
    request.Out = Trim(Out);
    return request;
}

void MergeFile::Look() {
    Plan = Plan_Merge(Request());
    if (NumberAnew && Plan.Refusal.empty() && !First_Number())
        Plan.Refusal = "The number of the first record must be a whole number from 1 on";
    Fill_Table();
    if (!Plan.Refusal.empty()) {
        Hint = Paths.empty() ? "Add SU files, or drop them here" : Plan.Refusal;
        return;
    }
    std::int64_t records = 0;
    for (const MergePart& part : Plan.Parts)
        records += part.Records;
    Hint = Count(Plan.Traces) + " traces of " + CStr(Plan.Samples) + " samples in " + Count(records) +
           (records == 1 ? " record" : " records");
    for (const std::string& note : Plan.Notes)
        Hint += "\r\n" + note;
}

void MergeFile::Fill_Table() {
    Files.Resize(static_cast<int>(Plan.Parts.size()) + 1, static_cast<int>(std::size(headings)));
    for (int column = 0; column < Files.Columns(); ++column)
        Files.Set_Text(0, column, headings[column]);
    for (int row = 1; row < Files.Rows(); ++row) {
        const MergePart& part = Plan.Parts[static_cast<std::size_t>(row) - 1];
        Files.Set_Text(row, 0, CStr(row));
        Files.Set_Text(row, 1, Name_Of(part.Path));
        std::vector<std::string> texts(8);
        if (part.Scan.Good()) {
            texts = {Count(part.Scan.Traces),
                     Count(part.Records),
                     part.Scan.Records.empty() ? "" : CStr(part.Scan.Channels()),
                     CStr(part.Scan.Samples),
                     CStr(part.Scan.Interval / 1000.0),
                     CStr(part.Scan.Delay),
                     Range(part.FirstRecord, part.LastRecord),
                     Range(part.NewFirst, part.NewLast)};
        } else {
            texts[0] = "cannot be read";
        }
        for (int column = 2; column < Files.Columns(); ++column) {
            Files.Set_Text(row, column, texts[static_cast<std::size_t>(column) - 2]);
            Files.At(row, column).Align = TextGrid::Alignment::Right;
        }
    }
}

void MergeFile::Merge(const TraceProgress& progress) {
    Look();  // the files may have changed since
    MergeRequest request = Request();
    if (Plan.Refusal.empty() && request.Out.empty()) Plan.Refusal = "The file to write has no name";
    if (!Plan.Refusal.empty()) {
        Outside.Ask.Say(Paths.empty() ? Hint : Plan.Refusal, Title, Icon::Critical);
        return;
    }
    if (Name_Of(request.Out).find('.') == std::string::npos) request.Out += ".su";
    Out = request.Out;
    if (File_Exists(Out) && Out != Agreed &&
        !Outside.Ask.Ask_Yes(Out + " already exists, overwrite ?", Title))
        return;
    const TraceResult result = Merge_SU_Files(request, progress);
    Agreed.clear();
    if (!result.Went_Well()) {
        Outside.Ask.Say(Out + " has not been written: " + result.Failure, Title, Icon::Critical);
        return;
    }
    Outside.Ask.Say(Out + " has been recorded, " + Count(result.Written) + " traces of " +
                        Count(static_cast<std::int64_t>(Paths.size())) + " files",
                    Title, Icon::Information);
}

}  // namespace tarnvik
