// tarnvik-batch as a script uses it: what it prints, what it writes, how it ends.

#include <fstream>

#include "batch/batch_fixture.h"
#include "core/edits/project_block.h"
#include "core/text/letters.h"

namespace tarnvik::test {

TEST_F(Batch, show_gives_the_project_block_under_the_names_of_the_state) {
    const Outcome shown = Run("show " + Demo("demo1.tv5") + " --json");
    ASSERT_EQ(shown.Status, 0) << shown.Errors;
    const auto json = nlohmann::json::parse(shown.Output);
    for (const char* key :
         {"NbShots",   "NbReceivers",  "LineLength",    "TotalTime",    "DistanceShift", "SuFile",
          "ShotTimes", "ReceiverData", "ShotElevation", "ShotDistance", "ShotDepth",     "VelocityA",
          "VelocityB", "InterceptA",   "InterceptB",    "CritDistA",    "CritDistB",     "ShotThickness",
          "GrmData",   "remark_grid",  "TimeFactor",    "MaxTime",      "NoOffsetShots"}) {
        EXPECT_TRUE(json.contains(key)) << key;
    }
    EXPECT_EQ(json["NbShots"], 5);
    EXPECT_EQ(json["ShotDistance"], (std::vector<double>{-60, 0, 60, 120, 180}));
    EXPECT_EQ(json["ReceiverData"].size(), 12U);
    EXPECT_EQ(json["ReceiverData"][9][0], 2.5);
    EXPECT_EQ(json["VelocityA"][0].size(), 5U);
    EXPECT_EQ(json["ShotThickness"][0].size(), 4U);
    EXPECT_EQ(json["remark_grid"].size(), 8U);
    EXPECT_EQ(json["NoOffsetShots"], false);
    // Singles by nine digits, which tell each from every other one.
    const Project project = Read(Folder / "demo1.tv5");
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        const auto& times = json["ShotTimes"][static_cast<std::size_t>(shot) - 1];
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const auto time = times[static_cast<std::size_t>(receiver) - 1].get<double>();
            EXPECT_EQ(static_cast<float>(time), project.ShotTimes(shot, receiver));
        }
    }
    EXPECT_NE(shown.Output.find("45.9700012,"), std::string::npos);
}

TEST_F(Batch, show_lists_the_line_for_reading) {
    const std::string line = Changed_Demo("line.tv5", [](Project& project) {
        Interpret(project);
        project.ShotThickness(2, 1) = 6.25;
    });
    const Outcome shown = Run("show " + line);
    for (const char* words :
         {"Shots: 5, receivers: 24, line length: 120 m", "Field records: demo1.su", "Latest pick: 91.46 ms",
          "Shot 3 at 60 m, elevation 101.07, depth 0",
          "      1         600         600                                                        6.25",
          "      3        3800        3800        36.0        36.0", "   45.97   47.83"}) {
        EXPECT_NE(shown.Output.find(words), std::string::npos) << words << "\n"
                                                               << shown.Output.substr(0, 2000);
    }
}

TEST_F(Batch, a_project_that_is_cut_is_taken_and_told_and_none_is_refused) {
    const std::string whole = *Read_File(Demo("demo1.tv5"));
    const std::string cut = Folder / "cut.tv5";
    ASSERT_EQ(Replace_File(cut, whole.substr(0, whole.size() / 2)), "");
    const Outcome shown = Run("show " + cut + " --json");
    EXPECT_EQ(shown.Status, 0);
    EXPECT_EQ(shown.Json()["NbShots"], 5);
    EXPECT_EQ(shown.Json()["ShotTimes"][4][0],
              Run("show " + (Folder / "demo1.tv5") + " --json").Json()["ShotTimes"][4][0]);
    EXPECT_NE(shown.Errors.find(cut), std::string::npos) << shown.Errors;
    const std::string none = Folder / "none.tv5";
    ASSERT_EQ(Replace_File(none, std::string("\x89PNG\0\x01", 6)), "");
    const Outcome refused = Run("show " + none + " --json");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_NE(refused.Json()["message"].get<std::string>().find("is no project file"), std::string::npos);
}

TEST_F(Batch, saving_gives_the_file_that_was_read) {
    const std::string demo = Demo("demo1.tv5");
    const Project before = Read(demo);
    ASSERT_EQ(Run("save " + demo + " --out " + (Folder / "saved.tv5")).Status, 0);
    Project after = Read(Folder / "saved.tv5");
    after.TotalTime = before.TotalTime;
    EXPECT_TRUE(Same_Filed_Content(Project_Block(after), Project_Block(before)));
    EXPECT_EQ(*Read_File(demo), *Read_File(std::string(DEMO_FOLDER) + "/demo1.tv5"));
}

TEST_F(Batch, the_way_a_run_ends_tells_what_happened) {
    const std::string demo = Demo("demo1.tv5");
    const std::string empty = Folder / "empty.tv5";
    std::ofstream(empty).close();
    const struct {
        std::string Arguments;
        int Status;
        const char* Words;
    } cases[] = {
        {"", 2, ""},
        {"show", 2, ""},
        {"show " + demo + " --no-such-option", 2, ""},
        {"draw " + demo + " everything --out x.png", 2, ""},
        {"draw " + demo + " curves --size 3x3 --out " + (Folder / "x.png"), 2, "--size"},
        {"show " + (Folder / "missing.tv5"), 1, "This file does not exist !"},
        {"show " + (Folder / "errors.txt"), 1, "No TV5 file selected "},
        {"velocity " + demo + " --shot 9 --from 1 --to 3", 1, "Wrong Shot number"},
        {"velocity " + demo + " --shot 3 --from 5 --to 5", 1, "Impossible: Wrong receivers"},
        {"draw " + demo + " curves --out " + (Folder / "no/such/folder.png"), 1, "cannot be written"},
        {"depth " + demo + " --method intercept --json", 1, "Intercepts are missing"},
        {"depth " + empty + " --method intercept --json", 1, "is no project file"},
        {"pick " + Demo("demo1.su") + " --record 99 --reference-trace 1 --start 5", 1, "records 1 to 5"},
        {"--help", 0, ""},
        {"pick --help", 0, ""},
    };
    for (const auto& c : cases) {
        const Outcome outcome = Run(c.Arguments);
        EXPECT_EQ(outcome.Status, c.Status) << c.Arguments << "\n" << outcome.Errors;
        EXPECT_NE(outcome.Errors.find(c.Words), std::string::npos) << c.Arguments << "\n" << outcome.Errors;
    }
}

TEST_F(Batch, a_velocity_is_written_only_when_asked_for) {
    const std::string demo = Demo("demo1.tv5");
    const std::string before = *Read_File(demo);
    const std::string stretch = "velocity " + demo + " --shot 3 --from 18 --to 21 --layer 2 --record --json";
    const Outcome found = Run(stretch);
    ASSERT_EQ(found.Status, 0) << found.Errors;
    const auto json = nlohmann::json::parse(found.Output);
    EXPECT_EQ(json["ShotSide"], 24);
    EXPECT_EQ(json["message"], "");
    EXPECT_EQ(*Read_File(demo), before);

    const std::string other = Folder / "other.tv5";
    ASSERT_EQ(Run(stretch + " --out " + other).Status, 0);
    EXPECT_EQ(*Read_File(demo), before);
    const auto written = nlohmann::json::parse(Run("show " + other + " --json").Output);
    EXPECT_EQ(written["VelocityB"][2][1], json["VelocityResult"]);
    EXPECT_EQ(written["InterceptB"][2][0], json["InterceptResult"]);
    EXPECT_EQ(written["VelocityA"][2][1], 0);
}

TEST_F(Batch, the_road_from_a_marked_line_to_depths_runs_from_the_terminal) {
    const std::string demo = Demo("demo1.tv5");
    for (const char* mark :
         {"1 --from 1 --to 4 --start-at-shot", "2 --from 5 --to 9", "3 --from 10 --to 24"}) {
        ASSERT_EQ(Run("velocity " + demo + " --shot 2 --record --save --layer " + mark).Status, 0);
    }
    const Outcome depth = Run("depth " + demo + " --method intercept --shot 2 --record --save --json");
    ASSERT_EQ(depth.Status, 0) << depth.Errors;
    const auto shots = nlohmann::json::parse(depth.Output);
    ASSERT_EQ(shots.size(), 1U);
    EXPECT_EQ(shots[0]["layers"], 3);
    EXPECT_EQ(shots[0]["TrueV"].size(), 3U);
    EXPECT_NEAR(shots[0]["Thick"][0], 6, 0.5);  // the model's first layer; the knoll costs a few decimetres
    const auto project = nlohmann::json::parse(Run("show " + demo + " --json").Output);
    EXPECT_EQ(project["ShotThickness"][1][0], shots[0]["Thick"][0]);

    const auto two =
        nlohmann::json::parse(Run("depth " + demo + " --method intercept --shot 2 --layers 2 --json").Output);
    EXPECT_EQ(two[0]["layers"], 2);
    EXPECT_EQ(two[0]["Thick"].size(), 1U);

    // A layer slower than the one above it: no zeros that look like results, and nothing lost.
    ASSERT_EQ(Run("velocity " + demo + " --shot 2 --record --save --layer 3 --from 1 --to 4 --start-at-shot")
                  .Status,
              0);
    const std::string before = *Read_File(demo);
    for (const char* method : {"intercept", "critical"}) {
        const Outcome refused = Run("depth " + demo + " --record --save --json --method " + method);
        EXPECT_EQ(refused.Status, 1) << method;
        const auto shot = nlohmann::json::parse(refused.Output)[1];
        EXPECT_EQ(shot["message"], "Layer 3 Velocity must be  greater ...") << method;
        EXPECT_TRUE(shot["TrueV"].empty() && shot["Thick"].empty() && shot["Depth"].empty()) << method;
        EXPECT_EQ(*Read_File(demo), before) << method;
    }
}

TEST_F(Batch, depths_that_are_not_to_be_recorded_leave_no_trace) {
    const std::string line = Changed_Demo("line.tv5", [](Project& project) {
        Interpret(project);
        project.ShotThickness(3, 1) = 5.5;
        project.ShotThickness(3, 2) = 8.5;
    });
    const std::string before = Project_Block(Read(line));
    for (const char* method : {"intercept", "critical"}) {
        const Outcome computed = Run("depth " + line + " --save --json --layers 2 --method " + method);
        EXPECT_TRUE(Same_Filed_Content(Project_Block(Read(line)), before)) << method << computed.Errors;
    }
    const Outcome recorded = Run("depth " + line + " --record --save --json --method intercept --shot 3");
    ASSERT_EQ(recorded.Status, 0) << recorded.Errors;
    const Project after = Read(line);
    EXPECT_NEAR(after.ShotThickness(3, 1), recorded.Json()[0]["Thick"][0].get<double>(), 0.01);
    EXPECT_NE(after.ShotThickness(3, 1), 5.5);
    EXPECT_EQ(after.ShotThickness(2, 1), 0) << "the other shots were not asked for";
    EXPECT_EQ(after.VelocityA(3, 3), 3800);
    EXPECT_EQ(Run("depth " + line + " --json --method intercept").Json().size(), 5U);
}

TEST_F(Batch, an_intercept_out_of_order_is_asked_for_and_told_when_it_stays) {
    const std::string line = Changed_Demo("line.tv5", [](Project& project) {
        Interpret(project);
        project.InterceptA(2, 1) = project.InterceptB(2, 1) = 40;
    });
    const std::string depth = "depth " + line + " --method intercept --shot 2 --json";
    for (const char* answers :
         {" --answer cancel", " --answer IT1 --answer cancel", " --answer IT1 --answer 0"}) {
        const Outcome refused = Run(depth + answers);
        EXPECT_EQ(refused.Status, 1) << answers;
        EXPECT_EQ(refused.Errors.find("Intercepts are missing"), std::string::npos) << refused.Errors;
        EXPECT_NE(refused.Json()[0]["message"], "") << answers;
    }
    const Outcome corrected = Run(depth + " --answer IT1 --answer 10");
    EXPECT_EQ(corrected.Status, 0) << corrected.Errors;
    EXPECT_EQ(corrected.Json()[0]["Thick"].size(), 2U);
}

TEST_F(Batch, each_option_of_a_velocity_changes_it) {
    const std::string velocity = "velocity " + Demo("demo1.tv5") + " --json ";
    const auto found = [&](const std::string& options) {
        const Outcome outcome = Run(velocity + options);
        EXPECT_EQ(outcome.Status, 0) << options << outcome.Errors;
        return outcome.Json()["VelocityResult"].get<double>();
    };
    const double plain = found("--shot 2 --from 4 --to 9 --layer 2");
    EXPECT_NE(found("--shot 2 --from 4 --to 9 --layer 2 --eliminate 4"), plain);
    EXPECT_NE(found("--shot 2 --from 4 --to 8 --layer 2"), plain);
    EXPECT_NE(found("--shot 2 --from 5 --to 9 --layer 2"), plain);
    EXPECT_NE(found("--shot 3 --from 18 --to 23 --layer 2"), plain);
    EXPECT_NE(found("--shot 2 --from 3 --to 6 --layer 1 --start-at-shot"),
              found("--shot 2 --from 3 --to 6 --layer 1"));
    const Outcome told = Run("velocity " + (Folder / "demo1.tv5") + " --shot 2 --from 5 --to 9");
    for (const char* words :
         {"Velocity:    ", " m/s", "Intercept:   ", " ms", "Correlation: ", "Side:        B"})
        EXPECT_NE(told.Output.find(words), std::string::npos) << told.Output;
}

TEST_F(Batch, pictures_come_in_every_form) {
    const std::string demo = Demo("demo1.tv5");
    const std::string records = Demo("demo1.su");
    const std::pair<const char*, const char*> forms[] = {
        {"png", "\x89PNG"}, {"svg", "<?xml"}, {"pdf", "%PDF"}};
    for (const auto& [ending, start] : forms) {
        const std::string out = Folder / (std::string("picture.") + ending);
        for (const std::string& what :
             {"draw " + demo + " curves", "draw " + demo + " profile --mode Profil3",
              "record " + records + " --record 2 --style color --clip --equalize --samples 10:300"}) {
            const Outcome drawn = Run(what + " --out " + out);
            EXPECT_EQ(drawn.Status, 0) << what << drawn.Errors;
            EXPECT_EQ(Left(Read_File(out).value_or(""), std::string(start).size()), start) << what;
            std::filesystem::remove(out);
        }
    }
}

TEST_F(Batch, picking_leaves_the_field_file_alone_unless_it_is_to_be_saved) {
    const std::string records = Demo("demo1.su");
    const std::string before = *Read_File(records);
    const std::string pick =
        "pick " + records + " --record 4 --reference-trace 24 --start 2 --frequency 40 --window 30";
    const Outcome picked = Run(pick + " --json");
    ASSERT_EQ(picked.Status, 0) << picked.Errors;
    const auto picks = nlohmann::json::parse(picked.Output)["picks"];
    ASSERT_EQ(picks.size(), 24U);
    EXPECT_GT(picks[0].get<double>(), picks[20].get<double>());
    EXPECT_EQ(*Read_File(records), before);

    const std::string copy = Folder / "picked.su";
    ASSERT_EQ(Run(pick + " --out " + copy).Status, 0);
    EXPECT_EQ(*Read_File(records), before);
    EXPECT_NE(*Read_File(copy), before);
    ASSERT_EQ(Run(pick + " --save").Status, 0);
    EXPECT_EQ(*Read_File(records), *Read_File(copy));
}

TEST_F(Batch, the_reference_trace_is_a_channel_or_the_number_in_the_file) {
    const std::string pick = "pick " + Demo("demo1.su") + " --record 4 --start 2 --window 30 --json ";
    const Outcome by_channel = Run(pick + "--reference-trace 24");
    EXPECT_EQ(by_channel.Status, 0) << by_channel.Errors;
    EXPECT_EQ(Run(pick + "--reference-trace 96").Output, by_channel.Output);
    EXPECT_EQ(Run(pick + "--reference-trace 97").Status, 2);
    EXPECT_EQ(Run(pick + "--reference-trace 25").Status, 2);
}

TEST_F(Batch, saved_picks_reach_the_project_which_keeps_its_name_of_the_records) {
    const std::string records = Demo("demo1.su");
    const std::string project = Folder / "line.tv5";
    ASSERT_EQ(Run("new " + records + " --spacing 5 --out " + project).Status, 0);
    const auto before = nlohmann::json::parse(Run("show " + project + " --json").Output);
    const std::string other = Folder / "other.su";
    std::filesystem::copy_file(records, other);
    const Outcome picked = Run("pick " + other + " --project " + project +
                               " --record 4 --reference-trace 24 --start 2 --window 30 --json --save");
    ASSERT_EQ(picked.Status, 0) << picked.Errors;
    const auto picks = nlohmann::json::parse(picked.Output)["picks"];
    const auto after = nlohmann::json::parse(Run("show " + project + " --json").Output);
    EXPECT_EQ(after["SuFile"], before["SuFile"]);
    for (std::size_t i = 0; i < picks.size(); ++i)
        EXPECT_NEAR(after["ShotTimes"][3][i].get<double>(), picks[i].get<double>(), 0.001) << i;
}

TEST_F(Batch, an_older_file_is_converted) {
    // One shot, one receiver: counts, pick, 12 receiver rows, shot row, 5 velocities, 4 refractors, SU name,
    // 9 remarks, total time.
    const std::string old_file =
        "1 10 1 1234 25 25 25 25 25 25 25 25 25 25 25 25 100 0 5 300 300 300 300 300 300 "
        "300 300 300 300 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\r\nline.su\r\n";
    std::string remarks;
    for (int row = 1; row <= 9; ++row)
        remarks += "0 0 0 x\r\n";
    ASSERT_EQ(Replace_File(Folder / "old.tv4", old_file + remarks + " 1 \r\n"), "");
    ASSERT_EQ(Run("convert " + (Folder / "old.tv4") + " " + (Folder / "new.tv5")).Status, 0);
    const auto project = nlohmann::json::parse(Run("show " + (Folder / "new.tv5") + " --json").Output);
    EXPECT_EQ(project["ShotTimes"][0][0], 12.3400002);
    EXPECT_EQ(project["ReceiverData"][9][0], 2.5);
    EXPECT_EQ(project["ShotElevation"][0], 10);
}

}  // namespace tarnvik::test
