#pragma once

#include <cstdint>
#include <string>

#include "core/arrays.h"
#include "core/text_grid.h"

namespace tarnvik {

/// Rows of ReceiverData and of Buildgrid's receiver columns. The order is the project file's and is kept.
enum ReceiverRow : int {
    ReceiverIntercept = 1,   ///< intercept time of the deepest refractor computed, ms
    ReceiverRockDepth = 2,   ///< depth of the bedrock below the receiver
    ReceiverV1 = 3,          ///< velocity of layer 1
    ReceiverV2 = 4,          ///< velocity of layer 2
    ReceiverV3 = 5,          ///< velocity of layer 3
    ReceiverIntercept1 = 6,  ///< intercept time of the first refractor, ms
    ReceiverElevation = 7,   ///< elevation of the receiver
    ReceiverV4 = 8,          ///< velocity of layer 4
    ReceiverIntercept2 = 9,  ///< intercept time of the second refractor, ms
    ReceiverDistance = 10,   ///< position along the line
    ReceiverDepth1 = 11,     ///< depth of the first interface, none when not above 0
    ReceiverDepth2 = 12,     ///< depth of the second interface, likewise
    ReceiverScratch = 13,    ///< scratch of the delay computation, not filed
};

/// How a first break came to be.
enum class PickOrigin : std::uint8_t {
    Hand,       ///< picked by the user, or not known otherwise
    Automatic,  ///< by the automatic picking
    Moved,      ///< dragged by the user to where it is
};

/// One refraction line: exactly what the project file holds, plus GrmData, the origins of the picks and the
/// names of its files. Indices
/// run from 1; shots come first, then receivers or layers. Times in ms, distances, elevations and depths in
/// the project's length unit, velocities in that unit per second. 0 means "no value" everywhere.
struct Project {
    static constexpr int MaxShots = 72;  ///< of a new profile
    static constexpr int MaxLayers = 5;
    static constexpr int MaxRefractors = 4;
    static constexpr int FiledReceiverRows = 12;
    static constexpr int GrmRows = 10;
    static constexpr int RemarkFirstRow = 2;  ///< of remark_grid
    static constexpr int RemarkLastRow = 9;
    static constexpr int RemarkColumns = 4;

    std::int16_t NbShots = 0;
    std::int16_t NbReceivers = 0;
    double LineLength = 0;     ///< between the two end shots, offset shots not counted
    double TotalTime = 0;      ///< reciprocal time, ms; filed increased by 1
    double DistanceShift = 0;  ///< added to all distances so that end shot 1 lies at 0
    double GeoSpace = 0;       ///< geophone spacing

    std::string CurrentFile;  ///< full path of the project file, empty for a profile never saved
    std::string ProjectDir;   ///< its folder with the separator behind it
    std::string ProjectName;  ///< its name without folder and without the last four characters
    std::string SuFile;       ///< full path of the field records, empty for none

    Array2<float> ShotTimes;     ///< (shot, receiver) first-break time; 0 or below means no pick
    Array2<float> ReceiverData;  ///< (ReceiverRow, receiver)
    Array1<double> ShotElevation;
    Array1<double> ShotDistance;     ///< position along the line; offset shots lie outside 0..LineLength
    Array1<double> ShotDepth;        ///< of the explosion below ground
    Array1<double> ShotDistanceZ;    ///< scratch of the correction of slope distances, not filed
    Array2<std::int16_t> VelocityA;  ///< (shot, layer 1..5) towards lower distance
    Array2<std::int16_t> VelocityB;  ///< (shot, layer 1..5) towards higher distance
    Array2<double> InterceptA;       ///< (shot, refractor 1..4), ms; element k is the top of layer k + 1
    Array2<double> InterceptB;
    Array2<double> CritDistA;  ///< (shot, refractor 1..4)
    Array2<double> CritDistB;
    Array2<double> ShotThickness;    ///< (shot, layer 1..4) under the shot
    Array2<double> GrmData;          ///< (row 1..9, receiver), kept in a file of its own
    Array2<PickOrigin> PickOrigins;  ///< (shot, receiver), likewise

    /// The only storage of the remarks: rows 2 to 9, columns "X loc", "Y loc", "Vertical shift", text.
    TextGrid remark_grid{RemarkLastRow + 1, 4};
};

/// Largest number of picks (shots times receivers) that the arrays are allocated for. Far above any line this
/// program is made for; a file with wild counts stops here and not at the end of the memory.
inline constexpr std::int64_t max_picks = 4'000'000;

/// Allocates all arrays from NbShots and NbReceivers, everything zero; former contents are discarded. With
/// counts below 0 or beyond `max_picks` the arrays stay unallocated. Remarks and scalars are not touched.
void Redimension_Project(Project& project);

/// Frees the arrays (not GrmData and not the remarks).
void Erase_Project(Project& project);

/// Time step of the travel-time grid for the latest pick `max_time` (ms): 0.5, 1, 1.5, 2, 3, 5 or 10 ms per
/// unit of the picture, 100 units high. Exactly 50 and exactly 500 keep 1: printed sheets
/// of such lines have that scale.
double Time_Factor(double max_time);

/// Latest pick of all shots, ms; 0 without any.
double Latest_Pick(const Project& project);

}  // namespace tarnvik
