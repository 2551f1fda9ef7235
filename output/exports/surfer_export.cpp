#include "output/exports/surfer_export.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/colour_scale.h"
#include "output/exports/section_cells.h"

namespace tarnvik {

namespace {

constexpr const char* question_of_method =
    " Select the gridding method 1=Inverse Distance 2=Kriging 3=Minimum Curvature 4=Modified Shepard's "
    "Method "
    "5=Natural Neighbor 6=Nearest Neighbor 7=Polynomial Regression 8=Radial Basis Functions 9=Triangulation "
    "with Linear Interpolation";
constexpr double last_method = 9;

/// Where the title stands on the page, in inches from its lower left corner.
constexpr double title_x = 1;
constexpr double title_y = 10;

std::string Written(const AutomationArgument& argument) {
    std::string text;
    if (!argument.Name.empty()) text = argument.Name + ":=";
    if (const auto* yes = std::get_if<bool>(&argument.Value)) return text + (*yes ? "True" : "False");
    if (const auto* number = std::get_if<double>(&argument.Value)) return text + CStr(*number);
    text += '"';
    for (const char letter : std::get<std::string>(argument.Value)) {
        text += letter;
        if (letter == '"') text += letter;  // doubled inside a text
    }
    return text + '"';
}

std::string Written(const AutomationStep& step) {
    std::string arguments;
    for (const AutomationArgument& argument : step.Arguments)
        arguments += (arguments.empty() ? "" : ", ") + Written(argument);
    const std::string member = step.Object + "." + step.Member;
    if (step.Sets) return member + " = " + arguments;
    if (step.Result.empty()) return member + " " + arguments;
    return "Set " + step.Result + " = " + member + (arguments.empty() ? "" : "(" + arguments + ")");
}

/// Red, green and blue of a colour.
std::array<int, 3> Parts_Of(Colour colour) {
    constexpr int full = 255;
    return {colour & full, (colour >> 8) & full, (colour >> 16) & full};
}

/// A colour file that came with the program, or else one of its own making.
std::string Colours(Ports& ports, const std::string& name, const std::string& otherwise) {
    const auto bytes = Read_File(ports.Launch.Program_Folder() + "/" + name);
    return bytes ? From_Windows_1252(*bytes) : otherwise;
}

/// The files of an export to be, and the velocity that the colours must reach.
struct SurferFiles {
    std::vector<ExportFile> Files;
    double MaxVelocity = 0;
};

/// The cells and their grid. False after the message that there are none.
bool Take_Section(Ports& ports, const std::string& title, const SectionTexts& section,
                  const SurferChoices& choices, SurferFiles& files) {
    const std::string beside = Read_File(choices.Dat).value_or("");
    const std::string& cells = section.Dat.empty() ? beside : section.Dat;
    const std::vector<SectionCell> points = Read_Section_Cells(cells);
    const std::string grid = section.Grd.empty() ? Section_Grid_Text(points) : section.Grd;
    if (points.empty() || grid.empty()) {
        ports.Ask.Say("Not valid DAT file", title, Icon::Critical);
        return false;
    }
    for (const SectionCell& point : points)
        files.MaxVelocity = std::max(files.MaxVelocity, point.Velocity);
    if (cells != beside) files.Files.push_back({choices.Dat, cells});
    files.Files.push_back({choices.Grd, grid});
    return true;
}

/// The method and the kind of map. False when the user gave up or typed no method.
bool Ask_Choices(Ports& ports, const std::string& title, SurferChoices& choices) {
    double method = 0;
    if (!Ask_Number(ports, title, question_of_method, "2", method)) return false;
    if (method < 1 || method > last_method || method != Int(method)) {
        ports.Ask.Say("The gridding method is a number from 1 to 9", title, Icon::Critical);
        return false;
    }
    choices.Method = static_cast<int>(method);
    choices.Contours = ports.Ask.Ask_Yes(" Do you want a CONTOUR map (=YES) or an IMAGE map (=NO)", title);
    return true;
}

/// The other program has a working folder of its own.
std::string From_Any_Folder(const std::string& path) {
    std::error_code failed;
    const auto absolute = std::filesystem::absolute(path, failed);
    return failed ? path : absolute.string();
}

/// The names as they were agreed. The cells are among the files only when they were not there before.
void Take_Agreed_Names(const std::vector<ExportFile>& files, SurferChoices& choices) {
    constexpr std::size_t files_with_cells = 5;
    const auto from_end = [&files](std::size_t place) {
        return From_Any_Folder(files[files.size() - place].Path);
    };
    choices.Dat = From_Any_Folder(files.size() == files_with_cells ? files.front().Path : choices.Dat);
    choices.Grd = from_end(4);
    choices.Lvl = from_end(3);
    choices.Clr = from_end(2);
}

}  // namespace

AutomationRun Surfer_Run(const SurferChoices& choices) {
    AutomationRun run{"Surfer.Application", "Surfer", {}};
    const auto put = [&run](const char* object, const char* property) {
        run.Steps.push_back({true, object, property, {{"", true}}, ""});
    };
    put("Surfer", "Visible");
    run.Steps.push_back({false,
                         "Surfer",
                         "GridData",
                         {{"DataFile", choices.Dat},
                          {"OutGrid", choices.Grd},
                          {"ShowReport", false},
                          {"Algorithm", static_cast<double>(choices.Method)}},
                         ""});
    run.Steps.push_back({false, "Surfer", "Documents.Add", {}, "Plot"});
    run.Steps.push_back({false, "Plot", "Shapes", {}, "Shapes"});
    if (choices.Contours) {
        run.Steps.push_back({false, "Shapes", "AddContourMap", {{"", choices.Grd}}, "MapFrame"});
        run.Steps.push_back({false, "MapFrame", "Overlays.Item", {{"", 1.0}}, "MapLayer"});
        run.Steps.push_back({false, "MapLayer", "Levels.LoadFile", {{"", choices.Lvl}}, ""});
        put("MapLayer", "FillContours");
        put("MapLayer", "ShowColorScale");
    } else {
        run.Steps.push_back({false, "Shapes", "AddImageMap", {{"GridFileName", choices.Grd}}, "MapFrame"});
        run.Steps.push_back({false, "MapFrame", "Overlays.Item", {{"", 1.0}}, "MapLayer"});
        put("MapLayer", "ShowColorScale");
        run.Steps.push_back({false, "MapLayer", "ColorMap.LoadFile", {{"FileName", choices.Clr}}, ""});
    }
    run.Steps.push_back(
        {false, "Shapes", "AddText", {{"", title_x}, {"", title_y}, {"", std::string("Tarnvik")}}, ""});
    return run;
}

std::string Surfer_Script(const SurferChoices& choices) {
    const AutomationRun run = Surfer_Run(choices);
    std::string text =
        "' Map of the velocities below a line. To be run by the Scripter of the map program.\r\n"
        "Sub Main\r\n";
    text += "    Dim " + run.Object + " As Object\r\n";
    for (const AutomationStep& step : run.Steps)
        if (!step.Result.empty()) text += "    Dim " + step.Result + " As Object\r\n";
    text += "    Set " + run.Object + " = CreateObject(\"" + run.Program + "\")\r\n";
    for (const AutomationStep& step : run.Steps)
        text += "    " + Written(step) + "\r\n";
    return text + "End Sub\r\n";
}

std::string Default_Lvl(double max_velocity) {
    std::string text = "LVL2\r\n'Level Flags LColor LStyle LWidth FFGColor FBGColor FPattern FMode\r\n";
    for (std::size_t i = 0; i < even_colours.size(); ++i) {
        const auto [red, green, blue] = Parts_Of(even_colours[i]);
        const double level = Rounded(max_velocity * static_cast<double>(i) / even_colours.size());
        const std::string colour =
            "\"R" + Format(red, "000") + " G" + Format(green, "000") + " B" + Format(blue, "000") + "\"";
        text += CStr(level) + " 0 \"Black\" \"Solid\" 0 " + colour + " " + colour + " \"Solid\" 2\r\n";
    }
    return text;
}

std::string Default_Clr() {
    std::string text = "ColorMap 1 1\r\n";
    for (std::size_t i = 0; i < even_colours.size(); ++i) {
        const auto [red, green, blue] = Parts_Of(even_colours[i]);
        const double percent = 100.0 * static_cast<double>(i) / (even_colours.size() - 1);
        text += Format(percent, "0.000000") + " " + CStr(red) + " " + CStr(green) + " " + CStr(blue) + "\r\n";
    }
    return text;
}

ExportReport Export_Surfer(Ports& ports, const ExportSource& source, const SectionTexts& section) {
    ExportReport report;
    const std::string& title = source.Title;
    Workspace* work = source.Choose();
    if (work == nullptr) return report;
    std::string path = work->Project.CurrentFile;
    if (!source.Folder.empty()) path = source.Folder + Name_Of(path);
    SurferChoices choices;
    choices.Dat = Up_To_First_Point(path, "dat");
    choices.Grd = Up_To_First_Point(path, "grd");
    choices.Lvl = Up_To_First_Point(path, "lvl");
    choices.Clr = Up_To_First_Point(path, "clr");
    SurferFiles files;
    if (!Take_Section(ports, title, section, choices, files)) return report;
    if (!Ask_Choices(ports, title, choices)) return report;
    files.Files.push_back({choices.Lvl, Colours(ports, "tarnvik.lvl", Default_Lvl(files.MaxVelocity))});
    files.Files.push_back({choices.Clr, Colours(ports, "tarnvik.clr", Default_Clr())});
    const FileRequest other_name{"Enter the new file name", "All files|*.*|", "", ""};
    files.Files.push_back({Up_To_First_Point(path, "bas"), ""});
    if (!Agree_On_Names(ports, title, files.Files, other_name)) return report;
    // The script and the calls name the files as they were agreed.
    Take_Agreed_Names(files.Files, choices);
    files.Files.back().Content = Surfer_Script(choices);
    if (!Write_Export_Files(ports, title, files.Files, report)) return report;
    AutomationResult driven;
    if (auto* automation = dynamic_cast<Automation*>(&ports.Launch))
        driven = automation->Automate(Surfer_Run(choices));
    if (!driven.Failure.empty()) ports.Ask.Say("SURFER: " + driven.Failure, title, Icon::Warning);
    report.Done = true;
    std::string words = "Written for SURFER: " + Name_Of(report.Files.front());
    for (std::size_t i = 1; i < report.Files.size(); ++i)
        words += ", " + Name_Of(report.Files[i]);
    if (!driven.Found)
        words += "\r\nSURFER cannot be started from here: run " + report.Files.back() + " in its Scripter.";
    ports.Ask.Say(words, title, Icon::Information);
    return report;
}

}  // namespace tarnvik
