#include "core/text/number.h"
#include "output/imports/pick_files.h"

namespace tarnvik {

namespace {

/// Distance and elevation of each receiver. Answers what is wrong.
std::string Read_Receivers(const std::string& bytes, std::vector<ImportedPlace>& receivers) {
    FieldLines lines(bytes, ",;");
    while (lines.Next()) {
        const auto x = lines.Number(0);
        const auto z = lines.Number(1);
        if (!x || !z) return lines.Place() + " of the receivers' file holds no distance and elevation";
        receivers.push_back({*x, *z});
    }
    return {};
}

/// One shot and its picks. Answers what is wrong.
std::string Read_Shot(FieldLines& lines, ImportedShot& shot) {
    if (!lines.Next()) return "The file ends before its last shot";
    const auto x = lines.Number(0);
    const auto picks = lines.Number(1);
    if (!x || !picks || *picks < 0 || *picks != Int(*picks))
        return lines.Place() + " holds no distance of a shot and number of its picks";
    shot.Place.X = *x;
    for (double pick = 0; pick < *picks; ++pick) {
        if (!lines.Next()) return "The file ends within the picks of a shot";
        const auto receiver = lines.Number(0);
        const auto time = lines.Number(1);
        if (!receiver || !time) return lines.Place() + " holds no distance of a receiver and time";
        shot.Picks.push_back({*receiver, *time});
    }
    return {};
}

}  // namespace

ImportedLine Read_Plotrefa(std::string_view bytes, const std::optional<std::string>& receivers) {
    ImportedLine line;
    FieldLines lines(bytes, ",");
    if (!lines.Next() || !lines.Number(0)) {
        line.Refusal = "The file does not begin with the numbers of its version";
        return line;
    }
    const bool counted = lines.Next();
    const auto shots = lines.Number(1);
    if (!counted || !shots || *shots < 0 || *shots != Int(*shots)) {
        line.Refusal = lines.Place() + " holds no number of shots";
        return line;
    }
    for (double shot = 0; shot < *shots && line.Refusal.empty(); ++shot) {
        line.Shots.emplace_back();
        line.Refusal = Read_Shot(lines, line.Shots.back());
    }
    if (line.Refusal.empty() && receivers) line.Refusal = Read_Receivers(*receivers, line.Receivers);
    return line;
}

}  // namespace tarnvik
