#pragma once

#include <string>
#include <vector>

#include "app/session.h"
#include "batch/console_launcher.h"
#include "batch/console_prompts.h"
#include "ui/headless/headless_display.h"

namespace tarnvik {

/// How tarnvik-batch ends.
enum ExitStatus : int { Done = 0, Refused = 1, WrongUsage = 2 };

/// Options that every command takes.
struct CommonOptions {
    std::string ProjectFile;
    std::vector<std::string> Answers;
    bool AlwaysYes = false;
    bool Json = false;
    bool Save = false;
    std::string Out;
};

/// One run of tarnvik-batch: a session whose outside is the terminal.
class BatchRun {
  public:
    BatchRun(const CommonOptions& options, std::string program_folder);

    /// Reads the project file into the session, and its GRM file as the window does; the records are not
    /// looked for. False after a message.
    bool Load();
    /// Writes the project to a file, atomically; "" writes it back to where it came from.
    bool Store(const std::string& path);
    /// True when a result may go to this file: none stands there, or --yes was given, and it is none of the
    /// files that the command reads (the project, its records and their twin, `sources`). False after a
    /// message.
    bool May_Write(const std::string& path, const std::vector<std::string>& sources = {});
    /// False after a message that reports an error.
    bool Refuse(const std::string& text);
    /// Done, or Refused when a message of the last step reported an error.
    ExitStatus Status() const { return Prompts.Refused() ? Refused : Done; }
    /// The end of a command whose result is a file: tells it with --json, a refused command with no file.
    ExitStatus Finish(ExitStatus status) const;

    ConsolePrompts Prompts;
    HeadlessDisplay Display;
    ConsoleLauncher Launcher;
    Session Program;

  private:
    CommonOptions Options;
};

}  // namespace tarnvik
