// draw: the curves or the profile as a picture file, by the same routine as the screen.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <iostream>
#include <memory>
#include <vector>

#include "app/pages.h"
#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/text/number.h"
#include "output/profile.h"
#include "traveltime/zoom.h"

namespace tarnvik {

namespace {

struct DrawOptions {
    std::string What;
    std::string Mode = "Profil";
    std::string Size = "1600x900";
    double Dpi = PictureFormat().Dpi;
    bool TitleBlock = false;
    bool ZeroOnTop = false;
    double ZoomX = 1;
    double ZoomY = 1;
    ProfileElevations Elevations;
};

/// The profile enlarged, its upper left part in sight: there the ground is.
void Enlarge_Profile(ProfileView& view, double zoom_x, double zoom_y) {
    constexpr double picture_height = 100;
    view.ZoomX = zoom_x;
    view.ZoomY = zoom_y;
    view.Across = 0;
    view.Up = static_cast<int>(Rounded(picture_height * zoom_y - picture_height));
}

ExitStatus Draw(const CommonOptions& common, const DrawOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    if (!Parse_Size(options.Size, run.Display)) return WrongUsage;
    run.Display.Format.Dpi = options.Dpi;
    run.Display.Format.TitleBlock = options.TitleBlock;
    if (!run.Load() || !run.May_Write(common.Out)) return run.Finish(Refused);
    Workspace& work = run.Program.Work;
    work.Curves.ZeroOnTop = options.ZeroOnTop;
    Page page = Page::Curves;
    if (options.What == "profile") {
        page = Page::Profile;
        work.Mode.Display(Mode_Of_Word(options.Mode).value_or(DisplayMode::Profil));
        Draw_Seismic_Profile(work, run.Program.Outside, options.Elevations);
        if (run.Prompts.Refused()) return run.Finish(Refused);
        Enlarge_Profile(work.Profile, options.ZoomX, options.ZoomY);
    } else {
        Set_Zoom(work.Curves, options.ZoomX, options.ZoomY);
    }
    if (!Page_Can_Be_Drawn(run.Program, page)) {
        run.Refuse("TV5 File  error");
        return run.Finish(Refused);
    }
    return Write_Page(run, page, common.Out);
}

}  // namespace

bool Parse_Size(const std::string& text, HeadlessDisplay& display) {
    constexpr int smallest = 64;
    constexpr int largest = 20000;
    const char* end = text.data() + text.size();
    int width = 0;
    int height = 0;
    const auto [cross, fault] = std::from_chars(text.data(), end, width);
    if (fault == std::errc() && cross != end && (*cross == 'x' || *cross == 'X')) {
        const auto [stopped, second_fault] = std::from_chars(cross + 1, end, height);
        if (second_fault != std::errc() || stopped != end) height = 0;
    }
    if (std::min(width, height) < smallest || std::max(width, height) > largest) {
        std::cerr << "--size: WIDTHxHEIGHT in pixels from 64 to 20000, such as 1600x900\n";
        return false;
    }
    display.Format.Width = width;
    display.Format.Height = height;
    return true;
}

ExitStatus Write_Page(BatchRun& run, Page page, const std::string& path) {
    const std::string reason = run.Display.Save_Page(page, path, run.Display.Format);
    if (!reason.empty()) run.Refuse(path + " cannot be written: " + reason);
    return run.Finish(run.Status());
}

void Add_Draw(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "draw", "the curves or the profile as a picture");
    auto options = std::make_shared<DrawOptions>();
    command->add_option("WHAT", options->What, "curves or profile")
        ->required()
        ->check(CLI::IsMember({"curves", "profile"}));
    command->add_option("--out", request.Common.Out, "picture file (.png, .jpg, .svg, .pdf or .wmf)")
        ->required()
        ->check(Picture_Name());
    command->add_option("--size", options->Size, "WIDTHxHEIGHT in pixels");
    command->add_option("--dpi", options->Dpi, "pixels an inch: texts grow with it")
        ->check(Number_Between(30, 1200));
    command->add_flag("--title", options->TitleBlock, "name of the line, date and scale under the picture");
    const CLI::Validator factor = Number_Between(0.1, 96);
    command->add_option("--zoom-x", options->ZoomX, "distance factor")->check(factor);
    command->add_option("--zoom-y", options->ZoomY, "factor of time or elevation")->check(factor);
    std::vector<CLI::Option*> of_curves = {
        command->add_flag("--zero-on-top", options->ZeroOnTop, "curves: time grows downward")};
    const CLI::Validator elevation = Number_Between(-32768, 32767);
    std::vector<CLI::Option*> of_profile = {
        command->add_option("--mode", options->Mode, "profile: Profil, Profil2, Profil3 or Profil4")
            ->check(CLI::IsMember({"Profil", "Profil2", "Profil3", "Profil4"})),
        command->add_option("--max-elevation", options->Elevations.Max, "profile: instead of the line's own")
            ->check(elevation),
        command->add_option("--min-elevation", options->Elevations.Min, "profile: instead of the line's own")
            ->check(elevation)};
    command->callback([&request, options, of_curves, of_profile] {
        const bool curves = options->What == "curves";
        for (const CLI::Option* option : curves ? of_profile : of_curves) {
            if (option->count() > 0)
                throw CLI::ValidationError(option->get_name(), "has no effect on the " + options->What);
        }
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Draw(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
