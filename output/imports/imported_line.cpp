#include "output/imports/imported_line.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/project_file.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

/// Places nearer than this are one: files hold millimetres at best.
constexpr double same_place = 0.0005;
/// Far beyond any line; a number above it is a fault of the file, and would not fit its columns.
constexpr double farthest = 1e6;
constexpr double latest = 1e5;  ///< ms

bool Is_Before(const ImportedPlace& one, const ImportedPlace& other) {
    return one.X < other.X;
}

/// Sorted along the line, each place once; the elevation of whichever has one.
std::vector<ImportedPlace> Sorted_Receivers(std::vector<ImportedPlace> receivers) {
    std::stable_sort(receivers.begin(), receivers.end(), Is_Before);
    std::vector<ImportedPlace> sorted;
    for (const ImportedPlace& receiver : receivers) {
        if (sorted.empty() || receiver.X - sorted.back().X > same_place) {
            sorted.push_back(receiver);
        } else if (!sorted.back().Z) {
            sorted.back().Z = receiver.Z;
        }
    }
    return sorted;
}

/// Elevation of a place between those that are known; beyond them that of the nearest, 0 without any.
double Interpolated(const std::vector<ImportedPlace>& known, double x) {
    if (known.empty()) return 0;
    const auto behind = std::lower_bound(known.begin(), known.end(), ImportedPlace{x, {}}, Is_Before);
    if (behind == known.begin()) return known.front().Z.value_or(0);
    if (behind == known.end()) return known.back().Z.value_or(0);
    const auto before = behind - 1;
    const double share = (x - before->X) / (behind->X - before->X);
    return before->Z.value_or(0) + share * (behind->Z.value_or(0) - before->Z.value_or(0));
}

/// To the hundredth that the project file holds. Filing takes the hundredths below, in single precision: some
/// round times need the next larger number so that they are still the same when they are read again.
float Time_As_Filed(double time) {
    const double hundredths = Rounded(time * 100);
    auto filed = static_cast<float>(hundredths / 100);
    while (std::floor(filed * file_time_scale) < hundredths)
        filed = std::nextafter(filed, std::numeric_limits<float>::max());
    return filed;
}

std::string Refusal_Of(const ImportedLine& line, std::size_t receivers) {
    if (!line.Refusal.empty()) return line.Refusal;
    if (line.Shots.empty()) return "The file holds no shot";
    if (receivers == 0) return "The file holds no receiver";
    constexpr std::size_t most = std::numeric_limits<std::int16_t>::max();
    if (line.Shots.size() > most || receivers > most ||
        static_cast<std::int64_t>(line.Shots.size() * receivers) > max_picks) {
        return "The file holds " + CStr(static_cast<double>(line.Shots.size())) + " shots and " +
               CStr(static_cast<double>(receivers)) + " receivers, more than a project can hold";
    }
    const auto too_far = [](const ImportedPlace& place) {
        return std::abs(place.X) > farthest || std::abs(place.Z.value_or(0)) > farthest;
    };
    for (const ImportedShot& shot : line.Shots) {
        if (too_far(shot.Place)) return "A shot at " + CStr(shot.Place.X) + " is too far away for a line";
        for (const ImportedShot::Pick& pick : shot.Picks)
            if (std::abs(pick.Time) > latest) return "A time of " + CStr(pick.Time) + " ms is no first break";
    }
    if (std::any_of(line.Receivers.begin(), line.Receivers.end(), too_far))
        return "A receiver is too far away for a line";
    return {};
}

/// Place of the end shots among shots sorted along the line: the nearest ones before and behind the
/// receivers; where all shots stand among them, the outermost.
void Find_End_Shots(const std::vector<ImportedShot>& shots, const std::vector<ImportedPlace>& receivers,
                    std::size_t& first, std::size_t& last) {
    first = 0;
    last = shots.size() - 1;
    for (std::size_t i = 0; i < shots.size(); ++i)
        if (shots[i].Place.X <= receivers.front().X + same_place) first = i;
    for (std::size_t i = shots.size(); i-- > 0;)
        if (shots[i].Place.X >= receivers.back().X - same_place) last = i;
    last = std::max(first, last);
}

void Fill_Picks(const ImportedShot& from, int shot, const std::vector<ImportedPlace>& receivers,
                Project& project, ImportReport& report) {
    for (const ImportedShot::Pick& pick : from.Picks) {
        const ImportedPlace wanted{pick.ReceiverX - same_place, {}};
        const auto found = std::lower_bound(receivers.begin(), receivers.end(), wanted, Is_Before);
        if (found == receivers.end()) continue;
        const int receiver = static_cast<int>(found - receivers.begin()) + 1;
        const std::string place = "Shot " + CStr(shot) + ", receiver " + CStr(receiver);
        const float time = Time_As_Filed(pick.Time);
        if (time <= 0) {
            report.LeftOut.push_back(place + ": the time of " + CStr(pick.Time) + " ms is no first break");
        } else if (project.ShotTimes(shot, receiver) != 0) {
            report.LeftOut.push_back(place + ": a second time of " + CStr(pick.Time) + " ms");
        } else {
            project.ShotTimes(shot, receiver) = time;
            ++report.Picks;
        }
    }
}

}  // namespace

ImportReport Project_Of_Line(const ImportedLine& line, Project& project) {
    ImportReport report;
    report.LeftOut = line.LeftOut;
    std::vector<ImportedPlace> receivers = line.Receivers;
    for (const ImportedShot& shot : line.Shots)
        for (const ImportedShot::Pick& pick : shot.Picks)
            receivers.push_back({pick.ReceiverX, {}});
    receivers = Sorted_Receivers(std::move(receivers));
    report.Refusal = Refusal_Of(line, receivers.size());
    if (!report.Refusal.empty()) return report;

    std::vector<ImportedShot> shots = line.Shots;
    std::stable_sort(shots.begin(), shots.end(), [](const ImportedShot& one, const ImportedShot& other) {
        return Is_Before(one.Place, other.Place);
    });
    std::size_t first = 0;
    std::size_t last = 0;
    Find_End_Shots(shots, receivers, first, last);
    const double shift = -shots[first].Place.X;
    std::vector<ImportedPlace> levelled;
    std::copy_if(receivers.begin(), receivers.end(), std::back_inserter(levelled),
                 [](const ImportedPlace& place) { return place.Z.has_value(); });

    project.NbShots = static_cast<std::int16_t>(shots.size());
    project.NbReceivers = static_cast<std::int16_t>(receivers.size());
    Redimension_Project(project);
    project.LineLength = shots[last].Place.X + shift;
    project.DistanceShift = shift == 0 ? 0 : shift;  // no minus sign on a zero
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const ImportedPlace& place = receivers[static_cast<std::size_t>(receiver) - 1];
        const double elevation = place.Z ? *place.Z : Interpolated(levelled, place.X);
        project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(place.X + shift);
        project.ReceiverData(ReceiverElevation, receiver) = static_cast<float>(elevation);
    }
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        const ImportedShot& from = shots[static_cast<std::size_t>(shot) - 1];
        project.ShotDistance(shot) = from.Place.X + shift;
        project.ShotElevation(shot) = from.Place.Z ? *from.Place.Z : Interpolated(levelled, from.Place.X);
        Fill_Picks(from, shot, receivers, project, report);
    }
    report.FirstEndShot = static_cast<int>(first) + 1;
    report.LastEndShot = static_cast<int>(last) + 1;
    return report;
}

}  // namespace tarnvik
