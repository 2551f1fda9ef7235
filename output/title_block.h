#pragma once

#include <string>
#include <vector>

#include "core/ports/picture.h"

namespace tarnvik {

/// A line of text in a title block.
struct TitleRow {
    std::string Text;
    Colour InColour = colours::Black;
    bool Large = false;
    bool Sample = false;  ///< a line in SampleColour stands before the text
    Colour SampleColour = colours::Black;
    int SampleWidth = 2;  ///< of that line, points
};

/// Rows that stand together, in a frame.
struct TitleCell {
    std::vector<TitleRow> Rows;
    bool North = false;  ///< an arrow stands before the text
};

/// A rectangle of a picture, pixels from the top left corner.
struct TitlePlace {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};

/// Draws the cells from left to right into the rectangle; the first one has the room that is left. On a
/// narrow page or in a low block all letters get smaller, so that no text runs into another one.
void Draw_Title_Cells(Picture& picture, const TitlePlace& place, const std::vector<TitleCell>& cells);

/// "1:500".
std::string Scale_Text(double scale);

/// A text as rows of so many letters, broken between words.
std::vector<std::string> Broken_Text(const std::string& text, std::size_t letters);

}  // namespace tarnvik
