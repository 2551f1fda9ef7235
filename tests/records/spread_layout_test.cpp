#include "records/spread_layout.h"

#include <gtest/gtest.h>

#include "records/su_file.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

/// Four records of three channels over a line of six receivers.
class Layout : public testing::Test {
  protected:
    Layout() : File(12, 4) {
        File.Records(3);
        Work.Project.NbShots = 4;
        Work.Project.NbReceivers = 6;
        Work.Record.ChannelsPerRecord = 3;
        Work.Project.SuFile = Folder / "line.su";
    }
    /// `tracl` of the records' first traces.
    void Geophones(int first, int second, int third, int fourth) {
        const int all[] = {first, second, third, fourth};
        for (int record = 1; record <= 4; ++record)
            File.Put32(record * 3 - 2, 0, all[record - 1]);
    }
    /// Shot and receiver of traces 1 to 12, the three of a record together.
    std::vector<std::string> Places() {
        File.Write(Work.Project.SuFile);
        const SpreadLayout spread(Work);
        std::vector<std::string> places;
        for (int trace = 1; trace <= 12; ++trace) {
            const auto place = spread.Place_Of(trace);
            if (!place) return {};
            places.push_back(std::to_string(place->Shot) + "." + std::to_string(place->Receiver));
            // The way back ends at the first trace of that place.
            const auto back = spread.Trace_Of(*place);
            EXPECT_TRUE(back && *back <= trace && spread.Place_Of(*back)->Shot == place->Shot &&
                        spread.Place_Of(*back)->Receiver == place->Receiver)
                << trace;
        }
        return places;
    }
    std::string All() {
        std::string all;
        for (const std::string& place : Places())
            all += (all.empty() ? "" : " ") + place;
        return all;
    }

    TemporaryFolder Folder;
    Workspace Work;
    SuBuilder File;
};

TEST_F(Layout, ARecordIsAShotAndItsChannelsCountFromItsFirstGeophone) {
    Geophones(1, 4, 0, 7);  // none, and one beyond the line
    EXPECT_EQ(All(), "1.1 1.2 1.3 2.4 2.5 2.6 3.1 3.2 3.3 4.1 4.2 4.3");
    Work.Record.DirectionInverted = true;
    EXPECT_EQ(All(), "1.3 1.2 1.1 2.6 2.5 2.4 3.3 3.2 3.1 4.3 4.2 4.1");
}

TEST_F(Layout, SeveralSpreadsShareTheirShots) {
    Geophones(1, 4, 1, 4);
    File.Put32(1, 16, 1).Put32(4, 16, 1).Put32(7, 16, 2).Put32(10, 16, 2);
    Work.Record.SeveralSpreads = true;
    EXPECT_EQ(All(), "1.1 1.2 1.3 1.4 1.5 1.6 2.1 2.2 2.3 2.4 2.5 2.6");
    // Stations that could not be stored count before the header, the others do not.
    Work.Record.StationsTyped[3] = {.Shot = 4, .FirstGeophone = 2, .InHeader = false};
    Work.Record.StationsTyped[4] = {.Shot = 4, .FirstGeophone = 2, .InHeader = true};
    EXPECT_EQ(Places()[6], "4.2");
    EXPECT_EQ(Places()[9], "2.4");
    // Two records of the same place: the first one has its pick.
    Work.Record.StationsTyped.clear();
    Geophones(1, 1, 1, 4);
    EXPECT_EQ(Places()[3], "1.1");
    EXPECT_EQ(SpreadLayout(Work).Trace_Of({1, 1}), 1);
    EXPECT_EQ(SpreadLayout(Work).Trace_Of({1, 6}), std::nullopt);
}

TEST_F(Layout, ATraclThatRunsOnThroughTheFileIsNoStation) {
    for (int trace = 1; trace <= 12; ++trace)
        File.Put32(trace, 0, trace + 100);
    EXPECT_EQ(All(), "1.1 1.2 1.3 2.1 2.2 2.3 3.1 3.2 3.3 4.1 4.2 4.3");
}

TEST_F(Layout, WithoutAChannelCountARecordHasTheLinesReceivers) {
    Work.Record.ChannelsPerRecord = 0;
    EXPECT_EQ(Places()[6], "2.1");
    Work.Project.NbReceivers = 0;
    EXPECT_TRUE(Places().empty());
    EXPECT_EQ(SpreadLayout(Work).Record_Of(5), 0);
}

TEST_F(Layout, ThePartForADrawingTellsTheSameOfItsTraces) {
    Geophones(1, 4, 2, 3);
    File.Write(Work.Project.SuFile);
    SuTraces file(Work.Project.SuFile);
    const SpreadLayout all(Work, file);
    const SpreadLayout part(Work, file, 5, 8);
    for (int trace = 4; trace <= 9; ++trace)
        EXPECT_EQ(part.Place_Of(trace)->Receiver, all.Place_Of(trace)->Receiver) << trace;
    EXPECT_EQ(part.Records(), all.Records());
}

}  // namespace
}  // namespace tarnvik::test
