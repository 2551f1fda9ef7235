#include "interpretation/forward_check.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/text/number.h"
#include "output/report_model.h"
#include "records/trace_header.h"

namespace tarnvik {

namespace {

std::size_t At(int number) {
    return static_cast<std::size_t>(number) - 1;
}

/// Surface through receivers and shots. An offset shot whose elevation nobody entered stands as high as the
/// end of the line.
LineValues Ground_Line(const Project& project) {
    std::vector<LineValues::Knot> knots;
    for (const ReportPoint& point : Ground_Of(project))
        knots.push_back({point.X, point.Z});
    const double left = knots.empty() ? 0 : knots.front().X;
    const double right = knots.empty() ? 0 : knots.back().X;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        const double x = project.ShotDistance(shot);
        if ((x < left || x > right) && project.ShotElevation(shot) != 0)
            knots.push_back({x, project.ShotElevation(shot)});
    }
    return LineValues(std::move(knots));
}

std::optional<double> Root_Mean_Square(double squares, int count) {
    if (count == 0) return std::nullopt;
    return std::sqrt(squares / count);
}

void Compare(const Project& project, ForwardCheck& check) {
    double squares = 0;
    int count = 0;
    const auto shots = static_cast<std::size_t>(project.NbShots);
    const auto receivers = static_cast<std::size_t>(project.NbReceivers);
    std::vector<double> receiver_squares(receivers);
    std::vector<int> receiver_counts(receivers);
    check.Residuals.assign(shots, std::vector<std::optional<double>>(receivers));
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        double shot_squares = 0;
        int shot_count = 0;
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const double pick = project.ShotTimes(shot, receiver);
            const double time = check.Times[At(shot)][At(receiver)];
            if (pick <= 0 || time < 0) continue;
            const double residual = pick - time;
            check.Residuals[At(shot)][At(receiver)] = residual;
            shot_squares += residual * residual;
            ++shot_count;
            receiver_squares[At(receiver)] += residual * residual;
            ++receiver_counts[At(receiver)];
        }
        check.ShotRms.push_back(Root_Mean_Square(shot_squares, shot_count));
        squares += shot_squares;
        count += shot_count;
    }
    for (std::size_t i = 0; i < receivers; ++i)
        check.ReceiverRms.push_back(Root_Mean_Square(receiver_squares[i], receiver_counts[i]));
    check.Rms = Root_Mean_Square(squares, count);
}

}  // namespace

std::optional<LayeredSection> Section_Of_Line(const Project& project, SectionSource source) {
    const ReportModel model = Model_Of(project, source, InterfaceShape::Joined);
    if (model.Layers() < 2) return std::nullopt;
    LayeredSection section;
    section.Ground = Ground_Line(project);
    for (const ReportInterface& found : model.Interfaces) {
        std::vector<LineValues::Knot> knots;
        for (const ReportCurve& run : found.Runs) {
            for (const ReportPoint& point : run)
                knots.push_back({point.X, point.Z});
        }
        section.Interfaces.emplace_back(std::move(knots));
    }
    for (int layer = 1; layer <= model.Layers(); ++layer) {
        std::vector<LineValues::Knot> knots;
        for (const SectionPlace& place : model.Places) {
            const double velocity = place.Velocities[static_cast<std::size_t>(layer)];
            if (velocity > 0) knots.push_back({place.Distance, velocity});
        }
        if (knots.empty()) return std::nullopt;
        section.Velocities.emplace_back(std::move(knots));
    }
    return section;
}

ForwardCheck Check_Forward(const Project& project, SectionSource source, const ForwardProgress& progress) {
    ForwardCheck check;
    auto section = Section_Of_Line(project, source);
    if (!section) {
        check.Refusal = "The line has no depths by " + std::string(Method_Name(source)) +
                        ": compute them before their times are calculated";
        return check;
    }
    ForwardRequest request;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        const double x = project.ShotDistance(shot);
        request.Shots.push_back({x, section->Ground.At(x) - project.ShotDepth(shot)});
    }
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const double x = project.ReceiverData(ReceiverDistance, receiver);
        request.Receivers.push_back({x, section->Ground.At(x)});
    }
    request.Section = std::move(*section);
    ForwardResult result = First_Arrivals(request, progress);
    check.Stopped = result.Stopped;
    check.Times = std::move(result.Times);
    if (!check.Stopped) Compare(project, check);
    return check;
}

std::string Synthetic_Records(const Project& project, const ForwardCheck& check, int interval_us) {
    constexpr double pulse_hertz = 80;
    constexpr double centimetres = 100;  // of the coordinates
    constexpr double pi = 3.14159265358979323846;
    constexpr int most_samples = 32767;
    double latest = 0;
    for (const auto& times : check.Times) {
        for (const double time : times)
            latest = std::max(latest, time);
    }
    const double step = interval_us / 1000.0;
    const int samples = std::clamp(static_cast<int>(std::ceil(1.5 * latest / step)), 100, most_samples);
    std::string bytes;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const double shot_place = project.ShotDistance(shot);
            const double place = project.ReceiverData(ReceiverDistance, receiver);
            const double time = check.Times[At(shot)][At(receiver)];
            TraceHeader header;
            header.Set_Word(words::tracl, receiver);
            header.Set_Word(words::tracr, (shot - 1) * project.NbReceivers + receiver);
            header.Set_Word(words::fldr, shot);
            header.Set_Word(words::tracf, receiver);
            header.Set_Word(words::ep, shot);
            header.Set_Word(words::trid, live_trace);
            header.Set_Word(words::offset, Rounded(place - shot_place));
            header.Set_Word(words::scalco, -centimetres);
            header.Set_Word(words::scalel, -centimetres);
            header.Set_Word(words::counit, 1);
            header.Set_Word(words::sx, shot_place * centimetres);
            header.Set_Word(words::gx, place * centimetres);
            header.Set_Word(words::selev, project.ShotElevation(shot) * centimetres);
            header.Set_Word(words::gelev,
                            double{project.ReceiverData(ReceiverElevation, receiver)} * centimetres);
            header.Set_Word(words::sdepth, project.ShotDepth(shot) * centimetres);
            header.Set_Word(words::ns, samples);
            header.Set_Word(words::dt, interval_us);
            if (time > 0) header.Set_Word(words::First_Breaks, time * 10);
            bytes.append(header.Bytes.data(), header.Bytes.size());
            std::vector<float> trace(static_cast<std::size_t>(samples));
            for (int i = 0; time >= 0 && i < samples; ++i) {
                // Sample i, from 0, lies at (i + 1) steps, as picks are read.
                const double after = ((i + 1) * step - time) / 1000;  // s
                if (after <= 0) continue;
                const double phase = 2 * pi * pulse_hertz * after;
                trace[static_cast<std::size_t>(i)] =
                    static_cast<float>(std::sin(phase) * std::exp(-phase / 2));
            }
            const std::size_t begin = bytes.size();
            bytes.resize(begin + trace.size() * sizeof(float));
            std::memcpy(bytes.data() + begin, trace.data(), trace.size() * sizeof(float));
        }
    }
    return bytes;
}

}  // namespace tarnvik
