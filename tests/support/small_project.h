#pragma once

#include <string>

#include "core/project_file.h"
#include "core/workspace.h"

namespace tarnvik::test {

/// A file of 2 shots and 3 receivers, written by hand from the format: each block has numbers of its own.
inline std::string Small_File() {
    std::string bytes =
        " 2             10.5          3 \r\n"
        " 0  1234  2550 \r\n"
        " 2600  1300  0 \r\n";
    for (int row = 1; row <= 12; ++row) {
        const std::string first = std::to_string(row * 100);
        bytes += " " + first + "  " + first + ".5 -" + first + " \r\n";
    }
    bytes +=
        " 1000 -600  50 \r\n"
        " 1100  1051  75.25 \r\n";
    for (int line = 1; line <= 10; ++line)
        bytes += " " + std::to_string(line * 300) + "  " + std::to_string(line * 301) + " \r\n";
    for (int line = 1; line <= 8; ++line) {
        bytes += " " + std::to_string(line) + "  32767 -32768  0  " + std::to_string(line * 1000) + " \r\n";
    }
    bytes += "/data/ligne \xE9t\xE9.su\r\n";
    bytes += " 10            20.5         -3            Rivi\xE8re, nord\r\n";
    for (int row = 4; row <= 9; ++row)
        bytes += " 0             0             0            row" + std::to_string(row) + "\r\n";
    return bytes + " 0             0             0            \r\n 56.5 \r\n-2.25 \r\n";
}

/// The same without the comma in the remark, which the writer gives back byte for byte.
inline std::string Plain_File() {
    std::string bytes = Small_File();
    bytes.erase(bytes.find(", nord"), 6);
    return bytes;
}

inline Workspace Small_Workspace(const std::string& path) {
    Workspace workspace;
    Parse_Project(Plain_File(), workspace.Project);
    workspace.Project.CurrentFile = path;
    workspace.FileOnDisk = path;
    return workspace;
}

}  // namespace tarnvik::test
