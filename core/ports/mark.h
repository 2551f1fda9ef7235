#pragma once

#include <string>

#include "core/text_grid.h"

namespace tarnvik {

/// What stands on top of a picture for the moment and belongs neither to it nor to a print of it: a
/// cross-hair, a cursor, the line through neighbouring picks. In the world coordinates that the picture has
/// when it is shown.
struct Mark {
    enum class Kind {
        Line,  ///< from (X1, Y1) to (X2, Y2)
        Box,   ///< outline of two opposite corners
        Dot,   ///< filled circle round (X1, Y1), as wide as three pens
        Text,  ///< its top left corner at (X1, Y1), on a patch of paper
    };
    Kind Shape = Kind::Line;
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    Colour InColour = 0;
    int Width = 1;  ///< of the pen, in points
    bool Dashed = false;
    std::string Words{};  ///< of a text

    bool operator==(const Mark&) const = default;
};

/// Who owns the marks of a picture: each replaces its own only. Later ones lie above.
enum class MarkLayer {
    Context,    ///< what helps to judge a pick: neighbours, expected times
    Selection,  ///< what is chosen or lit
    Cursor,     ///< active trace and time
    Pointer,    ///< cross-hair under the mouse
};

}  // namespace tarnvik
