#pragma once

#include <functional>
#include <string>

#include "batch/batch_run.h"

namespace CLI {
class App;
}

namespace tarnvik {

/// What a command line asked for, filled while CLI11 reads it; run afterwards.
struct Request {
    CommonOptions Common;
    std::function<ExitStatus(const CommonOptions&, const std::string& program_folder)> Run;
};

/// Each adds one command with its options to the program and, when it was chosen, sets request.Run.
void Add_Show(CLI::App& app, Request& request);
void Add_Save(CLI::App& app, Request& request);
void Add_Convert(CLI::App& app, Request& request);
void Add_Draw(CLI::App& app, Request& request);
void Add_Velocity(CLI::App& app, Request& request);
void Add_True_Velocity(CLI::App& app, Request& request);
void Add_Hand_Velocity(CLI::App& app, Request& request);
void Add_Apparent(CLI::App& app, Request& request);
void Add_Dip(CLI::App& app, Request& request);
void Add_Depth(CLI::App& app, Request& request);
void Add_Quick(CLI::App& app, Request& request);
void Add_Phantom(CLI::App& app, Request& request);
void Add_Theoretic(CLI::App& app, Request& request);
void Add_Delay(CLI::App& app, Request& request);
void Add_Abc(CLI::App& app, Request& request);
void Add_Grm(CLI::App& app, Request& request);
void Add_Grm_Depth(CLI::App& app, Request& request);
void Add_Record(CLI::App& app, Request& request);
void Add_New(CLI::App& app, Request& request);
void Add_Pick(CLI::App& app, Request& request);
void Add_Timebreak(CLI::App& app, Request& request);
/// su-window, su-stack, su-resample, su-shift.
void Add_Su_Chain(CLI::App& app, Request& request);
void Add_Su_Convert(CLI::App& app, Request& request);
void Add_Filter(CLI::App& app, Request& request);
/// Calculated against picked times.
void Add_Forward(CLI::App& app, Request& request);
void Add_Section(CLI::App& app, Request& request);
void Add_Table(CLI::App& app, Request& request);
void Add_Export(CLI::App& app, Request& request);
void Add_Import(CLI::App& app, Request& request);
void Add_Header(CLI::App& app, Request& request);

/// "1600x900" into the size of the picture files; false when it is no size in pixels.
bool Parse_Size(const std::string& text, HeadlessDisplay& display);
/// Writes a page to a picture file, a failure told; the end of the command.
ExitStatus Write_Page(BatchRun& run, Page page, const std::string& path);

/// The options of every command: --answer, --yes and --json.
void Add_Answers(CLI::App& command, CommonOptions& common);

/// The options --save and --out of a command that changes a project.
void Add_Project_Outputs(CLI::App& command, CommonOptions& common);

/// A command that works on a project file: its name, help text, the project argument and the options of all.
CLI::App* Add_Project_Command(CLI::App& app, Request& request, const std::string& name,
                              const std::string& help);

}  // namespace tarnvik
