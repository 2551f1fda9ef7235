#include "processing/header_editor.h"

#include <algorithm>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/su_names.h"
#include "records/su_check.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr Colour grey = 0xC0C0C0;

std::int64_t Trace_Typed(const std::string& text) {
    return CLng(Val(text)).value_or(0);
}

}  // namespace

void Header::Say(const std::string& text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
}

void Header::Load() {
    Hint.clear();
    Status.clear();
    FlexArray.Resize(1, header_words + 1);
    FlexArray.Set_Text(0, 0, "Trace Nb");
    for (int word = 1; word <= header_words; ++word)
        FlexArray.Set_Text(0, word, Header_Word(word).Name);
    Texth2 = "1";
    Texth3 = CStr(most_traces);
    Textc1 = Textc2 = Text5 = "";
    Combo1 = Comboc1 = -1;
    Texth1 = Shown = Su_Path(Work.Project);
    Show_File();
}

/// Why a file cannot be worked on, since its bytes are no SU traces; empty when they are.
std::string Header::Foreign(const std::string& path) {
    if (!File_Exists(path)) return {};
    const SuCheck check = Check_Su_File(path);
    return check.Refused() && check.Is != SuCheck::Kind::Unusable ? check.Message(path) : std::string();
}

std::string Header::Chosen(const std::string& now) {
    const std::string folder = now.empty() ? Work.Project.ProjectDir : Folder_Of(now);
    return Outside.Ask.Open_File(
        {"SU File selection", "SU File |*.SU|All files|*.*|", now.empty() ? "*.SU" : Name_Of(now), folder});
}

void Header::Choose_File() {
    const std::string path = Chosen(Texth1);
    if (path.empty()) return;
    Texth1 = path;
    File_Typed();
}

void Header::File_Typed() {
    Texth1 = Known_Path(Work, Trim(Texth1));
    if (Texth1 == Shown) return;
    if (const std::string refusal = Foreign(Texth1); !refusal.empty()) {
        Texth1 = Shown;
        Outside.Show.Show_Fields();
        Say(refusal, Icon::Critical);
        return;
    }
    Shown = Texth1;
    Texth2 = "1";
    Texth3 = CStr(most_traces);
    Show_File();
    Outside.Show.Show_Fields();
}

void Header::Show_File() {
    ChannelsPerRecord = 0;
    Hint.clear();
    const SuTraces file(Texth1);
    NbTraces = std::max(file.Nb_Traces().value_or(0), 0);
    Text2 = "1";
    Text3 = CStr(static_cast<double>(NbTraces));
    xText2 = Text2;
    xText3 = Text3;
    CheckText.clear();
    LastSpreadsheet.clear();
    if (Textc1.empty()) Textc1 = Texth1;
    if (!file.Is_Open() && !Texth1.empty()) Hint = Texth1 + " does not exist !";
    if (Texth1.empty()) Hint = "Choose an SU file";
    if (file.Is_Open()) {
        const SuCheck check = Check_Su_File(Texth1);
        if (!check.Wrong.empty()) Hint = check.Wrong.front();
    }
    Commandh1();
}

void Header::Commandh1() {
    const SuTraces file(Texth1);
    NbTraces = std::max(file.Nb_Traces().value_or(0), 0);
    Show_Range(Trace_Typed(Texth2), Trace_Typed(Texth3));
}

void Header::Show_From(int trace) {
    Texth2 = CStr(trace);
    Texth3.clear();
    Commandh1();
}

void Header::Command16() {
    Show_Range(FirstTrace - most_traces, 0);
}

void Header::Command17() {
    if (Has_Next()) Show_Range(FirstTrace + most_traces, 0);
}

/// A last trace before the first one means as many as the grid shows.
void Header::Show_Range(std::int64_t first, std::int64_t last) {
    first = std::clamp<std::int64_t>(first, 1, std::max<std::int64_t>(NbTraces, 1));
    if (last < first) last = first + most_traces - 1;
    last = std::min({last, NbTraces, first + most_traces - 1});
    Texth2 = CStr(static_cast<double>(first));
    Texth3 = CStr(static_cast<double>(last));
    lecture_data(first, last);
    AsDisplayed = HeaderGrid;
    Affiche_grille();
    Outside.Show.Show_Fields();
}

/// Headers of traces `first` to `last`, as far as they stand in the file.
void Header::lecture_data(std::int64_t first, std::int64_t last) {
    ++Changes;
    SuTraces file(Texth1);
    SamplesShown = file.Nb_Samples();
    HeaderGrid.clear();
    FirstTrace = first;
    TraceHeader header;
    for (std::int64_t trace = first; trace <= last && file.Read_Header(trace, header); ++trace)
        HeaderGrid.push_back(header);
    LastTrace = first + std::ssize(HeaderGrid) - 1;
}

void Header::Affiche_grille() {
    const int rows = static_cast<int>(HeaderGrid.size());
    FlexArray.Resize(rows + 1, header_words + 1);
    FlexArray.CurrentRow = std::clamp(FlexArray.CurrentRow, std::min(rows, 1), rows);
    FlexArray.CurrentColumn = std::max(FlexArray.CurrentColumn, 1);
    for (int row = 1; row <= rows; ++row)
        Fill_Row(row);
}

void Header::Fill_Row(int row) {
    const auto place = static_cast<std::size_t>(row - 1);
    FlexArray.Set_Text(row, 0, CStr(static_cast<double>(FirstTrace + row - 1)));
    for (int word = 1; word <= header_words; ++word) {
        TextGrid::Cell& cell = FlexArray.At(row, word);
        cell.Text = HeaderGrid[place].Text(word);
        cell.Align = TextGrid::Alignment::Right;
        const bool changed = cell.Text != AsDisplayed[place].Text(word);
        cell.BackColour = changed ? std::optional(grey) : std::nullopt;
    }
}

bool Header::Changed(int row, int column) const {
    return FlexArray.At(row, column).BackColour.has_value();
}

/// The file has changed under the grid.
void Header::Read_Again() {
    if (LastTrace < FirstTrace) {
        Commandh1();
        return;
    }
    const std::size_t rows = HeaderGrid.size();
    const std::int32_t samples = SamplesShown;
    NbTraces = std::max(SuTraces(Texth1).Nb_Traces().value_or(0), 0);
    lecture_data(FirstTrace, std::min(LastTrace, NbTraces));
    // Traces that begin at other places are other ones: nothing of them is known to be changed.
    if (HeaderGrid.size() != rows || SamplesShown != samples) AsDisplayed = HeaderGrid;
    Affiche_grille();
}

void Header::Follow(const ChangeNotice& notice) {
    const bool touched = std::any_of(notice.Files.begin(), notice.Files.end(),
                                     [this](const FileChange* file) { return file->Path == Texth1; });
    if (!touched) return;
    // How many channels a record has is asked of the file again.
    if (notice.Happened != ChangeNotice::Kind::Made) ChannelsPerRecord = 0;
    Read_Again();
}

}  // namespace tarnvik
