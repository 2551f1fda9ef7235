#pragma once

#include <string>
#include <string_view>

#include "core/text/number.h"

namespace tarnvik {

/// One line of a text file in the making, by the print rule: numbers follow one another, each with its own
/// blanks; Zone() starts the next item at the next print zone of 14 characters.
class PrintLine {
  public:
    static constexpr std::size_t ZoneWidth = 14;

    template <class Number>
    PrintLine& Item(Number value) {
        Text += Print_Number(value);
        return *this;
    }
    PrintLine& Raw(std::string_view text) {
        Text += text;
        return *this;
    }
    PrintLine& Zone() {
        Text.append(ZoneWidth - Text.size() % ZoneWidth, ' ');
        return *this;
    }
    /// The line with its carriage return and line feed.
    std::string End() const { return Text + "\r\n"; }

  private:
    std::string Text;
};

}  // namespace tarnvik
