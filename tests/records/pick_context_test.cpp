#include "records/pick_context.h"

#include <algorithm>

#include "records/picking_support.h"

namespace tarnvik::test {
namespace {

class PickContext : public RecordOnScreen {
  protected:
    PickContext() {
        for (int receiver = 1; receiver <= channels; ++receiver) {
            Work.Project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(10 * receiver);
            Work.Project.ShotTimes(1, receiver) = static_cast<float>(2 + receiver);
        }
        Work.Project.ShotDistance(1) = 5;
        Work.Project.ShotDistance(2) = 35;
        Write();
        Show(2);
    }
    std::vector<tarnvik::Mark> Marks(bool PickingView::*choice) {
        Work.Record.Picking.Neighbours = false;
        Work.Record.Picking.*choice = true;
        RecordReading record(Work);
        return Context_Marks(Work, record);
    }
};

TEST_F(PickContext, TheTimeFromShotToShotIsExpectedAtTheOther) {
    const std::vector<tarnvik::Mark> marks = Marks(&PickingView::Reciprocal);
    ASSERT_EQ(marks.size(), 3U);
    // Shot 1 lies half a receiver before the first one; between receivers 3 and 4 it has 5.5 ms.
    EXPECT_EQ(marks[1].Shape, tarnvik::Mark::Kind::Dot);
    EXPECT_DOUBLE_EQ(marks[1].Y1, 5.5);
    EXPECT_DOUBLE_EQ(marks[1].X1, Middle(6) + 1);
    EXPECT_EQ(marks[2].Words, "1");
}

TEST_F(PickContext, ThePicksOfTheShotBeforeStandAtTheirOffsets) {
    const std::vector<tarnvik::Mark> marks = Marks(&PickingView::ShotBefore);
    // Receivers 4 and 5 lie 5 and 15 behind shot 2, as receivers 1 and 2 behind shot 1; 3 to 1 lie as far
    // before it.
    ASSERT_EQ(marks.size(), 4U);
    EXPECT_DOUBLE_EQ(marks[3].Y1, 3);
    EXPECT_DOUBLE_EQ(marks[3].Y2, 4);
    EXPECT_DOUBLE_EQ(marks[3].X2, Middle(10) + 1);
    EXPECT_DOUBLE_EQ(marks[0].Y1, 5);
}

TEST_F(PickContext, TheLineGoesThroughThePicksAndPassesOverTracesWithout) {
    Click(6, 4);
    Click(9, 8);
    const std::vector<tarnvik::Mark> marks = Marks(&PickingView::Neighbours);
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_DOUBLE_EQ(marks[0].X1, Middle(6) + 1);
    EXPECT_DOUBLE_EQ(marks[0].X2, Middle(9) + 1);
    EXPECT_DOUBLE_EQ(marks[0].Y2, 8);
}

}  // namespace
}  // namespace tarnvik::test
