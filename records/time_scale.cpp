#include <cstdlib>

#include "core/ports/picture.h"
#include "core/text/number.h"
#include "records/record_display.h"

namespace tarnvik {

namespace {

constexpr int samples_after_tick = 15;

/// True when the number's text ends in "00" or, on a finer scale, in "50". A bare 0 does not.
bool Ends_Round(int ms, bool fine) {
    const int size = std::abs(ms);
    return size >= (fine ? 50 : 100) && size % (fine ? 50 : 100) == 0;
}

}  // namespace

void Draw_Time_Scale(const RecordView& view, Picture& echelle3) {
    if (view.LastSample == 0) return;
    echelle3.Clear();
    echelle3.Scale(0, view.FirstSample, 4, view.LastSample);
    echelle3.Set_Font_Size(7);
    if (view.SampleInterval == 0) return;
    const double interval = view.SampleInterval / 1000.0;
    const bool fine = (view.LastSample - view.FirstSample) * interval <= 500;
    for (int n = view.FirstSample; n <= view.LastSample;) {
        const auto ms = CInt(n * interval);
        if (!ms || !Ends_Round(*ms, fine)) {
            ++n;
            continue;
        }
        echelle3.Line(1, n, 3, n, colours::Grey);
        echelle3.Print_At(3, n - samples_after_tick, CStr(int{*ms}) + "ms", colours::Grey);
        // Several samples may round to the same time; one tick is enough.
        n += samples_after_tick;
    }
}

}  // namespace tarnvik
