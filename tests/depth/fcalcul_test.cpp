#include <cmath>

#include "core/text/number.h"
#include "depth_dialog.h"
#include "support/field_names.h"

namespace tarnvik {

namespace {

/// Shot 1 has three layers, shot 2 two, shot 3 none yet.
struct FcalculTest : DepthDialog {
    FcalculTest() {
        Give_Layers(1, {500, 1500, 4000}, {20, 30}, {20, 60});
        Give_Layers(2, {400, 1600}, {25}, {30});
    }
};

double Cosine(double v, double w) {
    return std::cos(std::asin(v / w));
}

}  // namespace

TEST_F(FcalculTest, AShotWithoutVelocitiesGetsTheUsualOnesAndAMissingSideTheOther) {
    Open_At(3);
    EXPECT_EQ(Form->VelocityA[1], "300");
    EXPECT_EQ(Form->VelocityB[2], "700");
    EXPECT_EQ(Work.Project.VelocityA(3, 1), 0) << "shown, not stored";
    EXPECT_EQ(Form->Thick[1], "") << "no intercepts, no computation";
    Work.Project.VelocityA(3, 2) = 0;
    Work.Project.VelocityB(3, 2) = 900;
    Scroll_To(3);
    EXPECT_EQ(Form->VelocityA[2], "900");
}

TEST_F(FcalculTest, LayersEndWhereBothSidesTogetherStayBelowAHundred) {
    Give_Layers(3, {300, 700, 1500, 0, 4000}, {10, 20}, {10, 20});
    Open_At(3);
    EXPECT_EQ(Form->Layers, "3");
    EXPECT_EQ(Form->VelocityA[5], "");
}

TEST_F(FcalculTest, NoLayerOfOneShotIsEverStoredInAnother) {
    Open_At(1);
    Form->Command1();
    Scroll_To(2);
    EXPECT_EQ(Form->Layers, "2");
    EXPECT_EQ(Form->VelocityA[3], "");
    EXPECT_EQ(Form->InterceptB[2], "");
    EXPECT_EQ(Form->Thick[2], "");
    Work.Velocity.CurrentShot = 1;  // another dialog worked on shot 1 meanwhile
    Form->Command4();
    EXPECT_EQ(Work.Project.VelocityA(2, 3), 0);
    EXPECT_EQ(Work.Project.InterceptA(2, 2), 0);
    EXPECT_EQ(Work.Project.VelocityA(1, 3), 4000);
    EXPECT_EQ(Work.Project.VelocityA(2, 2), 1600);

    Form->Check1 = true;
    Scroll_To(3);  // nothing can be computed here, and the thicknesses of shot 2 must not come along
    EXPECT_EQ(Work.Project.ShotThickness(3, 1), 0);
    EXPECT_GT(Work.Project.ShotThickness(2, 1), 0);
}

TEST_F(FcalculTest, AutoSaveStoresTheShotThatIsSkippedTo) {
    Open_At(1);
    Form->Check1 = true;
    Scroll_To(2);
    EXPECT_EQ(Saves, 1);
    EXPECT_NEAR(Work.Project.ShotThickness(2, 1), 0.025 * 400 / (2 * Cosine(400, 1600)), 0.006);
    Form->Command1();
    EXPECT_EQ(Saves, 2);
}

TEST_F(FcalculTest, AnOffsetShotIsRefusedAndLeavesEverythingAsItWas) {
    Open_At(1);
    const auto thick = Form->Thick;
    const Project before = Work.Project;
    Scroll_To(4);
    EXPECT_EQ(Form->OffsetText, "Offset shot, no depth computation possible ");
    Form->Command1();
    Form->Command3();
    Form->Command4();
    EXPECT_EQ(Form->Thick, thick);
    EXPECT_EQ(Saves, 0);
    EXPECT_EQ(Work.Project.VelocityA, before.VelocityA);
    EXPECT_EQ(Work.Project.ShotThickness, before.ShotThickness);
    Scroll_To(1);
    EXPECT_EQ(Form->OffsetText, "");
}

TEST_F(FcalculTest, AnOffsetShotAtTheOpeningShowsNothingOfAFormerLine) {
    Open_At(2);
    Form->Unsaved = true;
    Open_At(4);
    EXPECT_NE(Form->OffsetText, "");
    EXPECT_EQ(Form->Shot(), 0);
    EXPECT_EQ(Form->Altitude + Form->Layers + Form->VelocityA[1] + Form->InterceptA[1] + Form->Thick[1], "");
}

TEST_F(FcalculTest, AWrongLayerTwoGoesOnWithTheAnglesOfTheShotBefore) {
    Open_At(2);
    const double angle = Work.Depth.AngleCritique[2][1];
    Scroll_To(3);
    Form->VelocityA[1] = Form->VelocityB[1] = "800";
    Form->VelocityA[2] = Form->VelocityB[2] = "700";
    Form->InterceptA[1] = "20";
    Form->Command1();
    EXPECT_EQ(World.Prompts.Messages.size(), 1U);
    EXPECT_EQ(World.Prompts.Last_Text(), "Layer 2 Velocity must be  greater ...");
    EXPECT_EQ(World.Prompts.Messages[0].WithIcon, Icon::Critical);
    EXPECT_EQ(Form->TrueV[1], "800");
    EXPECT_NEAR(Val(Form->Thick[1]), 800 * 0.020 / (2 * std::cos(angle)), 0.006);

    Open_At(3);  // opened anew there are no angles: the cosine is 1
    Form->Command1();
    EXPECT_EQ(Form->Thick[1], "8");
}

TEST_F(FcalculTest, WrongVelocitiesHaveTheirMessages) {
    const struct {
        const char* V2A;
        const char* V3A;
        const char* V2B;
        const char* V3B;
        const char* Text;
    } cases[] = {
        {"1500", "1400", "1500", "4000", "Layer 3 Velocity must be  greater ..."},
        {"1500", "4000", "1500", "1400", "Layer 3 Velocity must be  greater ..."},
        {"500", "4000", "1500", "4000", "Calculation impossible..."},  // ratio of 1
        {"1500", "4000", "400", "4000", "Calculation impossible..."},  // above 1 on side B
        {"1500", "abc", "1500", "4000", "Layer 3 Velocity must be  greater ..."},
    };
    for (const auto& c : cases) {
        Open_At(1);
        Form->VelocityA[2] = c.V2A;
        Form->VelocityA[3] = c.V3A;
        Form->VelocityB[2] = c.V2B;
        Form->VelocityB[3] = c.V3B;
        Form->Command1();
        ASSERT_EQ(World.Prompts.Messages.size(), 1U) << c.Text;
        EXPECT_EQ(World.Prompts.Last_Text(), c.Text);
        EXPECT_FALSE(Work.Depth.VelocityFault);
        Form->Command3();
        EXPECT_EQ(World.Prompts.Messages.size(), 2U) << "the other method stops as well";
        Give_Layers(1, {500, 1500, 4000}, {20, 30}, {20, 60});
    }
}

TEST_F(FcalculTest, EmptyAndUselessFieldsEndTheMethodsInTheirOrder) {
    Open_At(1);
    Form->InterceptA[1] = Form->InterceptA[2] = Form->InterceptB[1] = Form->InterceptB[2] = "";
    Form->Command1();
    EXPECT_TRUE(World.Prompts.Messages.empty()) << "without intercepts it ends silently";

    Give_Layers(1, {500, 1500, 4000}, {20, 30}, {20, 60});
    Work.Project.InterceptA(1, 1) = Work.Project.InterceptB(1, 1) = -5;
    Work.Project.InterceptA(1, 2) = Work.Project.InterceptB(1, 2) = -6;
    Scroll_To(1);
    EXPECT_EQ(World.Prompts.Last_Text(), "Intercepts are missing");
    EXPECT_EQ(World.Prompts.Messages.back().WithIcon, Icon::Critical);

    Form->VelocityA = {};
    Form->Command4();
    EXPECT_EQ(World.Prompts.Last_Text(), " No data..");
    EXPECT_EQ(Saves, 0);
    Form->Command3();
    EXPECT_EQ(World.Prompts.Last_Text(), " No data..");
    Form->InterceptA[1] = "20";
    Form->VelocityB = {};
    Form->Calcul_Par_Intercept();
    EXPECT_EQ(World.Prompts.Last_Text(), " No data..");
    Form->Layers = "6";
    Form->Calcul_Par_Intercept();
    EXPECT_EQ(World.Prompts.Last_Text(), "Too many Layers.. ");
    Form->Command3();
    EXPECT_EQ(World.Prompts.Last_Text(), "Too many Layers.. ");
}

TEST_F(FcalculTest, InterceptsOutOfOrderAreAskedFor) {
    const std::string question = "Intercept Time 1 must be smaller than IT2, Please correct IT1 or IT2";
    Give_Layers(1, {500, 1500, 4000}, {30, 30}, {20, 60});
    World.Prompts.Expect_Input(question, "IT1");
    World.Prompts.Expect_Input("Please enter the new IT1 value", "20");
    Open_At(1);
    EXPECT_EQ(World.Prompts.InputDefaults, (std::vector<std::string>{"IT1", "30"}));
    EXPECT_EQ(Form->MeanIntercept[1], "20");
    EXPECT_EQ(Form->InterceptB[1], "20");
    EXPECT_EQ(Work.Project.InterceptA(1, 1), 20);
    EXPECT_NEAR(Val(Form->Thick[1]), 5.30, 0.011);

    const struct {
        const char* Chosen;
        const char* Prompt;
        const char* Typed;
    } ends[] = {{"", nullptr, nullptr},
                {"it1", nullptr, nullptr},
                {"IT1", "Please enter the new IT1 value", "0"},
                {"IT2", "Please enter the new IT2 value", "-4"}};
    for (const auto& c : ends) {
        Give_Layers(1, {500, 1500, 4000}, {30, 30}, {20, 60});
        World.Prompts.Expect_Input(question, c.Chosen);
        if (c.Prompt != nullptr) World.Prompts.Expect_Input(c.Prompt, c.Typed);
        Scroll_To(1);
        EXPECT_EQ(Form->Thick[1], "") << c.Chosen;
        EXPECT_EQ(Work.Project.InterceptA(1, 1), 30);
    }

    // Given up at the second pair: the mean is that of the sides.
    Give_Layers(1, {400, 900, 1800, 3200, 5500}, {50, 40, 30, 20}, {1, 2, 3, 4});
    World.Prompts.Expect_Input(question, "IT2");
    World.Prompts.Expect_Input("Please enter the new IT2 value", "60.55");
    World.Prompts.Expect_Input("Intercept Time 2 must be smaller than IT3, Please correct IT2 or IT3", "");
    Scroll_To(1);
    EXPECT_EQ(Form->InterceptA[2], "60.55");
    EXPECT_EQ(Form->MeanIntercept[2], "60.5");

    // All three pairs of five layers, one after the other.
    Give_Layers(1, {400, 900, 1800, 3200, 5500}, {50, 40, 30, 20}, {1, 2, 3, 4});
    World.Prompts.Expect_Input(question, "IT2");
    World.Prompts.Expect_Input("Please enter the new IT2 value", "60");
    World.Prompts.Expect_Input("Intercept Time 2 must be smaller than IT3, Please correct IT2 or IT3", "IT3");
    World.Prompts.Expect_Input("Please enter the new IT3 value", "70");
    World.Prompts.Expect_Input("Intercept Time 3 must be smaller than IT4, Please correct IT3 or IT4", "IT4");
    World.Prompts.Expect_Input("Please enter the new IT4 value", "80");
    Scroll_To(1);
    EXPECT_EQ(Form->InterceptA[4], "80");
    EXPECT_EQ(Work.Project.InterceptB(1, 3), 70);
}

TEST_F(FcalculTest, ClearedVelocitiesOfSideBAreThoseOfSideAForTwoLayersOnly) {
    Open_At(2);
    Form->VelocityB[1] = Form->VelocityB[2] = "";
    Form->Command1();
    EXPECT_EQ(Form->VelocityB[2], "1600");
    EXPECT_EQ(Form->TrueV[1], "400");
    Open_At(1);
    Form->VelocityB[3] = "";
    Form->Command1();
    EXPECT_EQ(World.Prompts.Last_Text(), "Layer 3 Velocity must be  greater ...");
}

TEST_F(FcalculTest, CriticalDistancesGiveThicknessesAndCarryTheirFixedStep) {
    Give_Layers(2, {400, 900, 1800, 3200}, {10, 20, 33}, {10, 30, 80});
    Work.Project.InterceptB(2, 3) = 34;
    Work.Project.ShotDepth(2) = 2;
    Open_At(2);
    Form->Command3();
    EXPECT_EQ(Form->Caption, "Critical Distance method");
    EXPECT_TRUE(Form->Unsaved);
    EXPECT_NEAR(Val(Form->Thick[1]), 1 + 5 * std::sqrt(500.0 / 1300), 0.011);
    EXPECT_EQ(Work.Project.InterceptA(2, 1), 10) << "restored by the store at the end";

    Form->CritDistA[2] = Form->CritDistB[2] = "10";
    Form->Command3();
    EXPECT_EQ(World.Prompts.Last_Text(), " CD 1 must be  smaller as CD 2");
    EXPECT_EQ(Work.Project.InterceptA(2, 1), 34) << "ended between the step and the store";
    Form->Enregistre_Tir();
    EXPECT_EQ(Work.Project.InterceptA(2, 1), 10);
}

TEST_F(FcalculTest, CriticalDistancesOutOfOrderOrMissingHaveTheirMessages) {
    Give_Layers(1, {400, 900, 1800, 3200, 5500}, {10, 20, 30, 40}, {10, 30, 80, 200});
    const struct {
        int Row;
        const char* Distance;
        const char* Text;
    } cases[] = {{1, "30", " CD 1 must be  smaller as CD 2"},
                 {2, "80", " CD 2 must be  smaller as CD 2"},
                 {3, "200", " CD 3 must be  smaller as CD 4"}};
    for (const auto& c : cases) {
        Give_Layers(1, {400, 900, 1800, 3200, 5500}, {10, 20, 30, 40}, {10, 30, 80, 200});
        Open_At(1);
        const auto row = static_cast<std::size_t>(c.Row);
        Form->CritDistA[row] = Form->CritDistB[row] = c.Distance;
        Form->Command3();
        ASSERT_EQ(World.Prompts.Messages.size(), 1U);
        EXPECT_EQ(World.Prompts.Last_Text(), c.Text);
        EXPECT_EQ(World.Prompts.Messages[0].WithIcon, Icon::Critical);
    }
    Give_Layers(1, {400, 900, 1800, 3200, 5500}, {10, 20, 30, 40}, {10, 30, 80, 200});
    Open_At(1);
    Form->CritDistA = {};
    Form->CritDistB = {};
    Form->Command3();
    EXPECT_EQ(World.Prompts.Last_Text(), " No Critical distances..");
    // A wrong layer 2 goes on here as well, with a second velocity of before that lies below the new first.
    Open_At(2);
    Work.Depth.TrueV = {};
    Form->VelocityA[1] = Form->VelocityB[1] = "1700";
    Form->Command3();
    EXPECT_EQ(World.Prompts.Last_Text(), "Impossible calcul...");
}

TEST_F(FcalculTest, FieldsKnowTheirNamesAndMeansRefuseTheFocus) {
    Open_At(1);
    for (const char* wrong : {"V6A", "V0B", "IT5A", "CD0A"})
        EXPECT_EQ(Form->Field_Of(test::Field(wrong)), nullptr) << wrong;
    Form->Enter_Mean_Field();
    EXPECT_EQ(World.Prompts.Last_Text(), "You must correct the upper line");
    for (const char* layers : {"", "1", "6", "2.5", "x"}) {
        World.Prompts.Messages.clear();
        Form->Layers = layers;
        Form->Layers_Changed();
        EXPECT_EQ(World.Prompts.Last_Text(), "Impossible layer value") << layers;
    }
    Form->Layers = "5";
    Form->Layers_Changed();
    EXPECT_EQ(Form->VisibleLayers, 5);
}

TEST_F(FcalculTest, WithoutAProjectEveryCommandIsHarmless) {
    Work.Project = {};
    Form->Load();
    Form->Command1();
    Form->Command3();
    Form->Command4();
    Form->Calcul_Par_Intercept();
    Form->Enregistre_Tir();
    Form->Close();
    EXPECT_EQ(Saves, 0);
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Dromo);
}

}  // namespace tarnvik
