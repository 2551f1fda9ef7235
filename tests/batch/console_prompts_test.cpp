#include "batch/console_prompts.h"

#include <gtest/gtest.h>

namespace tarnvik::test {
namespace {

Answer Answered(Buttons buttons, const std::vector<std::string>& answers, bool always_yes = false) {
    return ConsolePrompts(answers, always_yes).Message("Text", "Title", Icon::Question, buttons);
}

TEST(ConsolePrompts, AnswerABoxByOneOfItsOwnButtons) {
    const struct {
        Buttons Box;
        std::vector<std::string> Answers;
        Answer Expected;
    } cases[] = {
        {Buttons::YesNo, {}, Answer::No},
        {Buttons::YesNo, {"YES"}, Answer::Yes},
        {Buttons::YesNo, {"no"}, Answer::No},
        {Buttons::YesNo, {"cancel"}, Answer::Cancel},
        {Buttons::YesNoCancel, {"Cancel"}, Answer::Cancel},
        {Buttons::YesNoCancel, {"12.5"}, Answer::No},
        {Buttons::OkCancel, {}, Answer::Ok},
        {Buttons::OkCancel, {"ok"}, Answer::Ok},
        {Buttons::OkCancel, {"no"}, Answer::Cancel},
        {Buttons::OkCancel, {"cancel"}, Answer::Cancel},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Answered(c.Box, c.Answers), c.Expected) << (c.Answers.empty() ? "" : c.Answers[0]);
    EXPECT_EQ(Answered(Buttons::YesNo, {"no"}, true), Answer::Yes);
    EXPECT_EQ(Answered(Buttons::OkCancel, {"cancel"}, true), Answer::Cancel);
}

TEST(ConsolePrompts, TakeAnswersInTheirOrderThenTheDefault) {
    ConsolePrompts prompts({"12", "Cancel", "yes", "/tmp/a.su"}, false);
    EXPECT_EQ(prompts.Input("First", "Title", "5"), "12");
    EXPECT_EQ(prompts.Input("Second", "Title", "5"), "") << "cancelled";
    prompts.Say("A message takes none", "Title");
    EXPECT_TRUE(prompts.Ask_Yes("Third", "Title"));
    EXPECT_EQ(prompts.Open_File({"Fourth", "", "", ""}), "/tmp/a.su");
    EXPECT_EQ(prompts.Input("Fifth", "Title", "5"), "5");
    EXPECT_EQ(prompts.Save_File({"Sixth", "", "name", ""}), "") << "cancelled";
}

TEST(ConsolePrompts, KnowWhatWasSaidUntilItIsForgotten) {
    ConsolePrompts prompts({}, false);
    prompts.Say("One", "Title");
    EXPECT_FALSE(prompts.Refused());
    prompts.Say("Two", "Title", Icon::Critical);
    prompts.Input("Which ?", "Title", "");
    EXPECT_EQ(prompts.Texts(), "One\nTwo");
    EXPECT_EQ(prompts.Last_Input(), "Which ?");
    EXPECT_TRUE(prompts.Refused());
    prompts.Forget();
    EXPECT_EQ(prompts.Texts() + prompts.Last_Input(), "");
    EXPECT_FALSE(prompts.Refused());
}

}  // namespace
}  // namespace tarnvik::test
