#include "output/report_scale.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/text/number.h"

namespace tarnvik {

namespace {

// Points.
constexpr double paper_margin = 20;
constexpr double screen_margin = 6;
constexpr double axis_left = 44;
constexpr double axis_below = 34;
constexpr double block_height = 58;
constexpr double block_gap = 6;
constexpr double room_above = 34;  ///< in the frame, above the highest ground: marks and numbers of shots
constexpr double room_below = 20;  ///< in the frame, below the deepest interface: the velocity there

constexpr double points_an_inch = 72;
constexpr double millimetres_an_inch = 25.4;
constexpr std::array round_scales = {1.0, 1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 7.5};
constexpr std::array round_exaggerations = {1.0, 1.5, 2.0,  2.5,  3.0,  4.0,  5.0,
                                            6.0, 8.0, 10.0, 15.0, 20.0, 30.0, 50.0};
constexpr double hair = 1 + 1e-9;

/// Sizes of a page in pixels.
struct Page {
    explicit Page(const ReportRoom& room) {
        const double point = room.PixelsAPoint;
        Margin = (room.OnPaper ? paper_margin : screen_margin) * point;
        Around_X = 2 * Margin + (axis_left + paper_margin / 2) * point;
        Around_Y = 2 * Margin + (axis_below + block_gap + block_height) * point;
        Above = room.Enlarged ? 0 : room_above * point;
        Below = room.Enlarged ? 0 : room_below * point;
        // A picture too small for all that is drawn over its edges.
        Across = std::max(point, room.Width - Around_X);
        Down = std::max(point, room.Height - Around_Y - Above - Below);
        Length = std::max(room.Extent.Right - room.Extent.Left, 1e-6);
        Height = room.Extent.Top - room.Extent.Bottom;
        // Level ground without depths has no height of its own.
        if (!(Height > 0)) Height = Length / 20;
        PixelsAMillimetre = point * points_an_inch / millimetres_an_inch;
    }
    double Pixels_At(const ReportRoom& room, double scale) const {
        return room.UnitMillimetres / scale * PixelsAMillimetre;
    }
    bool Fits(double pixels, double exaggeration) const {
        return Length * pixels <= Across * hair &&
               Height * pixels * (exaggeration > 0 ? exaggeration : 1) <= Down * hair;
    }
    /// Pixels of a length unit across that fill the page.
    double Filling(double exaggeration) const {
        return std::min(Across / Length, Down / (Height * (exaggeration > 0 ? exaggeration : 1)));
    }

    double Margin = 0;
    double Around_X = 0;
    double Around_Y = 0;
    double Above = 0;
    double Below = 0;
    double Across = 0;
    double Down = 0;
    double Length = 1;
    double Height = 1;
    double PixelsAMillimetre = 1;
};

double Fitting_Scale(const ReportRoom& room, const Page& page) {
    return Round_Scale_Not_Below(room.UnitMillimetres * page.PixelsAMillimetre /
                                 page.Filling(room.Exaggeration));
}

}  // namespace

double Round_Scale_Not_Below(double least) {
    if (!(least > 0)) return 1;
    double power = std::pow(10, std::floor(std::log10(least)));
    for (const double step : round_scales) {
        if (step * power * hair >= least) return step * power;
    }
    return 10 * power;
}

double Round_Exaggeration_Not_Above(double most) {
    double found = round_exaggerations.front();
    for (const double each : round_exaggerations) {
        if (each <= most * hair) found = each;
    }
    return std::min(found, most);
}

ReportFrame Lay_Out_Report(const ReportRoom& room) {
    const Page page(room);
    ReportFrame frame;
    if (room.OnPaper) {
        frame.Scale = room.Scale;
        if (room.Scale > 0) frame.Fits = page.Fits(page.Pixels_At(room, room.Scale), room.Exaggeration);
        if (!(room.Scale > 0) || !frame.Fits) frame.Scale = Fitting_Scale(room, page);
        frame.PixelsX = page.Pixels_At(room, frame.Scale);
    } else {
        frame.PixelsX = page.Filling(room.Exaggeration);
    }
    frame.Exaggeration = room.Exaggeration;
    if (!(room.Exaggeration > 0)) {
        const double most = page.Down / (page.Height * frame.PixelsX);
        frame.Exaggeration = room.Enlarged && !room.OnPaper ? most : Round_Exaggeration_Not_Above(most);
    }
    frame.PixelsY = frame.PixelsX * frame.Exaggeration;

    const double point = room.PixelsAPoint;
    const double width = page.Length * frame.PixelsX;
    const double height = page.Height * frame.PixelsY + page.Above + page.Below;
    frame.Margin = page.Margin;
    frame.BlockTop = room.Height - page.Margin - block_height * point;
    frame.Left = page.Margin + axis_left * point + std::max(0.0, page.Across - width) / 2;
    frame.Right = frame.Left + width;
    frame.Top = page.Margin + std::max(0.0, page.Down + page.Above + page.Below - height) / 2;
    frame.Bottom = frame.Top + height;
    frame.Window = room.Extent;
    frame.Window.Right = room.Extent.Left + page.Length;
    frame.Window.Top = room.Extent.Top + page.Above / frame.PixelsY;
    frame.Window.Bottom = frame.Window.Top - height / frame.PixelsY;
    return frame;
}

std::string Report_Scale_Fault(const ReportRoom& room) {
    const Page page(room);
    if (!room.OnPaper || !(room.Scale > 0)) return {};
    const double pixels = page.Pixels_At(room, room.Scale);
    if (page.Fits(pixels, room.Exaggeration)) return {};
    const double exaggeration = room.Exaggeration > 0 ? room.Exaggeration : 1;
    const auto millimetres = [&page](double size) { return CStr(std::ceil(size / page.PixelsAMillimetre)); };
    const double width = page.Length * pixels + page.Around_X;
    const double height = page.Height * pixels * exaggeration + page.Around_Y + page.Above + page.Below;
    return "1:" + CStr(room.Scale) + " does not fit the paper: it needs " + millimetres(width) + " x " +
           millimetres(height) + " mm, there are " +
           CStr(std::floor(room.Width / page.PixelsAMillimetre + 0.01)) + " x " +
           CStr(std::floor(room.Height / page.PixelsAMillimetre + 0.01)) +
           " mm. 1:" + CStr(Fitting_Scale(room, page)) + " fits";
}

double Scale_In(const std::string& text) {
    const std::size_t colon = text.find(':');
    const double scale = Val(colon == std::string::npos ? text : text.substr(colon + 1));
    return scale > 0 && std::isfinite(scale) ? scale : 0;
}

}  // namespace tarnvik
