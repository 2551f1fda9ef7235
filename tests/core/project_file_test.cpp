#include "core/project_file.h"

#include <gtest/gtest.h>

#include <random>

#include "support/small_project.h"

namespace tarnvik {

using test::Plain_File;
using test::Small_File;

namespace {

Project Parsed(const std::string& bytes, Project project = {}) {
    Parse_Project(bytes, project);
    return project;
}

std::string Without_Total_Time(std::string bytes) {
    const auto total_time = bytes.rfind('\n', bytes.rfind('\n', bytes.rfind('\n') - 1) - 1);
    return bytes.substr(0, total_time);
}

}  // namespace

TEST(ProjectFile, EachBlockReachesItsPlaceWithItsScale) {
    const Project project = Parsed(Plain_File());
    EXPECT_EQ(project.NbShots, 2);
    EXPECT_EQ(project.NbReceivers, 3);
    EXPECT_EQ(project.LineLength, 10.5);
    EXPECT_EQ(project.ShotTimes(1, 2), 12.34F);
    EXPECT_EQ(project.ShotTimes(2, 1), 26.0F);
    EXPECT_EQ(project.ReceiverData(ReceiverDepth2, 1), 12.0F);
    EXPECT_EQ(project.ReceiverData(ReceiverIntercept, 2), 1.0F) << "100.5 is taken to the even 100";
    EXPECT_EQ(project.ReceiverData(ReceiverRockDepth, 3), -2.0F);
    EXPECT_EQ(project.ShotElevation(2), 11.0);
    EXPECT_EQ(project.ShotDistance(1), -6.0);
    EXPECT_EQ(project.ShotDepth(2), 0.75);
    EXPECT_EQ(project.VelocityA(2, 1), 1800);
    EXPECT_EQ(project.VelocityB(1, 5), 1505);
    EXPECT_EQ(project.InterceptA(2, 4), 0.8);
    EXPECT_EQ(project.InterceptB(1, 1), 3276.7);
    EXPECT_EQ(project.CritDistA(1, 1), -3276.8);
    EXPECT_EQ(project.CritDistB(1, 1), 0);
    EXPECT_EQ(project.ShotThickness(2, 4), 80.0);
    EXPECT_EQ(project.SuFile, "/data/ligne \u00E9t\u00E9.su");
    EXPECT_EQ(project.remark_grid.Text(2, 1), "20.5");
    EXPECT_EQ(project.remark_grid.Text(2, 3), "Rivi\u00E8re");
    EXPECT_EQ(project.remark_grid.Text(8, 3), "row9");
    EXPECT_EQ(project.remark_grid.Text(9, 3), "");
    EXPECT_EQ(project.TotalTime, 55.5);
    EXPECT_EQ(project.DistanceShift, -2.25);
}

TEST(ProjectFile, WriterGivesTheBytesOfTheFormat) {
    // Fractions behind the hundredths are lost in reading, so they do not come back.
    std::string expected = Plain_File();
    for (auto place = expected.find(".5 -"); place != std::string::npos; place = expected.find(".5 -")) {
        expected.erase(place, 2);
    }
    expected.replace(expected.find("75.25"), 5, "75");
    // The odd hundred and a half of each row is even in its hundreds and loses the half.
    EXPECT_EQ(Project_Bytes(Parsed(Plain_File())), expected);
}

TEST(ProjectFile, ReceiverRowsKeepDecimalsAndTimesAreCutDown) {
    Project project = Parsed(Plain_File());
    project.ShotTimes(1, 1) = 12.349F;
    project.ShotTimes(1, 2) = -0.001F;
    project.ShotTimes(1, 3) = 123456.0F;
    project.ReceiverData(1, 1) = 1.00125F;
    project.ShotElevation(1) = 0.29;
    const std::string bytes = Project_Bytes(project);
    EXPECT_NE(bytes.find("\r\n 1234 -1  1.23456E+07 \r\n"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("\r\n 100.125  100 "), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("\r\n 29 -600  50 \r\n"), std::string::npos) << "no binary noise";
}

TEST(ProjectFile, ASaveLowersFewTimesAndNoneByMoreThanAHundredth) {
    Project project;
    project.NbShots = 72;
    project.NbReceivers = 120;
    Redimension_Project(project);
    const auto time = [](int shot, int receiver) {
        return static_cast<float>((shot * 120 + receiver) / 100.0);
    };
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
            project.ShotTimes(shot, receiver) = time(shot, receiver);
    }
    const Project again = Parsed(Project_Bytes(project));
    int lowered = 0;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const float lost = time(shot, receiver) - again.ShotTimes(shot, receiver);
            lowered += lost != 0 ? 1 : 0;
            ASSERT_GE(lost, 0);
            ASSERT_LT(lost, 0.0101F);
        }
    }
    // A product in double precision would lower about half of the 8640.
    EXPECT_LT(lowered, 8640 / 10);
}

TEST(ProjectFile, ACommaInARemarkShiftsTheRowsBehindIt) {
    const Project project = Parsed(Small_File());
    EXPECT_EQ(project.remark_grid.Text(2, 3), "Rivi\u00E8re");
    // " nord" counts as 0 in the first column, the next line's numbers fill the other two.
    EXPECT_EQ(project.remark_grid.Text(3, 0), "0");
    EXPECT_EQ(project.remark_grid.Text(3, 3), "0            row4");
    EXPECT_EQ(project.remark_grid.Text(4, 3), "row5");
    EXPECT_EQ(project.remark_grid.Text(9, 3), "");
    EXPECT_EQ(project.TotalTime, 55.5);
}

TEST(ProjectFile, SeparatorsWordsAndNumbersOutOfRange) {
    // One shot, two receivers; all that is not said counts from the words around it.
    const Project project =
        Parsed("1,,, 5 , \n2 word 300,9999999999 \t 400\r1.5E+02x 2.5e2 7E400 1E-400 70000");
    EXPECT_EQ(project.LineLength, 5);
    EXPECT_EQ(project.ShotTimes(1, 1), 0) << "a word counts as 0";
    EXPECT_EQ(project.ShotTimes(1, 2), 3.0F);
    EXPECT_EQ(project.ReceiverData(1, 1), 3.0F) << "beyond 32 bits: the last number again";
    EXPECT_EQ(project.ReceiverData(1, 2), 4.0F);
    EXPECT_EQ(project.ReceiverData(2, 1), 1.5F);
    EXPECT_EQ(project.ReceiverData(2, 2), 2.5F);
    EXPECT_EQ(project.ReceiverData(3, 1), 2.5F) << "beyond a double: likewise";
    EXPECT_EQ(project.ReceiverData(3, 2), 0);
    EXPECT_EQ(project.ReceiverData(12, 2), 700.0F) << "the end of the file repeats the last number";
}

TEST(ProjectFile, AnEmptySuNameIsAnEmptyLine) {
    std::string bytes = Plain_File();
    const auto name = bytes.find("/data");
    bytes.erase(name, bytes.find("\r\n", name) - name);
    const Project project = Parsed(bytes);
    EXPECT_EQ(project.SuFile, "");
    EXPECT_EQ(project.remark_grid.Text(2, 0), "10");
    EXPECT_EQ(project.TotalTime, 55.5);
}

TEST(ProjectFile, AFileCutAnywhereGivesWhatStandsBeforeTheCut) {
    const std::string bytes = Plain_File();
    Project former;
    former.SuFile = "former.su";
    former.TotalTime = 40;
    former.DistanceShift = 7;
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const Project project = Parsed(bytes.substr(0, length), former);
        if (length < Without_Total_Time(bytes).size()) {
            ASSERT_EQ(project.TotalTime, 39) << length;
            ASSERT_EQ(project.DistanceShift, 7) << length;
        }
        if (length > 50 && length < bytes.size() - 10) {
            ASSERT_EQ(project.NbShots, 2);
            ASSERT_EQ(project.ShotTimes.Last_Column(), 3);
        }
    }
    const Project cut = Parsed(bytes.substr(0, bytes.find(" 1300  0")), former);
    EXPECT_EQ(cut.ShotTimes(2, 3), 26.0F);
    EXPECT_EQ(cut.ReceiverData(12, 3), 26.0F);
    EXPECT_EQ(cut.ShotDistance(2), 26.0);
    EXPECT_EQ(cut.InterceptA(2, 4), 260.0);
    EXPECT_EQ(cut.VelocityA(1, 1), 0) << "velocities do not repeat";
    EXPECT_EQ(cut.SuFile, "former.su");
}

TEST(ProjectFile, WildCountsAndRandomBytesEndQuickly) {
    const char* counts[] = {"-2 10 -3", "0 0 0",     "30000 1 30000", "32767 1 2",       "-1 5 24",
                            "5 5 -1",   "99999 1 3", "1 1 99999",     "-32768 0 -32768", ""};
    for (const char* text : counts) {
        const Project project = Parsed(std::string(text) + " 1 2 3 4 5 6 7 8\r\nfile.su\r\n");
        EXPECT_LE(static_cast<std::int64_t>(project.ShotTimes.Last_Row()) * project.ShotTimes.Last_Column(),
                  max_picks)
            << text;
    }
    std::mt19937 random(1);
    for (int trial = 0; trial < 50; ++trial) {
        std::string bytes = trial % 2 == 0 ? "" : "3 50 4 ";
        for (int i = 0; i < 10000; ++i)
            bytes.push_back(static_cast<char>(random()));
        const Project project = Parsed(bytes);
        EXPECT_TRUE(trial % 2 == 0 || project.ShotTimes.Last_Column() == 4);
    }
}

TEST(ProjectFile, ARemarkOrPathNeverBreaksTheLine) {
    Project project = Parsed(Plain_File());
    project.remark_grid.Set_Text(2, 3, "two\r\nlines");
    project.remark_grid.Set_Text(2, 0, "no number");
    const Project again = Parsed(Project_Bytes(project));
    EXPECT_EQ(again.remark_grid.Text(2, 3), "two  lines");
    EXPECT_EQ(again.remark_grid.Text(2, 0), "0");
    EXPECT_EQ(again.remark_grid.Text(3, 3), "row4");
}

TEST(ProjectFile, ThePathIsSplitAtEitherSeparator) {
    const struct {
        const char* Path;
        const char* Folder;
        const char* Name;
    } cases[] = {{"/data/line.one/P5.TV5", "/data/line.one/", "P5"},
                 {"C:\\Data\\P5.tv5", "C:\\Data\\", "P5"},
                 {"P5.tv5", "", "P5"},
                 {"/data/ab", "/data/", ""}};
    for (const auto& c : cases) {
        Project project;
        Split_Project_Path(project, c.Path);
        EXPECT_EQ(project.ProjectDir, c.Folder);
        EXPECT_EQ(project.ProjectName, c.Name);
        Split_Project_Path(project, "");
        EXPECT_EQ(project.ProjectName, c.Name);
    }
}

}  // namespace tarnvik
