#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/session.h"
#include "core/files.h"
#include "support/small_project.h"
#include "support/test_ports.h"

namespace tarnvik::test {

/// A session over recording ports, its settings and project files in a folder of the test's own.
class SessionTest : public ::testing::Test {
  protected:
    /// A project file of 2 shots and 3 receivers whose name is derived from nothing else in the folder.
    std::string Project_File(const std::string& name = "line.tv5") {
        std::string bytes = Plain_File();
        const auto su_line = bytes.find("/data/");
        bytes.erase(su_line, bytes.find("\r\n", su_line) - su_line);
        EXPECT_EQ(Replace_File(Folder / name, bytes), "");
        return Folder / name;
    }

    TemporaryFolder Folder;
    TestPorts World;
    Session Program{World.Ports, Folder / "Tarnvik32.INI"};
};

}  // namespace tarnvik::test
