#include "output/profile_painting.h"

#include <array>

#include "core/end_shots.h"
#include "core/fault.h"
#include "core/ports/picture.h"
#include "core/text/number.h"
#include "depth/shot_velocities.h"
#include "output/profile_marks.h"

namespace tarnvik {

namespace {

constexpr double line_width = 180;
constexpr double profile_width = 200;
constexpr double profile_height = 100;
constexpr int arc_half_angle = 30;
constexpr double tick_radius = 0.3;
constexpr int shots_without_marks = 20;  // from this number on the marks would cover the surface
constexpr double grm_stretch = 1.16;     // of the GRM arcs alone
constexpr double grm_arc_start = 3.73065;
constexpr double grm_arc_end = 5.69415;
constexpr Colour grm_colour = 128;
constexpr int text_size = 8;
constexpr double label_height = 9;  // of a shot's name above the surface

/// One painting of the profile: the pictures, the places and what the mode shows.
class Painting {
  public:
    Painting(const Workspace& workspace, Picture& profile, Picture& scale)
        : Work(workspace), Line(workspace.Project), Profile(profile), Scale(scale) {
        const DisplayMode mode = workspace.Profile.DrawnMode;
        WithReceiverArcs = mode == DisplayMode::Profil2 || mode == DisplayMode::Profil3;
        WithGrmArcs = mode == DisplayMode::Profil3 || mode == DisplayMode::Profil4;
        First_Last_End_Shot(Line, FirstShot, LastShot);
    }

    void Paint() {
        Places = Places_Of_Profile(Work);
        Set_Scales();
        Background();
        Elevation_Scale();
        Surface();
        for (int shot = FirstShot; shot <= LastShot; ++shot)
            Shot_With_Layers(shot);
        if (WithGrmArcs) Grm_Arcs();
    }

  private:
    double Receiver_X(int receiver) const { return Places.X(Line.ReceiverData(ReceiverDistance, receiver)); }
    double Receiver_Y(int receiver) const { return Places.Y(Line.ReceiverData(ReceiverElevation, receiver)); }
    double Shot_X(int shot) const { return Places.X(Line.ShotDistance(shot)); }
    double Shot_Y(int shot) const { return Places.Y(Line.ShotElevation(shot)); }

    void Set_Scales() {
        const ProfileView& view = Work.Profile;
        const auto edge = [&view](double scrolled, double zoom) -> double {
            const double place = Divide(scrolled, zoom);
            return view.ExactWindow ? place : CInt_Or_Fault(place);
        };
        const double left = edge(view.Across, view.ZoomX);
        const double right = edge(view.Across + profile_width, view.ZoomX);
        const double top = edge(view.Up + profile_height, view.ZoomY);
        const double bottom = edge(view.Up, view.ZoomY);
        Profile.Scale(left, top, right, bottom);
        Scale.Scale(0, top + 1, 10, bottom - 1);
        // Beside the curves too: the background leaves the margins out, where letters of old labels would
        // stay.
        Profile.Clear();
        Scale.Clear();
        Profile.Set_Font_Size(text_size);
        Scale.Set_Font_Size(text_size);
    }

    void Background() {
        Profile.Box(0, 0, profile_width, profile_height, colours::White, true);
        Profile.Box(0, 0, profile_width, profile_height, colours::Black, false);
        for (int y = 10; y <= 100; y += 10)
            Profile.Line(0, y, profile_width, y, colours::LightGrey);
    }

    /// The labels multiply by the vertical factor where the places do so too, instead of dividing: with a
    /// factor of 2 labels and drawing differ by 4. Kept, so that a sheet printed anew has the scale of the
    /// sheets in users' reports.
    void Elevation_Scale() {
        for (int y = 90; y >= 10; y -= 10) {
            const double elevation = Divide(
                Places.MaxElevation - (profile_height - y) * Places.VerticalFactor, Places.VerticalScale);
            Scale.Point(1, y, colours::ScaleBlue);
            Scale.Print(Format(elevation, "##00.0") + (Work.Settings.Metric() ? "m" : "f"), colours::Black);
        }
    }

    void Shot_Name(double x, double y, int shot) {
        Profile.Print_At(x, y + label_height, "Shot " + CStr(shot), colours::Black);
    }

    /// Line of the ground through the receivers with their marks and arcs.
    void Surface() {
        Shot_Name(0, Shot_Y(FirstShot), FirstShot);
        double x = Shot_X(FirstShot);
        double y = Shot_Y(FirstShot);
        for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver) {
            const double next_x = Receiver_X(receiver);
            const double next_y = Receiver_Y(receiver);
            Profile.Line(x, y, next_x, next_y, colours::Lime);
            x = next_x;
            y = next_y;
            Receiver_Mark(Profile, x, y);
            if (WithReceiverArcs) Receiver_Arcs(receiver, x, y);
            // No shot between the last two receivers: the end shot is drawn behind the line by its own rule.
            if (receiver < Line.NbReceivers - 1) Shots_Behind(receiver, x, y);
        }
        Profile.Line(x, y, Shot_X(LastShot), Shot_Y(LastShot), colours::Lime);
        // The name counts the shots as if one offset shot stood beyond the line, wherever they stand.
        Shot_Name(line_width + 10, Shot_Y(LastShot), Line.NbShots - 1);
    }

    void Receiver_Arcs(int receiver, double x, double y) {
        for (const ReceiverRow row : {ReceiverRockDepth, ReceiverDepth1, ReceiverDepth2}) {
            const double depth = Line.ReceiverData(row, receiver);
            double radius = Places.VerticalScale * (Places.VerticalFactor * depth);
            if (radius > 0) {
                Depth_Arc(Profile, x, y, radius, arc_half_angle, colours::Blue, Places.VerticalScale);
            }
        }
    }

    /// Leads the surface line from a receiver to the shots that stand between it and the next one.
    void Shots_Behind(int receiver, double x, double y) {
        const double from = Line.ReceiverData(ReceiverDistance, receiver);
        const double to = Line.ReceiverData(ReceiverDistance, receiver + 1);
        Profile.Move_To(x, y);
        for (int shot = 1; shot <= Line.NbShots; ++shot) {
            const double distance = Line.ShotDistance(shot);
            if (distance <= from || distance >= to) continue;
            const double shot_x = Shot_X(shot);
            const double shot_y = Shot_Y(shot);
            Profile.Line_To(shot_x, shot_y, colours::Lime);
            Shot_Name(shot_x, shot_y, shot);
            Profile.Move_To(shot_x, shot_y);
        }
    }

    /// Mark of a shot and, layer by layer down to the first without a thickness, its arcs and velocities.
    void Shot_With_Layers(int shot) {
        const double x = Shot_X(shot);
        const double y = Shot_Y(shot);
        if (Line.NbShots < shots_without_marks) Shot_Mark(Profile, x, y);
        double sum = 0;
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer) {
            const double thickness = Line.ShotThickness(shot, layer);
            if (thickness == 0) break;
            sum += thickness;
            double radius = Places.VerticalFactor * sum;
            if (radius > 0) {
                double tick = tick_radius;
                Depth_Arc(Profile, x, y, tick, arc_half_angle, colours::Red, Places.VerticalScale);
                Depth_Arc(Profile, x, y, radius, arc_half_angle, colours::Red, Places.VerticalScale);
            }
            Velocity_Labels(shot, layer, x, y, radius);
        }
    }

    /// The velocity below a layer at its arc, and from layer 2 on the surface velocity above the shot.
    /// `radius` is the one the arc was drawn with, so the scale enters the place of the label twice.
    void Velocity_Labels(int shot, int layer, double x, double y, double radius) {
        int count = 0;
        std::array<double, Project::MaxLayers + 1> velocities{};
        Shot_Velocities(Line, shot, count, velocities);
        const std::string unit = Work.Settings.Metric() ? "m/s" : "f/s";
        const double label_x = shot == Line.NbShots - 1 ? x - 15 : x + 2;
        if (layer != 1) {
            Profile.Print_At(label_x, Places.VerticalScale * y + 5, CStr(Int(velocities[1])) + unit,
                             colours::Black);
        }
        const std::string label = CStr(Int(velocities.at(static_cast<std::size_t>(layer) + 1))) + unit;
        if (Val(label) > 0) {
            Profile.Print_At(label_x, y - Places.VerticalScale * radius, label, colours::Black);
        }
    }

    void Grm_Arcs() {
        for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver) {
            const double depth = Line.GrmData(grm_bedrock_row, receiver);
            const double radius = grm_stretch * (Places.VerticalScale * (Places.VerticalFactor * depth));
            if (radius <= 0) continue;
            Profile.Arc(Receiver_X(receiver), Receiver_Y(receiver), radius, grm_colour, grm_arc_start,
                        grm_arc_end, Places.VerticalScale);
        }
    }

    static constexpr int grm_bedrock_row = 9;

    const Workspace& Work;
    const Project& Line;
    Picture& Profile;
    Picture& Scale;
    ProfilePlaces Places;
    int FirstShot = 1;
    int LastShot = 1;
    bool WithReceiverArcs = false;
    bool WithGrmArcs = false;
};

}  // namespace

ProfilePlaces Places_Of_Profile(const Workspace& workspace) {
    const ProfileView& view = workspace.Profile;
    const double length = workspace.Project.LineLength;
    if (length == 0) throw Fault("Division by zero: the length between the end shots is 0");
    return {line_width / length, view.ProfileMaxElevation, static_cast<double>(view.ProfileVFactor),
            view.ProfileVScale};
}

std::string Paint_Profile(const Workspace& workspace, Picture& profile, Picture& scale) {
    try {
        Painting(workspace, profile, scale).Paint();
    } catch (const Fault& fault) {
        return fault.what();
    }
    return {};
}

}  // namespace tarnvik
