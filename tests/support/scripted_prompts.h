#pragma once

#include <deque>
#include <string>
#include <vector>

#include "core/ports/prompts.h"

namespace tarnvik::test {

/// Prompts answered from a script. A question that the script does not expect fails the test; messages with
/// an OK button alone need no script and are only listed.
class ScriptedPrompts : public Prompts {
  public:
    struct Shown {
        std::string Text;
        std::string Title;
        Icon WithIcon = Icon::None;
        Buttons WithButtons = Buttons::Ok;
    };

    ~ScriptedPrompts() override;

    Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) override;
    std::string Input(const std::string& prompt, const std::string& title,
                      const std::string& initial) override;
    std::string Open_File(const FileRequest& request) override;
    std::string Save_File(const FileRequest& request) override;
    std::optional<Colour> Choose_Colour(Colour initial) override;
    std::optional<std::string> Choose_Font(const std::string& initial) override;

    /// The next question must be this text; it gets this answer.
    void Expect(const std::string& text, Answer answer);
    /// The next question must begin like this.
    void Expect_Start(const std::string& text, Answer answer);
    /// The next input box must show this prompt.
    void Expect_Input(const std::string& prompt, const std::string& typed);
    /// The next file dialog must have this title.
    void Expect_File(const std::string& title, const std::string& path);

    bool Said(const std::string& text) const;
    /// The last message or question, empty when there was none.
    std::string Last_Text() const { return Messages.empty() ? std::string() : Messages.back().Text; }

    std::vector<Shown> Messages;
    std::vector<FileRequest> FileRequests;
    std::vector<std::string> InputDefaults;  ///< the default of each input box shown

  private:
    struct Step {
        std::string Text;
        std::string Reply;
        Answer ReplyAnswer = Answer::Cancel;
        bool StartOnly = false;
        bool Is(const std::string& text) const { return StartOnly ? text.starts_with(Text) : text == Text; }
    };
    std::string Next(const std::string& text, const char* what, Answer* answer);
    std::deque<Step> Script;
};

}  // namespace tarnvik::test
