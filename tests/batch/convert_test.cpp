#include "batch_fixture.h"
#include "records/su_file.h"
#include "support/field_file_builder.h"
#include "support/su_builder.h"

namespace tarnvik::test {
namespace {

class SuConvert : public Batch {
  protected:
    std::string Seg2(const std::string& name, int shot) {
        Seg2Builder builder;
        for (int channel = 1; channel <= 2; ++channel)
            builder.Add({"SAMPLE_INTERVAL 0.00025", "SHOT_SEQUENCE_NUMBER " + std::to_string(shot),
                         "CHANNEL_NUMBER " + std::to_string(channel), "DESCALING_FACTOR 1", "DELAY -0.005"},
                        {1.0F * static_cast<float>(shot), 2, 3});
        EXPECT_EQ(Replace_File(Folder / name, builder.Bytes()), "");
        return Folder / name;
    }
};

TEST_F(SuConvert, TellsEachFileAndWritesOne) {
    const std::string files = Seg2("10.dat", 1) + " " + Seg2("9.dat", 2) + " " + Folder / "none.sgy";
    const std::string out = Folder / "out.su";
    Outcome done = Run("su-convert " + files + " --order shot --json --out " + out);
    ASSERT_EQ(done.Status, 0) << done.Errors;
    const nlohmann::json json = done.Json();
    EXPECT_EQ(json["file"], out);
    EXPECT_EQ(json["traces"], 4);
    ASSERT_EQ(json["files"].size(), 3U);
    const nlohmann::json& first = json["files"][0];
    EXPECT_EQ(first["file"], Folder / "10.dat");
    EXPECT_EQ(first["format"], "SEG-2");
    EXPECT_EQ(first["byte_order"], "little");
    EXPECT_EQ(first["sample_format"], "float32");
    EXPECT_EQ(first["text_header"], "");
    EXPECT_EQ(first["traces"], 2);
    EXPECT_EQ(first["ns"], 3);
    EXPECT_EQ(first["dt"], 250);
    EXPECT_EQ(first["delay"], -5);
    EXPECT_TRUE(first["faults"].empty());
    EXPECT_EQ(json["files"][2]["faults"].size(), 1U) << "the others go on";
    EXPECT_EQ(SuTraces(out).Word(3, words::fldr), 2);

    EXPECT_EQ(Run("su-convert " + files + " --out " + out).Status, 1) << "it exists";
    EXPECT_EQ(
        Run("su-convert " + files + " --yes --shots=-1,7.5 --spacing 2 --first-receiver=-4 --out " + out)
            .Status,
        0);
    EXPECT_EQ(SuTraces(out).Word(3, words::sx), 75);
    EXPECT_EQ(SuTraces(out).Word(4, words::gx), -20);
    EXPECT_EQ(Replace_File(Folder / "g.csv", "Record;Channel;ReceiverX\n2;1;8\n"), "");
    EXPECT_EQ(Run("su-convert " + files + " --yes --geometry " + Folder / "g.csv" + " --out " + out).Status,
              0);
    EXPECT_EQ(SuTraces(out).Word(3, words::gx), 8);

    done = Run("su-convert " + Folder / "none.sgy" + " --json --out " + Folder / "other.su");
    EXPECT_EQ(done.Status, 1);
    EXPECT_EQ(done.Json()["file"], "");
    EXPECT_EQ(done.Json()["files"].size(), 1U);
    EXPECT_FALSE(done.Json()["messages"].empty());
    EXPECT_FALSE(File_Exists(Folder / "other.su"));
    for (const char* wrong : {" --order depth", " --first-receiver 2", " --shots 1,b", " --spacing wide"})
        EXPECT_EQ(Run("su-convert " + files + wrong + " --out " + out).Status, 2) << wrong;
}

}  // namespace
}  // namespace tarnvik::test
