#include "records/magnifier.h"

#include <algorithm>
#include <cmath>

#include "records/record_display.h"
#include "records/record_files.h"

namespace tarnvik {

namespace {

constexpr int traces_beside = 2;
constexpr int share_of_height = 10;  ///< of the time in sight
constexpr int least_samples = 24;
constexpr Colour place_colour = 0xD07000;

/// The record's view while the magnifier draws; whatever the drawing measured is forgotten afterwards.
class BorrowedView {
  public:
    explicit BorrowedView(Workspace& workspace)
        : Work(workspace), View(workspace.Record), Sizes(workspace.Grids.size_grid) {}
    ~BorrowedView() {
        Work.Record = std::move(View);
        Work.Grids.size_grid = std::move(Sizes);
    }
    BorrowedView(const BorrowedView&) = delete;
    BorrowedView& operator=(const BorrowedView&) = delete;
    const TextGrid& Former_Sizes() const { return Sizes; }

  private:
    Workspace& Work;
    RecordView View;
    TextGrid Sizes;
};

}  // namespace

void Magnify(Workspace& workspace, int trace, double sample) {
    workspace.Record.Picking.MagnifiedTrace = trace;
    workspace.Record.Picking.MagnifiedSample = sample;
}

void Show_Magnifier(Workspace& workspace, Ports& ports) {
    RecordView& view = workspace.Record;
    const int trace = view.Picking.MagnifiedTrace;
    const double sample = view.Picking.MagnifiedSample;
    if (view.RecordWidth <= 0 || trace < view.WholeFirst || trace > view.WholeLast || !std::isfinite(sample))
        return;
    Picture& picture = ports.Show.Canvas_Of(Canvas::Magnifier);
    const std::int32_t former_first = view.FirstTrace;
    {
        const BorrowedView borrowed(workspace);
        const int height = std::clamp((view.LastSample - view.FirstSample) / share_of_height, least_samples,
                                      std::max(least_samples, int{view.NbSamples} - 1));
        const int last_begin = std::max(1, view.NbSamples - height);
        const int first_sample = std::clamp(static_cast<int>(sample) - height / 2, 1, last_begin);
        view.FirstTrace = std::max(view.WholeFirst, trace - traces_beside);
        view.LastTrace = std::min(view.WholeLast, trace + traces_beside);
        view.FirstSample = static_cast<std::int16_t>(first_sample);
        view.LastSample = static_cast<std::int16_t>(std::min(first_sample + height, view.NbSamples));
        view.Overdraw = false;
        view.ShowTravelTimes = false;
        const std::string path = Su_Path(workspace.Project);
        Measure_Record(workspace, picture.Current_Frame(), path);
        // The size factors belong to the traces, wherever they are drawn.
        TextGrid& sizes = workspace.Grids.size_grid;
        for (int row = 0; row < sizes.Rows(); ++row) {
            const int former = row + view.FirstTrace - former_first;
            sizes.Set_Text(
                row, 0,
                borrowed.Former_Sizes().Has(former, 0) ? borrowed.Former_Sizes().Text(former, 0) : "1");
        }
        Draw_Traces(workspace, picture, path);
    }
    const double axis = trace * trace_width + trace_width / 2 + 1;
    ports.Show.Show_Marks(Canvas::Magnifier, MarkLayer::Cursor,
                          {{.X1 = axis - trace_width / 2,
                            .Y1 = sample,
                            .X2 = axis + trace_width / 2,
                            .Y2 = sample,
                            .InColour = place_colour,
                            .Width = 1}});
}

}  // namespace tarnvik
