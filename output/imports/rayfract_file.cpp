#include <map>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/imports/pick_files.h"

namespace tarnvik {

namespace {
constexpr double ms_per_second = 1000;
}

ImportedLine Read_Rayfract(std::string_view bytes, double length) {
    ImportedLine line;
    FieldLines lines(bytes, ";,");
    std::map<double, std::size_t> shots;  // by their numbers
    bool first = true;
    while (lines.Next()) {
        const bool headings = first && LCase(lines.Fields().front()) == "shot";
        first = false;
        if (headings) continue;
        const auto number = lines.Number(0);
        const auto shot_station = lines.Number(1);
        const auto station = lines.Number(2);
        const auto time = lines.Number(3);
        if (!number || !shot_station || !station || !time) {
            line.Refusal = lines.Place() + " holds no shot, two stations and time";
            return line;
        }
        const auto [found, is_new] = shots.try_emplace(*number, line.Shots.size());
        if (is_new) {
            line.Shots.emplace_back();
            line.Shots.back().Place = {*shot_station * length, lines.Number(5)};
        }
        ImportedShot& shot = line.Shots[found->second];
        shot.Picks.push_back({*station * length, *time * ms_per_second});
        line.Receivers.push_back({*station * length, lines.Number(4)});
    }
    return line;
}

}  // namespace tarnvik
