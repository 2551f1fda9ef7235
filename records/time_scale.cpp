#include <algorithm>
#include <cmath>

#include "core/ports/picture.h"
#include "core/text/number.h"
#include "records/axis_steps.h"
#include "records/record_display.h"

namespace tarnvik {

namespace {

constexpr double lines_apart = 2.5;      ///< named ticks, in lines of text
constexpr double text_at = 3.3;          ///< a little behind the tick, which ends at 3
constexpr double small_ticks_apart = 4;  ///< pixels

/// Parts that a step is cut into by small ticks: fifths, and quarters of a step of 2.
int Parts_Of(double step) {
    const double leading = step / std::pow(10, std::floor(std::log10(step) + 1e-9));
    return std::abs(leading - 2) < 0.5 ? 4 : 5;
}

}  // namespace

double Round_Step(double least) {
    if (!(least > 0) || !std::isfinite(least)) return 0;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double leading : {1.0, 2.0, 5.0}) {
        if (leading * power >= least * (1 - 1e-9)) return leading * power;
    }
    return 10 * power;
}

std::vector<double> Multiples(double first, double last, double step) {
    constexpr double most = 10'000;
    std::vector<double> all;
    if (!(step > 0) || !((last - first) / step <= most)) return all;
    const double begin = std::ceil(first / step - 1e-6);
    for (double count = begin; count <= last / step + 1e-6; ++count)
        all.push_back(count * step);
    return all;
}

TimeTicks::TimeTicks(const RecordView& view, const Picture& picture) {
    const double interval = view.SampleInterval / 1000.0;
    const double pixels = picture.Current_Frame().Height;
    const double span = (view.LastSample - view.FirstSample) * interval;
    if (!(interval > 0) || !(pixels > 0) || !(span > 0)) return;
    const double ms_a_pixel = span / pixels;
    const double step = Round_Step(lines_apart * picture.Size_Of("0").Height * ms_a_pixel);
    const auto ticks = [&](double apart) {
        std::vector<TimeTick> found;
        for (const double ms : Multiples(view.FirstSample * interval, view.LastSample * interval, apart))
            found.push_back({ms, ms / interval});
        return found;
    };
    if (step <= 0) return;
    Named = ticks(step);
    const double part = step / Parts_Of(step);
    if (part / ms_a_pixel >= small_ticks_apart) Between = ticks(part);
}

void Draw_Time_Scale(const RecordView& view, Picture& echelle3) {
    if (view.LastSample == 0) return;
    echelle3.Clear();
    echelle3.Scale(0, view.FirstSample, 4, view.LastSample);
    echelle3.Set_Font_Size(scale_font);
    const Frame frame = echelle3.Current_Frame();
    const TimeTicks ticks(view, echelle3);
    for (const TimeTick& tick : ticks.Between)
        echelle3.Line(2, tick.Sample, 3, tick.Sample, colours::Grey);
    for (const TimeTick& tick : ticks.Named) {
        echelle3.Line(1, tick.Sample, 3, tick.Sample, colours::Grey);
        const double top = frame.To_World_Y(frame.To_Pixel_Y(tick.Sample) - echelle3.Size_Of("0").Height / 2);
        echelle3.Print_At(text_at, top, CStr(tick.Ms) + "ms", colours::Grey);
    }
}

}  // namespace tarnvik
