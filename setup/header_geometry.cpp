#include "setup/header_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>

#include "core/text/number.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr double finest = 1000;  ///< places are told in thousandths of the length unit
constexpr double place_tolerance = 0.01;
constexpr double offset_tolerance = 1;  ///< `offset` holds whole units, rounded or cut
constexpr double crooked = 0.02;        ///< of the spread's length beside its axis
constexpr std::int16_t lengths = 1;  ///< `counit` of coordinates that are lengths; 0 where it is not filled

struct Place {
    double X = 0;
    double Y = 0;
};

double Fine(double value) {
    const double rounded = std::round(value * finest) / finest;
    return rounded == 0 ? 0 : rounded;  // no minus 0
}

/// The middle value, the lower one of two; 0 of none.
double Median(std::vector<double> values) {
    if (values.empty()) return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// The traces with their place in records and channels, both from 0.
class Records {
  public:
    Records(std::span<const PlaceWords> traces, int channels)
        : All(traces), Width(static_cast<std::size_t>(channels)) {}
    std::size_t Count() const { return (All.size() + Width - 1) / Width; }
    std::size_t Channels() const { return Width; }
    /// Channels that any record has: fewer in a file of a single short record.
    std::size_t Filled_Channels() const { return std::min(Width, All.size()); }
    std::span<const PlaceWords> Record(std::size_t record) const {
        return All.subspan(record * Width, std::min(Width, All.size() - record * Width));
    }
    template <class Test>
    bool Any(Test test) const {
        return std::any_of(All.begin(), All.end(), test);
    }
    template <class Value>
    double Middle_Of_Record(std::size_t record, Value value) const {
        std::vector<double> values;
        for (const PlaceWords& trace : Record(record))
            values.push_back(value(trace));
        return Median(std::move(values));
    }
    template <class Value>
    double Middle_Of_Channel(std::size_t channel, Value value) const {
        std::vector<double> values;
        for (std::size_t at = channel; at < All.size(); at += Width)
            values.push_back(value(All[at]));
        return Median(std::move(values));
    }
    std::span<const PlaceWords> All;

  private:
    std::size_t Width;
};

double Receiver_X(const PlaceWords& trace) {
    return Scaled(trace.gx, trace.scalco);
}
double Receiver_Y(const PlaceWords& trace) {
    return Scaled(trace.gy, trace.scalco);
}
double Shot_X(const PlaceWords& trace) {
    return Scaled(trace.sx, trace.scalco);
}
double Shot_Y(const PlaceWords& trace) {
    return Scaled(trace.sy, trace.scalco);
}

/// The straight line of the spread: from geophone 1 towards the last one.
struct Axis {
    Place Start;
    double AlongX = 1;
    double AlongY = 0;
    double Along(double x, double y) const { return (x - Start.X) * AlongX + (y - Start.Y) * AlongY; }
    double Beside(double x, double y) const {
        return std::abs((y - Start.Y) * AlongX - (x - Start.X) * AlongY);
    }
};

Axis Axis_Of(const Records& records) {
    // Middle values over the records: single traces may not be filled.
    Axis axis{{records.Middle_Of_Channel(0, Receiver_X), records.Middle_Of_Channel(0, Receiver_Y)}};
    const std::size_t last = records.Filled_Channels() - 1;
    const double x = records.Middle_Of_Channel(last, Receiver_X) - axis.Start.X;
    const double y = records.Middle_Of_Channel(last, Receiver_Y) - axis.Start.Y;
    const double length = std::hypot(x, y);
    if (length > 0) {
        axis.AlongX = x / length;
        axis.AlongY = y / length;
    }
    return axis;
}

/// Steps from channel to channel inside the records.
std::vector<double> Steps(const Records& records, const std::function<double(const PlaceWords&)>& place) {
    std::vector<double> steps;
    for (std::size_t record = 0; record < records.Count(); ++record) {
        const auto traces = records.Record(record);
        for (std::size_t i = 1; i < traces.size(); ++i)
            steps.push_back(place(traces[i]) - place(traces[i - 1]));
    }
    return steps;
}

/// Where the shot of a record lies when only the distances from it are known. They may bear a sign (geophone
/// less shot) or not: of the places that fit the first trace the one is taken that fits all.
double Shot_By_Offsets(std::span<const PlaceWords> traces, std::span<const double> receivers,
                       const std::function<double(const PlaceWords&)>& offset) {
    const double first = std::abs(offset(traces.front()));
    double best = receivers.front() - offset(traces.front());
    double least = HUGE_VAL;
    for (const double shot : {best, receivers.front() - first, receivers.front() + first}) {
        double misfit = 0;
        for (std::size_t i = 0; i < traces.size() && i < receivers.size(); ++i)
            misfit += std::abs(std::abs(offset(traces[i])) - std::abs(receivers[i] - shot));
        if (misfit + place_tolerance < least) {
            least = misfit;
            best = shot;
        }
    }
    return best;
}

std::string With_Scale(std::string words, const Records& records) {
    const bool scaled = records.Any([](const PlaceWords& t) { return t.scalco != 0 && t.scalco != 1; });
    return scaled ? words + ", scalco" : words;
}

/// Geophone stations: those of the channels, or of a spread that moves all that any record has.
void Take_Receivers(const Records& records, const Axis& axis, bool with_y, HeaderGeometry& geometry) {
    const auto along = [&axis](const PlaceWords& t) { return axis.Along(Receiver_X(t), Receiver_Y(t)); };
    const double spacing = Fine(std::abs(Median(Steps(records, along))));
    if (!(spacing > 0)) return;
    geometry.Spacing = spacing;
    geometry.SpacingWords = With_Scale(with_y ? "gx, gy" : "gx", records);
    std::size_t moved = 0;
    for (std::size_t channel = 0; channel < records.Filled_Channels(); ++channel) {
        const double middle = records.Middle_Of_Channel(channel, along);
        geometry.ReceiverPlaces.push_back(Fine(middle));
        std::size_t away = 0;
        for (std::size_t at = channel; at < records.All.size(); at += records.Channels())
            if (std::abs(along(records.All[at]) - middle) > spacing / 2) ++away;
        if (away * 4 > records.Count()) ++moved;
    }
    geometry.SpreadMoves = moved * 2 > records.Channels();
    if (geometry.SpreadMoves) {
        geometry.ReceiverPlaces.clear();
        std::vector<double> places;
        for (const PlaceWords& trace : records.All)
            places.push_back(Fine(along(trace)));
        std::sort(places.begin(), places.end());
        for (const double place : places) {
            if (geometry.ReceiverPlaces.empty() || place - geometry.ReceiverPlaces.back() > spacing / 4)
                geometry.ReceiverPlaces.push_back(place);
        }
        geometry.Remarks.emplace_back(
            "The spread moves along the line: " + CStr(static_cast<int>(geometry.ReceiverPlaces.size())) +
            " stations by gx. Picks find their station by tracl of the first trace of each record (Multi "
            "spread profile).");
    }
    double narrowest = spacing;
    double widest = spacing;
    for (std::size_t i = 1; i < geometry.ReceiverPlaces.size(); ++i) {
        const double step = geometry.ReceiverPlaces[i] - geometry.ReceiverPlaces[i - 1];
        narrowest = std::min(narrowest, step);
        widest = std::max(widest, step);
    }
    geometry.Even = widest - narrowest <= 2 * place_tolerance;
    if (!geometry.Even) {
        geometry.Remarks.emplace_back("The geophones do not stand evenly: steps of " + CStr(Fine(narrowest)) +
                                      " to " + CStr(Fine(widest)) + " by gx.");
    }
}

/// Only distances are known: the geophones stand evenly.
void Take_Receivers_By_Offset(const Records& records, HeaderGeometry& geometry) {
    std::vector<double> steps = Steps(records, [](const PlaceWords& t) { return double(t.offset); });
    for (double& step : steps)
        step = std::abs(step);
    const double spacing = Median(std::move(steps));
    if (!(spacing > 0)) return;
    geometry.Spacing = spacing;
    geometry.SpacingWords = "offset";
    for (std::size_t channel = 0; channel < records.Filled_Channels(); ++channel)
        geometry.ReceiverPlaces.push_back(static_cast<double>(channel) * spacing);
}

/// From geophone 1 to end shot 1: places become distances from there.
void Refer_To_End_Shots(HeaderGeometry& geometry) {
    std::vector<double>& shots = geometry.ShotPlaces;
    const double first = geometry.ReceiverPlaces.front();
    const double last = geometry.ReceiverPlaces.back();
    const auto [lowest, highest] = std::minmax_element(shots.begin(), shots.end());
    double left = *lowest;
    double right = *highest;
    for (const double shot : shots) {
        if (shot < first) left = std::max(left, shot);
        if (shot > last) right = std::min(right, shot);
    }
    const bool several = right > left;
    geometry.Offsets = several && shots.front() < left && shots.back() > right;
    if (several) geometry.LineLength = Fine(right - left);
    geometry.FirstDistance = Fine(first - left);
    if (!std::is_sorted(shots.begin(), shots.end())) {
        geometry.Remarks.emplace_back(
            "The records do not stand in the order of their shots along the line; the shots are numbered as "
            "the records stand.");
    }
    for (double& shot : shots)
        shot = Fine(shot - left);
    for (double& receiver : geometry.ReceiverPlaces)
        receiver = Fine(receiver - left);
}

void Take_Shots(const Records& records, const Axis& axis, bool with_y, HeaderGeometry& geometry) {
    const bool coordinates = geometry.SpacingWords != "offset";
    const bool sources =
        coordinates && records.Any([](const PlaceWords& t) { return t.sx != 0 || t.sy != 0; });
    const bool distances = records.Any([](const PlaceWords& t) { return t.offset != 0; });
    if (geometry.ReceiverPlaces.empty() || (!sources && !distances)) return;
    const auto offset = [](const PlaceWords& t) { return double(t.offset); };
    for (std::size_t record = 0; record < records.Count(); ++record) {
        const auto traces = records.Record(record);
        if (sources) {
            geometry.ShotPlaces.push_back(records.Middle_Of_Record(
                record, [&axis](const PlaceWords& t) { return axis.Along(Shot_X(t), Shot_Y(t)); }));
            continue;
        }
        std::vector<double> receivers;
        for (std::size_t i = 0; i < traces.size(); ++i) {
            receivers.push_back(coordinates ? axis.Along(Receiver_X(traces[i]), Receiver_Y(traces[i]))
                                            : geometry.ReceiverPlaces[i]);
        }
        geometry.ShotPlaces.push_back(Shot_By_Offsets(traces, receivers, offset));
    }
    geometry.ShotWords = sources       ? With_Scale(with_y ? "sx, sy" : "sx", records)
                         : coordinates ? With_Scale("gx, offset", records)
                                       : "offset";
    geometry.FirstDistanceWords =
        sources ? With_Scale(with_y ? "gx, gy, sx, sy" : "gx, sx", records) : geometry.ShotWords;
    Refer_To_End_Shots(geometry);
}

void Take_Elevations(const Records& records, const Axis& axis, HeaderGeometry& geometry) {
    const bool scaled = records.Any([](const PlaceWords& t) { return t.scalel != 0 && t.scalel != 1; });
    const std::string scale = scaled ? ", scalel" : "";
    if (records.Any([](const PlaceWords& t) { return t.selev != 0; })) {
        geometry.ElevationWords = "selev" + scale;
        for (std::size_t record = 0; record < records.Count(); ++record) {
            geometry.ShotElevations.push_back(Fine(records.Middle_Of_Record(
                record, [](const PlaceWords& t) { return Scaled(t.selev, t.scalel); })));
        }
    }
    if (records.Any([](const PlaceWords& t) { return t.sdepth != 0; })) {
        geometry.DepthWords = "sdepth" + scale;
        double sum = 0;
        for (const PlaceWords& trace : records.All)
            sum += Scaled(trace.sdepth, trace.scalel);
        geometry.ShotDepth = Fine(sum / static_cast<double>(records.All.size()));
    }
    if (!records.Any([](const PlaceWords& t) { return t.gelev != 0; })) return;
    const auto elevation = [](const PlaceWords& t) { return Scaled(t.gelev, t.scalel); };
    geometry.ReceiverElevationWords = "gelev" + scale;
    if (!geometry.SpreadMoves) {
        for (std::size_t channel = 0; channel < records.Filled_Channels(); ++channel)
            geometry.ReceiverElevations.push_back(Fine(records.Middle_Of_Channel(channel, elevation)));
        return;
    }
    const double reference = geometry.ReceiverPlaces.front();
    double least = HUGE_VAL;
    for (const PlaceWords& trace : records.All)
        least = std::min(least, axis.Along(Receiver_X(trace), Receiver_Y(trace)));
    for (const double station : geometry.ReceiverPlaces) {
        std::vector<double> here;
        for (const PlaceWords& trace : records.All) {
            const double place = axis.Along(Receiver_X(trace), Receiver_Y(trace)) - least + reference;
            if (std::abs(place - station) <= *geometry.Spacing / 4) here.push_back(elevation(trace));
        }
        geometry.ReceiverElevations.push_back(Fine(Median(std::move(here))));
    }
}

/// `offset` against the coordinates, where both are filled; in whole units, or scaled as the coordinates are.
void Compare_Offsets(const Records& records, HeaderGeometry& geometry) {
    if (!records.Any([](const PlaceWords& t) { return t.offset != 0; })) return;
    int differing = 0;
    std::string first;
    int number = 0;
    for (const PlaceWords& t : records.All) {
        ++number;
        const double distance = std::hypot(Receiver_X(t) - Shot_X(t), Receiver_Y(t) - Shot_Y(t));
        const double offset = std::abs(static_cast<double>(t.offset));
        if (std::abs(offset - distance) <= offset_tolerance ||
            std::abs(std::abs(Scaled(t.offset, t.scalco)) - distance) <= place_tolerance)
            continue;
        if (differing++ == 0) {
            first = "trace " + CStr(number) + ": offset " + CStr(t.offset) + ", by coordinates " +
                    CStr(Fine(distance));
        }
    }
    if (differing == 0) return;
    geometry.Remarks.emplace_back("offset does not agree with gx - sx on " + CStr(differing) + " of " +
                                  CStr(number) + " traces (" + first + "); the coordinates are taken.");
}

/// One shot and one field record a record.
void Look_At_Records(const Records& records, HeaderGeometry& geometry) {
    for (std::size_t record = 0; record < records.Count(); ++record) {
        const auto traces = records.Record(record);
        const auto told = [&](const char* word) {
            geometry.Remarks.emplace_back(std::string(word) + " changes inside record " +
                                          CStr(static_cast<int>(record) + 1) + ".");
        };
        const auto changes = [&](auto value) {
            return std::any_of(traces.begin(), traces.end(),
                               [&](const PlaceWords& t) { return value(t) != value(traces.front()); });
        };
        if (changes([](const PlaceWords& t) { return t.fldr; })) return told("fldr");
        if (changes([](const PlaceWords& t) { return Shot_X(t); })) return told("sx");
    }
}

}  // namespace

double Scaled(std::int32_t word, std::int16_t scale) {
    if (scale > 0) return static_cast<double>(word) * scale;
    if (scale < 0) return static_cast<double>(word) / -static_cast<double>(scale);
    return word;
}

std::vector<PlaceWords> Read_Place_Words(SuTraces& file) {
    std::vector<PlaceWords> traces;
    const std::int32_t count = file.Nb_Traces().value_or(0);
    for (std::int32_t trace = 1; trace <= count; ++trace) {
        if (!file.Word(trace, words::counit)) break;  // the rest of the count has no header in the file
        const auto word = [&file, trace](int number) {
            return static_cast<std::int32_t>(file.Word_Or_Zero(trace, number));
        };
        const auto short_word = [&word](int number) { return static_cast<std::int16_t>(word(number)); };
        traces.push_back({.fldr = word(words::fldr),
                          .tracf = word(words::tracf),
                          .offset = word(words::offset),
                          .gelev = word(words::gelev),
                          .selev = word(words::selev),
                          .sdepth = word(words::sdepth),
                          .scalel = short_word(words::scalel),
                          .scalco = short_word(words::scalco),
                          .sx = word(words::sx),
                          .sy = word(words::sy),
                          .gx = word(words::gx),
                          .gy = word(words::gy),
                          .counit = short_word(words::counit)});
    }
    return traces;
}

HeaderGeometry Geometry_Of_Headers(std::span<const PlaceWords> traces, int channels) {
    HeaderGeometry geometry;
    if (channels < 1 || traces.empty()) return geometry;
    const Records records(traces, channels);
    const Axis axis = Axis_Of(records);
    const PlaceWords& first = traces.front();
    const bool angles = records.Any([](const PlaceWords& t) { return t.counit != 0 && t.counit != lengths; });
    if (angles) geometry.Remarks.emplace_back("The coordinates are angles (counit); they are not used.");
    const bool placed = !angles && records.Any([&first](const PlaceWords& t) {
        return t.gx != first.gx || t.gy != first.gy;
    });
    const bool with_y = records.Any(
        [&first](const PlaceWords& t) { return t.gy != first.gy || (t.sy != 0 && t.sy != first.gy); });
    if (placed) {
        Take_Receivers(records, axis, with_y, geometry);
    } else {
        Take_Receivers_By_Offset(records, geometry);
    }
    Take_Shots(records, axis, with_y, geometry);
    Take_Elevations(records, axis, geometry);
    if (geometry.ShotWords.starts_with("sx")) Compare_Offsets(records, geometry);
    if (geometry.Empty()) return geometry;
    Look_At_Records(records, geometry);
    double beside = 0;
    for (const PlaceWords& t : traces)
        beside = std::max(beside, placed ? axis.Beside(Receiver_X(t), Receiver_Y(t)) : 0);
    const double length = geometry.ReceiverPlaces.empty()
                              ? 0
                              : geometry.ReceiverPlaces.back() - geometry.ReceiverPlaces.front();
    if (beside > crooked * length && beside > place_tolerance) {
        geometry.Remarks.emplace_back("The geophones stand up to " + CStr(Fine(beside)) +
                                      " beside a straight line; distances are along it.");
    }
    return geometry;
}

}  // namespace tarnvik
