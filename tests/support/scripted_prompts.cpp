#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace tarnvik::test {

ScriptedPrompts::~ScriptedPrompts() {
    for (const Step& step : Script)
        ADD_FAILURE() << "never asked: " << step.Text;
}

std::string ScriptedPrompts::Next(const std::string& text, const char* what, Answer* answer) {
    if (Script.empty() || !Script.front().Is(text)) {
        ADD_FAILURE() << "unexpected " << what << ": " << text
                      << (Script.empty() ? "" : "\nexpected: " + Script.front().Text);
        return {};
    }
    const Step step = Script.front();
    Script.pop_front();
    if (answer != nullptr) *answer = step.ReplyAnswer;
    return step.Reply;
}

Answer ScriptedPrompts::Message(const std::string& text, const std::string& title, Icon icon,
                                Buttons buttons) {
    Messages.push_back({text, title, icon, buttons});
    if (buttons == Buttons::Ok) {
        if (!Script.empty() && Script.front().Text == text) Script.pop_front();
        return Answer::Ok;
    }
    Answer answer = buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    Next(text, "question", &answer);
    return answer;
}

std::string ScriptedPrompts::Input(const std::string& prompt, const std::string&,
                                   const std::string& initial) {
    InputDefaults.push_back(initial);
    return Next(prompt, "input box", nullptr);
}

std::string ScriptedPrompts::Open_File(const FileRequest& request) {
    FileRequests.push_back(request);
    return Next(request.Title, "file dialog", nullptr);
}

std::string ScriptedPrompts::Save_File(const FileRequest& request) {
    return Open_File(request);
}

std::optional<Colour> ScriptedPrompts::Choose_Colour(Colour) {
    const std::string reply = Next("colour", "colour dialog", nullptr);
    return reply.empty() ? std::nullopt : std::optional<Colour>(std::stoi(reply));
}

std::optional<std::string> ScriptedPrompts::Choose_Font(const std::string&) {
    const std::string reply = Next("font", "font dialog", nullptr);
    return reply.empty() ? std::nullopt : std::optional<std::string>(reply);
}

void ScriptedPrompts::Expect(const std::string& text, Answer answer) {
    Script.push_back({text, {}, answer});
}

void ScriptedPrompts::Expect_Start(const std::string& text, Answer answer) {
    Script.push_back({text, {}, answer, true});
}

void ScriptedPrompts::Expect_Input(const std::string& prompt, const std::string& typed) {
    Script.push_back({prompt, typed, Answer::Ok});
}

void ScriptedPrompts::Expect_File(const std::string& title, const std::string& path) {
    Script.push_back({title, path, Answer::Ok});
}

bool ScriptedPrompts::Said(const std::string& text) const {
    for (const Shown& shown : Messages) {
        if (shown.Text == text) return true;
    }
    return false;
}

}  // namespace tarnvik::test
