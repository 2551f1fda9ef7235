// tarnvik-batch: the whole program from a terminal, with no screen.

#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <filesystem>
#include <iostream>

#include "batch/commands.h"

namespace tarnvik {

namespace {

/// Folder of this program, where its companions lie.
std::string Program_Folder(const char* invoked_as) {
    std::error_code failed;
    const auto itself = std::filesystem::read_symlink("/proc/self/exe", failed);
    return (failed ? std::filesystem::path(invoked_as) : itself).parent_path().string();
}

int Run(int argc, char** argv) {
    // Letters and pictures need the toolkit's fonts, a window never appears.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit's remarks on a desktop that is not there would stand among the program's messages.
    QLoggingCategory::setFilterRules("default.warning=false");
    // It is given no arguments: it would take those that it knows itself, such as --style.
    int toolkit_count = 1;
    char* toolkit_arguments[] = {argv[0], nullptr};
    QGuiApplication toolkit(toolkit_count, toolkit_arguments);

    CLI::App app("Interpretation of shallow seismic refraction lines, without a screen", "tarnvik-batch");
    app.require_subcommand(1);
    app.set_version_flag("--version", "Tarnvik 16.5");
    Request request;
    Add_Show(app, request);
    Add_Save(app, request);
    Add_Convert(app, request);
    Add_Velocity(app, request);
    Add_True_Velocity(app, request);
    Add_Hand_Velocity(app, request);
    Add_Apparent(app, request);
    Add_Dip(app, request);
    Add_Depth(app, request);
    Add_Quick(app, request);
    Add_Phantom(app, request);
    Add_Theoretic(app, request);
    Add_Delay(app, request);
    Add_Abc(app, request);
    Add_Grm(app, request);
    Add_Grm_Depth(app, request);
    Add_Draw(app, request);
    Add_Record(app, request);
    Add_New(app, request);
    Add_Pick(app, request);
    Add_Timebreak(app, request);
    Add_Su_Chain(app, request);
    Add_Su_Convert(app, request);
    Add_Filter(app, request);
    Add_Section(app, request);
    Add_Forward(app, request);
    Add_Table(app, request);
    Add_Export(app, request);
    Add_Import(app, request);
    Add_Header(app, request);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        app.exit(error);
        return WrongUsage;
    }
    return request.Run(request.Common, Program_Folder(argv[0]));
}

}  // namespace

}  // namespace tarnvik

int main(int argc, char** argv) {
    try {
        return tarnvik::Run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "tarnvik-batch: " << failure.what() << "\n";
        return tarnvik::Refused;
    }
}
