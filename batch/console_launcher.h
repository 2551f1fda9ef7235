#pragma once

#include <string>
#include <utility>

#include "core/ports/launcher.h"
#include "ui/running/tool_run.h"

namespace tarnvik {

/// Launcher of a run without a screen: tools run to their end, nothing is left running and nothing is found.
/// A result that would be shown on a desktop is shown to nobody, which is no failure.
class ConsoleLauncher : public Launcher {
  public:
    explicit ConsoleLauncher(std::string program_folder) : Folder(std::move(program_folder)) {}

    int Start(const std::string&, const std::string&, const std::string&) override { return 0; }
    bool Has_Tool(const std::string&) const override { return false; }
    ToolResult Run_In_Order(const std::vector<ToolCommand>& commands, const std::string& folder,
                            const ToolProgress& progress) override {
        return Run_Tools(commands, folder, QString::fromStdString(Folder), progress);
    }
    int Open_Document(const std::string&) override { return launch_failure_below; }
    int Edit_Text(const std::string&) override { return launch_failure_below; }
    std::string Find_Program(const std::string&) override { return {}; }
    std::string Program_Folder() const override { return Folder; }
    std::string Documents_Folder() const override { return "."; }
    std::string Decimal_Separator() const override { return "."; }
    void Set_Decimal_Point() override {}
    void Register_File_Type() override {}

  private:
    std::string Folder;
};

}  // namespace tarnvik
