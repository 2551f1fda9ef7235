#pragma once

#include <span>
#include <vector>

namespace tarnvik {

/// Picks of one shot on one side of it, by growing distance from the shot (above 0); times in ms. `Variance`
/// of each time in ms squared.
struct BranchPicks {
    std::vector<double> Distance;
    std::vector<double> Time;
    std::vector<double> Variance;
    std::size_t Count() const { return Distance.size(); }
};

/// A straight piece of a branch: picks `First` to `Last` (from 0), time = Intercept + Slowness * distance.
struct BranchPiece {
    std::size_t First = 0;
    std::size_t Last = 0;
    double Slowness = 0;  ///< ms per unit of distance
    double Intercept = 0;
};

/// A branch as so many pieces as `Pieces` holds; `Misfit` is the sum of the squared residuals, each by the
/// variance of its pick.
struct BranchFit {
    std::vector<BranchPiece> Pieces;
    double Misfit = 0;
};

/// How pieces may follow each other.
struct BranchRules {
    std::size_t FewestPicks = 3;  ///< of a piece
    double LeastRatio = 1.15;     ///< velocity of a piece to the one before it
    /// Two neighbouring pieces meet between the last pick of one and the first of the other, or at most this
    /// many steps between picks outside.
    double KneeRoom = 1;
    bool FromShot = false;  ///< the first piece begins at the shot: its intercept is nought
};

/// The best fits of a branch by 1, 2, ... `most` straight pieces, by dynamic programming over all places of
/// the knees; the velocity grows from piece to piece. As many as the picks allow.
std::vector<BranchFit> Fit_Branch(const BranchPicks& picks, std::size_t most, const BranchRules& rules);

}  // namespace tarnvik
