#include <cmath>

#include "core/project_file.h"
#include "core/text/number.h"
#include "depth_dialog.h"
#include "support/field_names.h"

namespace tarnvik {

namespace {

/// Two layers below shot 2; what reaches the project, and when.
struct DepthStore : DepthDialog {
    DepthStore() {
        Two_Layers(2, 25, 30);
        Begin();
    }
    void Two_Layers(int shot, double intercept, double distance) {
        Give_Layers(shot, {400, 1600}, {intercept}, {distance});
    }
    /// The history begins here.
    void Begin() { Work.Edits.Start(Work.Project, true); }
    double Thickness(int shot, int layer = 1) const { return Work.Project.ShotThickness(shot, layer); }
    std::string Last_Edit() const { return Work.Edits.Undo_Name(); }
};

const double by_intercept = 5.16;                                    // 400 * 0.025 / (2 * cos(asin 1/4))
const double by_distance = std::round(1500 * std::sqrt(0.6)) / 100;  // 15 * sqrt(1200 / 2000)

}  // namespace

TEST_F(DepthStore, EachFieldHasItsOwnPlaceBothWays) {
    Open_At(2);
    const Project before = Work.Project;
    int value = 0;
    const auto next = [&value] { return CStr(++value * 100); };
    for (const char* family : {"V", "IT", "CD"}) {
        for (int row = 1; row <= (family[0] == 'V' ? 5 : 4); ++row) {
            for (const char* side : {"A", "B"})
                *Form->Field_Of(test::Field(family + std::to_string(row) + side)) = next();
        }
    }
    for (std::size_t row = 1; row <= 4; ++row)
        Form->Thick[row] = CStr(static_cast<double>(row) + 0.25);
    Form->Altitude = "77.5";
    Form->ShotDepth = "1.5";
    Form->Command4();

    const Project& project = Work.Project;
    value = 0;
    for (int layer = 1; layer <= 5; ++layer) {
        EXPECT_EQ(project.VelocityA(2, layer), ++value * 100);
        EXPECT_EQ(project.VelocityB(2, layer), ++value * 100);
    }
    for (int row = 1; row <= 4; ++row) {
        EXPECT_EQ(project.InterceptA(2, row), ++value * 100);
        EXPECT_EQ(project.InterceptB(2, row), ++value * 100);
        EXPECT_EQ(project.ShotThickness(2, row), row + 0.25);
    }
    for (int row = 1; row <= 4; ++row) {
        EXPECT_EQ(project.CritDistA(2, row), ++value * 100);
        EXPECT_EQ(project.CritDistB(2, row), ++value * 100);
    }
    EXPECT_EQ(project.ShotElevation(2), 77.5);
    EXPECT_EQ(project.ShotDepth(2), 1.5);
    for (const int other : {1, 3, 4}) {
        EXPECT_EQ(project.VelocityA(other, 1), before.VelocityA(other, 1));
        EXPECT_EQ(project.InterceptB(other, 4), 0);
        EXPECT_EQ(project.ShotElevation(other), 0);
    }
    EXPECT_EQ(Last_Edit(), "Values of shot 2");
    EXPECT_EQ(Saves, 1);

    // Displayed anew, each stands in its field again; the intercepts are out of order and nobody answers.
    World.Prompts.Expect_Input("Intercept Time 1 must be smaller than IT2, Please correct IT1 or IT2", "");
    Work.Project.InterceptA(2, 2) = Work.Project.InterceptB(2, 2) = 1;
    Scroll_To(2);
    Work.Project.InterceptA(2, 2) = 1300;
    value = 0;
    for (int layer = 1; layer <= 5; ++layer) {
        const auto row = static_cast<std::size_t>(layer);
        EXPECT_EQ(Form->VelocityA[row], next());
        EXPECT_EQ(Form->VelocityB[row], next());
    }
    EXPECT_EQ(Form->InterceptA[4], "1700");
    EXPECT_EQ(Form->InterceptB[3], "1600");
    EXPECT_EQ(Form->MeanIntercept[4], "1750");
    EXPECT_EQ(Form->CritDistA[1], "1900");
    EXPECT_EQ(Form->CritDistB[4], "2600");
    EXPECT_EQ(Form->MeanCritDist[3], "2350");
    EXPECT_EQ(Form->Altitude, "77.5");
    EXPECT_EQ(Form->ShotDepth, "1.5");
    EXPECT_EQ(Form->Layers, "5");
    EXPECT_EQ(Form->Thick[4], "4.25") << "what was stored, since nothing could be computed";
    EXPECT_EQ(Form->Depth[4], "11");
}

TEST_F(DepthStore, LookingChangesNothing) {
    const std::string before = Project_Bytes(Work.Project);
    Open_At(1);
    for (const int shot : {2, 3, 4, 1, 2})
        Scroll_To(shot);
    Form->Enter_Field(test::Field("V1A"));
    Form->Field_Changed();
    Form->Command2();
    Form->Close();
    EXPECT_EQ(Project_Bytes(Work.Project), before);
    EXPECT_EQ(Work.Edits.Done(), 0U);
    EXPECT_TRUE(Work.Edits.Is_Saved());
    EXPECT_EQ(Saves, 0);
}

TEST_F(DepthStore, ComputingIsOneEditThatStoresTheFieldsAndTheResultsOfBefore) {
    Open_At(2);
    EXPECT_NEAR(Val(Form->Thick[1]), by_intercept, 0.006);
    Form->InterceptA[1] = Form->InterceptB[1] = "50";
    Form->VelocityB[1] = "";
    Form->Command1();
    EXPECT_EQ(Last_Edit(), "Intercept depth of shot 2");
    EXPECT_EQ(Work.Edits.Done(), 1U);
    EXPECT_EQ(Work.Project.InterceptB(2, 1), 50);
    EXPECT_EQ(Work.Project.VelocityB(2, 1), 400) << "the missing side is that of the other";
    EXPECT_NEAR(Thickness(2), by_intercept, 0.006) << "the new one waits for the save";
    EXPECT_NEAR(Val(Form->Thick[1]), 2 * by_intercept, 0.011);
    Form->Command4();
    EXPECT_NEAR(Thickness(2), 2 * by_intercept, 0.011);
    EXPECT_EQ(Work.Edits.Done(), 2U);
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_EQ(Work.Project.InterceptA(2, 1), 25);
    EXPECT_EQ(Thickness(2), 0);

    // With Auto save the new results go with the same edit, and to the file.
    Open_At(2);
    Form->Check1 = true;
    Saves = 0;
    Form->InterceptA[1] = Form->InterceptB[1] = "50";
    Form->Command1();
    EXPECT_NEAR(Thickness(2), 2 * by_intercept, 0.011);
    EXPECT_EQ(Saves, 1);
    EXPECT_EQ(Work.Edits.Done(), 1U);
    EXPECT_FALSE(Form->Unsaved);
    CanSave = false;
    Form->Command1();
    EXPECT_TRUE(Form->Unsaved) << "a refused save leaves the mark";
    Form->Command4();
    EXPECT_TRUE(Form->Unsaved);
}

TEST_F(DepthStore, DepthsByCriticalDistanceStayWhereTheyWereStored) {
    Two_Layers(1, 0, 30);  // no intercepts at all
    Work.Project.ShotDepth(2) = 3;
    const auto expected = [](int shot) { return by_distance + (shot == 2 ? 1.5 : 0); };
    Begin();
    for (const int shot : {1, 2}) {
        Open_At(shot);
        Form->Command3();
        EXPECT_EQ(Last_Edit(), shot == 2 ? "Critical distance depth of shot 2" : "");
        Form->Command4();
        EXPECT_EQ(Thickness(shot), expected(shot));
    }
    const auto stored = Work.Project.ShotThickness;
    Form->Close();
    for (const int shot : {1, 2}) {
        Open_At(shot);
        EXPECT_EQ(Form->Thick[1], CStr(expected(shot))) << shot;
        EXPECT_EQ(Form->Depth[1], CStr(expected(shot)));
        Form->Command4();
    }
    EXPECT_EQ(Work.Project.ShotThickness, stored) << "opened and saved";
    Form->Check1 = true;
    for (const int shot : {1, 2, 1})
        Scroll_To(shot);
    EXPECT_EQ(Work.Project.ShotThickness, stored) << "scrolled with Auto save";
    // The intercept method is asked for: now its depth counts.
    Form->Check1 = false;
    Scroll_To(2);
    Form->Command1();
    Form->Command4();
    EXPECT_NEAR(Thickness(2), by_intercept + 1.5, 0.006);
    Scroll_To(1);
    Scroll_To(2);
    EXPECT_NEAR(Val(Form->Thick[1]), by_intercept + 1.5, 0.006);
    EXPECT_EQ(Form->Caption, "Intercept Time method");
    // Other values than those of the depth: it is no result of the critical distance any more.
    Work.Project.ShotThickness(2, 1) = 7;
    Scroll_To(2);
    EXPECT_NEAR(Val(Form->Thick[1]), by_intercept + 1.5, 0.006);
}

TEST_F(DepthStore, AFailedComputationWipesNoStoredDepth) {
    Work.Project.ShotThickness(2, 1) = 9;
    Open_At(2);
    Form->VelocityA[2] = Form->VelocityB[2] = "400";  // no critical angle
    Form->Command1();
    EXPECT_EQ(World.Prompts.Last_Text(), "Calculation impossible...");
    EXPECT_FALSE(Form->Computed);
    Form->Command4();
    EXPECT_EQ(Thickness(2), by_intercept) << "of the display before";
    Form->Check1 = true;
    Scroll_To(2);
    EXPECT_EQ(Thickness(2), by_intercept);
}

TEST_F(DepthStore, AfterAThicknessTooLargeToBeShownBothMethodsComputeAgain) {
    for (const bool distance_first : {false, true}) {
        Two_Layers(2, 25, 30);
        Work.Project.ShotThickness(2, 1) = 0;
        Open_At(2);
        if (distance_first) {
            Form->CritDistA[1] = Form->CritDistB[1] = "1700";
            Form->Command3();
            EXPECT_EQ(World.Prompts.Last_Text(), "Impossible calcul...");
        } else {
            Form->InterceptA[1] = Form->InterceptB[1] = "1700";
            Form->Command1();
            EXPECT_EQ(World.Prompts.Last_Text(), "Calculation impossible...");
        }
        EXPECT_EQ(Form->Thick[1], "");
        World.Prompts.Messages.clear();
        Form->InterceptA[1] = Form->InterceptB[1] = "25";
        Form->CritDistA[1] = Form->CritDistB[1] = "30";
        Form->Command1();
        EXPECT_NEAR(Val(Form->Thick[1]), by_intercept, 0.006);
        Form->Command3();
        EXPECT_EQ(Form->Thick[1], CStr(by_distance));
        EXPECT_TRUE(World.Prompts.Messages.empty());
    }
}

TEST_F(DepthStore, ATooLargeThicknessOfALayerThatIsGoneDoesNotStay) {
    Project& project = Work.Project;
    project.VelocityA(2, 3) = project.VelocityB(2, 3) = 4000;
    project.InterceptA(2, 2) = project.InterceptB(2, 2) = 900;  // 690 below layer 1
    Open_At(2);
    Form->Command1();
    EXPECT_EQ(World.Prompts.Last_Text(), "Calculation impossible...");
    World.Prompts.Messages.clear();
    Form->VelocityA[3] = Form->VelocityB[3] = "";
    Form->Command1();
    EXPECT_TRUE(World.Prompts.Messages.empty());
    EXPECT_NEAR(Val(Form->Thick[1]), by_intercept, 0.006);
}

TEST_F(DepthStore, AnAnsweredQuestionIsAnEditAlsoWhileScrolling) {
    Project& project = Work.Project;
    Two_Layers(1, 30, 30);
    project.VelocityA(1, 3) = project.VelocityB(1, 3) = 4000;
    project.InterceptA(1, 2) = project.InterceptB(1, 2) = 30;
    Begin();
    World.Prompts.Expect_Input("Intercept Time 1 must be smaller than IT2, Please correct IT1 or IT2", "IT1");
    World.Prompts.Expect_Input("Please enter the new IT1 value", "20");
    Open_At(1);
    EXPECT_EQ(project.InterceptA(1, 1), 20);
    EXPECT_EQ(project.InterceptB(1, 1), 20);
    EXPECT_EQ(Last_Edit(), "Intercept times of shot 1");
    EXPECT_EQ(Thickness(1), 0) << "the depth is not stored with it";
    Scroll_To(2);
    EXPECT_EQ(Work.Edits.Done(), 1U);
    EXPECT_EQ(Work.Edits.Undo(project), "");
    EXPECT_EQ(project.InterceptA(1, 1), 30);
}

}  // namespace tarnvik
