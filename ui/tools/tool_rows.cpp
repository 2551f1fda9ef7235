#include "ui/tools/tool_rows.h"

#include <vector>

#include "core/files.h"
#include "core/settings_file.h"
#include "core/text/letters.h"
#include "ui/forms/add_csv_form.h"
#include "ui/forms/conversion_form.h"
#include "ui/forms/enhancement_form.h"
#include "ui/forms/joined_profiles_form.h"
#include "ui/forms/line_sheet_form.h"
#include "ui/forms/merge_file_form.h"
#include "ui/forms/record_sheets_form.h"
#include "ui/forms/spectrum_form.h"

namespace tarnvik {

namespace {

/// A form that gets the files it is started with.
template <class FormType>
std::unique_ptr<Form> Make(ToolStart& start) {
    std::vector<std::string> files;
    for (const QString& argument : start.Arguments)
        files.push_back(argument.toStdString());
    return std::make_unique<FormType>(start.Program.Outside, start.Program.Work.AppTitle, files);
}

/// The files behind the code that the main program gives.
std::unique_ptr<Form> Make_Conversion(ToolStart& start) {
    Conversion& logic = start.Program.FieldFiles;
    logic.Remember_In(start.Program.SettingsFile);
    logic.Title = start.Program.Work.AppTitle;
    std::vector<std::string> files;
    for (const QString& argument : start.Arguments) {
        const bool code = argument == "356" || argument == "412";
        if (!code) files.push_back(argument.toStdString());
    }
    logic.Add(files);
    return std::make_unique<ConversionForm>(logic);
}

/// All arguments as one text: a path may hold blanks.
std::string Whole_Line(const ToolStart& start) {
    return start.Arguments.join(' ').trimmed().toStdString();
}

/// The file told, or the records that the main program has open.
std::unique_ptr<Form> Make_Enhancement(ToolStart& start) {
    const std::string& settings = start.Program.SettingsFile;
    auto logic = std::make_unique<Enhancement>(start.Program.Outside, start.Program.Work.AppTitle, settings);
    std::string file = Whole_Line(start);
    if (file.empty()) {
        file = Line_Of_Main_Program(settings).SuFile;
        if (!File_Exists(file)) file.clear();
    }
    if (!file.empty()) logic->Take_Up(file);
    return std::make_unique<EnhancementForm>(std::move(logic));
}

std::unique_ptr<Form> Make_Spectrum(ToolStart& start) {
    auto logic = std::make_unique<SpectrumOfTraces>(start.Program.Outside, start.Program.Work.AppTitle,
                                                    start.Program.SettingsFile);
    logic->Take_Arguments(Whole_Line(start));
    return std::make_unique<SpectrumForm>(std::move(logic));
}

/// The sheet of the line that the main program has open, or of the project named.
std::unique_ptr<Form> Make_Line_Sheet(ToolStart& start) {
    auto form = std::make_unique<LineSheetForm>(start.Program);
    const std::string named = start.Arguments.value(0).toStdString();
    const NamedLine line = Line_Of_Main_Program(start.Program.SettingsFile);
    if (LCase(Right(named, 4)) == ".tv5") {
        form->Open(named, named, false);
    } else if (!line.ProjectFile.empty()) {
        form->Open(line.ProjectFile, line.Name, line.Unsaved);
    }
    return form;
}

/// The records of that line on paper, or of the SU file or project named.
std::unique_ptr<Form> Make_Record_Sheets(ToolStart& start) {
    auto form = std::make_unique<RecordSheetsForm>(start.Program);
    const std::string named = start.Arguments.value(0).toStdString();
    const NamedLine line = Line_Of_Main_Program(start.Program.SettingsFile);
    if (named.find('.') != std::string::npos) {
        form->Logic.Open_File(named);
    } else if (!line.ProjectFile.empty()) {
        form->Logic.Open_Line(line.ProjectFile, line.Name);
    } else if (!line.SuFile.empty()) {
        form->Logic.Open_File(line.SuFile);
    }
    return form;
}

/// Profiles of the projects named, or of a set of them; nothing otherwise.
std::unique_ptr<Form> Make_Joined_Profiles(ToolStart& start) {
    auto form = std::make_unique<JoinedProfilesForm>(start.Program);
    std::vector<std::string> files;
    for (const QString& file : start.Arguments)
        files.push_back(file.toStdString());
    form->Take(files);
    return form;
}

}  // namespace

std::span<const ToolRow> Tool_Rows() {
    // One row for each tool that has a window.
    static const std::vector<ToolRow> rows = {
        {"conversion", "Seismograph file conversion", Make_Conversion, "conversion"},
        {"SEG2SU", "SEG2 to SU conversion", Make_Conversion, "conversion"},
        {"merge_file", "Merge SU files", Make<MergeFileForm>, "merge_files"},
        {"add_csv", "Add CSV", Make<AddCsvForm>, "csv_files"},
        {"reverse", "SU enhancement", Make_Enhancement, "enhancement"},
        {"SUSPECTRE", "Spectrum", Make_Spectrum, "spectrum"},
        {"suprint2", "Records on paper", Make_Record_Sheets, "record_sheets"},
        {"tvmprint", "Sheet of a line", Make_Line_Sheet, "line_sheet"},
        {"TVProfile", "Joined profiles", Make_Joined_Profiles, "joined_profiles"},
    };
    return rows;
}

NamedLine Line_Of_Main_Program(const std::string& settings_file) {
    NamedLine line;
    line.Name = Read_Setting(settings_file, "DROMO", "File");
    line.SuFile = Read_Setting(settings_file, "DROMO", "SU");
    const std::string unsaved = Read_Setting(settings_file, "Tools", unsaved_line_key);
    line.Unsaved = !unsaved.empty() && File_Exists(unsaved);
    line.ProjectFile = line.Unsaved ? unsaved : line.Name;
    if (!File_Exists(line.ProjectFile)) line.ProjectFile.clear();
    return line;
}

}  // namespace tarnvik
