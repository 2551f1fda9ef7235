// draw: the curves or the profile as a picture file, by the same routine as the screen.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "app/pages.h"
#include "batch/commands.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/profile.h"
#include "traveltime/zoom.h"

namespace tarnvik {

namespace {

struct DrawOptions {
    std::string What;
    std::string Mode = "Profil";
    std::string Size = "1600x900";
    bool ZeroOnTop = false;
    double ZoomX = 1;
    double ZoomY = 1;
    std::string MaxElevation;
    std::string MinElevation;
};

ExitStatus Draw(const CommonOptions& common, const DrawOptions& options, const std::string& folder) {
    CommonOptions with_elevations = common;
    // The profile asks for an extreme that is 0, the largest first; the options are those answers.
    if (!options.MinElevation.empty()) {
        with_elevations.Answers.insert(with_elevations.Answers.begin(), options.MinElevation);
    }
    if (!options.MaxElevation.empty()) {
        with_elevations.Answers.insert(with_elevations.Answers.begin(), options.MaxElevation);
    }
    BatchRun run(with_elevations, folder);
    if (!Parse_Size(options.Size, run.Display)) return WrongUsage;
    if (!run.Load()) return Refused;
    Workspace& work = run.Program.Work;
    work.Curves.ZeroOnTop = options.ZeroOnTop;
    Set_Zoom(work.Curves, options.ZoomX, options.ZoomY);
    Page page = Page::Curves;
    if (options.What == "profile") {
        page = Page::Profile;
        work.Mode.Display(Mode_Of_Word(options.Mode).value_or(DisplayMode::Profil));
        Draw_Seismic_Profile(work, run.Program.Outside);
        if (run.Prompts.Refused()) return Refused;
    }
    if (!Page_Can_Be_Drawn(run.Program, page)) {
        run.Prompts.Say("TV5 File  error", work.AppTitle, Icon::Critical);
        return Refused;
    }
    return Write_Page(run, page, common.Out);
}

}  // namespace

bool Parse_Size(const std::string& text, HeadlessDisplay& display) {
    const auto cross = LCase(text).find('x');
    const double width = cross == std::string::npos ? 0 : Rounded(Val(text.substr(0, cross)));
    const double height = cross == std::string::npos ? 0 : Rounded(Val(text.substr(cross + 1)));
    constexpr double smallest = 64;
    constexpr double largest = 20000;
    if (std::min(width, height) < smallest || std::max(width, height) > largest) {
        std::cerr << "--size: WIDTHxHEIGHT in pixels, such as 1600x900\n";
        return false;
    }
    display.Width = static_cast<int>(width);
    display.Height = static_cast<int>(height);
    return true;
}

ExitStatus Write_Page(BatchRun& run, Page page, const std::string& path) {
    const std::string reason = run.Display.Save_Page(page, path);
    if (!reason.empty()) {
        std::cerr << "[" << run.Program.Work.AppTitle << "] " << path << " cannot be written: " << reason
                  << "\n";
        return Refused;
    }
    return run.Status();
}

void Add_Draw(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "draw", "the curves or the profile as a picture");
    auto options = std::make_shared<DrawOptions>();
    command->add_option("WHAT", options->What, "curves or profile")
        ->required()
        ->check(CLI::IsMember({"curves", "profile"}));
    command->add_option("--out", request.Common.Out, "picture file (.png, .svg or .pdf)")->required();
    command->add_option("--mode", options->Mode, "profile: Profil, Profil2, Profil3 or Profil4")
        ->check(CLI::IsMember({"Profil", "Profil2", "Profil3", "Profil4"}));
    command->add_option("--size", options->Size, "WIDTHxHEIGHT in pixels");
    command->add_flag("--zero-on-top", options->ZeroOnTop, "time grows downward");
    command->add_option("--zoom-x", options->ZoomX, "distance factor");
    command->add_option("--zoom-y", options->ZoomY, "time factor");
    command->add_option("--max-elevation", options->MaxElevation, "profile: for a line at elevation 0");
    command->add_option("--min-elevation", options->MinElevation, "profile: for a line at elevation 0");
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Draw(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
