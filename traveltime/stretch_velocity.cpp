#include "traveltime/stretch_velocity.h"

#include "core/fault.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

bool Lies_Between(double value, double low, double high) {
    return value >= low && value <= high;
}

/// One receiver alone at an end of the line with the shot there.
bool Beside_End_Shot(const Project& project, int receiver, double shot_distance) {
    return (receiver == 1 && shot_distance == 0) ||
           (receiver == project.NbReceivers && Rounded(shot_distance) == Rounded(project.LineLength));
}

/// One receiver alone with the shot between it and a neighbour. The ends of the line stand for the neighbours
/// that the end receivers lack.
bool Beside_Shot(const Project& project, int receiver, double shot_distance) {
    const auto place = [&project](int r) -> double {
        if (r < 1) return 0;
        if (r > project.NbReceivers) return project.LineLength;
        return project.ReceiverData(ReceiverDistance, r);
    };
    const double whole = Int(shot_distance);
    return Lies_Between(whole, place(receiver), place(receiver + 1)) ||
           Lies_Between(whole, place(receiver - 1), place(receiver));
}

bool Holds_Shot(const Project& project, const CurveStretch& stretch, const StretchRules& rules) {
    const double shot = stretch.ShotDistance;
    const double place = rules.FlooredPlace ? Int(shot) : Rounded(shot);
    if (shot < 0 || place > Rounded(project.LineLength)) return false;
    return stretch.First.Distance < shot && shot < stretch.Last.Distance;
}

/// Fills the answer in the order in which its members are known.
void Answer(const Project& project, const StretchQuestion& question, StretchAnswer& answer) {
    if (question.Shot < 1) throw Fault("no such shot");
    const StretchRules& rules = question.Rules;
    const double shot_distance = project.ShotDistance(question.Shot);
    const bool one = question.First == question.Last;
    if (one && !Beside_End_Shot(project, question.First, shot_distance) &&
        !(rules.BesideShot && Beside_Shot(project, question.First, shot_distance))) {
        answer.Refusal = StretchRefusal::WrongReceivers;
        return;
    }
    const CurveStretch stretch =
        Stretch_Of_Shot(project, question.Shot, question.First, question.Last, question.Eliminated);
    answer.Anchored = one || Holds_Shot(project, stretch, rules);
    answer.Side = Side_Of_Stretch(shot_distance, stretch.First.Distance);
    const bool through_shot = question.Line == StretchLine::ThroughShot;
    if (through_shot && answer.Anchored && rules.HeldShotRefused) {
        answer.Refusal = StretchRefusal::HoldsShot;
        return;
    }
    if (through_shot && !one) {
        Line_Through_Shot_Velocity(stretch, answer.Result);
    } else if (answer.Anchored) {
        if (!Direct_Velocity(stretch, answer.Result)) answer.Refusal = StretchRefusal::NoFirstTime;
    } else if (!Least_Squares_Velocity(stretch, answer.Result)) {
        answer.Refusal = StretchRefusal::NoPick;
    }
}

}  // namespace

StretchAnswer Velocity_Of_Stretch(const Project& project, const StretchQuestion& question,
                                  const StretchVelocity& former) {
    StretchAnswer answer;
    answer.Result = former;
    try {
        Answer(project, question, answer);
    } catch (const Fault&) {
        answer.Refusal = StretchRefusal::Fault;
    }
    return answer;
}

}  // namespace tarnvik
