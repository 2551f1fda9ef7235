#include "records/record_header.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/axis_steps.h"
#include "records/record_display.h"
#include "records/record_files.h"
#include "records/record_geometry.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr int title_font = 8;
constexpr std::size_t rows = 3;
/// Texts whose anchor lies a little outside the window are moved into its margin.
constexpr double reach_into_margin = 0.078;

/// The texts of one trace.
struct Labels {
    std::int64_t Trace = 0;
    int Number = 0;  ///< of the receiver, or of the trace where it has none
    std::array<std::string, rows> Texts;
};

class Header {
  public:
    Header(const Workspace& workspace, Picture& picture, const std::string& path)
        : Work(workspace), Target(picture), Path(path) {}

    void Draw() {
        const RecordView& view = Work.Record;
        const double height = Target.Current_Frame().Height;
        Target.Clear();
        Target.Scale(view.ScaleLeft, 0, view.ScaleRight, height);
        Edge = Target.Current_Frame();
        SuTraces file(Path);
        if (!file.Is_Open() || view.RecordWidth <= 0) return;
        const std::int64_t first = std::max(1, view.FirstTrace);
        const std::int64_t last = std::min<std::int64_t>(view.LastTrace, file.Nb_Traces().value_or(0));
        const SpreadLayout spread(Work, file, first, last);
        const RecordGeometry geometry(Work, spread);
        Title(spread);
        Rows(geometry, first, last);
        Target.Set_Draw_Width(1);
        for (const ShotMark& mark : geometry.Shots(first, last))
            Shot(mark);
    }

  private:
    double Line_Height() const { return Target.Size_Of("0").Height; }
    double World_X(double pixel) const { return Edge.To_World_X(pixel); }

    void Title(const SpreadLayout& spread) {
        Target.Set_Font_Size(title_font);
        std::string title;
        for (const std::string& part : Record_Title(Work, spread, Path)) {
            const std::string longer = title.empty() ? part : title + "   " + part;
            if (!title.empty() && Target.Size_Of(longer).Width > Edge.Width) break;
            title = longer;
        }
        Target.Print_At(World_X(0), 0, title, colours::Black);
        Down = Line_Height();
        Target.Set_Font_Size(scale_font);
    }

    void Rows(const RecordGeometry& geometry, std::int64_t first, std::int64_t last) {
        std::vector<Labels> all;
        std::array<bool, rows> used{};
        double widest = 0;
        for (std::int64_t trace = first; trace <= last; ++trace) {
            Labels labels = Of_Trace(geometry, trace);
            for (std::size_t row = 0; row < rows; ++row) {
                widest = std::max(widest, Target.Size_Of(labels.Texts[row]).Width);
                used[row] = used[row] || !labels.Texts[row].empty();
            }
            all.push_back(std::move(labels));
        }
        const int step = Label_Step(widest, Edge.Width / (Work.Record.RecordWidth / trace_width));
        const std::string unit = Work.Settings.Metric() ? " m" : " ft";
        const std::array<std::string, rows> names = {"Geophone", "Distance" + unit, "Offset" + unit};
        for (std::size_t row = 0; row < rows; ++row) {
            if (!used[row]) continue;
            Target.Print_At(World_X(-reach_into_margin * Edge.Width), Down, names[row], colours::Grey);
            for (const Labels& labels : all) {
                if (labels.Number % step == 0) Centred(labels.Trace, labels.Texts[row]);
            }
            Down += Line_Height();
        }
    }

    static Labels Of_Trace(const RecordGeometry& geometry, std::int64_t trace) {
        Labels labels;
        labels.Trace = trace;
        const auto place = geometry.Place(trace);
        labels.Number = place ? place->Receiver : static_cast<int>(trace);
        labels.Texts[0] = CStr(labels.Number);
        if (const auto distance = geometry.Receiver_Distance(trace)) labels.Texts[1] = Length_Text(*distance);
        if (const auto offset = geometry.Offset(trace)) labels.Texts[2] = Length_Text(*offset);
        return labels;
    }

    void Centred(std::int64_t trace, const std::string& text) {
        const double axis = Edge.To_Pixel_X(static_cast<double>(trace) * trace_width + trace_width / 2.0);
        Target.Print_At(World_X(axis - Target.Size_Of(text).Width / 2), Down, text, colours::Black);
    }

    /// A wedge that points at the place of the shot, or beyond the edge that it lies behind.
    void Shot(const ShotMark& mark) {
        const double size = Line_Height() * 0.7;
        const double x = Edge.To_Pixel_X(mark.X);
        const double top = std::min(Down + Line_Height() * 0.15, Edge.Height - size);
        const auto at = [](double across, double down) {
            return PixelPoint{static_cast<int>(std::lround(across)), static_cast<int>(std::lround(down))};
        };
        std::vector<PixelPoint> wedge;
        if (mark.Beyond == 0) {
            wedge = {at(x - size / 2, top), at(x + size / 2, top), at(x, Edge.Height)};
        } else {
            const double inward = -mark.Beyond * size;
            wedge = {at(x + inward, top), at(x, top + size / 2), at(x + inward, top + size)};
        }
        Target.Polygon(wedge, colours::Red);
        const std::string text = "shot " + CStr(mark.Shot) + " at " + Length_Text(mark.Distance) +
                                 (Work.Settings.Metric() ? " m" : " ft");
        const double width = Target.Size_Of(text).Width;
        const double beside = mark.Beyond == 0 ? size * 0.8 : size * 1.3;
        const bool to_the_right = mark.Beyond < 0 || (mark.Beyond == 0 && x + beside + width <= Edge.Width);
        Target.Print_At(World_X(to_the_right ? x + beside : x - beside - width),
                        std::min(Down, Edge.Height - Line_Height()), text, colours::Red);
    }

    const Workspace& Work;
    Picture& Target;
    const std::string& Path;
    Frame Edge;
    double Down = 0;  ///< where the next row stands, pixels
};

}  // namespace

void Draw_Record_Header(const Workspace& workspace, Picture& header, const std::string& path) {
    Header(workspace, header, path).Draw();
}

int Label_Step(double text_width, double pixels_a_trace) {
    constexpr double gap = 1.25;  // of a text, to the next one
    constexpr double most = 1e6;
    if (!(pixels_a_trace > 0)) return static_cast<int>(most);
    return static_cast<int>(std::clamp(Round_Step(text_width * gap / pixels_a_trace), 1.0, most));
}

std::vector<std::string> Record_Title(const Workspace& workspace, const SpreadLayout& spread,
                                      const std::string& path) {
    const RecordView& view = workspace.Record;
    const std::int64_t first = std::max(1, view.FirstTrace);
    std::vector<std::string> parts = {"Record " + CStr(spread.Record_Of(first)) + "/ FLDR " +
                                      CStr(view.FieldRecord)};
    const RecordGeometry geometry(workspace, spread);
    if (const auto place = geometry.Place(first)) parts.push_back("Shot " + CStr(place->Shot));
    if (const auto at = geometry.Shot_Distance(first))
        parts.back() += " at " + Length_Text(*at) + (workspace.Settings.Metric() ? " m" : " ft");
    const std::string name = Name_Of(path);
    parts.push_back(name);
    if (LCase(Right(name, 7)) == "_flt.su") parts.push_back("filtered");
    parts.push_back("Gain " + CStr(view.AmplitudeGain));
    if (view.DisplayPolarity == -1) parts.push_back("polarity turned");
    if (view.AgcWindow > 0) parts.push_back("AGC " + CStr(view.AgcWindow) + " ms");
    if (view.EqualiseTraces) parts.push_back("equalised");
    if (view.ClipAmplitude) parts.push_back("clipped");
    return parts;
}

}  // namespace tarnvik
