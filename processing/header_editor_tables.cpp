// Words of the headers as a spreadsheet, the geometry out and in again, and the check of the headers.

#include <algorithm>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/header_check.h"
#include "processing/header_editor.h"
#include "processing/header_geometry_table.h"
#include "processing/header_spreadsheet.h"
#include "processing/su_names.h"

namespace tarnvik {

namespace {

/// Name of a file made of the records: "line.su" and "_geometry.prn" make "line_geometry.prn".
std::string Beside(const std::string& su_file, const std::string& ending) {
    constexpr std::string_view su = ".su";
    const std::string name = Name_Of(su_file);
    const bool named_su = LCase(Right(name, su.size())) == su;
    return std::string(Left(name, name.size() - (named_su ? su.size() : 0))) + ending;
}

bool Ends_In(const std::string& path, std::string_view ending) {
    return LCase(Right(path, ending.size())) == ending;
}

}  // namespace

/// Where a file made of the records goes; empty when the user gave up.
std::string Header::Target(const FileRequest& request, const std::string& ending) {
    std::string path = Outside.Ask.Save_File(request);
    if (path.empty()) return path;
    const std::string name = Name_Of(path);
    if (name.find('.') == std::string::npos) path += ending;
    if (File_Exists(path) && Same_File(path, Texth1)) {
        Say("Impossible, same file");
        return {};
    }
    return path;
}

/// Tells what became of a file that was written.
void Header::Tell_Written(const std::string& path, const std::string& reason) {
    Status.clear();
    if (reason.empty()) {
        Hint = "Saved in " + path;
    } else {
        Hint = path + " was not written: " + reason;
        Say(Hint, Icon::Critical);
    }
    Outside.Show.Show_Fields();
}

void Header::XCommand2(const TraceProgress& progress) {
    if (File_Refused(" does not exist !", " is empty !")) return;
    if (xText4.empty()) return Say("You must select a word to change");
    HeaderTable table;
    table.Words.assign(xText4.begin(), xText4.end());
    table.First = XCheck1 ? 1 : CLng(Val(xText2)).value_or(0);
    table.Last = XCheck1 ? NbTraces : std::min<std::int64_t>(CLng(Val(xText3)).value_or(0), NbTraces);
    table.First = std::max<std::int64_t>(table.First, 1);
    if (table.First > table.Last) return Say("First trace must be < Last trace..");
    const std::string path = Target({"Excel file selection", "Excel workbook |*.xlsx|CSV |*.csv|",
                                     Beside(Texth1, ".xlsx"), Folder_Of(Texth1)},
                                    ".xlsx");
    if (path.empty()) return;
    const std::string reason =
        Write_Header_Spreadsheet(Texth1, table, path, Told(progress, "Processing trace ", " of "));
    if (reason.empty()) LastSpreadsheet = path;
    Tell_Written(path, reason);
}

void Header::Header_spreadsheet() {
    if (Outside.Launch.Find_Program("XLS").empty()) return Say("You must intstall EXCEL ");
    if (Outside.Launch.Open_Document(LastSpreadsheet) < launch_failure_below)
        Say("Unable to shell " + LastSpreadsheet, Icon::Critical);
}

void Header::Command10(const TraceProgress& progress) {
    if (File_Refused(" does not exist !", " is empty !")) return;
    const std::string path =
        Target({"Geometry file selection", "Excel workbook |*.xlsx|Text in columns |*.prn|CSV |*.csv|",
                Beside(Texth1, "_geometry.xlsx"), Folder_Of(Texth1)},
               ".xlsx");
    if (path.empty()) return;
    Tell_Written(path, Write_Geometry_Table(Texth1, path, Told(progress, "Processing trace ", " of ")));
}

void Header::Command11() {
    if (File_Refused(" does not exist !", " is empty !")) return;
    const std::string path = Outside.Ask.Open_File(
        {"Geometry file selection", "PRN or CSV |*.prn;*.csv|All files|*.*|", "*.prn", Folder_Of(Texth1)});
    if (path.empty()) return;
    if (Ends_In(path, ".xlsx"))
        return Say("Save the workbook as PRN or CSV text first, then transfer that file", Icon::Warning);
    const auto text = Read_File(path);
    if (!text) return Say(path + " does not exist !");
    const GeometryTable table = Read_Geometry_Table(*text);
    if (!table.Fault.empty()) return Say(path + ": " + table.Fault, Icon::Critical);
    EditScope edit(Work, Edit_Name_Of(Work, "Geometry from " + Name_Of(path), Texth1));
    const GeometryWritten written = Write_Geometry(
        Texth1, &Work.Edits, table.Rows, {CLng(Val(scalco)).value_or(0), CLng(Val(scalel)).value_or(0)});
    if (!written.Fault.empty()) edit.Give_Up();
    edit.End();
    Read_Again();
    if (!written.Fault.empty()) return Say(written.Fault, Icon::Critical);
    Say("OK, Header has been updated in " + Texth1 + "\r\n\r\n" + CStr(static_cast<double>(written.Traces)) +
        " traces, scalco " + CStr(written.Scales.Coordinates) + ", scalel " +
        CStr(written.Scales.Elevations));
}

void Header::Check_File() {
    CheckText.clear();
    if (File_Refused(" does not exist !", " is empty !")) return;
    for (const std::string& sentence : Check_Headers(Texth1))
        CheckText += sentence + "\n";
    if (CheckText.empty()) CheckText = "Nothing is wrong with the headers of " + Texth1;
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
