#include "output/report_picture.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/text/number.h"
#include "output/hatching.h"
#include "output/report_axes.h"

namespace tarnvik {

namespace {

constexpr int usual_font = 8;
constexpr int velocity_font = 8;
constexpr double arc_half_angle = 30;  // degrees, as on the profile
constexpr double paleness = 0.5;       // of the fill, so that lines and letters stand out from it
constexpr double metre = 1000;         // mm
constexpr double foot = 304.8;
constexpr double geophone_size = 5;  // points
constexpr double shot_size = 7;
constexpr double cap = 3;  // half the width of an error bar's ends, points

Colour Pale(Colour colour) {
    constexpr int full = 255;
    const auto mixed = [colour](int shift) {
        return static_cast<int>(std::lround(full - (full - ((colour >> shift) & full)) * (1 - paleness)));
    };
    return Rgb(mixed(0), mixed(8), mixed(16));
}

/// Strokes of a layer's hatching: angles in degrees and their distance in points. The deepest layer is rock
/// and has crossed ones.
struct Pattern {
    std::vector<double> Angles;
    double Spacing = 0;
};
Pattern Pattern_Of(int layer, int layers) {
    if (layer == layers) return {{45, -45}, 8};
    switch (layer) {
        case 1:
            return {{-45}, 10};
        case 2:
            return {{45}, 7};
        case 3:
            return {{0}, 5};
        default:
            return {{90}, 6};
    }
}

class ReportPainting {
  public:
    ReportPainting(const Workspace& workspace, const ReportView& view, const ColourScale& scale,
                   const std::vector<ReportModel>& models, const ReportFrame& frame, Picture& picture)
        : Line(workspace.Project),
          Choices(view.Choices),
          Scale(scale),
          Models(models),
          Page(frame),
          Window(frame.Window),
          Main(picture),
          Point(picture.Pixels_Per_Point()),
          LengthUnit(workspace.Settings.Metric() ? "m" : "f"),
          Ground(Ground_Of(workspace.Project)) {}

    void Draw() {
        Main.Set_Draw_Mode(DrawMode::Copy);
        Main.Set_Draw_Width(1);
        Main.Set_Font_Size(usual_font);
        Letter = Main.Size_Of("0").Height;
        Main.Set_Clip(Window.Left, Window.Top, Window.Right, Window.Bottom);
        const ReportModel* main = Main_Model();
        if (main != nullptr && Choices.Fill == ReportFill::Colours) Fill_With_Colours(*main);
        if (main != nullptr && Choices.Fill == ReportFill::Hatching) Fill_With_Hatching(*main);
        for (auto model = Models.rbegin(); model != Models.rend(); ++model)
            Draw_Interfaces(*model);
        if (main != nullptr && Choices.Velocities) Draw_Velocities(*main);
        if (Choices.Errors) Draw_Errors();
        Main.Set_Draw_Width(2);
        Draw_Curve(Ground, colours::Black);
        Main.Set_Draw_Width(1);
        Main.Clear_Clip();
        if (Choices.Geophones) Draw_Geophones();
        if (Choices.Shots) Draw_Shots();
        Main.Box(Window.Left, Window.Top, Window.Right, Window.Bottom, colours::Black, false);
        Draw_Report_Axes(Page, LengthUnit, Main);
    }

  private:
    double Pixel_X(double x) const { return Page.Left + (x - Window.Left) * Page.PixelsX; }
    double Pixel_Y(double z) const { return Page.Top + (Window.Top - z) * Page.PixelsY; }
    /// World sizes of so many pixels.
    double Across(double pixels) const { return pixels / Page.PixelsX; }
    double Upward(double pixels) const { return pixels / Page.PixelsY; }
    bool In_Sight(double x, double z) const {
        return x >= Window.Left && x <= Window.Right && z >= Window.Bottom && z <= Window.Top;
    }

    const ReportModel* Main_Model() const {
        const bool there = !Models.empty() && Models.front().Source == Choices.Source;
        return there ? &Models.front() : nullptr;
    }

    void Draw_Curve(const ReportCurve& curve, Colour colour) {
        for (std::size_t i = 1; i < curve.size(); ++i)
            Main.Line(curve[i - 1].X, curve[i - 1].Z, curve[i].X, curve[i].Z, colour);
    }

    /// Boundaries above a layer: of the first one the ground above the first interface, of the others the
    /// interface over them.
    std::vector<ReportCurve> Roofs(const ReportModel& model, int layer) const {
        std::vector<ReportCurve> roofs;
        const auto index = static_cast<std::size_t>(std::max(layer - 2, 0));
        // All layers end below the same places, though their envelopes may not.
        double first = Window.Right;
        double last = Window.Left;
        for (const SectionPlace& place : model.Places) {
            if (!place.Known) continue;
            first = std::min(first, place.Distance);
            last = std::max(last, place.Distance);
        }
        for (const ReportCurve& run : model.Interfaces[index].Runs) {
            const double from = std::max({run.front().X, Window.Left, first});
            const double to = std::min({run.back().X, Window.Right, last});
            if (!(to > from)) continue;
            ReportCurve roof = Part_Of_Curve(layer == 1 ? Ground : run, from, to);
            if (roof.size() > 1) roofs.push_back(std::move(roof));
        }
        return roofs;
    }

    /// Corners of the area between a roof and a floor, in pixels inside the frame.
    std::vector<HatchPoint> Area(const ReportCurve& roof, const ReportCurve& floor) const {
        std::vector<HatchPoint> corners;
        const auto add = [&](const ReportPoint& point) {
            corners.push_back({Pixel_X(point.X), Pixel_Y(std::clamp(point.Z, Window.Bottom, Window.Top))});
        };
        std::for_each(roof.begin(), roof.end(), add);
        std::for_each(floor.rbegin(), floor.rend(), add);
        return corners;
    }

    Colour Fill_Of(const ReportModel& model, int layer) const {
        if (Choices.Fill != ReportFill::Colours) return colours::White;
        const double velocity = model.Mean_Velocity(layer);
        return velocity > 0 ? Pale(Scale.Of(velocity)) : colours::White;
    }

    /// Each layer covers what the ones above it have painted below it, so that no seam shows between them.
    void Fill_With_Colours(const ReportModel& model) {
        for (int layer = 1; layer <= model.Layers(); ++layer) {
            for (const ReportCurve& roof : Roofs(model, layer)) {
                const ReportCurve floor = {{roof.front().X, Window.Bottom}, {roof.back().X, Window.Bottom}};
                std::vector<PixelPoint> corners;
                for (const HatchPoint& corner : Area(roof, floor)) {
                    corners.push_back(
                        {static_cast<int>(std::lround(corner.X)), static_cast<int>(std::lround(corner.Y))});
                }
                Main.Polygon(corners, Fill_Of(model, layer));
            }
        }
    }

    void Fill_With_Hatching(const ReportModel& model) {
        for (int layer = 1; layer <= model.Layers(); ++layer) {
            const Pattern pattern = Pattern_Of(layer, model.Layers());
            for (const ReportCurve& roof : Roofs(model, layer)) {
                const std::vector<HatchPoint> area = Area(roof, Floor_Below(model, layer, roof));
                for (const double angle : pattern.Angles)
                    Draw_Strokes(Hatch_Area(area, angle, pattern.Spacing * Point));
            }
        }
    }

    /// The interface below a layer under its roof; the lower edge of the picture where it is not known.
    ReportCurve Floor_Below(const ReportModel& model, int layer, const ReportCurve& roof) const {
        std::vector<double> places;
        for (const ReportPoint& point : roof)
            places.push_back(point.X);
        if (layer < model.Layers()) {
            for (const ReportCurve& run : model.Interfaces[static_cast<std::size_t>(layer - 1)].Runs) {
                for (const ReportPoint& point : run)
                    places.push_back(point.X);
            }
        }
        std::sort(places.begin(), places.end());
        ReportCurve floor;
        for (const double x : places) {
            if (x < roof.front().X || x > roof.back().X) continue;
            floor.push_back({x, model.Elevation_Of(layer, x).value_or(Window.Bottom)});
        }
        return floor;
    }

    void Draw_Strokes(const std::vector<HatchStroke>& strokes) {
        const auto x = [this](const HatchPoint& point) {
            return Window.Left + (point.X - Page.Left) / Page.PixelsX;
        };
        const auto z = [this](const HatchPoint& point) {
            return Window.Top - (point.Y - Page.Top) / Page.PixelsY;
        };
        for (const HatchStroke& stroke : strokes)
            Main.Line(x(stroke.From), z(stroke.From), x(stroke.To), z(stroke.To), colours::Grey);
    }

    void Draw_Interfaces(const ReportModel& model) {
        const Colour colour = Method_Colour(model.Source);
        for (const ReportInterface& each : model.Interfaces) {
            Main.Set_Draw_Width(1);
            for (const DepthArc& arc : each.Arcs)
                Draw_Curve(Points_Of_Arc(arc, arc_half_angle), colour);
            Main.Set_Draw_Width(2);
            for (const ReportCurve& run : each.Runs)
                Draw_Curve(run, colour);
        }
        Main.Set_Draw_Width(1);
    }

    /// Elevations between which a layer lies over the whole width of a text; nothing where it has no room.
    std::optional<std::pair<double, double>> Room_In_Layer(const ReportModel& model, int layer, double left,
                                                           double right) const {
        double top = Window.Top;
        double bottom = Window.Bottom;
        for (const double x : {left, (left + right) / 2, right}) {
            const auto roof = layer == 1 ? Curve_At(Ground, x) : model.Elevation_Of(layer - 1, x);
            if (!roof || (layer == 1 && !model.Elevation_Of(1, x))) return std::nullopt;
            top = std::min(top, *roof);
            if (const auto floor = model.Elevation_Of(layer, x)) bottom = std::max(bottom, *floor);
        }
        return std::pair(top, bottom);
    }

    /// Distances in sight between the outermost places with depths.
    std::pair<double, double> Filled_Stretch(const ReportModel& model) const {
        double first = Window.Right;
        double last = Window.Left;
        for (const SectionPlace& place : model.Places) {
            if (!place.Known) continue;
            first = std::min(first, place.Distance);
            last = std::max(last, place.Distance);
        }
        return {std::max(first, Window.Left), std::min(last, Window.Right)};
    }

    /// The velocity of each layer below its place, where it has room in the layer and beside the one before
    /// it; one that only repeats it comes again after a third of the picture.
    void Draw_Velocities(const ReportModel& model) {
        Main.Set_Font_Size(velocity_font);
        const double gap = Across(3 * Letter);
        const double rim = Across(Letter / 2);
        const auto [left, right] = Filled_Stretch(model);
        for (int layer = 1; layer <= model.Layers(); ++layer) {
            double free_from = left;
            double last_x = -1e300;
            std::string last_text;
            for (const SectionPlace& place : model.Places) {
                const double velocity = place.Velocities[static_cast<std::size_t>(layer)];
                if (!place.Known || velocity <= 0) continue;
                const std::string text = CStr(Rounded(velocity)) + " " + LengthUnit + "/s";
                const TextSize size = Main.Size_Of(text);
                const double half = Across(size.Width / 2);
                if (place.Distance < left || place.Distance > right) continue;
                if (right - left < 2 * (half + rim)) continue;
                // An error bar at the place would cross the text.
                const double aside = Has_Error(model, place.Distance) ? half + Across(2 * cap * Point) : 0;
                const double x = std::clamp(place.Distance + aside, left + half + rim, right - half - rim);
                if (x - half < free_from) continue;
                if (text == last_text && x - last_x < (Window.Right - Window.Left) / 3) continue;
                const auto room = Room_In_Layer(model, layer, x - half, x + half);
                const double height = Upward(size.Height);
                if (!room || room->first - room->second < height * 1.15) continue;
                // The deepest layer has no end: its velocity stands close below the interface.
                const double spare = room->first - room->second - height;
                const double top =
                    room->first - (layer == model.Layers() ? std::min(spare / 2, height / 3) : spare / 2);
                Main.Box(x - half - rim / 3, top, x + half + rim / 3, top - height, Fill_Of(model, layer),
                         true);
                Main.Print_At(x - half, top, text, colours::Black);
                free_from = x + half + gap;
                last_x = x;
                last_text = text;
            }
        }
        Main.Set_Font_Size(usual_font);
    }

    bool Has_Error(const ReportModel& model, double x) const {
        return Choices.Errors && std::any_of(model.Errors.begin(), model.Errors.end(),
                                             [x](const DepthError& error) { return error.At.X == x; });
    }

    void Draw_Errors() {
        for (const ReportModel& model : Models) {
            for (const DepthError& error : model.Errors) {
                const double low = error.At.Z - error.Half;
                const double high = error.At.Z + error.Half;
                const double wide = Across(cap * Point);
                Main.Line(error.At.X, low, error.At.X, high, colours::Black);
                for (const double z : {low, high})
                    Main.Line(error.At.X - wide, z, error.At.X + wide, z, colours::Black);
            }
        }
    }

    void Filled(std::initializer_list<HatchPoint> corners, Colour colour) {
        std::vector<PixelPoint> points;
        for (const HatchPoint& corner : corners) {
            points.push_back(
                {static_cast<int>(std::lround(corner.X)), static_cast<int>(std::lround(corner.Y))});
        }
        Main.Polygon(points, colour);
    }

    void Draw_Geophones() {
        // Many of them on a short page become narrower than their height.
        double half = geophone_size / 2 * Point;
        for (int receiver = 2; receiver <= Line.NbReceivers; ++receiver) {
            const double step = std::abs(Line.ReceiverData(ReceiverDistance, receiver) -
                                         Line.ReceiverData(ReceiverDistance, receiver - 1));
            if (step > 0) half = std::min(half, std::max(Point, step * Page.PixelsX * 0.4));
        }
        for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver) {
            const double x = Line.ReceiverData(ReceiverDistance, receiver);
            const double z = Line.ReceiverData(ReceiverElevation, receiver);
            if (!In_Sight(x, z)) continue;
            const double px = Pixel_X(x);
            const double py = Pixel_Y(z);
            const double top = py - geophone_size * Point;
            Filled({{px, py}, {px - half, top}, {px + half, top}}, colours::Black);
        }
    }

    /// A mark at each shot on the ground and its number above it; numbers close together stand above each
    /// other.
    void Draw_Shots() {
        constexpr int tiers = 2;
        std::array<double, tiers> taken;
        taken.fill(-1e300);
        for (int shot = 1; shot <= Line.NbShots; ++shot) {
            const double x = Line.ShotDistance(shot);
            const double z = Line.ShotElevation(shot);
            if (!In_Sight(x, z)) continue;
            const double px = Pixel_X(x);
            const double py = Pixel_Y(z);
            const double half = shot_size / 2 * Point;
            Filled({{px, py}, {px - half, py - half}, {px, py - 2 * half}, {px + half, py - half}},
                   colours::Red);
            const std::string text = "S" + CStr(shot);
            const TextSize size = Main.Size_Of(text);
            std::size_t tier = 0;
            while (tier < tiers && px - size.Width / 2 < taken[tier])
                ++tier;
            if (tier == tiers) continue;
            taken[tier] = px + size.Width / 2 + Point;
            const double top = py - 2 * half - Point - size.Height * (1 + 0.85 * static_cast<double>(tier));
            // Enlarged, the ground may lie at the upper edge of the page.
            if (top < 0) continue;
            Main.Print_At(x - Across(size.Width / 2), z + Upward(py - top), text, colours::Black);
        }
    }

    const Project& Line;
    const ReportChoices& Choices;
    const ColourScale& Scale;
    const std::vector<ReportModel>& Models;
    const ReportFrame& Page;
    const SectionWindow Window;
    Picture& Main;
    const double Point;  ///< pixels
    const std::string LengthUnit;
    const ReportCurve Ground;
    double Letter = 0;  ///< height of the usual letters, pixels
};

}  // namespace

Colour Method_Colour(SectionSource source) {
    switch (source) {
        case SectionSource::Abc:
            return Rgb(0, 70, 200);
        case SectionSource::Grm:
            return Rgb(150, 0, 120);
        case SectionSource::Shots:
            break;
    }
    return Rgb(200, 30, 0);
}

std::vector<ReportModel> Models_Of(const Project& project, const ReportChoices& choices) {
    std::vector<ReportModel> models;
    const auto add = [&](SectionSource source) {
        ReportModel model = Model_Of(project, source, choices.Shape);
        if (!model.Interfaces.empty()) models.push_back(std::move(model));
    };
    add(choices.Source);
    for (const SectionSource source : {SectionSource::Shots, SectionSource::Abc, SectionSource::Grm}) {
        if (source != choices.Source && choices.Also[static_cast<std::size_t>(source)]) add(source);
    }
    return models;
}

SectionWindow Report_Extent(const Project& project, const std::vector<ReportModel>& models) {
    const ReportCurve ground = Ground_Of(project);
    if (ground.empty()) return {0, 1, 0, 1};
    SectionWindow extent{ground.front().X, ground.back().X, ground.front().Z, ground.front().Z};
    // An envelope may go on a little beyond the line; nothing is known of the ground there.
    const auto reach = [&extent](const ReportPoint& point) {
        if (point.X < extent.Left || point.X > extent.Right) return;
        extent.Bottom = std::min(extent.Bottom, point.Z);
        extent.Top = std::max(extent.Top, point.Z);
    };
    std::for_each(ground.begin(), ground.end(), reach);
    for (const ReportModel& model : models) {
        for (const ReportInterface& each : model.Interfaces) {
            for (const ReportCurve& run : each.Runs)
                std::for_each(run.begin(), run.end(), reach);
        }
    }
    if (!(extent.Right > extent.Left)) extent.Right = extent.Left + 1;
    return extent;
}

ReportRoom Room_Of_Report(const Workspace& workspace, const ReportView& view,
                          const std::vector<ReportModel>& models, const Picture& picture, bool on_paper) {
    const Frame size = picture.Current_Frame();
    ReportRoom room;
    room.Width = size.Width;
    room.Height = size.Height;
    room.PixelsAPoint = picture.Pixels_Per_Point();
    room.OnPaper = on_paper;
    room.UnitMillimetres = workspace.Settings.Metric() ? metre : foot;
    room.Scale = view.Choices.Scale;
    room.Exaggeration = view.Choices.Exaggeration;
    room.Extent = view.Enlarged.value_or(Report_Extent(workspace.Project, models));
    room.Enlarged = view.Enlarged.has_value();
    return room;
}

ReportFrame Draw_Report(const Workspace& workspace, const ReportView& view, const ColourScale& scale,
                        Picture& picture, bool on_paper) {
    const std::vector<ReportModel> models = Models_Of(workspace.Project, view.Choices);
    const ReportRoom room = Room_Of_Report(workspace, view, models, picture, on_paper);
    const ReportFrame frame = Lay_Out_Report(room);
    const double left = frame.Window.Left - frame.Left / frame.PixelsX;
    const double top = frame.Window.Top + frame.Top / frame.PixelsY;
    picture.Scale(left, top, left + room.Width / frame.PixelsX, top - room.Height / frame.PixelsY);
    picture.Clear();
    ReportPainting(workspace, view, scale, models, frame, picture).Draw();
    Draw_Title_Block(workspace, view, models, frame, picture);
    return frame;
}

}  // namespace tarnvik
