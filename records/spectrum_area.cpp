#include "records/spectrum_area.h"

#include <algorithm>
#include <cmath>

#include "core/text/number.h"
#include "records/record_files.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr int most_traces = 75;
constexpr const char* tool_name = "SUSPECTRE.EXE";

}  // namespace

RecordArea RecordArea::Sorted() const {
    return {std::min(X1, X2), std::min(Y1, Y2), std::max(X1, X2), std::max(Y1, Y2)};
}

void Spectre_Frequency(Workspace& workspace, Ports& ports) {
    workspace.Record.SpectrumRequest = 1;
    ports.Show.Canvas_Of(Canvas::Ecran).Set_Pointer(PointerShape::Cross);
}

void Show_Spectrum(Workspace& workspace, Ports& ports, const RecordArea& dragged) {
    const RecordView& record = workspace.Record;
    const RecordArea area = dragged.Sorted();
    const auto first = Trace_At(record, area.X1);
    auto last = Trace_At(record, area.X2);
    if (!first || !last) {
        ports.Ask.Say("Impossible", workspace.AppTitle);
        return;
    }
    if (*last - *first + 1 > most_traces) {
        ports.Ask.Say("Maximum 75 traces", workspace.AppTitle);
        last = *first + most_traces - 1;
    }
    const double start = std::max(Rounded(area.Y1), 1.0);
    const double end = std::min<double>(Rounded(area.Y2), record.NbSamples);
    if (start == end) {
        ports.Ask.Say("Same point, impossible", workspace.AppTitle);
        return;
    }
    const std::string folder = ports.Launch.Program_Folder();
    const std::string tool = folder + "/" + tool_name;
    if (!ports.Launch.Has_Tool(tool)) {
        ports.Ask.Say(tool + " is missing", workspace.AppTitle);
        return;
    }
    const std::string arguments = "f=" + Su_Path(workspace.Project) + " ftr=" + CStr(*first) +
                                  " ltr=" + CStr(*last) + " fpt=" + CStr(start) + " lpt=" + CStr(end);
    if (ports.Launch.Start(tool, arguments, folder) < launch_failure_below) {
        ports.Ask.Say("Unable to shell application:" + tool, workspace.AppTitle);
        return;
    }
    const double interval = record.SampleInterval;
    ports.Ask.Say(" First Trace=" + CStr(*first) + " Last Trace=" + CStr(*last) + " Start Time=" +
                      CStr(start * interval / 1000) + "ms End Time=" + CStr(end * interval / 1000) + "ms",
                  workspace.AppTitle);
}

}  // namespace tarnvik
