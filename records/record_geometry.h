#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/workspace.h"
#include "records/spread_layout.h"

namespace tarnvik {

/// Where a shot stands among the traces of its record.
struct ShotMark {
    int Shot = 0;
    double Distance = 0;  ///< along the line
    double X = 0;         ///< world x on the record's picture; of one outside, the edge that it lies beyond
    int Beyond = 0;       ///< -1 left of the traces, 1 right of them, 0 among them
};

/// Places of receivers and shots along the line, as the project has them, for the traces of the field
/// records. The workspace must outlive it.
class RecordGeometry {
  public:
    RecordGeometry(const Workspace& workspace, const SpreadLayout& spread)
        : Work(workspace), Spread(spread) {}

    /// Shot and receiver of a trace.
    std::optional<PickPlace> Place(std::int64_t trace) const { return Spread.Place_Of(trace); }
    /// Distances along the line; nothing for a trace whose receiver or shot the project lacks.
    std::optional<double> Receiver_Distance(std::int64_t trace) const;
    std::optional<double> Shot_Distance(std::int64_t trace) const;
    /// From the shot to the receiver, negative where the receiver stands before it.
    std::optional<double> Offset(std::int64_t trace) const;

    /// The shots of the records that traces first to last belong to, each at its true place between their
    /// receivers.
    std::vector<ShotMark> Shots(std::int64_t first, std::int64_t last) const;

  private:
    std::optional<ShotMark> Shot_Of_Traces(std::int64_t first, std::int64_t last) const;
    const Workspace& Work;
    const SpreadLayout& Spread;
};

/// "12.5": a length to the centimetre.
std::string Length_Text(double length);

}  // namespace tarnvik
