#pragma once

#include <vector>

#include "core/project.h"
#include "traveltime/regression.h"

namespace tarnvik {

/// Whether the line of a stretch is free or starts at the shot point at time 0.
enum class StretchLine { Free, ThroughShot };

/// Where the dialog and the drag on the picture judge a stretch differently.
struct StretchRules {
    bool BesideShot = false;       ///< one receiver alone counts beside its shot anywhere, not at an end only
    bool FlooredPlace = false;     ///< the shot's place is floored and not rounded to compare it with the end
    bool HeldShotRefused = false;  ///< a line through the shot wants the shot outside the stretch
};
inline constexpr StretchRules dialog_rules{.HeldShotRefused = true};
inline constexpr StretchRules drag_rules{.BesideShot = true, .FlooredPlace = true};

/// A stretch of a shot's curve whose velocity is wanted.
struct StretchQuestion {
    int Shot = 0;
    int First = 0;  ///< receivers, First <= Last
    int Last = 0;
    StretchLine Line = StretchLine::Free;
    StretchRules Rules;
    std::vector<int> Eliminated;  ///< receivers left out of the fit
};

/// Why a stretch has no velocity.
enum class StretchRefusal {
    None,
    WrongReceivers,  ///< one receiver, and not where one is enough
    HoldsShot,       ///< a line through the shot was asked for and the shot lies inside
    NoFirstTime,     ///< direct method without a time at the first receiver
    NoPick,          ///< no receiver of the stretch has a pick
    Fault,           ///< the computation ended in a run-time fault
};

/// What came of it. A refused stretch keeps in `Result` what the caller had put there, save what the method
/// found before it ended.
struct StretchAnswer {
    StretchRefusal Refusal = StretchRefusal::None;
    StretchVelocity Result;
    int Side = 0;           ///< 1 (A) or 24 (B); 0 when the end came before it was known
    bool Anchored = false;  ///< the stretch holds its shot or stands beside it: a first layer, by distance
                            ///< over time
};

/// The velocity of a stretch: judges it, chooses the method and computes. Changes nothing, draws nothing. A
/// free line takes the direct method where the stretch holds its shot or is one receiver, and least squares
/// elsewhere. `former` is what stands as result before.
StretchAnswer Velocity_Of_Stretch(const Project& project, const StretchQuestion& question,
                                  const StretchVelocity& former);

}  // namespace tarnvik
