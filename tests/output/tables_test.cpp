// The tables that leave the program, held against checked examples of the demo line.

#include <cstdlib>

#include "core/text/number.h"
#include "output/demo_exports.h"
#include "output/tables/delay_list.h"
#include "output/tables/delay_result.h"
#include "output/tables/depth_file.h"
#include "output/tables/resu.h"
#include "output/tables/shot_depths.h"

namespace tarnvik::test {
namespace {

constexpr const char* question_of_places = "Do you have X,Y;T géophone location file ?";

class DemoTables : public DemoExports {
  protected:
    /// Delays and depths of four layers below all receivers but the first; the last one lacks an interface.
    DemoTables() {
        Give_Depths();
        for (int r = 2; r <= 24; ++r) {
            const auto step = static_cast<float>(r);
            Line.ReceiverData(ReceiverIntercept, r) = 12.25F + step;
            Line.ReceiverData(ReceiverV1, r) = 600;
            Line.ReceiverData(ReceiverV2, r) = 1600;
            Line.ReceiverData(ReceiverV3, r) = 2400;
            Line.ReceiverData(ReceiverV4, r) = 3800;
            Line.ReceiverData(ReceiverDepth1, r) = 100.1F;
            Line.ReceiverData(ReceiverDepth2, r) = 100.2F + step / 8;
            Line.ReceiverData(ReceiverScratch, r) = 130.7F;
        }
        Line.ReceiverData(ReceiverDepth2, 24) = 0;
        Line.ReceiverData(ReceiverElevation, 7) = -0.125F;
    }
    void Expect_Places(const std::string& bytes) {
        ASSERT_EQ(Replace_File(Folder / "xyz.txt", bytes), "");
        Prompts.Expect(question_of_places, Answer::Yes);
        Prompts.Expect_File("XYZ text file", Folder / "xyz.txt");
    }
};

TEST_F(DemoTables, are_written_as_their_examples) {
    Prompts.Expect(question_of_places, Answer::No);
    for (const auto& run : {Export_Depth_File, Record_Delay_Result, Export_Shot_Depths, Export_Delay_List}) {
        const ExportReport report = run(Test.Ports, Source());
        EXPECT_TRUE(report.Done);
        EXPECT_EQ(report.Receivers, 24);
    }
    for (const char* name : {"demo1.TVX", "demo1.csv", "demo1.sht", "demo1_Delay.txt"})
        EXPECT_EQ(Written(name), Example(name)) << name;
    EXPECT_EQ(Test.Launcher.Started,
              (std::vector<std::string>{Folder / "demo1.csv", "editor|" + (Folder / "demo1.sht")}));
    EXPECT_EQ(Prompts.Last_Text(), "delay recorded in " + (Folder / "demo1_Delay.txt"));

    Prompts.Expect((Folder / "demo1_Delay.txt") + " already exists, overwrite ?", Answer::No);
    Prompts.Expect_File("Enter the new file name", "");
    EXPECT_FALSE(Export_Delay_List(Test.Ports, Source()).Done);
}

TEST_F(DemoTables, a_value_beyond_the_depth_file_is_told_and_goes_into_the_csv) {
    Line.ReceiverData(ReceiverDistance, 24) = 327.68F;
    const std::string words = "Error: TVX file not recorded\r\nReceiver 24: the distance of 327.68 x 100 is";
    Prompts.Expect_Start(words, Answer::No);
    EXPECT_FALSE(Export_Depth_File(Test.Ports, Source()).Done);
    EXPECT_TRUE(Names_In_Folder().empty());
    Prompts.Expect_Start(words, Answer::Yes);
    Prompts.Expect(question_of_places, Answer::No);
    Test.Launcher.Result = 2;
    EXPECT_TRUE(Export_Depth_File(Test.Ports, Source()).Done);
    EXPECT_EQ(Names_In_Folder(), (std::vector<std::string>{"demo1.csv"}));
    EXPECT_TRUE(Prompts.Said("Unable to launch EXCEL"));
    Line.ReceiverData(ReceiverDistance, 24) = 327.67F;
    EXPECT_TRUE(Export_Depth_File(Test.Ports, Source()).Done);
    EXPECT_NE(Written("demo1.TVX").find("\r\n 32767 "), std::string::npos);
}

TEST_F(DemoTables, the_delay_result_has_the_places_of_a_file_and_knows_two_layers) {
    for (int r = 2; r <= 24; ++r) {
        Line.ReceiverData(ReceiverDepth2, r) = Line.ReceiverData(ReceiverScratch, r) = 0;
        Line.ReceiverData(ReceiverRockDepth, r) = 4.5F;
    }
    std::string places = "1000.5,2000 , 31\r\n";
    for (int r = 2; r <= 23; ++r)
        places += CStr(1000 + r) + " 2000\r\n31.5\r\n";
    // One number short, a word, and a number too many.
    for (const char* wrong : {"1024 2000", "1024 2000 z", "1024 2000 31 7"}) {
        Expect_Places(places + wrong);
        EXPECT_FALSE(Record_Delay_Result(Test.Ports, Source()).Done);
        EXPECT_TRUE(Prompts.Last_Text().starts_with((Folder / "xyz.txt") + " does not hold three numbers"));
    }
    Expect_Places(places + "1024 2000 -1e1");
    EXPECT_TRUE(Record_Delay_Result(Test.Ports, Source()).Done);
    const std::string text = Written("demo1.csv");
    EXPECT_NE(text.find("\r\n0;1;1000.5;2000;31;0;0;0;0;0;0;0;0;"), std::string::npos) << text;
    EXPECT_NE(text.find("\r\n36.25;24;1024;2000;-10;600;1600;2400;3800;4.5;0;0;4.5;"), std::string::npos);
    for (int r = 2; r <= 24; ++r)
        Line.ReceiverData(ReceiverIntercept, r) = 0;
    EXPECT_FALSE(Record_Delay_Result(Test.Ports, Source()).Done);
    EXPECT_EQ(Prompts.Last_Text(), "First compute delays");
    EXPECT_FALSE(Export_Delay_List(Test.Ports, Source()).Done);
    EXPECT_EQ(Prompts.Last_Text(), "No delay available !!!");
}

TEST_F(DemoTables, tell_a_folder_that_cannot_be_written_and_name_files_by_the_first_point) {
    Line.CurrentFile = Folder / "none/demo1.tv5";
    EXPECT_FALSE(Export_Shot_Depths(Test.Ports, Source()).Done);
    EXPECT_TRUE(Prompts.Last_Text().starts_with("Error N°76\r\n")) << Prompts.Last_Text();
    EXPECT_FALSE(Export_Depth_File(Test.Ports, Source()).Done);
    EXPECT_TRUE(Prompts.Last_Text().starts_with("Error: TVX file not recorded\r\n"));
    Redimension_Project(Line);
    Line.CurrentFile = Folder / "demo1.new.tv5";
    EXPECT_TRUE(Export_Shot_Depths(Test.Ports, Source()).Done);
    Line.CurrentFile = Folder / "demo1";
    EXPECT_TRUE(Export_Shot_Depths(Test.Ports, Source()).Done);
    EXPECT_TRUE(Written("sht").starts_with("Intercept depth computation\r\n")) << "also without depths";
    EXPECT_EQ(Written("sht"), Written("demo1.sht"));
}

class Results : public DemoTables {
  protected:
    Results() { Table.Load(); }
    resu Table{Work, Test.Ports};
    TextGrid& Grid = Table.resultat_grid;
};

TEST_F(Results, are_corrected_in_the_table_alone_and_follow_the_line) {
    const Array2<double> thickness = Line.ShotThickness;
    EXPECT_TRUE(Table.Type(1, 2, "3,5"));
    EXPECT_TRUE(Table.Type(2, 3, " "));
    for (const char* wrong : {"a", "1a", "-", "1e999"})
        EXPECT_FALSE(Table.Type(1, 2, wrong)) << wrong;
    EXPECT_EQ(Table.Hint, "\"1e999\" is no number");
    EXPECT_FALSE(Table.Type(0, 2, "1"));
    EXPECT_FALSE(Table.Type(1, 0, "1"));
    Prompts.Expect_File("CSV File selection", Folder / "results");
    Table.Command2();
    EXPECT_EQ(Written("results.csv"), Example("demo1_results.csv"));
    EXPECT_EQ(Prompts.FileRequests.back().DefaultName, "*.CSV");
    EXPECT_EQ(Line.ShotThickness, thickness);

    Line.ShotThickness(3, 2) = 7;
    Table.Follow();
    EXPECT_EQ(Grid.Text(3, 7), "7");
    EXPECT_EQ(Grid.Text(1, 2), "3.5") << "what was typed stays";
    Redimension_Project(Line);
    Table.Load();
    EXPECT_EQ(Table.Hint, "No depths have been computed yet");
    Prompts.Expect_File("CSV File selection", Folder / "none/results.csv");
    Table.Command2();
    EXPECT_TRUE(Prompts.Last_Text().starts_with((Folder / "none/results.csv") + " cannot be written: "));
}

TEST_F(Results, become_a_workbook_that_another_program_reads) {
    Line.ProjectName = "A & B";
    Grid.Set_Text(1, 2, "");
    Grid.Set_Text(1, 1, "-60.25");
    const std::string path = Folder / "results.xlsx";
    ASSERT_EQ(Replace_File(path, "old"), "");
    Prompts.Expect_File("Excel file selection", path);
    Table.Save_Workbook();
    EXPECT_EQ(Names_In_Folder(), (std::vector<std::string>{"results.xlsx"})) << "nothing else stays";
    const std::string unpack = "cd " + Folder.Path +
                               " && cmake -E tar xf results.xlsx && cat xl/worksheets/sheet1.xml "
                               "xl/sharedStrings.xml docProps/core.xml > all.xml";
    ASSERT_EQ(std::system(unpack.c_str()), 0);
    const std::string xml = Written("all.xml");
    for (const char* part :
         {"<c r=\"A2\"><v>-60.25</v></c><c r=\"C2\">", "<c r=\"E3\"><v>6</v></c>", "<t>V5</t>", "A &amp; B"})
        EXPECT_NE(xml.find(part), std::string::npos) << part << " in\n" << xml;
    EXPECT_NE(Write_Xlsx(path, {"a/b", "", {}, {}}), "");
    EXPECT_EQ(Read_File(path)->substr(0, 2), "PK") << "the former one stays";
    EXPECT_NE(Write_Xlsx(Folder / "none/x.xlsx", {"a", "", {"X"}, {}}), "");
}

}  // namespace
}  // namespace tarnvik::test
