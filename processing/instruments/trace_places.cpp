#include "processing/instruments/trace_places.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <span>

#include "core/text/number.h"
#include "processing/instruments/field_reader.h"

namespace tarnvik {

namespace {

constexpr double held_to = 4e-4;  // units of length: whatever is told in thousandths comes back
constexpr int most_steps = 1000;

struct PlacedWord {
    int Word;
    std::optional<double> TracePlaces::*Place;  ///< none for a word that is only kept
};
constexpr std::array<PlacedWord, 4> coordinate_words = {{{words::sx, &TracePlaces::ShotX},
                                                         {words::sy, &TracePlaces::ShotY},
                                                         {words::gx, &TracePlaces::ReceiverX},
                                                         {words::gy, &TracePlaces::ReceiverY}}};
// Depths and datums from sdepth to the word before the scale share it with the elevations.
constexpr std::array<PlacedWord, 7> elevation_words = {{{words::gelev, &TracePlaces::ReceiverElevation},
                                                        {words::selev, &TracePlaces::ShotElevation},
                                                        {words::sdepth, nullptr},
                                                        {words::sdepth + 1, nullptr},
                                                        {words::sdepth + 2, nullptr},
                                                        {words::sdepth + 3, nullptr},
                                                        {words::sdepth + 4, nullptr}}};

double Scaled_Word(const TraceHeader& header, int word, int scale_word) {
    const double scale = header.Word(scale_word);
    if (scale > 0) return header.Word(word) * scale;
    return scale < 0 ? header.Word(word) / -scale : header.Word(word);
}

int Steps_Of(double value, int least) {
    int steps = least;
    while (steps < most_steps && std::abs(value * steps - std::round(value * steps)) > held_to * steps)
        steps *= 10;
    return steps;
}

void Refine_For(int& steps, const std::optional<double>& value) {
    if (value) steps = Steps_Of(*value, steps);
}

/// Writes the words of one scale word. False where the largest asks for coarser steps than given.
bool Put_Scaled(TraceHeader& header, std::span<const PlacedWord> row, int scale_word,
                const TracePlaces& places, int steps) {
    std::array<double, elevation_words.size()> values{};
    double largest = 0;
    bool given = false;
    // Never coarser than the header itself, so that all traces of a file go by one scale.
    for (const int former : {10, 100, 1000}) {
        if (header.Word(scale_word) == -former) steps = std::max(steps, former);
    }
    for (std::size_t i = 0; i < row.size(); ++i) {
        const auto place = row[i].Place != nullptr ? places.*row[i].Place : std::nullopt;
        given = given || place.has_value();
        values.at(i) = place.value_or(Scaled_Word(header, row[i].Word, scale_word));
        if (!place) steps = Steps_Of(values.at(i), steps);
        largest = std::max(largest, std::abs(values.at(i)));
    }
    if (!given) return true;
    bool fine = true;
    while (steps > 1 && largest * steps > std::numeric_limits<std::int32_t>::max()) {
        steps /= 10;
        fine = false;
    }
    for (std::size_t i = 0; i < row.size(); ++i)
        fine = header.Set_Word(row[i].Word, std::round(values.at(i) * steps)) && fine;
    header.Set_Word(scale_word, steps == 1 ? 1 : -steps);
    return fine;
}

}  // namespace

void Refine(PlaceSteps& steps, const TracePlaces& places) {
    for (const PlacedWord& word : coordinate_words)
        Refine_For(steps.Coordinates, places.*word.Place);
    Refine_For(steps.Elevations, places.ShotElevation);
    Refine_For(steps.Elevations, places.ReceiverElevation);
}

bool Put_Places(TraceHeader& header, const TracePlaces& places, PlaceSteps steps) {
    const bool shot_known = places.ShotX || header.Word(words::sx) != 0;
    const bool receiver_known = places.ReceiverX || header.Word(words::gx) != 0;
    bool fine = Put_Scaled(header, coordinate_words, words::scalco, places, steps.Coordinates);
    fine = Put_Scaled(header, elevation_words, words::scalel, places, steps.Elevations) && fine;
    if ((places.ShotX || places.ReceiverX) && shot_known && receiver_known) {
        // Signed along the line, as the receiver lies before or behind the shot.
        const double along =
            Scaled_Word(header, words::gx, words::scalco) - Scaled_Word(header, words::sx, words::scalco);
        const double across =
            Scaled_Word(header, words::gy, words::scalco) - Scaled_Word(header, words::sy, words::scalco);
        header.Set_Word(words::offset, std::copysign(std::hypot(along, across), along));
    }
    return fine;
}

void Lay_Over(TracePlaces& places, const TracePlaces& over) {
    const auto take = [&](std::optional<double> TracePlaces::*place) {
        if (over.*place) places.*place = over.*place;
    };
    for (const PlacedWord& word : coordinate_words)
        take(word.Place);
    take(&TracePlaces::ShotElevation);
    take(&TracePlaces::ReceiverElevation);
}

TracePlaces Places_In_Words(const TraceHeader& header) {
    TracePlaces places;
    for (const PlacedWord& word : coordinate_words)
        places.*word.Place = Scaled_Word(header, word.Word, words::scalco);
    places.ReceiverElevation = Scaled_Word(header, words::gelev, words::scalel);
    places.ShotElevation = Scaled_Word(header, words::selev, words::scalel);
    return places;
}

}  // namespace tarnvik
