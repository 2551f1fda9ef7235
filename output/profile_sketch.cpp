#include "output/profile_sketch.h"

#include <algorithm>
#include <limits>

#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr double margin = 10;  // length units on every side
constexpr int text_size = 8;

/// Smallest upright rectangle round all shots and receivers.
struct Extent {
    double Left = std::numeric_limits<double>::max();
    double Right = std::numeric_limits<double>::lowest();
    double Bottom = std::numeric_limits<double>::max();
    double Top = std::numeric_limits<double>::lowest();

    void Add(double distance, double elevation) {
        Left = std::min(Left, distance);
        Right = std::max(Right, distance);
        Bottom = std::min(Bottom, elevation);
        Top = std::max(Top, elevation);
    }
    bool Empty() const { return Left > Right; }
};

/// White mark on the shot point with a red tick to either side and the shot's number.
void Sketch_Shot(Picture& picture, int shot, double x, double y, const Extent& extent) {
    const double half_width = (extent.Right - extent.Left + 2 * margin) / 200;
    const double half_height = (extent.Top - extent.Bottom + 2 * margin) / 50;
    picture.Box(x - half_width, y - half_height, x + half_width, y + half_height, colours::White, true);
    picture.Line(x, y - 2 * half_height, x, y - half_height, colours::Red);
    picture.Line(x, y + half_height, x, y + 2 * half_height, colours::Red);
    picture.Print_At(x + half_width, y + 3 * half_height, CStr(shot) + "T", colours::Black);
}

}  // namespace

void Dessine_profile(const Workspace& workspace, Ports& ports) {
    const Project& project = workspace.Project;
    const Array2<float>& data = project.ReceiverData;
    Picture& picture = ports.Show.Canvas_Of(Canvas::Sketch);
    const int shots = std::min<int>(project.NbShots, project.ShotDistance.Last());
    const int receivers = std::min<int>(project.NbReceivers, data.Last_Column());
    Extent extent;
    for (int shot = 1; shot <= shots; ++shot)
        extent.Add(project.ShotDistance(shot), project.ShotElevation(shot));
    for (int receiver = 1; receiver <= receivers; ++receiver)
        extent.Add(data(ReceiverDistance, receiver), data(ReceiverElevation, receiver));
    picture.Clear();
    if (extent.Empty()) return;
    picture.Scale(extent.Left - margin, extent.Top + margin, extent.Right + margin, extent.Bottom - margin);
    picture.Set_Font_Size(text_size);
    for (int receiver = 2; receiver <= receivers; ++receiver) {
        picture.Line(data(ReceiverDistance, receiver - 1), data(ReceiverElevation, receiver - 1),
                     data(ReceiverDistance, receiver), data(ReceiverElevation, receiver), colours::Lime);
    }
    for (int shot = 1; shot <= shots; ++shot)
        Sketch_Shot(picture, shot, project.ShotDistance(shot), project.ShotElevation(shot), extent);
}

}  // namespace tarnvik
