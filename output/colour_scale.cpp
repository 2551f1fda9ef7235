#include "output/colour_scale.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr std::size_t most_steps = 10'000;
constexpr int full = 255;

struct NamedColour {
    std::string_view Name;
    Colour InColour;
};

constexpr std::array named_colours = {
    NamedColour{"black", Rgb(0, 0, 0)},
    NamedColour{"white", Rgb(255, 255, 255)},
    NamedColour{"red", Rgb(255, 0, 0)},
    NamedColour{"green", Rgb(0, 255, 0)},
    NamedColour{"blue", Rgb(0, 0, 255)},
    NamedColour{"cyan", Rgb(0, 255, 255)},
    NamedColour{"magenta", Rgb(255, 0, 255)},
    NamedColour{"yellow", Rgb(255, 255, 0)},
    NamedColour{"orange", Rgb(255, 165, 0)},
    NamedColour{"brown", Rgb(153, 76, 0)},
    NamedColour{"purple", Rgb(128, 0, 128)},
    NamedColour{"violet", Rgb(153, 0, 204)},
    NamedColour{"pink", Rgb(255, 192, 203)},
    NamedColour{"gold", Rgb(255, 215, 0)},
    NamedColour{"olive", Rgb(128, 128, 0)},
    NamedColour{"navy", Rgb(0, 0, 128)},
    NamedColour{"navyblue", Rgb(0, 0, 128)},
    NamedColour{"darkblue", Rgb(0, 0, 139)},
    NamedColour{"lightblue", Rgb(173, 216, 230)},
    NamedColour{"skyblue", Rgb(135, 206, 235)},
    NamedColour{"royalblue", Rgb(65, 105, 225)},
    NamedColour{"turquoise", Rgb(64, 224, 208)},
    NamedColour{"teal", Rgb(0, 128, 128)},
    NamedColour{"darkgreen", Rgb(0, 100, 0)},
    NamedColour{"lightgreen", Rgb(144, 238, 144)},
    NamedColour{"forestgreen", Rgb(34, 139, 34)},
    NamedColour{"grassgreen", Rgb(102, 204, 0)},
    NamedColour{"lime", Rgb(191, 255, 0)},
    NamedColour{"limegreen", Rgb(50, 205, 50)},
    NamedColour{"darkred", Rgb(139, 0, 0)},
    NamedColour{"maroon", Rgb(128, 0, 0)},
    NamedColour{"crimson", Rgb(220, 20, 60)},
    NamedColour{"salmon", Rgb(250, 128, 114)},
    NamedColour{"coral", Rgb(255, 127, 80)},
    NamedColour{"tan", Rgb(210, 180, 140)},
    NamedColour{"beige", Rgb(245, 245, 220)},
    NamedColour{"sand", Rgb(244, 217, 150)},
    NamedColour{"khaki", Rgb(240, 230, 140)},
    NamedColour{"gray", Rgb(128, 128, 128)},
    NamedColour{"grey", Rgb(128, 128, 128)},
    NamedColour{"darkgray", Rgb(96, 96, 96)},
    NamedColour{"lightgray", Rgb(192, 192, 192)},
    NamedColour{"paleyellow", Rgb(255, 255, 153)},
    NamedColour{"lightyellow", Rgb(255, 255, 204)},
    NamedColour{"darkyellow", Rgb(204, 204, 0)},
    NamedColour{"indigo", Rgb(75, 0, 130)},
    NamedColour{"lavender", Rgb(230, 230, 250)},
};

/// The fields of a line: separated by blanks, a text in double quotes counts as one, a single quote begins a
/// comment.
std::vector<std::string> Fields_Of(std::string_view line) {
    std::vector<std::string> fields;
    std::size_t at = 0;
    const auto blank = [](char letter) { return letter == ' ' || letter == '\t' || letter == '\r'; };
    while (at < line.size()) {
        if (blank(line[at])) {
            ++at;
        } else if (line[at] == '\'') {
            break;
        } else if (line[at] == '"') {
            const std::size_t end = std::min(line.find('"', at + 1), line.size());
            fields.emplace_back(line.substr(at + 1, end - at - 1));
            at = end + 1;
        } else {
            std::size_t end = at;
            while (end < line.size() && !blank(line[end]))
                ++end;
            fields.emplace_back(line.substr(at, end - at));
            at = end;
        }
    }
    return fields;
}

bool Is_Number(const std::string& text) {
    if (text.empty() || text.find_first_not_of("0123456789+-.eE") != std::string::npos) return false;
    return Number_In(text).has_value() && text.find_first_of("0123456789") != std::string::npos;
}

std::string In_Line(std::size_t line) {
    return " in line " + CStr(static_cast<int>(line));
}

/// The lines behind the first word, with their numbers in the file.
struct Line {
    std::size_t Number = 0;
    std::vector<std::string> Fields;
};

std::vector<Line> Lines_Of(std::string_view bytes) {
    std::vector<Line> lines;
    std::size_t number = 0;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        ++number;
        std::vector<std::string> fields = Fields_Of(bytes.substr(0, end));
        if (!fields.empty()) lines.push_back({number, std::move(fields)});
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return lines;
}

Colour Between(Colour from, Colour to, double share) {
    const auto part = [&](int shift) {
        const int a = (from >> shift) & full;
        const int b = (to >> shift) & full;
        return static_cast<int>(std::lround(a + (b - a) * share)) << shift;
    };
    return part(0) | part(8) | part(16);
}

/// The colour that fills above a level: at the place that the format gives it; where a number stands there,
/// the second colour of the line, behind that of the contour.
std::optional<Colour> Fill_Of(const std::vector<std::string>& fields, std::size_t place) {
    if (fields.size() > place && !Is_Number(fields[place])) return Named_Colour(fields[place]);
    std::vector<Colour> found;
    for (const std::string& field : fields) {
        if (const auto colour = Named_Colour(field)) found.push_back(*colour);
    }
    if (found.empty()) return std::nullopt;
    return found[found.size() > 1 ? 1 : 0];
}

ColourScaleReading Read_Levels(const std::vector<Line>& lines, std::size_t place) {
    std::vector<ColourScale::Step> steps;
    std::vector<bool> coloured;
    for (const Line& line : lines) {
        if (!Is_Number(line.Fields.front())) return {{}, "no velocity" + In_Line(line.Number)};
        const bool bare = line.Fields.size() == 1;
        const auto fill = Fill_Of(line.Fields, place);
        if (!bare && !fill) return {{}, "no colour" + In_Line(line.Number)};
        steps.push_back({Val(line.Fields.front()), fill.value_or(0)});
        coloured.push_back(!bare);
    }
    const ColourScale even = Even_Scale(even_colours, static_cast<double>(steps.size()) - 1);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (!coloured[i]) steps[i].InColour = even.Of(static_cast<double>(i));
    }
    return {ColourScale(std::move(steps), true), ""};
}

ColourScaleReading Read_Colour_Map(const std::vector<Line>& lines, double max_velocity) {
    constexpr double per_cents = 100;
    std::vector<ColourScale::Step> steps;
    for (const Line& line : lines) {
        std::array<double, 4> values{};
        if (line.Fields.size() < values.size()) return {{}, "too few numbers" + In_Line(line.Number)};
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (!Is_Number(line.Fields[i])) return {{}, "no number" + In_Line(line.Number)};
            values[i] = Val(line.Fields[i]);
            const double most = i == 0 ? per_cents : full;
            if (values[i] < 0 || values[i] > most)
                return {{}, "a number beyond its range" + In_Line(line.Number)};
        }
        const auto part = [&values](std::size_t i) { return static_cast<int>(std::lround(values[i])); };
        steps.push_back({values[0] / per_cents * max_velocity, Rgb(part(1), part(2), part(3))});
    }
    return {ColourScale(std::move(steps), false), ""};
}

}  // namespace

ColourScale::ColourScale(std::vector<Step> steps, bool in_bands)
    : Rising(std::move(steps)), InBands(in_bands) {
    std::stable_sort(Rising.begin(), Rising.end(),
                     [](const Step& a, const Step& b) { return a.Velocity < b.Velocity; });
}

Colour ColourScale::Of(double velocity) const {
    if (Rising.empty()) return full * 0x010101;
    const auto above = std::upper_bound(Rising.begin(), Rising.end(), velocity,
                                        [](double value, const Step& step) { return value < step.Velocity; });
    if (above == Rising.begin()) return Rising.front().InColour;
    const Step& below = *std::prev(above);
    if (InBands || above == Rising.end()) return below.InColour;
    const double share = (velocity - below.Velocity) / (above->Velocity - below.Velocity);
    return Between(below.InColour, above->InColour, share);
}

ColourScale Even_Scale(const std::array<Colour, 9>& colours, double max_velocity) {
    std::vector<ColourScale::Step> steps;
    const double last = static_cast<double>(colours.size() - 1);
    for (std::size_t i = 0; i < colours.size(); ++i)
        steps.push_back({max_velocity * static_cast<double>(i) / last, colours[i]});
    return {std::move(steps), false};
}

std::optional<Colour> Named_Colour(std::string_view text) {
    std::string word = LCase(text);
    std::array<int, 3> parts{};
    // "R255 G128 B0", a part of transparency behind it left out.
    constexpr std::string_view letters = "rgb";
    std::size_t at = 0;
    std::size_t found = 0;
    for (; found < letters.size(); ++found) {
        while (at < word.size() && word[at] == ' ')
            ++at;
        if (at >= word.size() || word[at] != letters[found]) break;
        std::size_t end = ++at;
        while (end < word.size() && word[end] >= '0' && word[end] <= '9')
            ++end;
        if (end == at || end - at > 3) break;
        parts[found] = static_cast<int>(Val(word.substr(at, end - at)));
        if (parts[found] > full) break;
        at = end;
    }
    if (found == letters.size()) return Rgb(parts[0], parts[1], parts[2]);
    // Shades of grey: "30% black".
    const std::size_t per_cent = word.find("% black");
    if (per_cent != std::string::npos && Is_Number(word.substr(0, per_cent))) {
        const double share = std::clamp(Val(word) / 100, 0.0, 1.0);
        const int grey = static_cast<int>(std::lround(full * (1 - share)));
        return Rgb(grey, grey, grey);
    }
    std::erase(word, ' ');
    const auto known = std::find_if(named_colours.begin(), named_colours.end(),
                                    [&word](const NamedColour& named) { return named.Name == word; });
    if (known == named_colours.end()) return std::nullopt;
    return known->InColour;
}

ColourScaleReading Read_Colour_Scale(std::string_view bytes, double max_velocity) {
    std::vector<Line> lines = Lines_Of(bytes);
    if (lines.empty()) return {{}, "it is empty"};
    const std::string first = UCase(lines.front().Fields.front());
    const bool map = first == "COLORMAP";
    const bool levels = first == "LVL" || first == "LVL2" || first == "LVL3";
    if (!map && !levels && !Is_Number(lines.front().Fields.front()))
        return {{}, "it is neither a level file nor a colour map"};
    // The oldest level files begin with their first level.
    if (map || levels) lines.erase(lines.begin());
    if (lines.empty()) return {{}, "it has no colours"};
    if (lines.size() > most_steps) return {{}, "it has too many colours"};
    // Behind the level: flags, colour, style and width of the contour, in the third form its version too.
    return map ? Read_Colour_Map(lines, max_velocity) : Read_Levels(lines, first == "LVL3" ? 6 : 5);
}

bool Is_Dark(Colour colour) {
    const double brightness =
        0.299 * (colour & full) + 0.587 * ((colour >> 8) & full) + 0.114 * ((colour >> 16) & full);
    return brightness < full * 0.45;
}

}  // namespace tarnvik
