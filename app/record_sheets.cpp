#include "app/record_sheets.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <set>

#include "app/line_loading.h"
#include "app/local_time.h"
#include "app/pages.h"
#include "app/record_choices.h"
#include "app/session.h"
#include "core/files.h"
#include "core/settings_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/record_choice.h"
#include "records/record_display.h"
#include "records/record_geometry.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

constexpr const char* section_of_settings = "suprint2";
// Millimetres.
constexpr double margin = 10;
constexpr double head_height = 7;
constexpr double caption_height = 5;
constexpr double gap = 4;
constexpr double least_cell = 30;

constexpr std::pair<const char*, bool RecordSheets::*> switches[] = {
    {"Picks", &RecordSheets::Picks},
    {"TravelTimes", &RecordSheets::TravelTimes},
    {"Header", &RecordSheets::Header},
};

/// One number of a list, from the place on; 0 where none stands there.
int Next_Number(const std::string& text, std::size_t& at) {
    while (at < text.size() && text[at] == ' ')
        ++at;
    int number = 0;
    constexpr int most = 1'000'000;
    while (at < text.size() && text[at] >= '0' && text[at] <= '9') {
        number = std::min(most, number * 10 + (text[at] - '0'));
        ++at;
    }
    while (at < text.size() && text[at] == ' ')
        ++at;
    return number;
}

PageLayout Layout_Of_Cell(bool header) {
    PageLayout layout = Record_Layout();
    if (!header) layout.Header = 0;
    return layout;
}

}  // namespace

bool Read_Record_List(const std::string& text, int count, std::vector<int>& records, std::string& fault) {
    records.clear();
    fault.clear();
    const std::string wanted = Trim(text);
    std::set<int> found;
    if (wanted.empty() || LCase(wanted) == "all") {
        for (int record = 1; record <= count; ++record)
            records.push_back(record);
        return true;
    }
    std::size_t at = 0;
    while (at < wanted.size()) {
        const int first = Next_Number(wanted, at);
        int last = first;
        if (at < wanted.size() && wanted[at] == '-') {
            ++at;
            last = Next_Number(wanted, at);
        }
        const bool separated = at >= wanted.size() || wanted[at] == ',' || wanted[at] == ';';
        if (first < 1 || last < 1 || !separated) {
            fault = "Records are told as all, or as 1-4, 7";
            return false;
        }
        if (std::max(first, last) > count) {
            fault = "The file holds records 1 to " + CStr(count);
            return false;
        }
        for (int record = std::min(first, last); record <= std::max(first, last); ++record)
            found.insert(record);
        ++at;
    }
    records.assign(found.begin(), found.end());
    return true;
}

RecordSheets::RecordSheets(Session& session) : Program(session) {
    // As the line was looked at in the main program.
    if (!session.SettingsFile.empty()) session.Keep_Display_Choices();
    Recall();
}

void RecordSheets::Recall() {
    const std::string& file = Program.SettingsFile;
    if (file.empty()) return;
    for (const auto& [name, field] : switches) {
        const std::string value = Read_Setting(file, section_of_settings, name);
        if (!value.empty()) this->*field = value != "0";
    }
    Paper.Take(Read_Setting(file, section_of_settings, "Paper"));
    Title = Read_Setting(file, section_of_settings, "Title");
    Grid = std::clamp(static_cast<int>(Val(Read_Setting(file, section_of_settings, "Grid"))), 0,
                      static_cast<int>(grids.size()) - 1);
}

void RecordSheets::Remember() const {
    const std::string& file = Program.SettingsFile;
    if (file.empty()) return;
    // Choices that are not remembered spoil nothing; the settings tell their own faults.
    for (const auto& [name, field] : switches)
        Write_Setting(file, section_of_settings, name, this->*field ? "1" : "0");
    Write_Setting(file, section_of_settings, "Paper", Paper.Text());
    Write_Setting(file, section_of_settings, "Title", Title);
    Write_Setting(file, section_of_settings, "Grid", CStr(Grid));
}

void RecordSheets::Open_Line(const std::string& file, const std::string& name) {
    Line.clear();
    SuFile.clear();
    const std::string reason = Load_Line(Program, file, name);
    if (!reason.empty()) {
        Program.Outside.Ask.Say(reason, Program.Work.AppTitle, Icon::Warning);
        Lay_Out();
        return;
    }
    Line = name;
    std::string records = Su_Path(Program.Work.Project);
    // The project may come from another machine: the records beside it are meant.
    if (!File_Exists(records)) {
        const std::string beside = Su_File_Beside(Program.Work.Project);
        if (!beside.empty()) Program.Work.Project.SuFile = records = beside;
    }
    Take_Up(records);
}

void RecordSheets::Open_File(const std::string& path) {
    if (LCase(Right(path, 4)) == ".tv5") {
        Open_Line(path, path);
        return;
    }
    Line.clear();
    Workspace& work = Program.Work;
    work.Project = {};
    work.Project.SuFile = std::filesystem::absolute(path).string();
    Take_Up(work.Project.SuFile);
}

void RecordSheets::Choose_File() {
    const std::string path = Program.Outside.Ask.Open_File(
        {"Records", "Seismic Unix (SU)|*.SU|Tarnvik project|*.TV5|All files|*.*|", "", Folder()});
    if (!path.empty()) Open_File(path);
}

void RecordSheets::Take_Up(const std::string& su_file) {
    Workspace& work = Program.Work;
    SuFile.clear();
    Records = "all";
    FirstSample.clear();
    LastSample.clear();
    const auto refuse = [&](const std::string& text) {
        Program.Outside.Ask.Say(text, work.AppTitle, Icon::Warning);
    };
    work.Record = {};
    if (su_file.empty()) {
        refuse("The project names no field records");
    } else if (!File_Exists(su_file)) {
        refuse(su_file + ": This file does not exist !");
    } else {
        Start_With_SU_File(work, su_file);
        if (Scan_Channels(work, su_file) && work.Record.ChannelsPerRecord > 0 && work.Record.NbRecords > 0) {
            SuFile = su_file;
        } else {
            refuse(su_file + ": no records found in this file");
        }
    }
    if (!SuFile.empty()) {
        Take_Up_Record_Choices(work);
        const RecordView& view = work.Record;
        Style = std::clamp(view.Style, 0, static_cast<int>(TwoColours));
        Gain = CStr(view.AmplitudeGain == 0 ? 1 : view.AmplitudeGain);
        Agc = CStr(view.AgcWindow);
        Clip = view.ClipAmplitude;
        Equalise = view.EqualiseTraces;
        Negative = view.DisplayPolarity == -1;
    }
    Lay_Out();
}

void RecordSheets::Changed() {
    Remember();
    Lay_Out();
}

std::string RecordSheets::Find_Fault() {
    Numbers.clear();
    if (SuFile.empty()) return "No records are open";
    if (std::string fault = Paper.Fault(); !fault.empty()) return fault;
    const RecordView& view = Program.Work.Record;
    std::string fault;
    if (!Read_Record_List(Records, view.NbRecords, Numbers, fault)) return fault;
    if (!(Val(Gain) > 0)) return "The gain must be above 0";
    if (Val(Agc) < 0) return "The window of AGC must not be below 0 ms";
    const double first = FirstSample.empty() ? 1 : Val(FirstSample);
    const double last = LastSample.empty() ? view.NbSamples : Val(LastSample);
    if (first < 1 || last > view.NbSamples || !(first < last))
        return "Samples are 1 to " + CStr(view.NbSamples) + ", the first below the last";
    const Cells& cells = grids[static_cast<std::size_t>(Grid)];
    if ((Paper.Width() - 2 * margin) / cells.Columns < least_cell ||
        (Paper.Height() - 2 * margin - head_height) / cells.Rows < least_cell + caption_height)
        return "The paper is too small for so many records";
    return {};
}

void RecordSheets::Apply_Look() {
    RecordView& view = Program.Work.Record;
    view.Style = Style;
    view.AmplitudeGain = Val(Gain);
    view.AgcWindow = Val(Agc);
    view.ClipAmplitude = Clip;
    view.EqualiseTraces = Equalise;
    view.DisplayPolarity = Negative ? -1 : 1;
    view.ShowTravelTimes = TravelTimes && !Line.empty();
    view.CurveOnRecord = 0;
    view.Overdraw = false;
    view.FirstSample = 1;
    Store_If_It_Fits(view.LastSample, view.NbSamples);
    if (!FirstSample.empty()) Store_If_It_Fits(view.FirstSample, Val(FirstSample));
    if (!LastSample.empty()) Store_If_It_Fits(view.LastSample, Val(LastSample));
}

void RecordSheets::Lay_Out() {
    All.clear();
    Reason = Find_Fault();
    Outcome = Reason;
    if (!Reason.empty()) return;
    const Cells& cells = grids[static_cast<std::size_t>(Grid)];
    const auto each = static_cast<std::size_t>(cells.Columns * cells.Rows);
    const std::size_t pages = (Numbers.size() + each - 1) / each;
    const double across = Paper.Width() - 2 * margin;
    const double down = Paper.Height() - 2 * margin - head_height;
    const double width = (across - gap * (cells.Columns - 1)) / cells.Columns;
    const double height = (down - gap * (cells.Rows - 1)) / cells.Rows;
    const std::string today = Local_Time_Text(std::chrono::system_clock::now(), "%Y-%m-%d");
    std::string head = Title;
    for (const std::string& part : {Line.empty() ? std::string() : Name_Of(Line), Name_Of(SuFile)}) {
        if (!part.empty()) head += (head.empty() ? "" : "   ") + part;
    }
    for (std::size_t page = 0; page < pages; ++page) {
        Sheet sheet{Paper.Width(), Paper.Height(), {}};
        const std::string right = today + "   page " + CStr(static_cast<double>(page + 1)) + " of " +
                                  CStr(static_cast<double>(pages));
        sheet.Parts.push_back(
            {{margin, margin, across, head_height},
             {},
             [this, head, right](Picture& main, Picture&, Picture&) { Draw_Head(head, right, main); }});
        for (std::size_t cell = 0; cell < each && page * each + cell < Numbers.size(); ++cell) {
            const auto column = static_cast<double>(cell % static_cast<std::size_t>(cells.Columns));
            const auto row = static_cast<double>(cell / static_cast<std::size_t>(cells.Columns));
            Add_Record(sheet, Numbers[page * each + cell],
                       {margin + column * (width + gap), margin + head_height + row * (height + gap), width,
                        height});
        }
        All.push_back(std::move(sheet));
    }
    Outcome = CStr(static_cast<double>(Numbers.size())) +
              (Numbers.size() == 1 ? " record on " : " records on ") + CStr(static_cast<double>(pages)) +
              (pages == 1 ? " page" : " pages");
}

void RecordSheets::Add_Record(Sheet& sheet, int record, const SheetArea& cell) {
    sheet.Parts.push_back(
        {{cell.Left, cell.Top, cell.Width, caption_height},
         {},
         [this, record](Picture& main, Picture&, Picture&) { Draw_Caption(record, main); }});
    sheet.Parts.push_back({{cell.Left, cell.Top + caption_height, cell.Width, cell.Height - caption_height},
                           Layout_Of_Cell(Header),
                           [this, record](Picture& main, Picture& strip_x, Picture& strip_y) {
                               Draw_Record(record, main, strip_x, strip_y);
                           }});
}

void RecordSheets::Draw_Record(int record, Picture& main, Picture& strip_x, Picture& strip_y) {
    Workspace& work = Program.Work;
    Select_Record(work, record);
    Apply_Look();
    // A record does not take over the amplitudes of the one that was drawn before it.
    work.Record.TraceScale = 0;
    work.Grids.size_grid = {};
    Measure_Record(work, main.Current_Frame(), SuFile);
    Fill_Size_Grid(work);
    PagePictures pictures{main, strip_x, strip_y};
    pictures.Picks = Picks;
    Draw_Page(Program, Page::Record, pictures);
}

void RecordSheets::Draw_Caption(int record, Picture& picture) const {
    const Workspace& work = Program.Work;
    SuTraces file(SuFile);
    const std::int64_t first = std::int64_t{record - 1} * work.Record.ChannelsPerRecord + 1;
    const std::int64_t last = first + work.Record.ChannelsPerRecord - 1;
    const SpreadLayout spread(work, file, first, last);
    const RecordGeometry geometry(work, spread);
    const std::string unit = work.Settings.Metric() ? " m" : " ft";
    std::vector<std::string> parts = {"Record " + CStr(record)};
    const auto place = geometry.Place(first);
    if (place && !Line.empty()) {
        parts.push_back("shot " + CStr(place->Shot));
        if (const auto at = geometry.Shot_Distance(first)) parts.back() += " at " + Length_Text(*at) + unit;
        if (const auto end = geometry.Place(last)) {
            parts.push_back("receivers " + CStr(place->Receiver) + " to " + CStr(end->Receiver));
            const auto from = geometry.Receiver_Distance(first);
            const auto to = geometry.Receiver_Distance(last);
            if (from && to) parts.push_back("from " + Length_Text(*from) + " to " + Length_Text(*to) + unit);
        }
    } else {
        parts.push_back("FLDR " + CStr(file.Word_Or_Zero(first, words::fldr)));
        parts.push_back("traces " + CStr(static_cast<double>(first)) + " to " +
                        CStr(static_cast<double>(last)));
    }
    std::string text;
    picture.Clear();
    picture.Set_Font_Size(9);
    const Frame size = picture.Current_Frame();
    for (const std::string& part : parts) {
        const std::string longer = text.empty() ? part : text + ", " + part;
        // A narrow cell has no room for all of it.
        if (!text.empty() && picture.Size_Of(longer).Width > size.Width) break;
        text = longer;
    }
    picture.Print_At(size.To_World_X(0), size.To_World_Y(0), text, colours::Black);
}

void RecordSheets::Draw_Head(const std::string& text, const std::string& right, Picture& picture) const {
    picture.Clear();
    picture.Set_Font_Size(11);
    const Frame size = picture.Current_Frame();
    picture.Print_At(size.To_World_X(0), size.To_World_Y(0), text, colours::Black);
    picture.Set_Font_Size(9);
    picture.Print_At(size.To_World_X(size.Width - picture.Size_Of(right).Width), size.To_World_Y(0), right,
                     colours::Black);
    const double rule = size.To_World_Y(size.Height * 0.8);
    picture.Line(size.To_World_X(0), rule, size.To_World_X(size.Width), rule, colours::Grey);
}

bool RecordSheets::May_Draw() {
    if (Reason.empty()) return true;
    Program.Outside.Ask.Say(Reason, Program.Work.AppTitle, Icon::Warning);
    return false;
}

std::string RecordSheets::File_Name() const {
    const std::string name = Name_Of(SuFile);
    return name.substr(0, name.rfind('.')) + "_records";
}

std::string RecordSheets::Folder() const {
    return Folder_Of(SuFile);
}

std::vector<std::string> RecordSheets::Sources() const {
    return Line.empty() ? std::vector{SuFile} : std::vector{SuFile, Line};
}

std::string RecordSheets::File_Text() const {
    if (SuFile.empty()) return "No records are open";
    const RecordView& view = Program.Work.Record;
    return Name_Of(SuFile) + (Line.empty() ? "" : " of " + Name_Of(Line)) + ", " + CStr(int{view.NbRecords}) +
           " records of " + CStr(int{view.ChannelsPerRecord}) + " traces";
}

}  // namespace tarnvik
