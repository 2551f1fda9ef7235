// Every option takes effect or is refused, and nothing is written where it must not be.

#include <fstream>
#include <set>

#include "batch/batch_fixture.h"

namespace tarnvik::test {

namespace {

using Options = Batch;

/// Width and height of a PNG picture, from its head.
std::pair<int, int> Png_Size(const std::string& bytes) {
    const auto number = [&bytes](std::size_t at) {
        int value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value * 256 + static_cast<unsigned char>(bytes.at(at + i));
        return value;
    };
    return {number(16), number(20)};
}

}  // namespace

TEST_F(Options, what_has_no_effect_is_wrong_usage_told_by_the_option) {
    const std::string line = Demo("demo1.tv5");
    const std::string records = Demo("demo1.su");
    const std::string curves = "draw " + line + " curves --out " + (Folder / "x.png");
    const std::string profile = "draw " + line + " profile --out " + (Folder / "x.png");
    const std::string record = "record " + records + " --record 1 --out " + (Folder / "x.png");
    const std::string made = "new " + records + " --out " + (Folder / "x.tv5");
    const std::string velocity = "velocity " + line + " --shot 3 --from 18 --to 21";
    const std::string pick = "pick " + records + " --record 4 --reference-trace 24 --start 2";
    const std::pair<std::string, const char*> cases[] = {
        {curves + " --zoom-x 0", "--zoom-x"},
        {curves + " --zoom-y=-2", "--zoom-y"},
        {profile + " --zoom-y nan", "--zoom-y"},
        {profile + " --zoom-x 97", "--zoom-x"},
        {curves + " --mode Profil2", "--mode: has no effect on the curves"},
        {curves + " --max-elevation 100", "--max-elevation"},
        {curves + " --min-elevation 100", "--min-elevation"},
        {profile + " --zero-on-top", "--zero-on-top"},
        {profile + " --max-elevation 1e9", "--max-elevation"},
        {profile + " --min-elevation low", "--min-elevation"},
        {curves + " --size 800", "--size"},
        {curves + " --size 800x600x", "--size"},
        {curves + " --size 800x63", "--size"},
        {curves + " --size 20001x600", "--size"},
        {"draw " + line + " curves --out " + (Folder / "x.tv5"), "does not end in"},
        {"draw " + line + " curves --out png", "does not end in"},
        {record + " --gain inf", "--gain"},
        {record + " --gain 2x", "--gain"},
        {record + " --gain 0", "--gain"},
        {record + " --samples 5:b", "--samples"},
        {record + " --samples 9:9", "--samples"},
        {record + " --samples 0:9", "--samples"},
        {record + " --samples 1:2:3", "--samples"},
        {record + " --samples 1:501", "--samples"},
        {record + " --size axb", "--size"},
        {"record " + records + " --record 1 --out " + (Folder / "x.su"), "does not end in"},
        {made + " --spacing 0", "--spacing"},
        {made + " --spacing 5 --line-length nan", "--line-length"},
        {made + " --spacing 5 --shot-distances 0,a,60", "--shot-distances"},
        {made + " --spacing 5 --shot-distances 0,,60", "--shot-distances"},
        {"new " + records + " --spacing 5 --out " + (Folder / "x.su"), "does not end in .tv5"},
        {velocity + " --eliminate 19,x", "--eliminate"},
        {velocity + " --eliminate 19,", "--eliminate"},
        {velocity + " --eliminate 1,2,3,4,5", "4 receivers at most"},
        {velocity + " --record", "--layer"},
        {velocity + " --layer 6", "--layer"},
        {velocity + " --save --out " + (Folder / "x.tv5"), "--out"},
        {velocity + " --out " + (Folder / "x.png"), "does not end in .tv5"},
        {"depth " + line + " --method guess", "--method"},
        {"depth " + line + " --method intercept --layers 6", "--layers"},
        {pick + " --window=-1", "--window"},
        {pick + " --min-amplitude 2", "--min-amplitude"},
        {pick + " --frequency 0", "--frequency"},
        {pick + " --save --out " + (Folder / "x.su"), "--out"},
        {pick + " --out " + (Folder / "x.tv5"), "does not end in .su"},
        {"save " + line + " --out " + records + " --yes", "does not end in .tv5"},
        {"convert " + line + " " + records + " --yes", "does not end in .tv5"},
    };
    const std::string line_before = *Read_File(line);
    const std::string records_before = *Read_File(records);
    for (const auto& [arguments, words] : cases) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.Status, 2) << arguments << "\n" << outcome.Errors;
        EXPECT_NE(outcome.Errors.find(words), std::string::npos) << arguments << "\n" << outcome.Errors;
        EXPECT_EQ(outcome.Output, "") << arguments;
    }
    EXPECT_EQ(*Read_File(line), line_before);
    EXPECT_EQ(*Read_File(records), records_before);
    for (const char* name : {"x.png", "x.tv5", "x.su"})
        EXPECT_FALSE(File_Exists(Folder / name)) << name;
}

TEST_F(Options, each_option_of_a_drawing_changes_the_picture) {
    const std::string line = Changed_Demo("line.tv5", [](Project& project) {
        Interpret(project);
        for (int shot = 2; shot <= 4; ++shot)
            project.ShotThickness(shot, 1) = 6;
        for (int receiver = 1; receiver <= 24; ++receiver) {
            project.ReceiverData(ReceiverDepth1, receiver) = 7;
        }
    });
    const std::string records = Demo("demo1.su");
    const std::string out = Folder / "picture.png";
    const std::pair<std::string, std::vector<std::string>> pictures[] = {
        {"draw " + line + " curves", {"", "--zero-on-top", "--zoom-x 2", "--zoom-y 2"}},
        {"draw " + line + " profile",
         {"", "--mode Profil2", "--zoom-x 2", "--zoom-y 2", "--max-elevation 129", "--min-elevation 5"}},
        {"record " + records,
         {"--record 1", "--record 2", "--record 2 --style wiggle", "--record 2 --style color",
          "--record 2 --gain 20", "--record 2 --gain 20 --clip", "--record 2 --equalize",
          "--record 2 --samples 1:250", "--record 2 --samples 100:500"}},
    };
    for (const auto& [what, variants] : pictures) {
        std::set<std::string> different;
        for (const std::string& options : variants) {
            const Outcome drawn = Run(what + " --yes --size 640x400 --out " + out + " " + options);
            EXPECT_EQ(drawn.Status, 0) << what << " " << options << "\n" << drawn.Errors;
            const std::string bytes = Read_File(out).value_or("");
            EXPECT_EQ(Png_Size(bytes), (std::pair{640, 400})) << options;
            EXPECT_TRUE(different.insert(bytes).second) << what << " " << options << " changes nothing";
        }
    }
    EXPECT_EQ(Run("draw " + line + " profile --yes --mode Profil --out " + out).Status, 0);
    EXPECT_EQ(Png_Size(*Read_File(out)), (std::pair{1600, 900})) << "unless another size is given";
}

TEST_F(Options, the_elevations_of_a_line_without_any_are_given_or_asked_for) {
    const std::string line = Changed_Demo("flat.tv5", [](Project& project) {
        for (int shot = 1; shot <= project.NbShots; ++shot)
            project.ShotElevation(shot) = 0;
    });
    const auto asked = [&](const std::string& options) {
        const std::string errors =
            Run("draw " + line + " profile --yes --out " + (Folder / "x.png") + options).Errors;
        const auto has = [&errors](const char* words) { return errors.find(words) != std::string::npos; };
        return std::pair{has("Maximum profile elevation"), has("Minimum profile elevation")};
    };
    EXPECT_EQ(asked(""), (std::pair{true, true}));
    EXPECT_EQ(asked(" --min-elevation=-5"), (std::pair{true, false}));
    EXPECT_EQ(asked(" --max-elevation 20"), (std::pair{false, true}));
    EXPECT_EQ(asked(" --max-elevation 20 --min-elevation=-5"), (std::pair{false, false}));
    const std::string given = *Read_File(Folder / "x.png");
    asked(" --answer 20 --answer=-5");
    EXPECT_EQ(*Read_File(Folder / "x.png"), given) << "the answers mean the same";
    asked(" --answer 30 --answer=-5");
    EXPECT_NE(*Read_File(Folder / "x.png"), given);
}

TEST_F(Options, a_file_that_stands_is_replaced_with_yes_alone_and_a_source_never) {
    const std::string line = Demo("demo1.tv5");
    const std::string records = Demo("demo1.su");
    const std::string linked = Folder / "linked.su";
    std::filesystem::create_symlink(records, linked);
    std::filesystem::create_symlink(line, Folder / "linked.tv5");
    const auto made = [this](const std::string& name) {
        std::ofstream(Folder / name) << "what stood there";
        return Folder / name;
    };
    const struct {
        std::string Command;
        std::string Out;
        int WithYes;
    } cases[] = {
        {"save " + line + " --out ", made("other.tv5"), 0},
        {"velocity " + line + " --shot 3 --from 18 --to 21 --layer 2 --record --out ", made("v.tv5"), 0},
        {"draw " + line + " curves --out ", made("a.png"), 0},
        {"draw " + line + " profile --out ", made("b.svg"), 0},
        {"record " + records + " --record 1 --out ", made("c.pdf"), 0},
        {"new " + records + " --spacing 5 --out ", made("new.tv5"), 0},
        {"pick " + records + " --record 4 --reference-trace 24 --start 2 --window 30 --out ", made("p.su"),
         0},
        {"save " + line + " --out ", line, 1},
        {"save " + line + " --out ", Folder / "linked.tv5", 1},
        {"velocity " + line + " --shot 3 --from 18 --to 21 --layer 2 --record --out ", line, 1},
        {"pick " + records + " --record 4 --reference-trace 24 --start 2 --window 30 --out ", records, 1},
        {"pick " + records + " --record 4 --reference-trace 24 --start 2 --window 30 --out ", linked, 1},
        {"convert " + line + " ", line, 1},
    };
    for (const auto& c : cases) {
        const std::string before = *Read_File(c.Out);
        const Outcome outcome = Run(c.Command + c.Out);
        EXPECT_EQ(outcome.Status, 1) << c.Command << c.Out;
        EXPECT_EQ(*Read_File(c.Out), before) << c.Command << c.Out;
        EXPECT_NE(outcome.Errors.find(c.WithYes == 0 ? "already exists" : "is read by this command"),
                  std::string::npos)
            << outcome.Errors;
        EXPECT_EQ(Run(c.Command + c.Out + " --answer yes").Status, 1) << "only --yes replaces";
        EXPECT_EQ(Run(c.Command + c.Out + " --yes").Status, c.WithYes) << c.Command << c.Out;
        EXPECT_EQ(*Read_File(c.Out) == before, c.WithYes == 1) << c.Command << c.Out;
    }
    // The records of the project and their copy are as safe as the project itself.
    const Outcome foreign =
        Run("pick " + linked + " --project " + line +
            " --record 4 --reference-trace 24 --start 2 --window 30 --yes --out " + records);
    EXPECT_EQ(foreign.Status, 1) << foreign.Errors;
    EXPECT_EQ(*Read_File(records), *Read_File(std::string(DEMO_FOLDER) + "/demo1.su"));
}

TEST_F(Options, a_pick_that_is_refused_leaves_no_copy) {
    const std::string records = Demo("demo1.su");
    const Outcome refused = Run(
        "pick " + records + " --record 99 --reference-trace 1 --start 2 --json --out " + (Folder / "p.su"));
    EXPECT_EQ(refused.Status, 1);
    EXPECT_TRUE(refused.Json()["picks"].empty());
    EXPECT_NE(refused.Json()["message"].get<std::string>().find("records 1 to 5"), std::string::npos);
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& file : std::filesystem::directory_iterator(Folder.Path))
        ++files;
    EXPECT_EQ(files, 2U) << "the records and the messages alone";
}

TEST_F(Options, each_option_of_the_picking_changes_the_picks) {
    const std::string pick = "pick " + Demo("demo1.su") + " --record 2 --reference-trace 1 --json ";
    const auto picks = [&](const std::string& options) {
        const Outcome outcome = Run(pick + options);
        EXPECT_EQ(outcome.Status, 0) << options << outcome.Errors;
        return outcome.Json()["picks"].get<std::vector<double>>();
    };
    const std::vector<double> plain = picks("--start 2 --window 30");
    ASSERT_EQ(plain.size(), 24U);
    for (const char* options :
         {"--start 6 --window 30", "--start 2 --window 8", "--start 2 --window 30 --search-from 5",
          "--start 2 --window 30 --min-amplitude 0.6", "--start 2 --window 30 --negative",
          "--start 2 --window 30 --absolute"}) {
        EXPECT_NE(picks(options), plain) << options;
    }
    const std::string pick_other =
        "pick " + (Folder / "demo1.su") + " --json --record 4 --reference-trace 24";
    EXPECT_NE(Run(pick_other + " --start 2 --window 30 --frequency 1000").Output,
              Run(pick_other + " --start 2 --window 30").Output);
    const std::vector<double> shifted = picks("--start 2 --window 30 --shift 3");
    for (std::size_t i = 0; i < plain.size(); ++i)
        EXPECT_NEAR(shifted.at(i), plain[i] + 3, 0.05) << i;
}

TEST_F(Options, each_option_of_a_new_project_stands_in_it) {
    const std::string records = Demo("demo1.su");
    int number = 0;
    const auto made = [&](const std::string& options) {
        const std::string out = Folder / ("new" + std::to_string(++number) + ".tv5");
        const Outcome outcome = Run("new " + records + " --spacing 5 --out " + out + " " + options);
        EXPECT_EQ(outcome.Status, 0) << options << outcome.Errors;
        return Read(out);
    };
    const Project plain = made("");
    EXPECT_EQ(plain.NbShots, 5);
    EXPECT_EQ(plain.NbReceivers, 24);
    EXPECT_EQ(plain.LineLength, 115);
    EXPECT_EQ(plain.SuFile, records);
    EXPECT_EQ(plain.ShotDistance(2), 28.75);
    EXPECT_EQ(made("--first-distance 2.5").ReceiverData(ReceiverDistance, 2), 7.5F);
    EXPECT_EQ(made("--shot-depth 1.5").ShotDepth(3), 1.5);
    EXPECT_EQ(made("--shots 3").NbShots, 3);
    EXPECT_EQ(made("--receivers 12").NbReceivers, 12);
    EXPECT_EQ(made("--line-length 120").LineLength, 120);
    EXPECT_EQ(made("--offsets").ShotDistance(1), -57.5);
    EXPECT_EQ(made("--first-distance 2.5").ReceiverData(ReceiverDistance, 24), 117.5F);
    EXPECT_EQ(made("--shot-distances=-60,0,60.5,120,180").ShotDistance(3), 60.5);
    EXPECT_EQ(*Read_File(records), *Read_File(std::string(DEMO_FOLDER) + "/demo1.su")) << "only read";
    EXPECT_EQ(Run("new " + records + " --spacing 5 --shots 73 --out " + (Folder / "large.tv5")).Status, 1);
    EXPECT_FALSE(File_Exists(Folder / "large.tv5"));

    // A name that the project cannot hold is refused before it is written as question marks.
    const std::string foreign = Folder / "\u65E5\u672C.su";
    std::filesystem::copy_file(records, foreign);
    const Outcome refused = Run("new " + foreign + " --spacing 5 --json --out " + (Folder / "no.tv5"));
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(refused.Json()["file"], "");
    EXPECT_FALSE(File_Exists(Folder / "no.tv5"));
}

TEST_F(Options, the_result_is_told_as_json_also_when_it_is_refused) {
    const std::string line = Demo("demo1.tv5");
    const Outcome missing = Run("show " + (Folder / "missing.tv5") + " --json");
    EXPECT_EQ(missing.Status, 1);
    EXPECT_EQ(missing.Json()["message"], "This file does not exist !");
    const Outcome shot = Run("velocity " + line + " --shot 9 --from 1 --to 3 --json");
    EXPECT_EQ(shot.Status, 1);
    EXPECT_EQ(shot.Json()["message"], "Wrong Shot number");
    EXPECT_EQ(Run("depth " + line + " --method critical --shot 9 --json").Json(), nlohmann::json::array());
    const std::string out = Folder / "curves.png";
    const Outcome drawn = Run("draw " + line + " curves --json --out " + out);
    EXPECT_EQ(drawn.Json()["file"], out);
    EXPECT_EQ(drawn.Json()["message"], "");
    EXPECT_EQ(Run("draw " + line + " curves --json --out " + out).Json()["file"], "");
    EXPECT_EQ(Run("save " + line + " --json --out " + (Folder / "s.tv5")).Json()["file"], Folder / "s.tv5");
    // Nothing but the object stands on standard output.
    EXPECT_EQ(
        Run("new " + Demo("demo1.su") + " --spacing 5 --json --out " + (Folder / "n.tv5")).Json()["file"],
        Folder / "n.tv5");
}

}  // namespace tarnvik::test
