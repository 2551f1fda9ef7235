#pragma once

#include <optional>
#include <vector>

#include "core/project.h"

namespace tarnvik {

/// What the delay times of a line are computed from: the two end shots, the two offset shots and how far
/// each of these is slid down onto the end shot beside it, and the reciprocal time of the line.
struct DelayQuestion {
    /// Receivers between which the end shots' own times show the bedrock, from 1. Crossed ones are allowed.
    struct Limits {
        int First = 1;
        int Last = 1;
    };

    int FixedLeft = 0;  ///< end shots, from 1
    int FixedRight = 0;
    int MovingLeft = 0;  ///< offset shots, from 1
    int MovingRight = 0;
    double ShiftLeft = 0;  ///< units of the travel-time picture taken from the offset shots' curves
    double ShiftRight = 0;
    double TimeFactor = 1;          ///< ms per unit of the picture
    double TotalTime = 0;           ///< reciprocal time, ms
    std::optional<Limits> Bedrock;  ///< none: the offset shots count along the whole line
};

/// What was found below one receiver.
struct ReceiverDelay {
    bool LeftOut = false;     ///< both end shots stand there: what the project holds stays
    std::optional<double> D;  ///< the sum of the two times less TotalTime, ms; none where a pick is missing
    double X = 0;             ///< place of the receiver on the travel-time picture
    double Left = 0;       ///< time of the left offset shot as it was slid, ms; 0 without a pick or below 0
    double Right = 0;      ///< likewise of the right one
    double Delay() const;  ///< as it is stored, ms: D cut to a tenth, 0 where it is not above 0
};

/// The delay time of each receiver, in element 1 and on: the two arrivals there, from the left and from the
/// right, less the reciprocal time. It is the whole sum: the delays down to the bedrock and up again. With
/// `Bedrock` the end shots count from First to Last; a receiver before First takes the left time from the
/// offset shot, one behind Last from the left end shot and the right offset shot. A shot that the project
/// does not have is a Fault.
std::vector<ReceiverDelay> Delay_Times(const Project& project, const DelayQuestion& question);

/// Delays and slid times into ReceiverData row 1 and GrmData rows 1 and 2.
void Store_Delays(Project& project, const std::vector<ReceiverDelay>& delays);

/// True when any receiver has a delay.
bool Has_Delays(const Project& project);

}  // namespace tarnvik
