#pragma once

#include <string>
#include <string_view>

namespace tarnvik {

/// Takes the items of a project file off its bytes, one after the other. Blanks, commas and line ends
/// separate numbers, a run of them counts as one. Each routine answers false at the end of the bytes, and for
/// a number beyond the range of a double, and leaves the target as it was.
class ItemReader {
  public:
    explicit ItemReader(std::string_view bytes) : Left(bytes) {}

    /// The next number with the blanks and one comma behind it, but not its line end. A text ends at the
    /// next separator and counts as its numeric value.
    bool Number(double& target);
    /// The line behind the last number: a line end that stands next is passed first. Commas belong to it.
    bool Line(std::string& target);
    /// The rest of the line up to a comma, without leading blanks; the comma or the line end is taken too.
    bool Text(std::string& target);

    /// True when each number asked for so far was there, and when none of them was a word.
    bool All_There() const { return !RanOut; }
    bool No_Words() const { return !MetWord; }

    bool At_End() const { return Left.empty(); }

  private:
    void Skip(std::string_view letters);
    std::string_view Take_Until(std::string_view letters);
    void Pass_Line_End();

    std::string_view Left;
    bool RanOut = false;
    bool MetWord = false;
};

}  // namespace tarnvik
