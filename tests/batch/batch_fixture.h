#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>

#include "core/files.h"
#include "core/project_file.h"
#include "support/test_ports.h"

namespace tarnvik::test {

struct Outcome {
    int Status = -1;
    std::string Output;  ///< standard output
    std::string Errors;  ///< standard error
    nlohmann::json Json() const { return nlohmann::json::parse(Output, nullptr, false); }
};

/// tarnvik-batch as a script uses it, on copies of the demo line.
class Batch : public ::testing::Test {
  protected:
    Outcome Run(const std::string& arguments) {
        const std::string errors = Folder / "errors.txt";
        const std::string line = std::string(TARNVIK_BATCH) + " " + arguments + " 2>" + errors;
        Outcome outcome;
        std::FILE* pipe = popen(line.c_str(), "r");
        if (pipe == nullptr) return outcome;
        std::array<char, 4096> buffer{};
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
            outcome.Output.append(buffer.data(), count);
        }
        outcome.Status = WEXITSTATUS(pclose(pipe));
        outcome.Errors = Read_File(errors).value_or("");
        return outcome;
    }
    /// A copy of the demo line, so that nothing can happen to the one in the sources.
    std::string Demo(const std::string& name) {
        EXPECT_EQ(Copy_File(std::string(DEMO_FOLDER) + "/" + name, Folder / name), "");
        return Folder / name;
    }
    Project Read(const std::string& path) {
        Project project;
        Parse_Project(Read_File(path).value_or(""), project);
        return project;
    }
    /// The demo line changed by hand, as a project of its own.
    template <class Change>
    std::string Changed_Demo(const std::string& name, Change change) {
        Project project = Read(Demo("demo1.tv5"));
        change(project);
        EXPECT_EQ(Replace_File(Folder / name, Project_Bytes(project)), "");
        return Folder / name;
    }
    /// Velocities and intercept times of three layers under the three shots on the line.
    static void Interpret(Project& project) {
        for (int shot = 2; shot <= 4; ++shot) {
            const std::array<std::int16_t, 3> velocities = {600, 1600, 3800};
            for (int layer = 1; layer <= 3; ++layer) {
                project.VelocityA(shot, layer) = velocities.at(static_cast<std::size_t>(layer) - 1);
                project.VelocityB(shot, layer) = velocities.at(static_cast<std::size_t>(layer) - 1);
            }
            for (int top = 1; top <= 2; ++top) {
                project.InterceptA(shot, top) = 18 * top;
                project.InterceptB(shot, top) = 18 * top;
            }
        }
    }

    TemporaryFolder Folder;
};

}  // namespace tarnvik::test
