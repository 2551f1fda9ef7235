// The demo line's section through tarnvik-batch.

#include <map>
#include <sstream>

#include "batch/batch_fixture.h"
#include "support/metafile_reader.h"

namespace tarnvik::test {
namespace {

class SectionCommand : public Batch {
  protected:
    /// The demo line as its read-me finds it.
    std::string Interpreted() {
        return Changed_Demo("line.tv5", [](Project& project) {
            Interpret(project);
            const double thicknesses[][2] = {{6.33, 12.58}, {8.15, 13.4}, {8.23, 15.89}};
            for (int shot = 2; shot <= 4; ++shot) {
                for (int layer = 1; layer <= 2; ++layer)
                    project.ShotThickness(shot, layer) = thicknesses[shot - 2][layer - 1];
            }
        });
    }
    const std::string Between = " --max-elevation 110 --min-elevation=70 ";
};

TEST_F(SectionCommand, WritesTheSectionOfTheDemoLine) {
    const std::string line = Interpreted();
    const std::string cells = Folder / "line.dat";
    const Outcome shots = Run("section " + line + " --source shot --json --out " + cells + Between);
    ASSERT_EQ(shots.Status, 0) << shots.Errors;
    EXPECT_EQ(Read_File(cells), Read_File(std::string(EXAMPLES_FOLDER) + "/demo1_section.dat"));
    const nlohmann::json json = shots.Json();
    EXPECT_EQ(json["GridColumns"], 120);
    EXPECT_EQ(json["GridRows"], 164);
    EXPECT_EQ(json["TopoRows"].size(), 121U);
    EXPECT_EQ(json["factors"], nlohmann::json({1, 1, 1}));
    EXPECT_EQ(json["corners"][1], nlohmann::json({"61,38", "61,71", "61,124", "", "", ""}));
    std::map<std::pair<int, int>, double> set;
    for (const auto& cell : json["cells"])
        set[{cell[0], cell[1]}] = cell[2];
    EXPECT_EQ(set.size(), 360U);

    // The filled grid as another program reads it: each cell is the one set in it or what is above it.
    const std::string grid = Folder / "line.grd";
    ASSERT_EQ(Run("section " + line + " --source shot --out " + grid + Between).Status, 0);
    std::istringstream file(Read_File(grid).value_or(""));
    std::string kind;
    int columns = 0;
    int rows = 0;
    double edges[6];
    file >> kind >> columns >> rows;
    for (double& edge : edges)
        file >> edge;
    EXPECT_EQ(kind, "DSAA");
    EXPECT_EQ(std::vector<double>(edges, edges + 6), (std::vector<double>{0, 119, 69.75, 110.5, 600, 3800}));
    std::map<std::pair<int, int>, double> filled;
    for (int row = 1; row <= rows; ++row) {
        for (int column = 1; column <= columns; ++column)
            file >> filled[{column, row}];
    }
    ASSERT_TRUE(file.good());
    for (int column = 1; column <= columns; ++column) {
        const int ground = rows - json["TopoRows"][static_cast<std::size_t>(column)].get<int>();
        EXPECT_GT(filled.at({column, ground + 1}), 1e38) << column;
        double above = 600;
        for (int row = ground; row > 0; --row) {
            const auto found = set.find({column, row});
            if (found != set.end()) above = found->second;
            EXPECT_NEAR(filled.at({column, row}), above, 1e-6) << column << " " << row;
        }
    }
    EXPECT_EQ(Run("section " + line + " --source shot --out " + grid + Between).Status, 1) << "it exists";
}

TEST_F(SectionCommand, DrawsTheSection) {
    const std::string line = Interpreted();
    for (const auto& [kind, head] : {std::pair(".png", "\x89PNG"), std::pair(".jpg", "\xFF\xD8"),
                                     std::pair(".svg", "<?xml"), std::pair(".pdf", "%PDF")}) {
        const std::string out = Folder / ("section" + std::string(kind));
        ASSERT_EQ(Run("section " + line + " --source shot --out " + out + Between).Status, 0) << kind;
        EXPECT_TRUE(Read_File(out).value_or("").starts_with(head)) << kind;
    }
    const std::string svg = Read_File(Folder / "section.svg").value_or("");
    for (const char* text : {">3S<", ">Velocity meters/s<", ">Distance (m)<"})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    // The metafile plays, and shows the same: its letters, its colours on their places.
    const std::string wmf = Folder / "section.wmf";
    ASSERT_EQ(Run("section " + line + " --source shot --colours even --out " + wmf + Between).Status, 0);
    const PlayedMetafile played = Play_Metafile(Read_File(wmf).value_or(""));
    ASSERT_EQ(played.Fault, "");
    EXPECT_EQ(played.UnitsAnInch, 1440);
    EXPECT_NEAR(played.Width, 1600 * 15, 1);
    EXPECT_NEAR(played.Height, 900 * 15, 1);
    for (const char* text : {"3S", "Velocity meters/s", "Distance (m)", "70", "v"}) {
        const auto found = played.Texts(text);
        ASSERT_FALSE(found.empty()) << text;
        EXPECT_EQ(found[0].FontHeight, 160) << "8 points";
        EXPECT_EQ(found[0].Advances.size(), found[0].Letters.size());
    }
    // Below the middle shot lie the three layers from top to bottom; the last box drawn there is seen.
    const auto seen = [&](int x, int y) {
        int colour = -1;
        for (const auto& box : played.All(PlayedMetafile::Rectangle)) {
            if (x >= box.Places[0] && y >= box.Places[1] && x < box.Places[2] && y < box.Places[3])
                colour = box.Filling;
        }
        return colour;
    };
    const int middle = played.Texts("3S")[0].Places[0] + 100;
    std::vector<int> colours;
    for (int y = 0; y < played.Height; y += 20) {
        const int colour = seen(middle, y);
        if (colours.empty() || colours.back() != colour) colours.push_back(colour);
    }
    ASSERT_EQ(colours.size(), 5U) << "paper, three layers, paper";
    EXPECT_EQ(colours[0], 0xFFFFFF);
    for (const int colour : {colours[1], colours[2], colours[3]})
        EXPECT_NE(colour, 0xFFFFFF);
    // Paper of five metres gets fewer units, and all of it is there.
    ASSERT_EQ(
        Run("section " + line + " --source shot --size 20000x2000 --out " + (Folder / "long.wmf") + Between)
            .Status,
        0);
    const PlayedMetafile large = Play_Metafile(Read_File(Folder / "long.wmf").value_or(""));
    EXPECT_EQ(large.Fault, "");
    EXPECT_EQ(large.UnitsAnInch, 144);
    EXPECT_NEAR(large.Width, 30000, 1);
    const auto right = large.Texts("5000");
    ASSERT_EQ(right.size(), 1U) << "of the legend at the right edge";
    EXPECT_GT(right[0].Places[0], 29000);
    // A broken scale leaves no picture.
    ASSERT_EQ(Replace_File(Folder / "broken.lvl", "LVL2\nwords\n"), "");
    const std::string out = Folder / "none.png";
    EXPECT_EQ(Run("section " + line + " --source shot --colours " + (Folder / "broken.lvl") + " --out " +
                  out + Between)
                  .Status,
              1);
    EXPECT_FALSE(File_Exists(out));
}

TEST_F(SectionCommand, LeavesNoFileWhereItIsRefused) {
    const std::string bare = Demo("demo1.tv5");
    const std::string out = " --json --out " + (Folder / "none.grd");
    for (const std::string& what :
         {bare + " --source shot" + Between, bare + " --source abc" + Between,
          bare + " --source grm" + Between,
          Interpreted() + " --source shot --max-elevation 200 --min-elevation 100"}) {
        const Outcome outcome = Run("section " + what + out);
        EXPECT_EQ(outcome.Status, 1) << what;
        EXPECT_EQ(outcome.Json()["cells"], nlohmann::json::array()) << what;
        EXPECT_EQ(outcome.Json()["messages"].size(), 1U) << what;
        EXPECT_FALSE(File_Exists(Folder / "none.grd")) << what;
    }
    EXPECT_EQ(Run("section " + bare + " --source shot --quality 4" + Between).Status, 2);
}

TEST_F(SectionCommand, DrawsThePageOfAReport) {
    const std::string line = Interpreted();
    const std::string page = "section " + line + " --source shot --report --paper 297x210 ";
    const std::string out = Folder / "page.svg";
    const Outcome drawn = Run(page +
                              "--scale 1:500 --interfaces joined --fill hatching --north N35E "
                              "--company Sons --json --out " +
                              out);
    ASSERT_EQ(drawn.Status, 0) << drawn.Errors;
    const std::string svg = Read_File(out).value_or("");
    for (const char* text : {">Horizontal 1:500<", ">S3<", ">N35E<", ">Sons<", ">1600 m/s<"})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    const nlohmann::json shots = drawn.Json()["models"][0];
    const auto run = shots["interfaces"][1]["runs"][0];
    EXPECT_NEAR(run[0][1].get<double>(), Read(line).ShotElevation(2) - 18.91, 1e-6);
    // A scale that the paper has no room for is told, and no file is left.
    const std::string none = Folder / "none.pdf";
    const Outcome large = Run(page + "--scale 1:200 --json --out " + none);
    EXPECT_EQ(large.Status, 1);
    EXPECT_NE(large.Errors.find("1:200 does not fit the paper"), std::string::npos) << large.Errors;
    EXPECT_FALSE(File_Exists(none));
    EXPECT_EQ(Run("section " + line + " --source grm --report --out " + none).Status, 1) << "no depths";
    EXPECT_EQ(Run("section " + line + " --source shot --scale 1:500" + Between).Status, 2);
    EXPECT_EQ(Run("section " + line + " --source shot").Status, 2) << "no elevations";
}

}  // namespace
}  // namespace tarnvik::test
