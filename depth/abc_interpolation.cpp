#include "depth/abc_interpolation.h"

#include <algorithm>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/refractor_means.h"
#include "depth/shot_velocities.h"

namespace tarnvik {

namespace {

AbcReceivers::Row Row_Of(const Project& project, ReceiverRow row) {
    AbcReceivers::Row values(static_cast<std::size_t>(std::max<int>(project.NbReceivers, 0)) + 1);
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        values[static_cast<std::size_t>(receiver)] = project.ReceiverData(row, receiver);
    return values;
}

void Store_Row(Project& project, ReceiverRow row, const AbcReceivers::Row& values) {
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        project.ReceiverData(row, receiver) = values.at(static_cast<std::size_t>(receiver));
}

double Value_Of(const AbcShots::PerShot& values, int shot) {
    if (shot < 0 || shot > AbcShots::last_shot) throw Fault("shot beyond the table");
    return values[static_cast<std::size_t>(shot)];
}

/// The walk along the receivers that is the same for velocities and times.
class Pass {
  public:
    Pass(const Project& project, int first, int last)
        : Line(project), First(first), Last(last), Spacing(Divide(project.LineLength, project.NbReceivers)) {
        // Wild distances would count for ever.
        if (Spacing == 0) throw Fault("no spacing");
    }

    void Velocities(const AbcShots::PerShot& values, AbcReceivers::Row& row) const {
        bool first_of_all = true;
        Walk(values, [&](int receiver, double& value, double step) {
            value += first_of_all ? 0.5 * step : step;
            first_of_all = false;
            if (receiver >= 1 && receiver <= Line.NbReceivers)
                row[static_cast<std::size_t>(receiver)] = static_cast<float>(Int(value));
            return true;
        });
    }

    void Times(const AbcShots::PerShot& values, AbcReceivers::Row& row) const {
        const double reached = Walk(values, [&](int receiver, double& value, double step) {
            if (receiver > Line.NbReceivers) return false;
            value += step;
            if (receiver >= 1)
                row[static_cast<std::size_t>(receiver)] = static_cast<float>(Int(10 * value) / 10);
            return true;
        });
        if (Line.NbReceivers > 0 && row.back() == 0) row.back() = static_cast<float>(reached);
    }

  private:
    /// Goes from shot to shot and there from receiver to receiver until `at` has enough; answers the value
    /// reached.
    template <class At>
    double Walk(const AbcShots::PerShot& values, At at) const {
        int counter = 1;
        double value = 0;
        for (int shot = First; shot < Last; ++shot) {
            const int receivers =
                CInt_Or_Fault((Line.ShotDistance(shot + 1) - Line.ShotDistance(shot)) / Spacing);
            if (receivers == 0) continue;
            value = Value_Of(values, shot);
            const double step = (Value_Of(values, shot + 1) - value) / receivers;
            for (int receiver = counter; receiver < counter + receivers; ++receiver) {
                if (!at(receiver, value, step)) break;
            }
            counter += receivers;
        }
        return value;
    }

    const Project& Line;
    int First;
    int Last;
    double Spacing;
};

}  // namespace

AbcReceivers Receivers_Of(const Project& project) {
    return {Row_Of(project, ReceiverIntercept), Row_Of(project, ReceiverV1),
            Row_Of(project, ReceiverV2),        Row_Of(project, ReceiverV3),
            Row_Of(project, ReceiverV4),        Row_Of(project, ReceiverIntercept1),
            Row_Of(project, ReceiverIntercept2)};
}

void Store_Receivers(Project& project, const AbcReceivers& receivers) {
    Store_Row(project, ReceiverV1, receivers.V1);
    Store_Row(project, ReceiverV2, receivers.V2);
    Store_Row(project, ReceiverV3, receivers.V3);
    Store_Row(project, ReceiverV4, receivers.V4);
    Store_Row(project, ReceiverIntercept1, receivers.IT1);
    Store_Row(project, ReceiverIntercept2, receivers.IT2);
}

void Take_Shots(const Project& project, int layers, int first, int last, AbcShots& shots) {
    for (int shot = first; shot <= last; ++shot) {
        if (shot < 0 || shot > AbcShots::last_shot) throw Fault("shot beyond the table");
        const auto at = static_cast<std::size_t>(shot);
        int count = 0;
        std::array<double, 6> velocity{};
        Shot_Velocities(project, shot, count, velocity);
        if (layers > 0) shots.V1[at] = velocity[1];
        if (layers > 1) shots.V2[at] = velocity[2];
        if (layers > 2) shots.V3[at] = velocity[3];
        if (layers > 3) shots.V4[at] = velocity[4];
        Moyenne_Intercept(project, shot, 1, shots.IT1[at]);
        if (layers > 3) Moyenne_Intercept(project, shot, 2, shots.IT2[at]);
    }
}

std::string Order_Fault(const AbcShots& shots, int layers, int first, int last) {
    for (int shot = first; shot <= last; ++shot) {
        const auto falls = [shot](const AbcShots::PerShot& upper, const AbcShots::PerShot& lower) {
            return Value_Of(upper, shot) > Value_Of(lower, shot);
        };
        if (layers > 1 && falls(shots.V1, shots.V2)) return "Velocity 2 must be greater as 1";
        if (layers > 2 && falls(shots.V2, shots.V3)) return "Velocity 3 must be greater as 2";
        if (layers > 3 && falls(shots.V3, shots.V4)) return "Velocity 4 must be greater as 3";
        if (layers > 3 && falls(shots.IT1, shots.IT2)) return "Intercept 2 must be greater as 1";
    }
    return {};
}

void Interpolate_Shots(const Project& project, const AbcShots& shots, int first, int last,
                       AbcReceivers& receivers) {
    const Pass pass(project, first, last);
    pass.Velocities(shots.V1, receivers.V1);
    pass.Velocities(shots.V2, receivers.V2);
    pass.Velocities(shots.V3, receivers.V3);
    pass.Velocities(shots.V4, receivers.V4);
    pass.Times(shots.IT1, receivers.IT1);
    pass.Times(shots.IT2, receivers.IT2);
}

}  // namespace tarnvik
