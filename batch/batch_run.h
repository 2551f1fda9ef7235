#pragma once

#include <string>
#include <vector>

#include "app/session.h"
#include "batch/console_launcher.h"
#include "batch/console_prompts.h"
#include "batch/headless_display.h"

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

    /// Reads the project file into the session, without the companions that an opening in the window looks
    /// for. False after a message.
    bool Load();
    /// Writes the project to a file, atomically; "" writes it back to where it came from.
    bool Store(const std::string& path);
    /// Done, or Refused when a message of the last step reported an error.
    ExitStatus Status() const { return Prompts.Refused() ? Refused : Done; }

    ConsolePrompts Prompts;
    HeadlessDisplay Display;
    ConsoleLauncher Launcher;
    Session Program;

  private:
    std::string ProjectFile;
};

}  // namespace tarnvik
