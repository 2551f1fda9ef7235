#include "depth/quick_walk.h"

#include <optional>

#include "core/fault.h"
#include "core/text/number.h"
#include "traveltime/regression_vitesse.h"

namespace tarnvik {

namespace {

class Walker {
  public:
    Walker(const Project& project, int shot, int layers, const QuickLimits& limits, QuickWalk& found)
        : Line(project),
          Shot(shot),
          LayerCount(layers),
          Limits(limits),
          Found(found),
          ShotX(Shot_Position_Ecran(project, shot)) {}

    void Walk_Left(int last_receiver) {
        int first = 1;
        for (int m = 1; m <= LayerCount; ++m) {
            const int last = Last_Below(1, m, last_receiver);
            // The stretch next to the shot is layer 1.
            Found.Left.at(At(LayerCount - m + 1)) = Fit(LayerCount - m + 1, first, last, m == LayerCount);
        }
    }
    void Walk_Right(int first_receiver) {
        int first = first_receiver;
        for (int m = 1; m <= LayerCount; ++m) {
            const int last = Last_Below(2, m, Line.NbReceivers);
            Found.Right.at(At(m)) = Fit(m, first, last, m == 1);
        }
    }

  private:
    static std::size_t At(int index) { return static_cast<std::size_t>(index); }

    /// The last receiver up to `to` that lies below a limit, `to` itself at the end of the walk; 0 for none,
    /// which the fit corrects to 1.
    int Last_Below(int side, int m, int to) const {
        if (m == LayerCount) return to;
        const double limit = Limits.at(At(side)).at(At(m)) * (Line.LineLength / regression_width);
        for (int receiver = to; receiver >= 1; --receiver) {
            if (Line.ReceiverData(ReceiverDistance, receiver) < limit) return receiver;
        }
        return 0;
    }

    /// One stretch; `first` becomes the beginning of the next one, behind the receivers as corrected.
    QuickValue Fit(int layer, int& first, int last, bool beside_shot) {
        const StretchLine line = beside_shot && first != last ? StretchLine::ThroughShot : StretchLine::Free;
        const double velocity_before = Found.Last.Velocity;
        const StretchAnswer answer = Velocity_Without_Dialog(Line, Shot, first, last, line, Found.Last);
        const bool fitted = answer.Refusal == StretchRefusal::None;
        Found.Last = answer.Result;
        if (answer.Side != 0) Found.ShotSide = answer.Side;
        if (fitted) {
            const bool through_shot = line == StretchLine::ThroughShot && first != last;
            const StretchVelocity& fit = answer.Result;
            if (fit.X1 != fit.X2)
                Found.Lines.push_back({Shot, layer, fit.X1, fit.T1, fit.X2, fit.T2,
                                       through_shot ? std::optional(ShotX) : std::nullopt});
        } else {
            Found.Last.Velocity = velocity_before;
            Found.Texts.push_back(Refusal_Text(answer.Refusal, first, last));
        }
        first = last + 1;
        return {true, fitted, Found.Last.Velocity, Found.Last.Intercept};
    }

    const Project& Line;
    int Shot;
    int LayerCount;
    const QuickLimits& Limits;
    QuickWalk& Found;
    double ShotX;
};

/// The last receiver whose distance is below that of the shot; 0 for none.
int Receiver_Before_Shot(const Project& project, int shot) {
    int receiver = project.NbReceivers;
    while (receiver >= 1 && !(project.ReceiverData(ReceiverDistance, receiver) < project.ShotDistance(shot)))
        --receiver;
    return receiver;
}

}  // namespace

QuickWalk Walk_Between_Limits(const Project& project, int shot, int layers, const QuickLimits& limits,
                              const StretchVelocity& former) {
    QuickWalk found;
    found.Last = former;
    Walker walker(project, shot, layers, limits, found);
    switch (Quick_Place_Of(project, shot)) {
        case QuickPlace::Between: {
            const int before_shot = Receiver_Before_Shot(project, shot);
            walker.Walk_Left(before_shot);
            walker.Walk_Right(before_shot + 1);
            break;
        }
        case QuickPlace::AtEnd:
            walker.Walk_Left(project.NbReceivers);
            found.Right = found.Left;
            break;
        case QuickPlace::AtStart:
            walker.Walk_Right(1);
            found.Left = found.Right;
            break;
    }
    return found;
}

}  // namespace tarnvik
