#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarnvik {

class SuTraces;

/// The words of one trace that tell where it was recorded, as they stand in its header.
struct PlaceWords {
    std::int32_t fldr = 0;
    std::int32_t tracf = 0;
    std::int32_t offset = 0;
    std::int32_t gelev = 0;
    std::int32_t selev = 0;
    std::int32_t sdepth = 0;
    std::int16_t scalel = 0;
    std::int16_t scalco = 0;
    std::int32_t sx = 0;
    std::int32_t sy = 0;
    std::int32_t gx = 0;
    std::int32_t gy = 0;
    std::int16_t counit = 0;
};

/// Those of all traces of a file.
std::vector<PlaceWords> Read_Place_Words(SuTraces& file);

/// A word by its scale word: above 0 a factor, below 0 a divisor, 0 is 1.
double Scaled(std::int32_t word, std::int16_t scale);

/// The spread as the headers tell it, in their length unit. Distances run along the line from end shot 1, in
/// the direction in which the channels count. What the headers do not tell is absent or empty. Each part
/// names the words it comes from.
struct HeaderGeometry {
    std::optional<double> Spacing;        ///< the middle one of the steps from geophone to geophone
    std::optional<double> FirstDistance;  ///< from end shot 1 to geophone 1
    std::optional<double> LineLength;     ///< between the end shots
    std::optional<double> ShotDepth;      ///< mean
    std::vector<double> ShotPlaces;       ///< of record 1, 2 ...
    std::vector<double> ShotElevations;   ///< likewise
    std::vector<double> ReceiverPlaces;   ///< of all geophone stations in their order along the line
    std::vector<double> ReceiverElevations;
    bool Offsets = false;      ///< the first and the last shot lie outside the end shots
    bool Even = true;          ///< all steps from geophone to geophone are the same
    bool SpreadMoves = false;  ///< the channels stand elsewhere from record to record
    std::string SpacingWords;
    std::string FirstDistanceWords;
    std::string ShotWords;
    std::string ElevationWords;  ///< of the shots
    std::string ReceiverElevationWords;
    std::string DepthWords;
    std::vector<std::string> Remarks;  ///< what does not agree, a sentence each

    bool Empty() const { return !Spacing && ShotPlaces.empty() && ShotElevations.empty() && !ShotDepth; }
};

/// The geometry of traces that stand record after record, `channels` in each. The end shots are the shots
/// nearest to the ends of the spread outside it; where none lies outside, the outermost one. Nothing is told
/// for channels below 1.
HeaderGeometry Geometry_Of_Headers(std::span<const PlaceWords> traces, int channels);

}  // namespace tarnvik
