#include "traveltime/curve_axes.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr int scale_font = 8;
constexpr double point_radius = 0.3;
constexpr double label_gap = 0.4;   // between two labels of a scale, in heights of a letter
constexpr double strip_room = 0.3;  // between a time and the picture

double Factor_Or_One(double factor) {
    return factor > 0 ? factor : 1;
}

bool Has_Receivers(const Project& project) {
    return project.NbReceivers > 0 && project.LineLength != 0 &&
           project.ReceiverData.Has(ReceiverDistance, project.NbReceivers);
}

int Receivers_In_Sight(int receivers, double zoom_x) {
    return std::max(1, static_cast<int>(std::ceil(receivers / std::max(1.0, Factor_Or_One(zoom_x)))));
}

/// The next step of a usual scale (1, 2 or 5 times a power of ten) that is not below `wanted`.
double Usual_Step(double wanted) {
    const double power = std::pow(10, std::floor(std::log10(wanted)));
    for (const double digit : {1.0, 2.0, 5.0}) {
        if (digit * power >= wanted * (1 - 1e-9)) return digit * power;
    }
    return 10 * power;
}

/// A step of labels: 1, 2, 5, 10 ... lines from one to the next.
int Next_Step(int step) {
    return std::to_string(step).front() == '2' ? step / 2 * 5 : step * 2;
}

std::string Distance_Label(const Project& project, int receiver, double x, double zoom_x) {
    const float distance = project.ReceiverData(ReceiverDistance, receiver);
    const int seen = Receivers_In_Sight(project.NbReceivers, zoom_x);
    if (seen >= 49) return CStr(Int(project.LineLength * x / curve_picture_width));
    if (seen > 24) return CStr(Int(distance));
    // The product stays in single precision: in double a distance typed as 4.6 would read 4.5.
    return CStr(Int(10 * distance) / 10);
}

/// What stands under one line of the frame.
struct LineLabels {
    int Index = 0;  ///< of the line, from 0
    double X = 0;
    std::string Number;
    std::string Distance;
};

/// Prints numbers and distances with their middle under their lines, as many as find room.
void Print_Distances(Picture& strip, const std::vector<LineLabels>& lines) {
    const Frame frame = strip.Current_Frame();
    const auto width = [&strip](const LineLabels& line) {
        return std::max(strip.Size_Of(line.Number).Width, strip.Size_Of(line.Distance).Width);
    };
    const double gap = label_gap * strip.Size_Of("0").Height;
    const auto fits = [&](int step) {
        double free_from = -1e9;
        for (const LineLabels& line : lines) {
            if (line.Index % step != 0) continue;
            const double middle = frame.To_Pixel_X(line.X);
            if (middle - width(line) / 2 < free_from) return false;
            free_from = middle + width(line) / 2 + gap;
        }
        return true;
    };
    int step = 1;
    while (step < static_cast<int>(lines.size()) && !fits(step))
        step = Next_Step(step);
    bool first = true;
    const auto print = [&](double x, double y, const std::string& prefix, const std::string& text) {
        const double left = frame.To_Pixel_X(x) - strip.Size_Of(prefix).Width - strip.Size_Of(text).Width / 2;
        strip.Print_At(frame.To_World_X(left), y, prefix + text, colours::ScaleBlue);
    };
    for (const LineLabels& line : lines) {
        if (line.Index % step != 0) continue;
        print(line.X, 1, first ? "g=" : "", line.Number);
        print(line.X, 5, first ? "m=" : "", line.Distance);
        first = false;
    }
}

void Draw_Receiver_Lines(const Workspace& workspace, const CurveWindow& window,
                         const CurvePictures& pictures) {
    const Project& project = workspace.Project;
    const double zoom = workspace.Curves.ZoomX;
    const int step = Receiver_Step(project.NbReceivers, zoom);
    constexpr double rounding = 1e-3;
    std::vector<LineLabels> in_sight;
    for (int i = 1, index = 0; i <= project.NbReceivers; i += step, ++index) {
        const double x = Position_Ecran(project, i);
        pictures.Dromo.Line(x, 0, x, curve_picture_height, colours::LightGrey);
        if (window.X1 - rounding <= x && x <= window.X2 + rounding)
            in_sight.push_back({index, x, CStr(i), Distance_Label(project, i, x, zoom)});
    }
    if (pictures.EchelleX != nullptr) Print_Distances(*pictures.EchelleX, in_sight);
}

void Draw_Receiver_Intercepts(const Project& project, double time_factor, Picture& dromo) {
    for (int i = 1; i <= project.NbReceivers; ++i) {
        const double intercept = project.ReceiverData(ReceiverIntercept, i);
        if (intercept == 0) continue;
        dromo.Circle(Position_Ecran(project, i), intercept / time_factor, point_radius, colours::Magenta);
        dromo.Print(CStr(std::trunc(intercept)), colours::Black);
    }
}

/// Times of the grid that are in sight, ms.
std::vector<double> Times_In_Sight(const CurveView& view, double time_factor) {
    constexpr double per_ms = 1000;
    const CurveWindow window = Visible_Window(view);
    const TimeGrid grid = Time_Grid(time_factor, view.ZoomY);
    std::vector<double> times;
    for (int k = 1; k * grid.Step <= grid.Last * (1 + 1e-9); ++k) {
        const double y = k * grid.Step / time_factor;
        if (y < window.Yv - 1e-9 || y > window.Yw + 1e-9) continue;
        times.push_back(Rounded(k * grid.Step * per_ms) / per_ms);
    }
    return times;
}

void Scale_Time_Strip(Picture& strip, const CurveView& view) {
    const CurveWindow window = Visible_Window(view);
    if (view.ZeroOnTop) {
        strip.Scale(0, window.Yv + 1, 10, window.Yw - 1);
    } else {
        strip.Scale(0, window.Yw + 1, 10, window.Yv - 1);
    }
}

/// The times with their middle beside their lines, close to the picture.
void Print_Time_Labels(Picture& strip, const CurveView& view, double time_factor) {
    const Frame frame = strip.Current_Frame();
    const std::vector<double> times = Times_In_Sight(view, time_factor);
    const double height = strip.Size_Of("0").Height;
    const double apart =
        times.size() < 2
            ? height
            : std::abs(frame.To_Pixel_Y(times[1] / time_factor) - frame.To_Pixel_Y(times[0] / time_factor));
    int step = 1;
    while (step * apart < height && step < static_cast<int>(times.size()))
        step = Next_Step(step);
    const double line = Time_Grid(time_factor, view.ZoomY).Step;
    for (const double time : times) {
        if (static_cast<int>(Rounded(time / line)) % step != 0) continue;
        const std::string text = CStr(time) + (time < 100 ? "   ms" : " ms");
        const double left = frame.Width - strip.Size_Of(text).Width - strip_room * height;
        strip.Print_At(frame.To_World_X(std::max(0.0, left)),
                       frame.To_World_Y(frame.To_Pixel_Y(time / time_factor) - height / 2), text,
                       colours::Cyan);
    }
}

/// The units at the ends of the axes, each while its end is in sight.
void Print_Units(const Workspace& workspace, const CurveWindow& window, double time_factor, Picture& dromo) {
    const bool left = window.X1 <= 0;
    const bool earliest = window.Yv <= 0;
    const TimeGrid grid = Time_Grid(time_factor, workspace.Curves.ZoomY);
    const bool labelled = grid.Step > 0 && grid.Last / time_factor >= curve_picture_height;
    if (left && window.Yw >= curve_picture_height && !labelled)
        dromo.Print_At(-5, curve_picture_height, " ms", colours::Black);
    if (earliest && window.X2 >= curve_picture_width) {
        constexpr double beside_frame = 3;  // pixels, so that no letter stands on the frame
        const Frame frame = dromo.Current_Frame();
        const double x = frame.To_World_X(frame.To_Pixel_X(curve_picture_width) + beside_frame);
        dromo.Print_At(x, -5, workspace.Settings.Metric() ? "m" : "f", colours::Black);
    }
    if (left && earliest) dromo.Print_At(-3.5, -1, "0", colours::Black);
}

}  // namespace

CurveWindow Visible_Window(const CurveView& view) {
    const double zoom_x = Factor_Or_One(view.ZoomX);
    const double zoom_y = Factor_Or_One(view.ZoomY);
    CurveWindow window;
    window.X1 = view.HScroll1.Value;
    window.Yv = view.VScroll1.Value;
    if (view.ExactWindow) {
        window.X1 += view.PartX;
        window.Yv += view.PartY;
        window.X2 = window.X1 + curve_picture_width / zoom_x;
        window.Yw = window.Yv + curve_picture_height / zoom_y;
        return window;
    }
    // At least one unit stays in sight however strong the enlargement.
    window.X2 = std::max(window.X1 + 1, Rounded(window.X1 + curve_picture_width / zoom_x));
    window.Yw = std::max(window.Yv + 1, Rounded(window.Yv + curve_picture_height / zoom_y));
    return window;
}

TimeGrid Time_Grid(double time_factor, double zoom_y) {
    const double factor = Factor_Or_One(time_factor);
    const TimeGrid whole{std::max(1.0, Rounded(10 * factor)), Rounded(99 * factor)};
    if (!(zoom_y > 1)) return whole;
    return {std::min(whole.Step, Usual_Step(whole.Step / zoom_y)), whole.Last};
}

int Receiver_Step(int receivers, double zoom_x) {
    const int seen = Receivers_In_Sight(receivers, zoom_x);
    if (seen < 49) return seen < 25 ? 1 : 2;
    // Beyond 48 receivers the stepped ones are thinned once more.
    return 4 * static_cast<int>(Rounded(seen / 24.0));
}

void Draw_Time_Strip(Picture& strip, const CurveView& view) {
    strip.Set_Font_Size(scale_font);
    strip.Clear();
    Scale_Time_Strip(strip, view);
    Print_Time_Labels(strip, view, Factor_Or_One(view.TimeFactor));
}

void Draw_Frame_On(Workspace& workspace, const CurvePictures& pictures) {
    const Project& project = workspace.Project;
    const CurveView& view = workspace.Curves;
    Picture& dromo = pictures.Dromo;
    for (Picture* picture : {&dromo, pictures.EchelleX, pictures.EchelleY}) {
        if (picture == nullptr) continue;
        picture->Set_Font_Size(scale_font);
        picture->Clear();
    }
    const CurveWindow window = Visible_Window(view);
    if (view.ZeroOnTop) {
        dromo.Scale(window.X1, window.Yv, window.X2, window.Yw);
    } else {
        dromo.Scale(window.X1, window.Yw, window.X2, window.Yv);
    }
    if (pictures.EchelleX != nullptr) pictures.EchelleX->Scale(window.X1, 0, window.X2, 10);

    dromo.Set_Draw_Mode(DrawMode::Copy);
    dromo.Set_Draw_Width(1);
    dromo.Box(0, curve_picture_height, curve_picture_width, 0, colours::White, true);
    dromo.Box(0, curve_picture_height, curve_picture_width, 0, colours::Black, false);
    if (Has_Receivers(project)) Draw_Receiver_Lines(workspace, window, pictures);

    Scale_Time_Grid(workspace);
    workspace.Curves.DrawnTimeFactor = view.TimeFactor;
    const double time_factor = view.TimeFactor;
    for (const double t : Times_In_Sight(view, time_factor))
        dromo.Line(0, t / time_factor, curve_picture_width, t / time_factor, colours::LightGrey);
    if (pictures.EchelleY != nullptr) {
        Scale_Time_Strip(*pictures.EchelleY, view);
        Print_Time_Labels(*pictures.EchelleY, view, time_factor);
    }
    Print_Units(workspace, window, time_factor, dromo);
    dromo.Box(0, curve_picture_height, curve_picture_width, 0, colours::Black, false);
    if (view.ShowReceiverIntercepts && Has_Receivers(project))
        Draw_Receiver_Intercepts(project, time_factor, dromo);
}

}  // namespace tarnvik
