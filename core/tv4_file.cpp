#include "core/tv4_file.h"

#include <cstdint>

#include "core/files.h"
#include "core/text/item_reader.h"
#include "core/text/number.h"
#include "core/text/print_line.h"

namespace tarnvik {

namespace {

constexpr int old_remark_rows = 9;
constexpr double row_scale = 10;  // tenths in the old form, hundredths in the new one
constexpr int shot_values = 3;
constexpr int refractor_values = 5;
constexpr const char* line_end = "\r\n";

/// Carries whole numbers from one file to the other. A number that is missing or does not fit repeats the
/// last one, as the reader does.
class Carrier {
  public:
    Carrier(ItemReader& items, std::string& bytes) : Items(items), Bytes(bytes) {}

    void Numbers(int count, double factor) {
        for (int i = 0; i < count; ++i) {
            double number = 0;
            if (Items.Number(number)) Last = CLng(number).value_or(Last);
            Bytes += Print_Number(Last * factor);
        }
    }
    void End_Line() { Bytes += line_end; }

  private:
    ItemReader& Items;
    std::string& Bytes;
    std::int32_t Last = 0;
};

void Carry_Remarks(ItemReader& items, std::string& bytes) {
    double numbers[3] = {};
    std::string text;
    for (int row = 1; row <= old_remark_rows; ++row) {
        PrintLine line;
        for (double& number : numbers) {
            items.Number(number);
            line.Item(number).Zone();
        }
        items.Text(text);
        bytes += line.Raw(text).End() + line_end;
    }
}

}  // namespace

std::optional<std::string> Convert_TV4(std::string_view old_bytes) {
    ItemReader items(old_bytes);
    double number = 0;
    double line_length = 0;
    std::int16_t shots = 0;
    std::int16_t receivers = 0;
    if (!items.Number(number) || !Store_If_It_Fits(shots, number)) return std::nullopt;
    if (!items.Number(line_length)) return std::nullopt;
    if (!items.Number(number) || !Store_If_It_Fits(receivers, number)) return std::nullopt;
    if (shots <= 0 || receivers <= 0) return std::nullopt;
    if (static_cast<std::int64_t>(shots) * receivers > max_picks) return std::nullopt;

    std::string bytes = PrintLine().Item(shots).Zone().Item(line_length).Zone().Item(receivers).End();
    Carrier carrier(items, bytes);
    for (int shot = 1; shot <= shots; ++shot) {
        carrier.Numbers(receivers, 1);
        carrier.End_Line();
    }
    // No line ends among the receiver rows: position alone gives a number its meaning.
    carrier.Numbers(Project::FiledReceiverRows * receivers, row_scale);
    for (int shot = 1; shot <= shots; ++shot) {
        carrier.Numbers(shot_values, row_scale);
        carrier.End_Line();
    }
    for (int i = 0; i < shots * Project::MaxLayers; ++i) {
        carrier.Numbers(2, 1);
        carrier.End_Line();
    }
    for (int i = 0; i < shots * Project::MaxRefractors * refractor_values; ++i) {
        carrier.Numbers(1, 1);
        carrier.End_Line();
    }
    std::string su_file;
    items.Line(su_file);
    bytes += su_file + line_end;
    Carry_Remarks(items, bytes);
    double total_time = 0;
    items.Number(total_time);
    bytes += PrintLine().Item(total_time).End();
    return bytes;
}

bool TV4_To_TV5(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    const std::string old_path =
        ports.Ask.Open_File({"Old Tarnvik file", "TVE |*.tv4|", "*.tv4", project.ProjectDir});
    if (old_path.empty()) return false;
    project.ProjectDir = Folder_Of(old_path);
    std::string proposed = old_path;
    proposed.back() = '5';
    const std::string new_path =
        ports.Ask.Save_File({"New Tarnvik file", "TV5 |*.TV5|", proposed, project.ProjectDir});
    if (new_path.empty()) return false;

    const auto old_bytes = Read_File(old_path);
    if (!old_bytes) {
        ports.Ask.Say(old_path + " cannot be read", workspace.AppTitle, Icon::Critical);
        return false;
    }
    const auto bytes = Convert_TV4(*old_bytes);
    if (!bytes) {
        ports.Ask.Say(old_path + " is no TV4 file, nothing has been written", workspace.AppTitle,
                      Icon::Critical);
        return false;
    }
    const std::string reason = Replace_File(new_path, *bytes);
    if (!reason.empty()) {
        ports.Ask.Say(new_path + " cannot be written: " + reason, workspace.AppTitle, Icon::Critical);
        return false;
    }
    ports.Ask.Say(new_path + " has been recorded", workspace.AppTitle, Icon::Information);
    return true;
}

}  // namespace tarnvik
