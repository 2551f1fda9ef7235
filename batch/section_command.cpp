// section: the velocity grid of a coloured section, its files and its picture, or the section page of a
// report.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <iostream>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/report_picture.h"
#include "output/section.h"
#include "output/section_files.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

const std::map<std::string, SectionSource> sources = {
    {"shot", SectionSource::Shots}, {"abc", SectionSource::Abc}, {"grm", SectionSource::Grm}};
const std::map<std::string, SectionLine> lines = {{"linear", SectionLine::Linear},
                                                  {"bezier", SectionLine::Bezier}};

struct SectionOptions {
    SectionElevations Between;
    SectionView View;
    std::string Colours;
    std::string Size;
    double Dpi = PictureFormat().Dpi;

    bool Report = false;
    ReportChoices Page;
    std::vector<SectionSource> Also;
    std::string Scale;
    std::string Paper;     ///< WIDTHxHEIGHT in mm
    bool Without[4] = {};  ///< shots, geophones, velocities, errors
};

const std::map<std::string, InterfaceShape> shapes = {{"joined", InterfaceShape::Joined},
                                                      {"arcs", InterfaceShape::Arcs}};
const std::map<std::string, ReportFill> fills = {
    {"none", ReportFill::None}, {"colours", ReportFill::Colours}, {"hatching", ReportFill::Hatching}};

Json To_Json(const SectionGrid& grid) {
    Json json;
    json["GridColumns"] = grid.GridColumns;
    json["GridRows"] = grid.GridRows;
    json["corners"] = grid.GridCorners;
    json["factors"] = grid.Factors;
    Json cells = Json::array();
    for (int column = 1; column <= grid.GridColumns; ++column) {
        for (int row = 1; row <= grid.GridRows; ++row) {
            const double velocity = grid.VelocityGrid(column, row);
            if (velocity != 0) cells.push_back({column, row, velocity});
        }
    }
    json["cells"] = std::move(cells);
    json["TopoRows"] = grid.TopoRows;
    return json;
}

/// Writes the grid in the form that the file's ending names, or a picture of it.
bool Write_Section(BatchRun& run, const std::string& path) {
    const Workspace& work = run.Program.Work;
    const SectionGrid& grid = *work.Section.Grid;
    const std::string ending = LCase(Right(path, 4));
    const double length = work.Project.LineLength;
    const std::string reason = ending == ".dat" ? Replace_File(path, Section_Dat(grid, length))
                               : ending == ".grd"
                                   ? Replace_File(path, Section_Grd(grid, length))
                                   : run.Display.Save_Page(Page::Section, path, run.Display.Format);
    return reason.empty() || run.Refuse(path + " cannot be written: " + reason);
}

void Print_Grid(const SectionGrid& grid) {
    std::cout << "Grid of " << grid.GridColumns << " columns and " << grid.GridRows << " rows from "
              << CStr(grid.MinElevation) << " to " << CStr(grid.MaxElevation) << "\n"
              << "place: column,row of the ground and of the interfaces\n";
    for (std::size_t place = 0; place < grid.GridCorners.size(); ++place) {
        std::cout << "  " << place + 1 << ":";
        for (const std::string& corner : grid.GridCorners[place]) {
            if (!corner.empty()) std::cout << " " << corner;
        }
        std::cout << "\n";
    }
}

/// Colours of the program's own by their name, others of a file. False after a message about the file.
bool Take_Colours(BatchRun& run, const std::string& colours) {
    SectionView& view = run.Program.Work.Section;
    if (colours.empty() || colours == "even" || colours == "colour-blind") {
        view.Colours = colours == "colour-blind" ? SectionColours::ColourBlind : SectionColours::Even;
        return true;
    }
    view.Colours = SectionColours::File;
    run.Program.Work.Fields.Text19 = colours;
    run.Program.Section.Scale();
    const std::string& note = run.Program.Section.ScaleNote;
    return note.empty() || run.Refuse(colours + ": " + note);
}

Json To_Json(const ReportModel& model) {
    Json json;
    json["source"] = LCase(Method_Name(model.Source));
    Json interfaces = Json::array();
    for (const ReportInterface& each : model.Interfaces) {
        Json runs = Json::array();
        for (const ReportCurve& run : each.Runs) {
            Json points = Json::array();
            for (const ReportPoint& point : run)
                points.push_back({point.X, point.Z});
            runs.push_back(std::move(points));
        }
        interfaces.push_back({{"layer", each.Layer}, {"runs", std::move(runs)}});
    }
    json["interfaces"] = std::move(interfaces);
    Json errors = Json::array();
    for (const DepthError& error : model.Errors)
        errors.push_back({error.At.X, error.At.Z, error.Half});
    json["errors"] = std::move(errors);
    return json;
}

/// The picture's size from the paper. False for words that are no size.
bool Take_Paper(const SectionOptions& options, PictureFormat& format) {
    format.Dpi = options.Dpi;
    if (options.Paper.empty()) return true;
    const std::size_t cross = LCase(options.Paper).find('x');
    const double width = Val(options.Paper);
    const double height = cross == std::string::npos ? 0 : Val(options.Paper.substr(cross + 1));
    const auto pixels = [&format](double size) {
        return static_cast<int>(std::lround(size / PictureFormat::millimetres_an_inch * format.Dpi));
    };
    constexpr double least = 50;
    constexpr double most = 5000;
    constexpr int most_pixels = 20000;
    if (std::min(width, height) >= least && std::max(width, height) <= most) {
        format.Width = pixels(width);
        format.Height = pixels(height);
        if (std::max(format.Width, format.Height) <= most_pixels) return true;
    }
    std::cerr << "--paper: WIDTHxHEIGHT in mm from 50 to 5000, such as 297x210, at most 20000 pixels\n";
    return false;
}

ExitStatus Report(const CommonOptions& common, const SectionOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    SectionReport& page = run.Program.Report;
    page.ShownChoice = 1;
    ReportChoices& choices = page.View.Choices;
    choices = options.Page;
    choices.Source = options.View.Source;
    for (const SectionSource source : options.Also)
        choices.Also[static_cast<std::size_t>(source)] = true;
    choices.Scale = Scale_In(options.Scale);
    choices.Shots = !options.Without[0];
    choices.Geophones = !options.Without[1];
    choices.Velocities = !options.Without[2];
    choices.Errors = !options.Without[3];
    run.Program.Work.Section = options.View;
    PictureFormat& format = run.Display.Format;
    if (!options.Size.empty() && !Parse_Size(options.Size, run.Display)) return WrongUsage;
    if (!Take_Paper(options, format)) return WrongUsage;
    const auto refuse_if = [&run](const std::string& reason) { return reason.empty() || run.Refuse(reason); };
    std::vector<ReportModel> models;
    const auto depths = [&] {
        const Project& project = run.Program.Work.Project;
        if (!refuse_if(Without_Report(project))) return false;
        models = Models_Of(project, choices);
        const bool known = !models.empty() && models.front().Source == choices.Source;
        if (!known) models.clear();
        return known || run.Refuse("No depths by this method yet");
    };
    const bool made =
        run.Load() && run.May_Write(common.Out) && Take_Colours(run, options.Colours) && depths() &&
        refuse_if(page.Scale_Fault(format.Width_In_Millimetres(), format.Height_In_Millimetres())) &&
        (common.Out.empty() || refuse_if(run.Display.Save_Page(Page::Section, common.Out, format)));
    if (common.Json) {
        Json json;
        json["models"] = Json::array();
        for (const ReportModel& model : models)
            json["models"].push_back(To_Json(model));
        json["messages"] = run.Prompts.Messages();
        std::cout << json.dump(1, ' ', false, Json::error_handler_t::replace) << "\n";
    }
    return made ? Done : Refused;
}

ExitStatus Section(const CommonOptions& common, const SectionOptions& options, const std::string& folder) {
    if (options.Report) return Report(common, options, folder);
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    work.Section = options.View;
    if (!options.Size.empty() && !Parse_Size(options.Size, run.Display)) return WrongUsage;
    run.Display.Format.Dpi = options.Dpi;
    const bool made = run.Load() && run.May_Write(common.Out) && Take_Colours(run, options.Colours) &&
                      Make_Section(work, run.Program.Outside, options.Between) &&
                      (common.Out.empty() || Write_Section(run, common.Out));
    const SectionGrid grid = made ? *work.Section.Grid : SectionGrid();
    if (common.Json) {
        Json json = To_Json(grid);
        json["messages"] = run.Prompts.Messages();
        std::cout << json.dump(1, ' ', false, Json::error_handler_t::replace) << "\n";
    } else if (made) {
        Print_Grid(grid);
    }
    return made ? Done : Refused;
}

}  // namespace

namespace {

/// The options of the page of a report; answers those that have no meaning without it.
std::vector<CLI::Option*> Add_Report(CLI::App& command, const std::shared_ptr<SectionOptions>& options) {
    ReportChoices& page = options->Page;
    command.add_flag("--report", options->Report, "the section page of a report in place of the colours");
    return {
        command.add_option("--interfaces", page.Shape, "report: joined, or arcs with their envelope")
            ->transform(CLI::Transformer(shapes)),
        command.add_option("--also", options->Also, "report: interfaces of further sources, by commas")
            ->delimiter(',')
            ->transform(CLI::Transformer(sources)),
        command.add_option("--fill", page.Fill, "report: none, colours or hatching")
            ->transform(CLI::Transformer(fills)),
        command.add_option("--scale", options->Scale, "report: true scale on the paper, such as 1:500")
            ->check([](const std::string& text) {
                return Scale_In(text) > 0 ? "" : "no scale such as 1:500: " + text;
            }),
        command.add_option("--exaggeration", page.Exaggeration, "report: of heights against distances")
            ->check(Number_Above_0()),
        command.add_option("--paper", options->Paper, "report: WIDTHxHEIGHT in mm, instead of --size"),
        command.add_option("--title", page.Line, "report: text instead of the line's name"),
        command.add_option("--company", page.Company, "report: company in the title block"),
        command.add_option("--date", page.Date, "report: text instead of the date of today"),
        command.add_option("--north", page.North, "report: text beside the north arrow"),
        command.add_flag("--no-shots", options->Without[0], "report: without shots"),
        command.add_flag("--no-geophones", options->Without[1], "report: without geophones"),
        command.add_flag("--no-velocities", options->Without[2], "report: without velocities"),
        command.add_flag("--no-errors", options->Without[3], "report: without errors of the depths"),
    };
}

}  // namespace

void Add_Section(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "section", "a coloured section: its velocity grid and its picture");
    auto options = std::make_shared<SectionOptions>();
    SectionView& view = options->View;
    command->add_option("--source", view.Source, "depths to take: shot, abc or grm")
        ->required()
        ->transform(CLI::Transformer(sources));
    const CLI::Validator elevation = Number_Between(-32768, 32767);
    const std::vector<CLI::Option*> elevations = {
        command->add_option("--max-elevation", options->Between.Max, "elevation of the top")
            ->check(elevation),
        command->add_option("--min-elevation", options->Between.Min, "elevation of the bottom")
            ->check(elevation)};
    command->add_flag("--slope", view.SlopeCorrection,
                      "depths below shots are lengthened by the slope there");
    command->add_flag("--smooth", view.Smoothing, "the bedrock is a mean of three values");
    command->add_option("--quality", view.GridQuality, "columns: 120 times 1, 2 or 3")
        ->check(CLI::Range(1, 3));
    command->add_option("--line", view.Line, "interfaces between the places: linear or bezier")
        ->transform(CLI::Transformer(lines));
    command
        ->add_option("--smoothing", view.SmoothingFactor,
                     "places that a running mean of the interfaces takes")
        ->check(CLI::Range(1, 999));
    command->add_option("--colours", options->Colours,
                        "picture: even, colour-blind, or a file of levels (.lvl) or colours (.clr)");
    command->add_option("--max-velocity", view.MaxVelocity, "picture: velocity of the last colour")
        ->check(Number_Above_0());
    command->add_option("--size", options->Size, "picture: WIDTHxHEIGHT in pixels");
    command
        ->add_option("--out", request.Common.Out,
                     "picture (.png, .svg, .pdf, .jpg, .wmf), .dat (cells of the interfaces) or .grd")
        ->check(Name_Ending_In({".dat", ".grd", ".png", ".svg", ".pdf", ".jpg", ".jpeg", ".bmp", ".wmf"}));
    command->add_option("--dpi", options->Dpi, "picture: pixels an inch")->check(Number_Between(30, 1200));
    const std::vector<CLI::Option*> of_report = Add_Report(*command, options);
    command->callback([&request, options, elevations, of_report] {
        for (const CLI::Option* option : elevations) {
            if (!options->Report && option->count() == 0) throw CLI::RequiredError(option->get_name());
            if (options->Report && option->count() > 0)
                throw CLI::ValidationError(option->get_name(), "the page of a report fits by itself");
        }
        for (const CLI::Option* option : of_report) {
            if (!options->Report && option->count() > 0)
                throw CLI::ValidationError(option->get_name(), "goes with --report");
        }
        if (options->Report && !request.Common.Out.empty()) {
            const std::string fault = Picture_Name()(request.Common.Out);
            if (!fault.empty()) throw CLI::ValidationError("--out", fault);
        }
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Section(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
