#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/project.h"

namespace tarnvik {

/// Layers that the quick interpretation knows at most.
inline constexpr int most_quick_layers = 4;

/// Limits between the layers of a shot's curve across the travel-time picture (0 to 96). Row 1 is the side
/// towards lower distance, row 2 the one towards higher distance; elements 1 to layers - 1.
using QuickLimits = std::array<std::array<double, most_quick_layers + 1>, 3>;

/// A limit that the hand holds.
struct HeldLimit {
    int Side = 0;  ///< row
    int Index = 0;
};

/// Where a shot lies, by its rounded distance.
enum class QuickPlace { AtStart, AtEnd, Between };
QuickPlace Quick_Place_Of(const Project& project, int shot);

/// Puts the limits where a new interpretation of a shot begins: the parts of the line on both sides of the
/// shot are divided evenly. A shot before the line or beyond it leaves them where they were.
void Place_Limits(const Project& project, int shot, int layers, QuickLimits& limits);

/// The limit at a place of the picture. Only the whole number that the limit lies nearest to takes it.
std::optional<HeldLimit> Limit_At(const QuickLimits& limits, int layers, double x);

/// The limits after one of them was carried to another place: at the nearest whole number on the picture, for
/// a shot at an end of the line in both rows. Each row is then put in order by one pass of exchanges alone: a
/// limit that was carried over more than one neighbour stays out of order, as users know it.
QuickLimits Limits_After_Move(QuickLimits limits, int layers, HeldLimit held, QuickPlace shot, double x);

}  // namespace tarnvik
