#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/workspace.h"
#include "interpretation/forward_times.h"

namespace tarnvik {

/// The ground below a line as one of its methods found it: interfaces joined between the shots or receivers
/// where their depths are known, level beyond, the velocities of each layer likewise; surface through all
/// receivers and shots. Nothing without depths.
std::optional<LayeredSection> Section_Of_Line(const Project& project, SectionSource source);

/// Calculated against picked times. Times in ms, lists by shot and receiver from 1 (element 0 is the first).
struct ForwardCheck {
    std::string Refusal;  ///< why nothing could be calculated, in words for the user; empty when it could
    bool Stopped = false;
    std::vector<std::vector<double>> Times;  ///< below 0 where no wave comes
    /// Picked less calculated time, nothing without a pick.
    std::vector<std::vector<std::optional<double>>> Residuals;
    std::optional<double> Rms;  ///< root mean squares of the residuals; nothing without a pick
    std::vector<std::optional<double>> ShotRms;
    std::vector<std::optional<double>> ReceiverRms;
};

/// First arrivals at every receiver of every shot through the interpreted ground, held against the picks.
ForwardCheck Check_Forward(const Project& project, SectionSource source,
                           const ForwardProgress& progress = {});

/// The calculated times as field records: a short pulse at each time, its time as the pick, places in the
/// headers. Samples every `interval_us` microseconds, half as long again as the latest time.
std::string Synthetic_Records(const Project& project, const ForwardCheck& check, int interval_us = 250);

}  // namespace tarnvik
