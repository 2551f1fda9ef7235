// section: the velocity grid of a coloured section, its files and its picture.

#include <CLI/CLI.hpp>
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
};

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

ExitStatus Section(const CommonOptions& common, const SectionOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    work.Section = options.View;
    if (!options.Size.empty() && !Parse_Size(options.Size, run.Display)) return WrongUsage;
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

void Add_Section(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "section", "a coloured section: its velocity grid and its picture");
    auto options = std::make_shared<SectionOptions>();
    SectionView& view = options->View;
    command->add_option("--source", view.Source, "depths to take: shot, abc or grm")
        ->required()
        ->transform(CLI::Transformer(sources));
    const CLI::Validator elevation = Number_Between(-32768, 32767);
    command->add_option("--max-elevation", options->Between.Max, "elevation of the top")
        ->required()
        ->check(elevation);
    command->add_option("--min-elevation", options->Between.Min, "elevation of the bottom")
        ->required()
        ->check(elevation);
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
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Section(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
