// Result tables of several lines as one.

#include <gtest/gtest.h>

#include "core/files.h"
#include "output/tables/add_csv.h"
#include "output/tables/delay_result.h"
#include "output/tables/resu.h"
#include "support/small_project.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

class Grouping : public testing::Test {
  protected:
    std::string Write(const std::string& name, const std::string& text) {
        Replace_File(Folder / name, text);
        return Folder / name;
    }
    std::string Out() const { return Read_File(Dialog.Out).value_or(""); }

    TemporaryFolder Folder;
    TestPorts Outside;
    AddCsv Dialog{Outside.Ports, "Add CSV"};
};

TEST_F(Grouping, tables_that_the_program_writes_become_one) {
    Workspace work = Small_Workspace(Folder / "line.tv5");
    const Project& project = work.Project;
    const auto places = Places_On_Line(project);
    const std::string one = Write("b.csv", Delay_Result_Text(project, places, "north"));
    const std::string two = Write("a.csv", Delay_Result_Text(project, places, "south"));
    Dialog.Add({one, two, one});
    EXPECT_EQ(Dialog.Files.Rows(), 3);
    EXPECT_EQ(Dialog.Files.Text(1, 2), "north");
    EXPECT_EQ(Dialog.Out, Folder / "grouped.csv");
    Dialog.Sort_By_Name();
    EXPECT_EQ(Dialog.Files.Text(1, 2), "south");
    Dialog.Write();
    const std::string out = Out();
    EXPECT_TRUE(out.starts_with("Travel Time;Geophone;X;Y;Z;v1;v2;V3;V4;E1;E2;E3;Bed Rock;Distance;Line"))
        << out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1 + 2 * project.NbReceivers);
    EXPECT_LT(out.find(";south\r\n"), out.find(";north\r\n"));
    EXPECT_EQ(Dialog.Preview.Text(0, 15), "Line");

    // A table of the shots has other columns, and no name of its own.
    Dialog.Add({Write("c.csv", Result_Csv(Result_Table(project)))});
    EXPECT_FALSE(Dialog.Ready());
    EXPECT_NE(Dialog.Hint.find("c.csv has columns that the first file lacks"), std::string::npos);
}

TEST_F(Grouping, columns_go_by_their_names_and_what_differs_is_told) {
    const std::string first = Write("a.csv", "X;Z;V1\r\n1;2;3\r\n");
    Dialog.Add({first, Write("b.csv", "Z,x,V1\n5,4,\"6\"\n\n")});
    EXPECT_NE(Dialog.Hint.find("b.csv has its columns in another order"), std::string::npos);
    Dialog.Write();
    EXPECT_EQ(Out(), "X;Z;V1;Line\r\n1;2;3;a\r\n4;5;6;b\r\n");

    Dialog.Add({Write("c.csv", "X;V1\r\n7;much;\r\n")});
    EXPECT_EQ(Dialog.Hint, "c.csv lacks columns of the first file: \"Z\"");
    Outside.Prompts.Messages.clear();
    Dialog.Write();
    EXPECT_EQ(Outside.Prompts.Last_Text(), Dialog.Hint);
    Dialog.FillMissing = true;
    Dialog.LineColumn = false;
    Dialog.Changed();
    EXPECT_NE(Dialog.Hint.find("\"V1\" holds numbers and words"), std::string::npos);
    Outside.Prompts.Expect(Dialog.Out + " already exists, overwrite ?", Answer::Yes);
    Dialog.Write();
    EXPECT_EQ(Out(), "X;Z;V1\r\n1;2;3\r\n4;5;6\r\n7;;much\r\n");

    Dialog.Out = first;
    Dialog.Write();
    EXPECT_EQ(Outside.Prompts.Last_Text(), first + " is one of the files that are grouped");
    EXPECT_EQ(Read_File(first), "X;Z;V1\r\n1;2;3\r\n");
}

TEST_F(Grouping, a_table_that_is_none_is_refused_with_its_line) {
    const struct {
        const char* Text;
        const char* Fault;
    } cases[] = {
        {"X;Z\r\n1;2\r\n1;2;3\r\n", "line 3 has 3 fields, the headings are 2"},
        {"", "it has no headings"},
        {"one column\r\n1\r\n", "it has no headings"},
        {"1;2;3\r\n4;5;6\r\n", "its first line holds numbers"},
        {"X;Z\r\n", "it holds headings alone"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Text);
        AddCsv dialog(Outside.Ports, "Add CSV");
        dialog.Add({Write("bad.csv", each.Text)});
        EXPECT_FALSE(dialog.Ready());
        EXPECT_NE(dialog.Hint.find(each.Fault), std::string::npos) << dialog.Hint;
    }
    const CsvTable binary = Read_Csv_Table("x.csv", std::string_view("a;b\0c", 5));
    EXPECT_EQ(binary.Faults, std::vector<std::string>{"it is no text file"});
    // Accents of either alphabet.
    EXPECT_EQ(Read_Csv_Table("x", "A;\xE9\n1;2\n").Headings[1], "\u00E9");
    EXPECT_EQ(Read_Csv_Table("x", "A;\u00E9\n1;2\n").Headings[1], "\u00E9");
}

}  // namespace
}  // namespace tarnvik::test
