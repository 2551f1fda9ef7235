// Files of other programs read back: the examples of the demo line, and files that are none.

#include <cmath>

#include "output/demo_exports.h"
#include "output/imports/import_picks.h"
#include "output/imports/pick_files.h"

namespace tarnvik::test {
namespace {

class DemoImports : public DemoExports {
  protected:
    /// Reads a copy of an example; the file of receivers lies beside it.
    ImportReport Import(const std::string& name) {
        for (const std::string& file : {name, std::string("demo1_XZ.txt")})
            EXPECT_EQ(Replace_File(Folder / file, Example(file)), "");
        return Import_Picks(Read, Test.Ports, Folder / name);
    }
    /// All places, and all times of these shots that differ by no more than `step` ms.
    void Expect_Line(double step, double elevation_step) {
        const Project& read = Read.Project;
        ASSERT_EQ(read.NbShots, Line.NbShots);
        ASSERT_EQ(read.NbReceivers, Line.NbReceivers);
        EXPECT_DOUBLE_EQ(read.LineLength, Line.LineLength);
        for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver) {
            for (const int row : {ReceiverDistance, ReceiverElevation})
                EXPECT_EQ(read.ReceiverData(row, receiver), Line.ReceiverData(row, receiver)) << receiver;
            for (int shot = 1; shot <= Line.NbShots; ++shot)
                EXPECT_NEAR(read.ShotTimes(shot, receiver), Line.ShotTimes(shot, receiver), step + 1e-4);
        }
        for (int shot = 1; shot <= Line.NbShots; ++shot) {
            EXPECT_EQ(read.ShotDistance(shot), Line.ShotDistance(shot));
            EXPECT_NEAR(read.ShotElevation(shot), Line.ShotElevation(shot), elevation_step);
        }
    }
    Workspace Read;
};

TEST_F(DemoImports, close_the_circle_with_PLOTREFA_and_the_unified_format) {
    const ImportReport plotrefa = Import("demo12.ASC");  // written with 60 added to all distances
    EXPECT_EQ(plotrefa.Picks, 119);
    EXPECT_EQ(Read.Project.DistanceShift, -60);
    EXPECT_EQ(plotrefa.FirstEndShot, 2);
    EXPECT_EQ(plotrefa.LastEndShot, 4);
    Expect_Line(0, 3);  // the file has no elevations of shots: those of the ground beside them
    EXPECT_NEAR(Read.Project.ShotElevation(3), Line.ShotElevation(3), 0.2);
    Import("demo1.sgt");
    EXPECT_EQ(Read.Project.DistanceShift, 0);
    Expect_Line(0, 1e-9);
    // As it is filed and read again.
    Project filed;
    Parse_Project(Project_Bytes(Read.Project), filed);
    Read.Project = filed;
    Expect_Line(0, 1e-9);
}

TEST_F(DemoImports, turn_Rayfract_stations_into_distances) {
    for (int receiver = 1; receiver <= 24; ++receiver)
        Line.ShotTimes(4, receiver) = 0;
    Line.ShotTimes(2, 7) = Line.ShotTimes(3, 7) = Line.ShotTimes(1, 7) = 0;
    Prompts.Expect_Input("Enter the distance between two stations", "2.5");
    const ImportReport report = Import("demo1.asc");
    // Shot 4 had no picks and is not in the file: the line ends at the offset shot, given 3 too far.
    EXPECT_EQ(Read.Project.NbShots, 4);
    EXPECT_DOUBLE_EQ(Read.Project.LineLength, 180);
    EXPECT_EQ(report.Picks, 24 * 4 - 4);
    EXPECT_NEAR(Read.Project.ReceiverData(ReceiverDistance, 7), 32.5, 1e-5);
    EXPECT_EQ(Read.Project.ReceiverData(ReceiverElevation, 7), Line.ReceiverData(ReceiverElevation, 7));
    EXPECT_NEAR(Read.Project.ShotDistance(1), -76.25, 1e-9);
    for (int receiver = 1; receiver <= 24; ++receiver)
        EXPECT_NEAR(Read.Project.ShotTimes(3, receiver), Line.ShotTimes(3, receiver), 0.0501);
    Prompts.Expect_Input("Enter the distance between two stations", "-1");
    EXPECT_EQ(Import("demo1.asc").Refusal, "The distance between two stations must be above 0");
}

TEST_F(DemoImports, read_the_variants_of_the_unified_format) {
    // Tabs, columns in another order, a third dimension that is flat, a datum that is not valid, a second
    // time of a pair, a receiver without picks.
    const std::string text =
        "4 # sensors\n#x\ty\tz\n0\t10\t0\n5\t11\t0\n-5\t9\t0\n10 12 0\n5\n#g t/ms s valid\n2 0.01 1 1\n"
        "3 0.02 1 1\n2 0.03 1 1\n3 0.04 4 0\n2 -1 4 1\n0\n";
    Project project;
    const ImportReport report = Project_Of_Line(Read_Unified(text), project);
    EXPECT_EQ(report.Refusal, "");
    EXPECT_EQ(project.NbShots, 2);
    EXPECT_EQ(project.NbReceivers, 2);
    EXPECT_EQ(report.Picks, 2);
    EXPECT_EQ(report.LeftOut.size(), 3U);
    EXPECT_EQ(project.ReceiverData(ReceiverElevation, 1), 9);
    EXPECT_EQ(project.ShotTimes(1, 2), 10);
    EXPECT_EQ(project.ShotTimes(1, 1), 20);
}

TEST_F(DemoImports, tell_what_is_wrong_with_a_file_and_where) {
    const struct {
        const char* Bytes;
        const char* Words;
    } cases[] = {
        {"", "The file does not begin with the numbers of its version"},
        {"1977 6 3\n0 2 5\n0 1 0\n5 10 1\n", "The file ends before its last shot"},
        {"1977 6 3\n0 1 5\n0 2 0\n5 10 1\n", "The file ends within the picks of a shot"},
        {"1977 6 3\n0 1 5\n0 1e300 0\n5 x 1\n", "Line 4 holds no distance of a receiver and time"},
        {"1977 6 3\n0 0 5\n", "The file holds no shot"},
        {"1977 6 3\n0 1 5\n1e9 1 0\n5 10 1\n", "A shot at 1000000000 is too far away for a line"},
        {"1;2;3\n", "Line 1 holds no shot, two stations and time"},
        {"2 # p\n0 0\n", "The file ends within its positions"},
        {"1 # p\n0 0\n1 # d\n# s g t\n1 2 0.1\n",
         "Measurement 1 names no position of the file, or has no time"},
        {"1 # p\n0 0\n1 # d\n# a b m n\n1 2 3 4\n", "The measurements have no columns s, g and t"},
        {"-1 # p\n", "Line 1 holds no number of positions"},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(Replace_File(Folder / "bad.asc", c.Bytes), "");
        if (Kind_Of_Pick_File(c.Bytes) == PickFile::Rayfract)
            Prompts.Expect_Input("Enter the distance between two stations", "1");
        EXPECT_EQ(Import_Picks(Read, Test.Ports, Folder / "bad.asc").Refusal, c.Words) << c.Bytes;
        EXPECT_EQ(Prompts.Last_Text(), (Folder / "bad.asc") + ": " + c.Words);
        EXPECT_EQ(Read.Project.NbShots, 0);
    }
}

}  // namespace
}  // namespace tarnvik::test
