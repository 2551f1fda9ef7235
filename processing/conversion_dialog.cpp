#include "processing/conversion_dialog.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/files.h"
#include "core/settings_file.h"
#include "core/text/letters.h"
#include "core/text/natural_order.h"
#include "core/text/number.h"
#include "processing/su_names.h"
#include "processing/typed_number.h"

namespace tarnvik {

namespace {

constexpr const char* settings_section = "Conversion";
constexpr int traces_of_preview = 48;
constexpr std::array headings = {"",        "File",          "Format",     "Traces",
                                 "Samples", "Interval (ms)", "Delay (ms)", "Shot"};
constexpr const char* file_filter =
    "Seismograph files|*.SG2;*.SEG2;*.DAT;*.SGY;*.SEGY;*.SEG;*.SU|All files|*.*|";

std::string Count(std::int64_t number) {
    return CStr(static_cast<double>(number));
}

std::string Lines(const std::vector<std::string>& texts, const std::string& before) {
    std::string all;
    for (const std::string& text : texts)
        all += before + text + "\r\n";
    return all;
}

/// "SEG-2, little-endian, 32-bit floats (float32)"
std::string Kind_Of(const FieldFile& file) {
    std::string kind = file.Format.empty() ? "no seismograph file" : file.Format;
    if (!file.ByteOrder.empty()) kind += ", " + file.ByteOrder + "-endian";
    if (!file.SampleFormat.empty()) kind += ", samples " + file.SampleFormat;
    if (!file.TextHeader.empty()) kind += ", text header " + file.TextHeader;
    return kind;
}

std::string Place_Text(const std::optional<double>& place) {
    return place ? CStr(*place) : "?";
}

}  // namespace

std::optional<std::vector<double>> Typed_Numbers(const std::string& text) {
    std::vector<double> numbers;
    std::string field;
    for (const char letter : text + " ") {
        if (letter != ' ' && letter != ',' && letter != ';' && letter != '\t') {
            field += letter;
            continue;
        }
        if (field.empty()) continue;
        const auto number = Typed_Number(field);
        if (!number) return std::nullopt;
        numbers.push_back(*number);
        field.clear();
    }
    return numbers;
}

void Conversion::Remember_In(std::string settings_file) {
    SettingsFile = std::move(settings_file);
    const auto kept = [this](const char* key) { return Read_Setting(SettingsFile, settings_section, key); };
    Order = kept("Order") == "shot" ? 1 : 0;
    const std::string places = kept("Places");
    PlacesFrom = places == "table" ? FromTable : places == "typed" ? Typed : FromHeaders;
    Spacing = kept("Spacing");
    FirstReceiver = kept("FirstReceiver");
}

void Conversion::Remember() const {
    if (SettingsFile.empty()) return;
    constexpr std::array names = {"headers", "table", "typed"};
    Write_Setting(SettingsFile, settings_section, "Order", Order == 1 ? "shot" : "name");
    Write_Setting(SettingsFile, settings_section, "Places",
                  names.at(static_cast<std::size_t>(std::clamp(PlacesFrom, 0, 2))));
    Write_Setting(SettingsFile, settings_section, "Spacing", Spacing);
    Write_Setting(SettingsFile, settings_section, "FirstReceiver", FirstReceiver);
}

void Conversion::Ask_For_Files() {
    const std::string folder = Read.empty() ? std::string() : Folder_Of(Read.back().File);
    Add(Outside.Ask.Open_Files({"Seismograph files to convert", file_filter, "*.*", folder}));
}

void Conversion::Add(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        if (std::none_of(Read.begin(), Read.end(),
                         [&path](const FieldFile& file) { return Same_File(file.File, path); }))
            Read.push_back(Look_At_Field_File(path, traces_of_preview));
    }
    if (!Read.empty() && Row == 0) Row = 1;
    Propose_Out();
    Look();
}

void Conversion::Add_Whole_Folder() {
    const FieldFile* chosen = Chosen();
    if (chosen == nullptr) return;
    const std::string format = chosen->Format;
    const std::string folder = Folder_Of(chosen->File);
    const auto ending_of = [](const std::string& path) {
        return LCase(std::filesystem::path(Name_Of(path)).extension().string());
    };
    const std::string ending = ending_of(chosen->File);
    // Instruments that number their files by the ending (".001") write a whole line so.
    const bool numbered = ending.size() > 1 && ending.find_first_not_of("0123456789", 1) == std::string::npos;
    std::vector<std::string> paths;
    std::error_code failed;
    for (const auto& entry : std::filesystem::directory_iterator(folder.empty() ? "." : folder, failed)) {
        const std::string path = folder + entry.path().filename().string();
        const std::string other = ending_of(path);
        const bool alike =
            numbered ? other.size() > 1 && other.find_first_not_of("0123456789", 1) == std::string::npos
                     : other == ending;
        if (alike && entry.is_regular_file(failed) && Field_Format_Of(path) == format) paths.push_back(path);
    }
    std::sort(paths.begin(), paths.end(),
              [](const std::string& one, const std::string& other) { return Comes_Before(one, other); });
    Add(paths);
}

void Conversion::Remove() {
    if (Row < 1 || Row > static_cast<int>(Read.size())) return;
    Read.erase(Read.begin() + (Row - 1));
    Row = std::min(Row, static_cast<int>(Read.size()));
    Propose_Out();
    Look();
}

void Conversion::Clear() {
    Read.clear();
    Row = 0;
    Report.clear();
    Propose_Out();
    Look();
}

void Conversion::Ask_For_Table() {
    const std::string folder = Read.empty() ? std::string() : Folder_Of(Read.front().File);
    const std::string path =
        Outside.Ask.Open_File({"Table of places", "CSV File |*.CSV;*.TXT|All files|*.*|", "*.CSV", folder});
    if (path.empty()) return;
    Table = path;
    PlacesFrom = FromTable;
    Look();
}

void Conversion::Ask_For_Out() {
    const std::string path = Outside.Ask.Save_File(
        {"SU File selection", "SU File |*.SU|All files|*.*|", Out.empty() ? "line.su" : Out, Folder_Of(Out)});
    if (path.empty()) return;
    Out = Agreed = path;  // the file dialog has asked whether a file of that name may go
    Look();
}

/// A single file keeps its name, several become "line.su" beside the first.
void Conversion::Propose_Out() {
    if (!Out.empty() && Out != Proposed) return;
    Out.clear();
    if (Read.size() == 1) {
        const std::string name = Name_Of(Read.front().File);
        const std::string stem = name.substr(0, name.rfind('.'));
        Out = Folder_Of(Read.front().File) + stem + ".su";
        if (Same_File(Out, Read.front().File)) Out = Folder_Of(Read.front().File) + stem + "_new.su";
    } else if (Read.size() > 1) {
        Out = Folder_Of(Read.front().File) + "line.su";
    }
    Proposed = Out;
}

void Conversion::Changed() {
    Look();
}

void Conversion::Row_Chosen() {
    Describe();
}

const FieldFile* Conversion::Chosen() const {
    return Row >= 1 && Row <= static_cast<int>(Read.size()) ? &Read[static_cast<std::size_t>(Row) - 1]
                                                            : nullptr;
}

ConversionRequest Conversion::Request() const {
    ConversionRequest request;
    for (const FieldFile& file : Read)
        request.Files.push_back(file.File);
    request.Order = Order == 1 ? FileOrder::Shot : FileOrder::Name;
    if (PlacesFrom == Typed) {
        request.Spacing = Typed_Number(Spacing);
        if (request.Spacing) request.FirstReceiver = Typed_Number(FirstReceiver).value_or(0);
        request.Shots = Typed_Numbers(Shots).value_or(std::vector<double>());
    }
    if (PlacesFrom == FromTable) request.GeometryTable = Trim(Table);
    request.Out = Trim(Out);
    return request;
}

/// Why nothing can be converted; empty when it can.
std::string Conversion::Why_Not() const {
    if (Read.empty()) return "Add files of a seismograph (SEG-2, SEG-Y, SU), or drop them here";
    if (std::none_of(Read.begin(), Read.end(), [](const FieldFile& file) { return file.Usable; }))
        return "None of the files can be read";
    if (PlacesFrom == Typed) {
        const auto spacing = Typed_Number(Spacing);
        if (!Trim(Spacing).empty() && (!spacing || *spacing <= 0))
            return "The spacing of the receivers must be a number above 0";
        if (!Trim(FirstReceiver).empty() && !Typed_Number(FirstReceiver))
            return "The place of the first receiver is no number";
        if (!Typed_Numbers(Shots)) return "The places of the shots must be numbers, separated by commas";
    }
    if (PlacesFrom == FromTable) {
        if (Trim(Table).empty()) return "Choose the table of the places";
        if (const std::string fault = Geometry_Table_Fault(Trim(Table)); !fault.empty()) return fault;
    }
    if (Trim(Out).empty()) return "The file to write has no name";
    for (const FieldFile& file : Read) {
        if (Same_File(file.File, Trim(Out))) return Trim(Out) + " is one of the files that are converted";
    }
    return {};
}

void Conversion::Look() {
    const FieldFile* chosen = Chosen();
    const std::string stays = chosen == nullptr ? std::string() : chosen->File;
    const auto order = Conversion_Order(Read, Order == 1 ? FileOrder::Shot : FileOrder::Name);
    std::vector<FieldFile> sorted;
    for (const std::size_t place : order)
        sorted.push_back(std::move(Read[place]));
    Read = std::move(sorted);
    for (std::size_t i = 0; i < Read.size(); ++i) {
        if (Read[i].File == stays) Row = static_cast<int>(i) + 1;
    }
    Refusal = Why_Not();
    Fill_Table();
    Describe();
    if (!Refusal.empty()) {
        Hint = Refusal;
        return;
    }
    std::int64_t traces = 0;
    std::size_t unusable = 0;
    bool intervals = false;
    for (const FieldFile& file : Read) {
        traces += file.Usable ? file.Traces : 0;
        unusable += file.Usable ? 0 : 1;
        intervals |= file.Usable && file.Interval != Read.front().Interval;
    }
    Hint = Count(traces) + " traces of " + Count(static_cast<std::int64_t>(Read.size() - unusable)) +
           (Read.size() - unusable == 1 ? " file" : " files");
    if (unusable > 0) Hint += "; " + Count(static_cast<std::int64_t>(unusable)) + " cannot be used";
    if (intervals) Hint += "; files of another sample interval than the first are left out";
}

void Conversion::Fill_Table() {
    Files.Resize(static_cast<int>(Read.size()) + 1, static_cast<int>(headings.size()));
    for (int column = 0; column < Files.Columns(); ++column)
        Files.Set_Text(0, column, headings.at(static_cast<std::size_t>(column)));
    for (int row = 1; row < Files.Rows(); ++row) {
        const FieldFile& file = Read[static_cast<std::size_t>(row) - 1];
        const std::array texts = {CStr(row),
                                  Name_Of(file.File),
                                  file.Usable ? file.Format : "not usable",
                                  file.Usable ? Count(file.Traces) : "",
                                  file.Usable ? CStr(file.Samples) : "",
                                  file.Usable ? CStr(file.Interval / 1000) : "",
                                  file.Usable ? CStr(file.Delay) : "",
                                  file.Shot ? Count(*file.Shot) : ""};
        for (int column = 0; column < Files.Columns(); ++column) {
            Files.Set_Text(row, column, texts.at(static_cast<std::size_t>(column)));
            if (column > 2) Files.At(row, column).Align = TextGrid::Alignment::Right;
        }
    }
}

void Conversion::Describe() {
    Details.clear();
    const FieldFile* file = Chosen();
    if (file == nullptr) return;
    Details = Name_Of(file->File) + ": " + Kind_Of(*file) + "\r\n";
    Details += Lines(file->Faults, "Fault: ");
    Details += Lines(file->Assumed, "Assumed: ");
    if (!file->Preview.empty()) {
        const FieldTrace& first = file->Preview.front();
        const FieldTrace& last = file->Preview.back();
        Details += "Shot at " + Place_Text(first.Places.ShotX) + ", channel " + Count(first.Channel) +
                   " at " + Place_Text(first.Places.ReceiverX) + ", channel " + Count(last.Channel) + " at " +
                   Place_Text(last.Places.ReceiverX);
        if (first.Stack > 0)
            Details += "; " + CStr(first.Stack) + (first.Stack == 1 ? " shot" : " shots added");
        Details += "\r\n";
    }
    Details += Lines(file->Notes, "");
}

void Conversion::Convert(const ConversionProgress& progress) {
    Look();
    const auto refuse = [this](const std::string& why) { Outside.Ask.Say(why, Title, Icon::Critical); };
    if (!Ready()) return refuse(Refusal);
    ConversionRequest request = Request();
    if (Name_Of(request.Out).find('.') == std::string::npos) request.Out += ".su";
    Out = request.Out;
    if (File_Exists(Out) && Out != Agreed &&
        !Outside.Ask.Ask_Yes(Out + " already exists, overwrite ?", Title))
        return;
    Agreed.clear();
    Remember();
    const ConversionReport done = Convert_Field_Files(request, progress);
    Report.clear();
    std::size_t left_out = 0;
    for (const FieldFile& file : done.Files) {
        left_out += file.Written > 0 ? 0 : 1;
        Report += file.File + ": " + Kind_Of(file) + ", " + Count(file.Written) + " of " +
                  Count(file.Traces) + " traces\r\n";
        Report += Lines(file.Faults, "    Fault: ") + Lines(file.Assumed, "    Assumed: ");
    }
    Report += Lines(done.Messages, "");
    if (!done.Went_Well()) {
        Report += Out + " has not been written: " + done.Failure + "\r\n";
        return refuse(Out + " has not been written: " + done.Failure);
    }
    Report += Out + ": " + Count(done.Traces) + " traces in " + Count(done.Records) +
              (done.Records == 1 ? " record" : " records") + "\r\n";
    std::string text = Out + " has been recorded, " + Count(done.Traces) + " traces in " +
                       Count(done.Records) + (done.Records == 1 ? " record" : " records");
    if (left_out > 0) {
        text += "\r\n" + Count(static_cast<std::int64_t>(left_out)) + " of " +
                Count(static_cast<std::int64_t>(done.Files.size())) +
                " files could not be used: the report tells why";
    }
    Outside.Ask.Say(text, Title, left_out > 0 ? Icon::Warning : Icon::Information);
    Made = Out;
    if (Serves) Outside.Show.Close_Dialog(Dialog::Conversion);
}

void Conversion::Save_Report() {
    if (Report.empty()) return;
    const std::string path = Outside.Ask.Save_File(
        {"Report of the conversion", "Text file |*.TXT|All files|*.*|", Out + ".txt", Folder_Of(Out)});
    if (path.empty()) return;
    const std::string reason = Replace_File(path, To_Windows_1252(Report));
    if (!reason.empty()) Outside.Ask.Say(path + " cannot be written: " + reason, Title, Icon::Critical);
}

std::string Conversion::Make_Of(const std::vector<std::string>& files) {
    Clear();
    Out.clear();
    Add(files);
    Made.clear();
    Serves = true;
    Outside.Show.Open_Dialog(Dialog::Conversion, true);
    Serves = false;
    return std::exchange(Made, {});
}

}  // namespace tarnvik
