#include "records/record_readout.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/text/number.h"
#include "records/record_files.h"
#include "records/record_geometry.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr Colour cross_colour = 0xB48C50;

/// Amplitudes come in any unit: four digits of them tell enough.
std::string Amplitude_Text(double amplitude) {
    if (amplitude == 0 || !std::isfinite(amplitude)) return CStr(amplitude);
    const double unit = std::pow(10, std::floor(std::log10(std::abs(amplitude))) - 3);
    return CStr(static_cast<float>(Rounded(amplitude / unit) * unit));
}

}  // namespace

std::optional<std::string> Record_Read_Out(const Workspace& workspace, double x, double y) {
    const RecordView& view = workspace.Record;
    const auto trace = Trace_At(view, x);
    if (!trace) return std::nullopt;
    const double ms = Int(y * view.SampleInterval / 1000 * 100) / 100;
    std::string text = CStr(ms) + "ms   Trace:" + CStr(*trace);
    if (*trace < view.FirstTrace || *trace > view.LastTrace) return text;
    SuTraces file(Su_Path(workspace.Project));
    if (!file.Is_Open()) return text;
    const SpreadLayout spread(workspace, file, *trace, *trace);
    const RecordGeometry geometry(workspace, spread);
    const std::string unit = workspace.Settings.Metric() ? " m" : " ft";
    if (const auto place = geometry.Place(*trace)) text += "   Geophone:" + CStr(place->Receiver);
    if (const auto distance = geometry.Receiver_Distance(*trace))
        text += "   Distance:" + Length_Text(*distance) + unit;
    if (const auto offset = geometry.Offset(*trace)) text += "   Offset:" + Length_Text(*offset) + unit;
    const auto sample = CLng(y);
    if (sample && *sample >= 1 && *sample <= file.Nb_Samples()) {
        if (const auto amplitude = file.Sample(*trace, *sample))
            text += "   Amplitude:" + Amplitude_Text(*amplitude);
    }
    const double pick = file.Pick_Ms(*trace);
    text += pick > 0 ? "   Pick:" + CStr(pick) + "ms" : "   no pick";
    return text;
}

void Show_Cross_Hair(const Workspace& workspace, Ports& ports, double x, double y) {
    const RecordView& view = workspace.Record;
    std::vector<Mark> marks;
    if (view.CrossHair && view.RecordWidth > 0) {
        const auto line = [&](double x1, double y1, double x2, double y2) {
            Mark mark;
            mark.X1 = x1;
            mark.Y1 = y1;
            mark.X2 = x2;
            mark.Y2 = y2;
            mark.InColour = cross_colour;
            marks.push_back(mark);
        };
        line(view.ScaleLeft, y, view.ScaleRight, y);
        line(x, view.FirstSample, x, view.LastSample);
    }
    ports.Show.Show_Marks(Canvas::Ecran, MarkLayer::Pointer, std::move(marks));
}

void Hide_Cross_Hair(Ports& ports) {
    ports.Show.Show_Marks(Canvas::Ecran, MarkLayer::Pointer, {});
}

void Switch_Cross_Hair(Workspace& workspace, Ports& ports) {
    workspace.Record.CrossHair = !workspace.Record.CrossHair;
    if (!workspace.Record.CrossHair) Hide_Cross_Hair(ports);
    ports.Show.Show_Fields();
}

}  // namespace tarnvik
