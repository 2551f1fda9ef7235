#pragma once

#include <optional>
#include <vector>

#include "core/ports/picture.h"
#include "core/workspace.h"

namespace tarnvik {

/// A shot's number that wants a place on a picture, all in pixels of the world window.
struct LabelWish {
    int Shot = 0;
    double X = 0;  ///< the point that it belongs to
    double Y = 0;
    double Width = 0;
    double Height = 0;
    /// A number at the foot of a shot's line: its wished top left corner; it may be pushed along the line
    /// only.
    std::optional<PixelPoint> Foot;
    bool GoesOn = false;  ///< the curve leaves the window behind the point: the number stays inside
};

struct LabelPlace {
    double Left = 0;
    double Top = 0;
    bool Leader = false;  ///< too far from its point to belong to it at a glance
};

/// Places for numbers so that none covers another: beside their points where that is possible, otherwise
/// pushed apart, in the order of their points. `away` is the direction in which a number at a foot is pushed,
/// -1 up. Numbers without room get none.
std::vector<std::optional<LabelPlace>> Push_Apart(const std::vector<LabelWish>& wishes, double width,
                                                  double height, int away);

/// The numbers of the shots shown on a picture that has its scale.
std::vector<CurveLabel> Labels_Of_Curves(const Workspace& workspace, Picture& picture);

void Draw_Labels(Picture& picture, const std::vector<CurveLabel>& labels);

}  // namespace tarnvik
