#include "depth/delay_times.h"

#include <algorithm>

#include "core/text/number.h"
#include "core/workspace.h"
#include "traveltime/curve_axes.h"

namespace tarnvik {

namespace {

using Time = std::optional<double>;

Time Pick(const Project& project, int shot, int receiver) {
    const float time = project.ShotTimes(shot, receiver);
    return time > 0 ? Time(time) : std::nullopt;
}

Time Less(Time time, double ms) {
    return time ? Time(*time - ms) : std::nullopt;
}

Time Sum(Time from_left, Time from_right, double total_time) {
    if (!from_left || !from_right) return std::nullopt;
    return *from_left + *from_right - total_time;
}

/// Place across the picture; a line without a length has all its receivers at 0.
double Place_Of(const Project& project, int receiver) {
    return project.LineLength == 0 ? 0 : Position_Ecran(project, receiver);
}

}  // namespace

double ReceiverDelay::Delay() const {
    return D && *D > 0 ? Int(10 * *D) / 10 : 0;
}

std::vector<ReceiverDelay> Delay_Times(const Project& project, const DelayQuestion& question) {
    std::vector<ReceiverDelay> delays(static_cast<std::size_t>(std::max<int>(project.NbReceivers, 0)) + 1);
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        ReceiverDelay& found = delays[static_cast<std::size_t>(receiver)];
        found.X = Place_Of(project, receiver);
        // By way of the picture, as a place on it is read: the two shots stand there only if that number says
        // so.
        const double distance = found.X * project.LineLength / curve_picture_width;
        found.LeftOut = distance == project.ShotDistance(question.FixedLeft) &&
                        distance == project.ShotDistance(question.FixedRight);
        if (found.LeftOut) continue;
        const Time left =
            Less(Pick(project, question.MovingLeft, receiver), question.TimeFactor * question.ShiftLeft);
        const Time right =
            Less(Pick(project, question.MovingRight, receiver), question.TimeFactor * question.ShiftRight);
        const Time end_left = Pick(project, question.FixedLeft, receiver);
        const Time end_right = Pick(project, question.FixedRight, receiver);
        found.Left = std::max(0.0, left.value_or(0));
        found.Right = std::max(0.0, right.value_or(0));
        if (!question.Bedrock) {
            found.D = Sum(left, right, question.TotalTime);
            continue;
        }
        // The last test that holds counts, also where the limits cross.
        const auto [first, last] = *question.Bedrock;
        if (receiver <= first) found.D = Sum(left, end_right, question.TotalTime);
        if (receiver >= last) found.D = Sum(end_left, right, question.TotalTime);
        if (receiver >= first && receiver <= last) found.D = Sum(end_left, end_right, question.TotalTime);
    }
    return delays;
}

void Store_Delays(Project& project, const std::vector<ReceiverDelay>& delays) {
    const int last = static_cast<int>(delays.size()) - 1;
    if (!project.GrmData.Has(Project::GrmRows, last)) project.GrmData = {Project::GrmRows, last};
    for (int receiver = 1; receiver <= last; ++receiver) {
        const ReceiverDelay& found = delays[static_cast<std::size_t>(receiver)];
        if (found.LeftOut) continue;
        project.ReceiverData(ReceiverIntercept, receiver) = static_cast<float>(found.Delay());
        project.GrmData(1, receiver) = found.Left;
        project.GrmData(2, receiver) = found.Right;
    }
}

bool Has_Delays(const Project& project) {
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        if (project.ReceiverData.Has(ReceiverIntercept, receiver) &&
            project.ReceiverData(ReceiverIntercept, receiver) != 0)
            return true;
    }
    return false;
}

}  // namespace tarnvik
