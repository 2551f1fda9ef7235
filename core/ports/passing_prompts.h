#pragma once

#include <string>

#include "core/ports/prompts.h"

namespace tarnvik {

/// Answers where nobody is asked: passes over all warnings, and remembers the last message.
class PassingPrompts : public Prompts {
  public:
    Answer Message(const std::string& text, const std::string&, Icon, Buttons buttons) override {
        Last = text;
        // The questions ask whether to give up.
        return buttons == Buttons::YesNo ? Answer::No : Answer::Ok;
    }
    std::string Input(const std::string&, const std::string&, const std::string&) override { return {}; }
    std::string Open_File(const FileRequest&) override { return {}; }
    std::string Save_File(const FileRequest&) override { return {}; }
    std::optional<Colour> Choose_Colour(Colour) override { return std::nullopt; }
    std::optional<std::string> Choose_Font(const std::string&) override { return std::nullopt; }

    std::string Last;
};

}  // namespace tarnvik
