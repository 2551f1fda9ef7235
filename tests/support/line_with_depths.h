#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/files.h"
#include "core/project_file.h"

namespace tarnvik::test {

/// The demo line in a file of its own, with two interfaces below its shots where `depths` are wanted, and
/// below all receivers the same by delay times. Answers the file.
inline std::string Write_Demo_Line(const std::string& path, bool depths) {
    Project line;
    Parse_Project(Read_File(std::string(TARNVIK_DEMO_FOLDER) + "/demo1.tv5").value_or(""), line);
    if (depths) {
        for (int shot = 2; shot <= 4; ++shot) {
            const std::int16_t velocities[] = {600, 1600, 3800};
            for (int layer = 1; layer <= 3; ++layer)
                line.VelocityA(shot, layer) = line.VelocityB(shot, layer) = velocities[layer - 1];
            line.ShotThickness(shot, 1) = 6;
            line.ShotThickness(shot, 2) = 10 + shot;
        }
    }
    EXPECT_EQ(Replace_File(path, Project_Bytes(line)), "");
    return path;
}

}  // namespace tarnvik::test
