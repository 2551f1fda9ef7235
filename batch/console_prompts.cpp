#include "batch/console_prompts.h"

#include <iostream>

#include "core/text/letters.h"

namespace tarnvik {

std::optional<std::string> ConsolePrompts::Next_Answer() {
    if (Answers.empty()) return std::nullopt;
    std::string answer = Answers.front();
    Answers.pop_front();
    return answer;
}

Answer ConsolePrompts::Message(const std::string& text, const std::string& title, Icon icon,
                               Buttons buttons) {
    std::cerr << "[" << title << "] " << text << "\n";
    if (!Shown.empty()) Shown += "\n";
    Shown += text;
    List.push_back(text);
    if (icon == Icon::Critical) ErrorShown = true;
    if (buttons == Buttons::Ok) return Answer::Ok;
    const bool has_yes = buttons != Buttons::OkCancel && buttons != Buttons::OpenCancel;
    if (has_yes && AlwaysYes) return Answer::Yes;
    const auto typed = Next_Answer();
    if (!typed) return has_yes ? Answer::No : Answer::Ok;
    const std::string word = LCase(*typed);
    if (word == "cancel") return Answer::Cancel;
    // An answer means one of the box's own buttons.
    if (!has_yes) return word == "no" ? Answer::Cancel : Answer::Ok;
    return word == "yes" ? Answer::Yes : Answer::No;
}

std::string ConsolePrompts::Typed(const std::string& initial) {
    std::string typed = Next_Answer().value_or(initial);
    return LCase(typed) == "cancel" ? std::string() : typed;
}

std::string ConsolePrompts::Input(const std::string& prompt, const std::string& title,
                                  const std::string& initial) {
    std::cerr << "[" << title << "] " << prompt << "\n";
    LastInput = prompt;
    return Typed(initial);
}

std::string ConsolePrompts::Open_File(const FileRequest& request) {
    std::cerr << "[" << request.Title << "] file?\n";
    return Typed("");
}

std::string ConsolePrompts::Save_File(const FileRequest& request) {
    return Open_File(request);
}

void ConsolePrompts::Forget() {
    Shown.clear();
    List.clear();
    LastInput.clear();
    ErrorShown = false;
}

}  // namespace tarnvik
