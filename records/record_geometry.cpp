#include "records/record_geometry.h"

#include <algorithm>
#include <cmath>

#include "core/text/number.h"
#include "records/record_files.h"

namespace tarnvik {

namespace {

/// A project that was begun without distances has none: all its receivers would stand at one place.
bool Has_Distances(const Project& project) {
    return project.LineLength != 0 || project.NbReceivers == 1;
}

double Axis(std::int64_t trace) {
    return static_cast<double>(trace) * trace_width + trace_width / 2.0;
}

}  // namespace

std::string Length_Text(double length) {
    return CStr(Rounded(length * 100) / 100);
}

std::optional<double> RecordGeometry::Receiver_Distance(std::int64_t trace) const {
    const Project& project = Work.Project;
    const auto place = Place(trace);
    if (!place || place->Receiver < 1 || place->Receiver > project.NbReceivers ||
        !project.ReceiverData.Has(ReceiverDistance, place->Receiver) || !Has_Distances(project)) {
        return std::nullopt;
    }
    return project.ReceiverData(ReceiverDistance, place->Receiver);
}

std::optional<double> RecordGeometry::Shot_Distance(std::int64_t trace) const {
    const Project& project = Work.Project;
    const auto place = Place(trace);
    if (!place || place->Shot < 1 || place->Shot > project.NbShots ||
        !project.ShotDistance.Has(place->Shot) || !Has_Distances(project)) {
        return std::nullopt;
    }
    return project.ShotDistance(place->Shot);
}

std::optional<double> RecordGeometry::Offset(std::int64_t trace) const {
    const auto receiver = Receiver_Distance(trace);
    const auto shot = Shot_Distance(trace);
    if (!receiver || !shot) return std::nullopt;
    return *receiver - *shot;
}

std::optional<ShotMark> RecordGeometry::Shot_Of_Traces(std::int64_t first, std::int64_t last) const {
    const auto shot = Shot_Distance(first);
    if (!shot) return std::nullopt;
    struct Station {
        double X;
        double Distance;
    };
    std::vector<Station> stations;
    for (std::int64_t trace = first; trace <= last; ++trace) {
        if (const auto distance = Receiver_Distance(trace)) stations.push_back({Axis(trace), *distance});
    }
    if (stations.size() < 2) return std::nullopt;
    ShotMark mark{Place(first)->Shot, *shot, 0, 0};
    const auto place_between = [&](const Station& a, const Station& b) {
        return a.X + (*shot - a.Distance) / (b.Distance - a.Distance) * (b.X - a.X);
    };
    for (std::size_t i = 0; i + 1 < stations.size(); ++i) {
        const Station& a = stations[i];
        const Station& b = stations[i + 1];
        if (a.Distance == b.Distance || (a.Distance - *shot) * (b.Distance - *shot) > 0) continue;
        mark.X = place_between(a, b);
        return mark;
    }
    // Beyond the receivers: carried on with the spacing of the nearer end.
    const bool at_front =
        std::abs(stations.front().Distance - *shot) <= std::abs(stations.back().Distance - *shot);
    const Station& a = at_front ? stations[0] : stations[stations.size() - 2];
    const Station& b = at_front ? stations[1] : stations.back();
    if (a.Distance == b.Distance) return std::nullopt;
    const auto left = static_cast<double>(first) * trace_width;
    const auto right = static_cast<double>(last + 1) * trace_width;
    const double x = place_between(a, b);
    mark.Beyond = x < left ? -1 : x > right ? 1 : 0;
    mark.X = std::clamp(x, left, right);
    return mark;
}

std::vector<ShotMark> RecordGeometry::Shots(std::int64_t first, std::int64_t last) const {
    std::vector<ShotMark> all;
    while (first <= last) {
        const std::int64_t end =
            Spread.Channels() > 0 ? std::min(last, Spread.Last_Trace(Spread.Record_Of(first))) : last;
        if (const auto mark = Shot_Of_Traces(first, end)) all.push_back(*mark);
        if (end < first) break;
        first = end + 1;
    }
    return all;
}

}  // namespace tarnvik
