#include "interpretation/branch_fit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarnvik {

namespace {

constexpr double never = std::numeric_limits<double>::infinity();

/// Straight lines through any stretch of a branch, from sums over its beginning.
class Lines {
  public:
    explicit Lines(const BranchPicks& picks) {
        Sums.resize(picks.Count() + 1);
        for (std::size_t i = 0; i < picks.Count(); ++i) {
            const double weight = 1 / picks.Variance[i];
            const double x = picks.Distance[i];
            const double t = picks.Time[i];
            const Sum& before = Sums[i];
            Sums[i + 1] = {before.W + weight,          before.X + weight * x,
                           before.T + weight * t,      before.XX + weight * x * x,
                           before.XT + weight * x * t, before.TT + weight * t * t};
        }
    }

    struct Line {
        double Slowness = 0;
        double Intercept = 0;
        double Misfit = never;
    };
    Line Through(std::size_t first, std::size_t last, bool from_shot) const {
        const Sum& a = Sums[first];
        const Sum& b = Sums[last + 1];
        const double w = b.W - a.W;
        const double x = b.X - a.X;
        const double t = b.T - a.T;
        const double xx = b.XX - a.XX;
        const double xt = b.XT - a.XT;
        const double tt = b.TT - a.TT;
        Line line;
        if (from_shot) {
            if (xx <= 0) return line;
            line.Slowness = xt / xx;
            line.Misfit = std::max(0.0, tt - line.Slowness * xt);
            return line;
        }
        const double spread = xx - x * x / w;
        if (spread <= 0) return line;
        line.Slowness = (xt - x * t / w) / spread;
        line.Intercept = (t - line.Slowness * x) / w;
        line.Misfit = std::max(0.0, tt - t * t / w - line.Slowness * (xt - x * t / w));
        return line;
    }

  private:
    struct Sum {
        double W = 0;
        double X = 0;
        double T = 0;
        double XX = 0;
        double XT = 0;
        double TT = 0;
    };
    std::vector<Sum> Sums;
};

}  // namespace

std::vector<BranchFit> Fit_Branch(const BranchPicks& picks, std::size_t most, const BranchRules& rules) {
    const std::size_t count = picks.Count();
    const std::size_t fewest = std::max<std::size_t>(rules.FewestPicks, 2);
    std::vector<BranchFit> fits;
    if (count < fewest) return fits;
    const Lines lines(picks);
    // All stretches, by first and last pick.
    std::vector<Lines::Line> table(count * count);
    for (std::size_t first = 0; first + fewest <= count; ++first) {
        for (std::size_t last = first + fewest - 1; last < count; ++last)
            table[first * count + last] = lines.Through(first, last, rules.FromShot && first == 0);
    }
    // Least misfit of picks 0 to `last` by so many pieces, of which the last begins at `first`, and where
    // the piece before it begins.
    struct State {
        double Misfit = never;
        std::size_t Before = 0;
    };
    std::vector<std::vector<State>> best(most, std::vector<State>(count * count));
    const auto follows = [&](const Lines::Line& one, const Lines::Line& other, std::size_t first) {
        if (other.Slowness <= 0 || one.Slowness < other.Slowness * rules.LeastRatio) return false;
        const double knee = (other.Intercept - one.Intercept) / (one.Slowness - other.Slowness);
        const double before = picks.Distance[first - 1];
        const double behind = picks.Distance[first];
        const double room = rules.KneeRoom * (behind - before);
        return knee >= before - room && knee <= behind + room;
    };
    for (std::size_t pieces = 0; pieces < most; ++pieces) {
        const std::size_t left = pieces * fewest;
        for (std::size_t first = left; first + fewest <= count; ++first) {
            if (pieces == 0 && first > 0) break;
            for (std::size_t last = first + fewest - 1; last < count; ++last) {
                const Lines::Line& line = table[first * count + last];
                State& state = best[pieces][first * count + last];
                if (pieces == 0) {
                    if (line.Slowness > 0) state.Misfit = line.Misfit;
                    continue;
                }
                for (std::size_t before = left - fewest; before + fewest <= first; ++before) {
                    const double misfit = best[pieces - 1][before * count + first - 1].Misfit + line.Misfit;
                    if (misfit < state.Misfit && follows(table[before * count + first - 1], line, first))
                        state = {misfit, before};
                }
            }
        }
        std::size_t begin = 0;
        double misfit = never;
        for (std::size_t first = left; first + fewest <= count; ++first) {
            const double one = best[pieces][first * count + count - 1].Misfit;
            if (one < misfit) {
                misfit = one;
                begin = first;
            }
        }
        if (misfit == never) break;
        BranchFit fit;
        fit.Misfit = misfit;
        std::size_t last = count - 1;
        for (std::size_t piece = pieces + 1; piece-- > 0;) {
            const Lines::Line& line = table[begin * count + last];
            fit.Pieces.insert(fit.Pieces.begin(), {begin, last, line.Slowness, line.Intercept});
            if (piece == 0) break;
            const std::size_t before = best[piece][begin * count + last].Before;
            last = begin - 1;
            begin = before;
        }
        fits.push_back(std::move(fit));
    }
    return fits;
}

}  // namespace tarnvik
