#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/edits/byte_changes.h"
#include "core/pick_place.h"
#include "core/project.h"

namespace tarnvik {

/// What of a project may change by itself, for those who show it.
enum class ProjectPart : unsigned {
    Counts = 1U << 0U,         ///< NbShots, NbReceivers: all arrays are new
    Line = 1U << 1U,           ///< LineLength, DistanceShift, GeoSpace
    TotalTime = 1U << 2U,      ///< reciprocal time
    Times = 1U << 3U,          ///< ShotTimes
    Receivers = 1U << 4U,      ///< ReceiverData
    Shots = 1U << 5U,          ///< places, elevations and depths of the shots
    Velocities = 1U << 6U,     ///< VelocityA, VelocityB
    Refractors = 1U << 7U,     ///< intercept times and critical distances
    Thicknesses = 1U << 8U,    ///< ShotThickness
    Grm = 1U << 9U,            ///< GrmData
    FieldRecords = 1U << 10U,  ///< SuFile
    Remarks = 1U << 11U,       ///< texts of remark_grid
    Origins = 1U << 12U,       ///< PickOrigins
};

/// Any number of parts.
class ProjectParts {
  public:
    void Add(ProjectPart part) { Bits |= static_cast<unsigned>(part); }
    void Add(ProjectParts parts) { Bits |= parts.Bits; }
    bool Has(ProjectPart part) const { return (Bits & static_cast<unsigned>(part)) != 0; }
    bool Empty() const { return Bits == 0; }
    bool operator==(const ProjectParts&) const = default;

  private:
    unsigned Bits = 0;
};

/// Everything of a project that an edit can change, as one row of bytes: all but the names of its own file.
std::string Project_Block(const Project& project);

/// Puts such a row back. False for bytes that are no whole block; the project is then unchanged.
bool Take_Project_Block(std::string_view block, Project& project);

/// What `changes` touch in a block of this project. The picks whose time or origin changed are listed one by
/// one unless the counts changed.
struct TouchedParts {
    ProjectParts Parts;
    std::vector<PickPlace> Picks;
};
TouchedParts Touched_By(const ByteChanges& changes, const Project& project);

/// True when two blocks tell the same of what a project file keeps; TotalTime does not count, since each save
/// raises it by itself.
bool Same_Filed_Content(std::string_view one, std::string_view other);

}  // namespace tarnvik
