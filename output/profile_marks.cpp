#include "output/profile_marks.h"

#include <array>
#include <cmath>

namespace tarnvik {

namespace {
constexpr int arc_step = 5;             // degrees
constexpr double drawing_pi = 3.14159;  // no more digits: the points of an arc are those of older drawings
}  // namespace

void Depth_Arc(Picture& picture, double x, double y, double& radius, int half_angle, Colour colour,
               double vertical_scale) {
    radius *= vertical_scale;
    for (int angle = -half_angle; angle <= half_angle; angle += arc_step) {
        const double radians = angle * drawing_pi / 180;
        const double px = x + radius * std::sin(radians);
        const double py = y - radius * std::cos(radians);
        if (angle == -half_angle) {
            picture.Point(px, py, colour);
        } else {
            picture.Line_To(px, py, colour);
        }
    }
}

void Receiver_Mark(Picture& picture, double x, double y) {
    picture.Box(x - 0.5, y, x + 0.5, y + 1, colours::Yellow, true);
    picture.Box(x - 0.5, y, x + 0.5, y + 1, colours::Black, false);
    picture.Line(x, y - 1, x, y, colours::Black);
}

void Shot_Mark(Picture& picture, double x, double y) {
    struct Corner {
        double X;
        double Y;
    };
    constexpr std::array<Corner, 6> corners = {{{-2, 2}, {0, 1}, {-1, 4}, {0, 2}, {1, 3}, {0, 0}}};
    picture.Move_To(x, y);
    for (const Corner& corner : corners)
        picture.Line_To(x + corner.X, y + corner.Y, colours::Red);
}

}  // namespace tarnvik
