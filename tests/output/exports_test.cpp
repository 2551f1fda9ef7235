// The files of the exports, held against checked examples of the demo line.

#include <algorithm>

#include "core/ports/automation.h"
#include "output/demo_exports.h"
#include "output/exports/dxf_export.h"
#include "output/exports/picks_export.h"
#include "output/exports/plotrefa_export.h"
#include "output/exports/rayfract_export.h"
#include "output/exports/seisopt_export.h"
#include "output/exports/surfer_export.h"

namespace tarnvik::test {
namespace {

void Expect_Plotrefa(ScriptedPrompts& prompts, Answer offset_shots, const char* added) {
    prompts.Expect_Input("Enter the station spacing interval", "5");
    prompts.Expect("Do you want to use offset shots", offset_shots);
    prompts.Expect_Input("Enter the distance to add", added);
}

TEST_F(DemoExports, write_the_three_files_of_SeisOpt2D_without_offset_shots) {
    Line.ShotDepth(3) = 1.5;
    Line.ShotTimes(2, 5) = -3;
    Prompts.Expect_Input("Distance to add to ALL original distances", "10");
    Prompts.Expect_Input("Elevation to add to ALL original elevations", "1000");
    Prompts.Expect(" Do you want to compute real distances (if there a slopes) ?", Answer::No);
    const ExportReport report = Export_SeisOpt2D(Test.Ports, Source());
    EXPECT_TRUE(report.Done);
    for (const char* name : {"demo1_src", "demo1_rec", "demo1_obs"})
        EXPECT_EQ(Written(name), Example(name)) << name;
    EXPECT_EQ(Test.Launcher.Started, (std::vector<std::string>{"editor|" + (Folder / "demo1_src"),
                                                               "editor|" + (Folder / "demo1_rec"),
                                                               "editor|" + (Folder / "demo1_obs")}));
    EXPECT_EQ(report.Picks, 70);
    EXPECT_TRUE(Prompts.Last_Text().starts_with(
        "Remember ! This spread has 70 first break picks and3 shots\r\nWritten: 70 picks, 3 shots, 24 "
        "receivers.\r\nLeft out:\r\nShot 1 with 24 picks: it is an offset shot\r\n"))
        << Prompts.Last_Text();
    EXPECT_EQ(report.LeftOut.size(), 3U) << "two offset shots and a time below 0";
}

TEST_F(DemoExports, take_real_distances_only_when_asked_to) {
    for (int receiver = 1; receiver <= 24; ++receiver)
        Line.ReceiverData(ReceiverElevation, receiver) = 100;
    Line.ReceiverData(ReceiverElevation, 24) = 103;  // 5 along the ground, 4 across
    Line.ShotDistance(3) = 62.5;                     // at a receiver, where no shot is given a place
    Prompts.Expect_Input("Distance to add to ALL original distances", "0");
    Prompts.Expect_Input("Elevation to add to ALL original elevations", "0");
    Prompts.Expect(" Do you want to compute real distances (if there a slopes) ?", Answer::Yes);
    const ExportReport report = Export_SeisOpt2D(Test.Ports, Source());
    EXPECT_TRUE(Written("demo1_rec").ends_with("112.50 100.00\r\n116.50 103.00\r\n")) << Written("demo1_rec");
    EXPECT_TRUE(Written("demo1_src").starts_with("0.00 100.00 24\r\n0.00 101.07 23\r\n"))
        << Written("demo1_src");
    EXPECT_TRUE(std::any_of(report.LeftOut.begin(), report.LeftOut.end(), [](const std::string& line) {
        return line.starts_with("Shot 3: it stands between no two receivers");
    }));
    EXPECT_EQ(Work.Edits.All().size(), 1U) << "the line itself was changed, which can be undone";
}

TEST_F(DemoExports, write_the_PLOTREFA_files_and_never_over_another_file_unasked) {
    ASSERT_EQ(Replace_File(Folder / "demo1_XZ.txt", "mine"), "");
    Expect_Plotrefa(Prompts, Answer::Yes, "60");
    Prompts.Expect((Folder / "demo1_XZ.txt") + " already exists, overwrite ?", Answer::No);
    Prompts.Expect_File("Enter the new ASC file name", "");
    EXPECT_FALSE(Export_Plotrefa(Test.Ports, Source()).Done);
    EXPECT_EQ(Names_In_Folder(), (std::vector<std::string>{"demo1_XZ.txt"})) << "given up: nothing written";

    Expect_Plotrefa(Prompts, Answer::Yes, "60");
    Prompts.Expect((Folder / "demo1_XZ.txt") + " already exists, overwrite ?", Answer::No);
    Prompts.Expect_File("Enter the new ASC file name", Folder / "places.txt");
    const ExportReport report = Export_Plotrefa(Test.Ports, Source());
    EXPECT_TRUE(report.Done);
    EXPECT_EQ(Written("demo1_XZ.txt"), "mine");
    EXPECT_EQ(Written("places.txt"), Example("demo1_XZ.txt"));
    EXPECT_EQ(Written("demo12.ASC"), Example("demo12.ASC"));
    EXPECT_EQ(Written("demo1.VS"), Example("demo12.ASC"));
    EXPECT_TRUE(Prompts.Last_Text().starts_with("ASC files for export to Plotrefa have been written\r\n"));

    Expect_Plotrefa(Prompts, Answer::No, "0");
    for (const char* name : {"demo1.VS", "demo1_XZ.txt", "demo12.ASC"})
        Prompts.Expect((Folder / name) + " already exists, overwrite ?", Answer::Yes);
    EXPECT_EQ(Export_Plotrefa(Test.Ports, Source()).LeftOut.size(), 2U);
    EXPECT_TRUE(Written("demo1.VS").starts_with("1977 6 3.000000\r\n0 3 5.000000\r\n0.000000 24 0\r\n"));
}

TEST_F(DemoExports, write_Rayfract_stations_on_the_scale_of_the_receivers) {
    for (int receiver = 1; receiver <= 24; ++receiver)
        Line.ShotTimes(4, receiver) = 0;
    Line.ShotTimes(2, 7) = Line.ShotTimes(3, 7) = Line.ShotTimes(1, 7) = 0;
    Prompts.Expect("Run RAYFRACT module ?", Answer::Yes);
    Prompts.Expect_Input("Enter the station spacing interval", "2");
    Prompts.Expect("Do you want to use offset shots", Answer::Yes);
    Prompts.Expect_Input(
        "Enter the station spacing between end shot n°1 (Tarnvik distance =0) and geophone n°1 (station 1)",
        "1.5");
    Prompts.Expect_Input("Enter the shot 1 station number, distance=-60", "-30");
    Prompts.Expect_Input("Enter the shot 5 station number, distance=180", "72.5");
    const ExportReport report = Export_Rayfract(Test.Ports, Source());
    EXPECT_EQ(Written("demo1.asc"), Example("demo1.asc"));
    // Offered: on by the slope of the last interval.
    EXPECT_EQ(Prompts.InputDefaults, (std::vector<std::string>{"0.5", "1", "-23.5", "72.5"}));
    EXPECT_EQ(report.LeftOut, (std::vector<std::string>{"Shot 4: it has no picks"}));
    EXPECT_EQ(report.Shots, 4);
}

TEST_F(DemoExports, write_picks_and_profile_for_open_packages) {
    Give_Depths();
    for (const auto& run : {Export_Unified, Export_Picks, Export_Dxf})
        EXPECT_TRUE(run(Test.Ports, Source()).Done);
    for (const char* name : {"demo1.sgt", "demo1_picks.csv", "demo1.dxf"})
        EXPECT_EQ(Written(name), Example(name)) << name;
}

TEST_F(DemoExports, are_refused_with_nothing_written) {
    Prompts.Expect_Input("Enter the station spacing interval", "0");
    EXPECT_FALSE(Export_Plotrefa(Test.Ports, Source()).Done);
    EXPECT_EQ(Prompts.Last_Text(), "The station spacing must be above 0");
    Prompts.Expect("Run RAYFRACT module ?", Answer::No);
    EXPECT_FALSE(Export_Rayfract(Test.Ports, Source()).Done);
    Line.CurrentFile = Folder / "none/demo1.tv5";
    EXPECT_FALSE(Export_Dxf(Test.Ports, Source()).Done);
    EXPECT_TRUE(Prompts.Last_Text().starts_with(Line.CurrentFile.substr(0, Line.CurrentFile.size() - 3) +
                                                "dxf cannot be written: "));
    Line.CurrentFile = Folder / "demo1.tv5";
    Test.Launcher.Result = 2;
    Expect_Plotrefa(Prompts, Answer::No, "0");
    EXPECT_TRUE(Export_Plotrefa(Test.Ports, Source()).Done);
    EXPECT_TRUE(Prompts.Said("Unable to lauch NOTEPAD " + (Folder / "demo12.ASC")));
}

/// A desktop whose map program can be driven.
class DrivenLauncher : public RecordingLauncher, public Automation {
  public:
    AutomationResult Automate(const AutomationRun& run) override {
        Run = run;
        return {true, ""};
    }
    AutomationRun Run;
};

constexpr const char* question_of_method =
    " Select the gridding method 1=Inverse Distance 2=Kriging 3=Minimum Curvature 4=Modified Shepard's "
    "Method "
    "5=Natural Neighbor 6=Nearest Neighbor 7=Polynomial Regression 8=Radial Basis Functions 9=Triangulation "
    "with Linear Interpolation";

TEST_F(DemoExports, hand_a_section_to_the_map_program) {
    DrivenLauncher launcher;
    Ports ports{Prompts, Test.Display, launcher};
    EXPECT_FALSE(Export_Surfer(ports, Source(), {}).Done);
    EXPECT_EQ(Prompts.Last_Text(), "Not valid DAT file");
    Line.CurrentFile = Folder / "demo1.new.tv5";  // the name counts up to its first point
    ASSERT_EQ(Replace_File(Folder / "demo1.dat",
                           " 0            100.25        600 \r\n 0            99.75         1600 \r\n"
                           " 1            100           650 \r\n 3            99.75         700 \r\n"),
              "");
    Prompts.Expect_Input(question_of_method, "10");
    EXPECT_FALSE(Export_Surfer(ports, Source(), {}).Done);
    Prompts.Expect_Input(question_of_method, "8");
    Prompts.Expect(" Do you want a CONTOUR map (=YES) or an IMAGE map (=NO)", Answer::Yes);
    const ExportReport report = Export_Surfer(ports, Source(), {});
    ASSERT_EQ(report.Files.size(), 4U);
    // Four columns and three rows, from below; the third column has no cell, and nothing is above the ground.
    EXPECT_EQ(Written("demo1.grd"),
              "DSAA\r\n4 3\r\n0 3\r\n99.75 100.25\r\n600 1600\r\n"
              "1600 650 1.70141E+38 700\r\n\r\n600 650 1.70141E+38 1.70141E+38\r\n\r\n"
              "600 1.70141E+38 1.70141E+38 1.70141E+38\r\n\r\n");
    const std::string script = Written("demo1.bas");
    std::size_t from = 0;
    for (const std::string& call :
         {std::string("Set Surfer = CreateObject(\"Surfer.Application\")"),
          std::string("Surfer.Visible = True"),
          "Surfer.GridData DataFile:=\"" + (Folder / "demo1.dat") + "\", OutGrid:=\"" +
              (Folder / "demo1.grd") + "\", ShowReport:=False, Algorithm:=8",
          std::string("Set Plot = Surfer.Documents.Add"), std::string("Set Shapes = Plot.Shapes"),
          "Set MapFrame = Shapes.AddContourMap(\"" + (Folder / "demo1.grd") + "\")",
          std::string("Set MapLayer = MapFrame.Overlays.Item(1)"),
          "MapLayer.Levels.LoadFile \"" + (Folder / "demo1.lvl") + "\"",
          std::string("MapLayer.FillContours = True"), std::string("MapLayer.ShowColorScale = True"),
          std::string("\"Tarnvik\"")}) {
        from = script.find(call, from);
        EXPECT_NE(from, std::string::npos) << call << " in\n" << script;
    }
    EXPECT_EQ(launcher.Run.Program, "Surfer.Application");
    EXPECT_EQ(launcher.Run.Steps.size(), 10U);
    EXPECT_EQ(Surfer_Run({2, false, "d", "g", "l", "c"}).Steps[7].Member, "ColorMap.LoadFile");
}

}  // namespace
}  // namespace tarnvik::test
