#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/files.h"
#include "core/project_file.h"
#include "output/exports/export_files.h"
#include "support/test_ports.h"

namespace tarnvik::test {

/// The demo line as a project in a folder of its own, to be exported.
class DemoExports : public testing::Test {
  protected:
    DemoExports() {
        Line.CurrentFile = Folder / "demo1.tv5";
        Parse_Project(Read_File(std::string(TARNVIK_DEMO_FOLDER) + "/demo1.tv5").value_or(""), Line);
    }
    /// Depths of two interfaces below the shots on the line, and below some receivers.
    void Give_Depths() {
        for (int shot = 2; shot <= 4; ++shot) {
            Line.VelocityA(shot, 1) = 600;
            Line.VelocityA(shot, 2) = 1600;
            Line.VelocityA(shot, 3) = 3800;
            Line.ShotThickness(shot, 1) = 6;
            Line.ShotThickness(shot, 2) = 10 + shot;
        }
        for (const int receiver : {2, 3, 5, 6}) {
            Line.ReceiverData(ReceiverDepth1, receiver) = 6.5;
            Line.ReceiverData(ReceiverRockDepth, receiver) = 18;
        }
        Line.remark_grid.Set_Text(2, 0, "30");
        Line.remark_grid.Set_Text(2, 1, "95");
        Line.remark_grid.Set_Text(2, 2, "2");
        Line.remark_grid.Set_Text(2, 3, "Borehole n° 1");
    }
    ExportSource Source() {
        return {"Title", [this] { return &Work; }, ""};
    }
    std::string Written(const std::string& name) const { return Read_File(Folder / name).value_or("none"); }
    /// The checked example of a file that an export of the demo line writes.
    static std::string Example(const std::string& name) {
        return Read_File(std::string(TARNVIK_EXAMPLES) + "/" + name).value_or("no example");
    }
    std::vector<std::string> Names_In_Folder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder.Path))
            names.push_back(entry.path().filename().string());
        return names;
    }

    TemporaryFolder Folder;
    Workspace Work;
    TestPorts Test;
    Project& Line = Work.Project;
    ScriptedPrompts& Prompts = Test.Prompts;
};

}  // namespace tarnvik::test
