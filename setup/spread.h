#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/workspace.h"

namespace tarnvik {

/// Step between shots that are spread evenly between the end shots; with offsets the first and the last shot
/// lie one step outside them. Where the shots are too few to tell (one shot, or three with offsets) the step
/// is the whole line.
double Shot_Step(double line_length, int shots, bool offsets);

/// Places of evenly spread shots: from 0, or with offsets from minus one step.
std::vector<double> Even_Shot_Places(double line_length, int shots, bool offsets);

/// What the trace headers tell of a spread.
struct RecordedSpread {
    std::int32_t Traces = 0;
    std::int16_t Channels = 0;  ///< largest channel number, 0 when the headers hold none
    int Records = 0;            ///< traces / channels, nearest; 0 without channels
};
/// Walks over all traces of an SU file. Nothing when it cannot be opened.
std::optional<RecordedSpread> Recorded_Spread(const std::string& su_file);

/// The geometry of a new line; distances in the project's length unit.
struct Spread {
    double Spacing = 0;
    double FirstDistance = 0;  ///< from end shot 1 to geophone 1
    double ShotDepth = 0;
    double LineLength = 0;
    double NbShots = 0;  ///< as typed; the checks follow
    double NbReceivers = 0;
    std::vector<double> ShotPlaces;      ///< missing ones are 0
    std::vector<double> ShotElevations;  ///< likewise
    /// From end shot 1; empty for even steps of Spacing from FirstDistance on.
    std::vector<double> ReceiverPlaces;
    std::vector<double> ReceiverElevations;  ///< missing ones are 0
};

/// Why a line of these counts cannot be set up, in words for the user; empty when it can.
std::string Spread_Refusal(const Spread& spread);

/// Makes an empty project of the spread: geometry, no picks, no results, no remarks, no reciprocal time and
/// no distance correction. Names of files stay. A refused spread changes nothing; the answer says why.
std::string Set_Up_Project(Workspace& workspace, const Spread& spread);

/// A new project from field records, without questions. What is not given comes from the trace headers.
struct NewProjectRequest {
    std::string SuFile;
    std::string ProjectFile;  ///< becomes CurrentFile; nothing is written
    double Spacing = 0;
    double FirstDistance = 0;
    double ShotDepth = 0;
    std::optional<int> Shots;
    std::optional<int> Receivers;
    std::optional<double> LineLength;   ///< otherwise spacing times (receivers - 1)
    std::vector<double> ShotDistances;  ///< all shots, or none for even steps
    bool Offsets = false;
};

/// Builds the project in the workspace; the SU file is only read. Answers why it was refused (then the
/// workspace is as it was), empty when it went well.
std::string Build_New_Project(Workspace& workspace, const NewProjectRequest& request);

}  // namespace tarnvik
