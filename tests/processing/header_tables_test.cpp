// Looks at whole files of headers: what is wrong with them, and their words and geometry as tables.

#include <gtest/gtest.h>

#include <cmath>

#include "core/files.h"
#include "processing/header_check.h"
#include "processing/header_geometry_table.h"
#include "processing/header_reader.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {

namespace {

constexpr int pick_offset = 222;
constexpr int channels = 6;

/// Three records of six channels, all picked.
SuBuilder Tidy_File() {
    SuBuilder file(3 * channels, 40, 500);
    file.Records(channels);
    for (int trace = 1; trace <= 3 * channels; ++trace)
        file.Put16(trace, pick_offset, 10 * trace);
    return file;
}

class HeaderTables : public ::testing::Test {
  protected:
    std::vector<std::string> Faults(const SuBuilder& file) { return Check_Headers(file.Write(Path)); }
    double Word(std::int64_t trace, int word) {
        HeaderReader headers(Path);
        return headers.Take(trace) ? headers.Word(word) : -1;
    }
    TemporaryFolder Folder;
    std::string Path = Folder / "line.su";
};

/// The table with a column changed in all rows.
std::vector<TraceGeometry> Rows(const std::string& text) {
    GeometryTable table = Read_Geometry_Table(text);
    EXPECT_EQ(table.Fault, "");
    return std::move(table.Rows);
}

}  // namespace

TEST_F(HeaderTables, check_names_each_fault_and_nothing_in_a_good_file) {
    EXPECT_TRUE(Faults(Tidy_File()).empty());

    // Channel 5 of the second record says 4.
    EXPECT_EQ(
        Faults(Tidy_File().Put32(11, 12, 4)),
        std::vector<std::string>{"Record 2 (traces 7 to 12): channel 5 is missing; channel 4 is repeated."});
    // The first record counts on from another one.
    SuBuilder shifted = Tidy_File();
    for (int trace = 1; trace <= channels; ++trace)
        shifted.Put32(trace, 12, trace + 12);
    EXPECT_EQ(Faults(shifted),
              std::vector<std::string>{"Record 1 (traces 1 to 6): channels 13 to 18 instead of 1 to 6."});
    // A trace is lost on the way, and one belongs nowhere.
    SuBuilder lost = Tidy_File();
    lost.Bytes.erase(400 * 8, 400);
    EXPECT_EQ(Faults(lost), std::vector<std::string>{"Record 2 (traces 7 to 11): channel 3 is missing."});
    EXPECT_EQ(Faults(Tidy_File().Put32(18, 12, 60)),
              std::vector<std::string>{
                  "Record 3 (traces 13 to 18): channel 6 is missing; channel 60 is beyond 1 to 6."});

    // Records that are not numbered are found by their channels.
    SuBuilder unnumbered = Tidy_File();
    for (int trace = 1; trace <= 3 * channels; ++trace)
        unnumbered.Put32(trace, 8, 7);
    EXPECT_EQ(Faults(unnumbered.Put32(9, 12, 4)),
              (std::vector<std::string>{
                  "fldr is 7 in all traces, though tracf begins anew 2 times: the records are not numbered.",
                  "Record 2 (traces 7 to 12): channel 3 is missing; channel 4 is repeated."}));
    SuBuilder twice = Tidy_File();
    for (int trace = 13; trace <= 18; ++trace)
        twice.Put32(trace, 8, 1);
    EXPECT_EQ(Faults(twice),
              std::vector<std::string>{"fldr 1 stands in traces 1 to 6 and again in traces 13 to 18."});
    SuBuilder constant = Tidy_File();
    for (int trace = 1; trace <= 18; ++trace)
        constant.Put32(trace, 12, 1);
    EXPECT_EQ(Faults(constant),
              std::vector<std::string>{"tracf is 1 in all traces: the channels are not numbered."});

    // Picks: a record without, dead traces aside, and one behind the end at 20 ms.
    SuBuilder picks = Tidy_File();
    for (int trace = 1; trace <= 12; ++trace)
        picks.Put16(trace, pick_offset, 0);
    for (int trace = 1; trace <= 6; ++trace)
        picks.Put16(trace, 28, 2);
    EXPECT_EQ(Faults(picks.Put16(18, pick_offset, 201)),
              (std::vector<std::string>{
                  "Record 2 (traces 7 to 12): no picks.",
                  "Trace 18: the pick at 20.1 ms lies beyond the end of the trace at 20 ms."}));

    // What the whole file tells comes first.
    const auto broken = Faults(Tidy_File().Put16(1, 116, 0).Put16(3, 114, 39));
    ASSERT_GE(broken.size(), 2U);
    EXPECT_NE(broken[0].find("dt, the sample interval, is 0"), std::string::npos);
    EXPECT_NE(broken[1].find("trace 3: ns = 39"), std::string::npos);
}

TEST_F(HeaderTables, geometry_goes_out_in_real_units_and_comes_back) {
    SuBuilder file = Tidy_File();
    for (int trace = 1; trace <= 18; ++trace) {
        file.Put16(trace, 70, -100).Put16(trace, 68, 0);
        file.Put32(trace, 72, 1234500).Put32(trace, 80, 1234500 + 100 * trace).Put32(trace, 40, 95);
    }
    file.Write(Path);
    for (const char* name : {"geometry.csv", "geometry.prn"}) {
        const std::string target = Folder / name;
        ASSERT_EQ(Write_Geometry_Table(Path, target), "");
        std::vector<TraceGeometry> table = Rows(*Read_File(target));
        ASSERT_EQ(table.size(), 18U);
        EXPECT_EQ(table[4][GeometryColumn::ReceiverX], 12350);
        EXPECT_EQ(table[4][GeometryColumn::ReceiverElevation], 95);
        EXPECT_EQ(table[8][GeometryColumn::Channel], 3);
        // Unchanged it changes nothing but the scales, which are told.
        const std::string before = *Read_File(Path);
        const GeometryWritten same = Write_Geometry(Path, nullptr, table, {-100, 0});
        EXPECT_EQ(same.Fault, "");
        EXPECT_EQ(same.Scales.Elevations, 1);
        const auto changed = Changed_Bytes(before, *Read_File(Path));
        EXPECT_EQ(changed.size(), name == std::string("geometry.csv") ? 18U : 0U) << "scalel alone, once";
    }
}

TEST_F(HeaderTables, imported_geometry_takes_a_scale_that_holds_it_and_turns_its_neighbours) {
    SuBuilder file = Tidy_File();
    file.Put16(2, 68, -10).Put32(2, 48, 15).Put32(2, 44, 1000);  // depth of the source 1.5, elevation 100
    file.Write(Path);
    const auto rows =
        Rows("Elevation of nothing;trace;ReceiverElevation;Shot X\r\nx;2;101,25;-3,5\r\n;1;;7\r\n");
    ASSERT_EQ(rows.size(), 2U);
    const GeometryWritten written = Write_Geometry(Path, nullptr, rows, {});
    EXPECT_EQ(written.Fault, "");
    EXPECT_EQ(written.Scales.Elevations, -100);
    EXPECT_EQ(written.Scales.Coordinates, -10);
    EXPECT_EQ(Word(2, words::gelev), 10125);
    EXPECT_EQ(Word(2, words::sdepth), 150);
    EXPECT_EQ(Word(2, words::selev), 10000);
    EXPECT_EQ(Word(2, words::scalel), -100);
    EXPECT_EQ(Word(1, words::scalel), 0) << "no elevation was given for trace 1";
    EXPECT_EQ(Word(1, words::sx), 70);
    EXPECT_EQ(Word(2, words::sx), -35);
}

TEST_F(HeaderTables, a_table_that_does_not_fit_is_refused_as_a_whole) {
    Tidy_File().Put16(2, 68, -10).Put32(2, 48, 15).Write(Path);
    const std::string before = *Read_File(Path);
    const auto fault = [this](const std::string& text, GeometryScales scales = {}) {
        const GeometryTable table = Read_Geometry_Table(text);
        return table.Fault.empty() ? Write_Geometry(Path, nullptr, table.Rows, scales).Fault : table.Fault;
    };
    EXPECT_EQ(fault("Trace ShotX\n1 5\n19 5\n"), "trace 19: the file has 18 traces");
    EXPECT_EQ(fault("Trace ShotX\n1 5\n1 6\n"), "trace 1 stands twice in the table");
    EXPECT_EQ(fault("Trace Channel ShotX\n1 1 5\n2 3 6\n"),
              "trace 2: channel 3 in the table, 2 in the file. Does the table belong to it?");
    EXPECT_EQ(fault("Trace ShotX\n1 5\n2 3000000000\n"), "trace 2: 3000000000 does not fit the word sx");
    EXPECT_EQ(fault("Trace ShotElevation\n2 7\n", {0, 1}),
              "trace 2: the word sdepth, 1.5, cannot be held by the scale 1");
    EXPECT_EQ(fault("Trace ShotX\n1 5\n2 five\n"), "line 3: \"five\" is no number");
    EXPECT_EQ(fault("Trace,ShotX\n1,5\n2,5,6\n"), "line 3: 3 columns instead of 2");
    EXPECT_EQ(fault("ShotX\n5\n"), "line 1: no column \"Trace\" in the headings");
    EXPECT_EQ(fault("1 2 3\n"), "line 1: 3 columns instead of 11");
    EXPECT_EQ(fault("1.5 1 1 1 1 1 1 1 1 1 1\n"), "line 1: \"1.5\" is no number of a trace");
    EXPECT_EQ(fault("\r\n"), "the table has no trace");
    EXPECT_EQ(*Read_File(Path), before);
}

}  // namespace tarnvik::test
