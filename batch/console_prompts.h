#pragma once

#include <deque>
#include <string>
#include <vector>

#include "core/ports/prompts.h"

namespace tarnvik {

/// Prompts without a screen: messages go to standard error as "[title] text", questions are answered from a
/// list given on the command line and, with none left, by their default. "cancel" cancels every box.
class ConsolePrompts : public Prompts {
  public:
    ConsolePrompts(const std::vector<std::string>& answers, bool always_yes)
        : Answers(answers.begin(), answers.end()), AlwaysYes(always_yes) {}

    Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) override;
    std::string Input(const std::string& prompt, const std::string& title,
                      const std::string& initial) override;
    /// File dialogs take the next answer as the path; with none left they are cancelled.
    std::string Open_File(const FileRequest& request) override;
    std::string Save_File(const FileRequest& request) override;
    std::optional<Colour> Choose_Colour(Colour) override { return std::nullopt; }
    std::optional<std::string> Choose_Font(const std::string&) override { return std::nullopt; }

    /// The texts of all messages so far, joined by line ends; and whether one of them reported an error.
    const std::string& Texts() const { return Shown; }
    /// The same, one by one.
    const std::vector<std::string>& Messages() const { return List; }
    bool Refused() const { return ErrorShown; }
    /// The prompt of the input box asked last, empty when there was none.
    const std::string& Last_Input() const { return LastInput; }
    /// Forgets the messages, for the next item of a run over several.
    void Forget();

  private:
    std::optional<std::string> Next_Answer();
    /// The text of an input box or a file dialog; empty when it is cancelled.
    std::string Typed(const std::string& initial);
    std::deque<std::string> Answers;
    bool AlwaysYes = false;
    std::string Shown;
    std::vector<std::string> List;
    std::string LastInput;
    bool ErrorShown = false;
};

}  // namespace tarnvik
