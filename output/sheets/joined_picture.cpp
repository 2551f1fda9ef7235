#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/text/number.h"
#include "output/colour_scale.h"
#include "output/report_axes.h"
#include "output/sheets/joined_profiles.h"
#include "output/title_block.h"

namespace tarnvik {

namespace {

constexpr std::array fills = {Rgb(244, 224, 156), Rgb(214, 178, 118), Rgb(166, 190, 150), Rgb(150, 178, 210),
                              Rgb(178, 160, 190)};
constexpr int usual_font = 8;
constexpr int name_font = 9;
constexpr int interface_width = 2;  // points
constexpr int fill_sample = 12;     // width of a filled layer's stroke in the legend
constexpr Colour limit_colour = 0x909090;

/// A fill's lines: the same colour, darker.
Colour Darker(Colour colour) {
    constexpr double share = 0.55;
    const auto part = [colour](int shift) { return static_cast<int>(((colour >> shift) & 255) * share); };
    return Rgb(part(0), part(8), part(16));
}

class JoinedPainting {
  public:
    JoinedPainting(const JoinedProfiles& profiles, const ReportFrame& frame, Picture& picture)
        : Profiles(profiles),
          Page(frame),
          Window(frame.Window),
          Main(picture),
          LengthUnit(profiles.User_Settings().Metric() ? "m" : "f") {}

    void Draw() {
        Main.Set_Draw_Mode(DrawMode::Copy);
        Main.Set_Draw_Width(1);
        Main.Set_Clip(Window.Left, Window.Top, Window.Right, Window.Bottom);
        for (const JoinedLine& line : Profiles.Lines) {
            if (!line.Fault.empty()) continue;
            if (Profiles.Filled) Fill(line);
            Draw_Interfaces(line);
            Main.Set_Draw_Width(interface_width);
            Draw_Curve(line.Joined(line.Ground), colours::Black);
            Main.Set_Draw_Width(1);
        }
        Main.Clear_Clip();
        Main.Set_Font_Size(name_font);
        for (const JoinedLine& line : Profiles.Lines) {
            if (line.Fault.empty()) Name_Line(line);
        }
        Main.Set_Font_Size(usual_font);
        Main.Box(Window.Left, Window.Top, Window.Right, Window.Bottom, colours::Black, false);
        Draw_Report_Axes(Page, LengthUnit, Main);
        Draw_Block();
    }

  private:
    void Draw_Curve(const ReportCurve& curve, Colour colour) {
        for (std::size_t i = 1; i < curve.size(); ++i)
            Main.Line(curve[i - 1].X, curve[i - 1].Z, curve[i].X, curve[i].Z, colour);
    }

    PixelPoint Pixel(double x, double z) const {
        const double down = Page.Top + (Window.Top - std::clamp(z, Window.Bottom, Window.Top)) * Page.PixelsY;
        return {static_cast<int>(std::lround(Page.Left + (x - Window.Left) * Page.PixelsX)),
                static_cast<int>(std::lround(down))};
    }

    /// From a boundary down to the edge of the picture; the layers below cover the rest of it.
    void Fill_Below(const ReportCurve& roof, int layer) {
        if (roof.size() < 2) return;
        std::vector<PixelPoint> corners;
        for (const ReportPoint& point : roof)
            corners.push_back(Pixel(point.X, point.Z));
        corners.push_back(Pixel(roof.back().X, Window.Bottom));
        corners.push_back(Pixel(roof.front().X, Window.Bottom));
        Main.Polygon(corners, Layer_Fill(layer));
    }

    void Fill(const JoinedLine& line) {
        if (line.Model.Interfaces.empty()) return;
        // The ground where the first interface is known.
        for (const ReportCurve& run : line.Model.Interfaces.front().Runs) {
            const double from = std::max(run.front().X, line.Begin);
            const double to = std::min(run.back().X, line.End);
            if (to > from) Fill_Below(line.Joined(Part_Of_Curve(line.Ground, from, to)), 1);
        }
        for (const ReportInterface& each : line.Model.Interfaces) {
            for (const ReportCurve& run : each.Runs)
                Fill_Below(line.Joined(Part_Of_Curve(run, line.Begin, line.End)), each.Layer + 1);
        }
    }

    void Draw_Interfaces(const JoinedLine& line) {
        Main.Set_Draw_Width(interface_width);
        for (const ReportInterface& each : line.Model.Interfaces) {
            for (const ReportCurve& run : each.Runs) {
                Draw_Curve(line.Joined(Part_Of_Curve(run, line.Begin, line.End)),
                           Darker(Layer_Fill(each.Layer + 1)));
            }
        }
        Main.Set_Draw_Width(1);
    }

    /// Its name above the ground between its ends, and thin lines at these.
    void Name_Line(const JoinedLine& line) {
        const double left = std::min(line.Joined(line.Begin), line.Joined(line.End));
        const double right = std::max(line.Joined(line.Begin), line.Joined(line.End));
        for (const double x : {left, right}) {
            if (x > Window.Left && x < Window.Right) Main.Line(x, Window.Bottom, x, Window.Top, limit_colour);
        }
        std::string text = line.Name;
        if (line.Reversed) text = "< " + text;
        if (line.Model.Interfaces.empty()) text += " (no depths)";
        const TextSize size = Main.Size_Of(text);
        const double room = (right - left) * Page.PixelsX;
        // Names that overlap stand above each other.
        const double middle = (left + right) / 2;
        double at = std::clamp(middle - size.Width / 2 / Page.PixelsX, Window.Left,
                               std::max(Window.Left, Window.Right - size.Width / Page.PixelsX));
        if (room < size.Width) at = std::max(Window.Left, at);
        double row = 0;
        while (row < 2 && at < TakenTo[static_cast<std::size_t>(row)])
            ++row;
        TakenTo[static_cast<std::size_t>(row)] = at + size.Width / Page.PixelsX;
        Main.Print_At(at, Window.Top - (2 + row * size.Height) / Page.PixelsY, text, colours::Black);
    }

    void Draw_Block() {
        TitleCell what;
        what.Rows.push_back(
            {.Text = Profiles.Title.empty() ? "Joined profiles" : Profiles.Title, .Large = true});
        std::string names;
        for (const JoinedLine& line : Profiles.Lines) {
            if (line.Fault.empty()) names += (names.empty() ? "" : ", ") + line.Name;
        }
        constexpr std::size_t letters = 60;
        constexpr std::size_t most_rows = 4;
        for (const std::string& row : Broken_Text(names, letters)) {
            if (what.Rows.size() < most_rows) what.Rows.push_back({.Text = row});
        }
        TitleCell scales;
        scales.Rows.push_back({.Text = "Horizontal " + Scale_Text(Page.Scale)});
        scales.Rows.push_back({.Text = "Vertical " + Scale_Text(Page.Scale / Page.Exaggeration)});
        scales.Rows.push_back({.Text = "Vertical exaggeration " + Format(Page.Exaggeration, "0.0#")});
        if (!Page.Fits) {
            scales.Rows.push_back(
                {.Text = Profiles.Scale + " does not fit this paper", .InColour = colours::Red});
        }
        std::vector<TitleCell> cells = {what, scales};
        // Two columns: five layers have no room under each other.
        for (int first = 1; first <= Profiles.Layers(); first += 3) {
            TitleCell key;
            for (int layer = first; layer < first + 3 && layer <= Profiles.Layers(); ++layer)
                key.Rows.push_back({.Text = Layer_Text(layer),
                                    .Sample = true,
                                    .SampleColour = Sample(layer),
                                    .SampleWidth = Profiles.Filled ? fill_sample : interface_width});
            cells.push_back(key);
        }
        const Frame size = Main.Current_Frame();
        Draw_Title_Cells(
            Main, {Page.Margin, Page.BlockTop, size.Width - Page.Margin, size.Height - Page.Margin}, cells);
    }

    Colour Sample(int layer) const {
        return Profiles.Filled ? Layer_Fill(layer) : layer == 1 ? colours::Black : Darker(Layer_Fill(layer));
    }

    /// "Layer 2: 1580 to 1640 m/s": mean velocities of the lines.
    std::string Layer_Text(int layer) const {
        double least = std::numeric_limits<double>::max();
        double most = 0;
        for (const JoinedLine& line : Profiles.Lines) {
            const double velocity = layer <= line.Model.Layers() ? line.Model.Mean_Velocity(layer) : 0;
            if (velocity <= 0) continue;
            least = std::min(least, Rounded(velocity));
            most = std::max(most, Rounded(velocity));
        }
        std::string text = "Layer " + CStr(layer);
        if (most <= 0) return text;
        text += ": " + CStr(least);
        if (most > least) text += " to " + CStr(most);
        return text + " " + LengthUnit + "/s";
    }

    const JoinedProfiles& Profiles;
    const ReportFrame& Page;
    const SectionWindow Window;
    Picture& Main;
    const std::string LengthUnit;
    std::array<double, 3> TakenTo = {-1e300, -1e300, -1e300};  ///< of the rows of names, distances
};

}  // namespace

Colour Layer_Fill(int layer) {
    return fills[static_cast<std::size_t>(std::clamp(layer, 1, static_cast<int>(fills.size())) - 1)];
}

ReportFrame Draw_Joined(const JoinedProfiles& profiles, Picture& picture) {
    const Frame size = picture.Current_Frame();
    const ReportRoom room = profiles.Room(size.Width, size.Height, picture.Pixels_Per_Point());
    const ReportFrame frame = Lay_Out_Report(room);
    const double left = frame.Window.Left - frame.Left / frame.PixelsX;
    const double top = frame.Window.Top + frame.Top / frame.PixelsY;
    picture.Scale(left, top, left + room.Width / frame.PixelsX, top - room.Height / frame.PixelsY);
    picture.Clear();
    picture.Set_Font_Size(usual_font);
    JoinedPainting(profiles, frame, picture).Draw();
    return frame;
}

}  // namespace tarnvik
