#include "setup/spread.h"

#include <algorithm>
#include <cmath>

#include "core/files.h"
#include "core/project_file.h"
#include "core/text/number.h"
#include "records/su_check.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "setup/geometry.h"

namespace tarnvik {

namespace {

constexpr int most_receivers = 32767;

double Element(const std::vector<double>& values, int number) {
    return number <= static_cast<int>(values.size()) ? values[static_cast<std::size_t>(number) - 1] : 0;
}

}  // namespace

double Shot_Step(double line_length, int shots, bool offsets) {
    const int steps = shots - (offsets ? 3 : 1);
    return line_length / std::max(steps, 1);
}

std::vector<double> Even_Shot_Places(double line_length, int shots, bool offsets) {
    const double step = Shot_Step(line_length, shots, offsets);
    std::vector<double> places;
    for (int shot = 1; shot <= shots; ++shot)
        places.push_back((shot - 1) * step - (offsets ? step : 0));
    return places;
}

std::optional<RecordedSpread> Recorded_Spread(const std::string& su_file) {
    SuTraces file(su_file);
    if (!file.Is_Open()) return std::nullopt;
    RecordedSpread spread;
    spread.Traces = file.Nb_Traces().value_or(0);
    for (std::int32_t trace = 1; trace <= spread.Traces; ++trace) {
        const auto channel = file.Channel(trace);
        if (!channel) break;
        spread.Channels = std::max(spread.Channels, *channel);
    }
    if (spread.Channels > 0)
        spread.Records = static_cast<int>(Rounded(static_cast<double>(spread.Traces) / spread.Channels));
    return spread;
}

std::string Spread_Refusal(const Spread& spread) {
    if (spread.NbShots > Project::MaxShots) return "Maximum 72 shots";
    if (!(spread.NbShots >= 1)) return "The number of shots must be 1 to 72";
    if (!(spread.NbReceivers >= 1 && spread.NbReceivers <= most_receivers))
        return "The number of receivers must be 1 to " + CStr(most_receivers);
    if (!std::isfinite(spread.LineLength) || !std::isfinite(spread.Spacing) ||
        !std::isfinite(spread.FirstDistance) || !std::isfinite(spread.ShotDepth)) {
        return "A distance is out of range";
    }
    return {};
}

std::string Set_Up_Project(Workspace& workspace, const Spread& spread) {
    const std::string refusal = Spread_Refusal(spread);
    if (!refusal.empty()) return refusal;
    Project& project = workspace.Project;
    project.NbShots = CInt_Or_Fault(spread.NbShots);
    project.NbReceivers = CInt_Or_Fault(spread.NbReceivers);
    project.GeoSpace = spread.Spacing;
    project.LineLength = Filed_Place(spread.LineLength);
    project.TotalTime = 0;
    project.DistanceShift = 0;
    project.remark_grid.Clear();
    Affiche_Remark_Grid(project);
    Redimension_Project(project);
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        project.ShotDistance(shot) = Filed_Place(Element(spread.ShotPlaces, shot));
        project.ShotElevation(shot) = Element(spread.ShotElevations, shot);
        project.ShotDepth(shot) = spread.ShotDepth;
    }
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const double even = spread.FirstDistance + (receiver - 1) * spread.Spacing;
        project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(
            spread.ReceiverPlaces.empty() ? even : Element(spread.ReceiverPlaces, receiver));
        project.ReceiverData(ReceiverElevation, receiver) =
            static_cast<float>(Element(spread.ReceiverElevations, receiver));
    }
    workspace.Velocity = {};
    workspace.Fields.Text25 = CStr(project.TotalTime);
    workspace.Fields.Label16 = project.SuFile;
    Scale_Time_Grid(workspace);
    return {};
}

std::string Build_New_Project(Workspace& workspace, const NewProjectRequest& request) {
    std::string refusal = Path_Refusal(request.SuFile);
    if (!refusal.empty()) return refusal;
    const auto recorded = Recorded_Spread(request.SuFile);
    if (!recorded) return request.SuFile + " cannot be opened";
    if (recorded->Traces < 1) return request.SuFile + " holds no trace";
    const SuCheck check = Check_Su_File(request.SuFile);
    if (check.Refused()) return check.Message(request.SuFile);
    if (recorded->Channels < 1 && !request.Receivers)
        return request.SuFile + " has no channel numbers: the number of receivers must be given";
    if (!(request.Spacing > 0)) return "The geophone spacing must be above 0";
    if (request.LineLength && !(*request.LineLength > 0)) return "The line length must be above 0";

    Spread spread;
    spread.Spacing = request.Spacing;
    spread.FirstDistance = request.FirstDistance;
    spread.ShotDepth = request.ShotDepth;
    spread.NbReceivers = request.Receivers.value_or(recorded->Channels);
    const int given = static_cast<int>(request.ShotDistances.size());
    if (request.Shots) {
        spread.NbShots = *request.Shots;
    } else if (given > 0) {
        spread.NbShots = given;
    } else if (recorded->Channels > 0) {
        spread.NbShots = recorded->Records;
    } else if (spread.NbReceivers > 0) {
        spread.NbShots = Rounded(recorded->Traces / spread.NbReceivers);
    }
    spread.LineLength = request.LineLength.value_or(spread.Spacing * (spread.NbReceivers - 1));
    refusal = Spread_Refusal(spread);
    if (!refusal.empty()) return refusal;
    if (given > 0 && given != spread.NbShots) {
        return CStr(given) + " shot distances were given for " + CStr(spread.NbShots) + " shots";
    }
    spread.ShotPlaces =
        given > 0 ? request.ShotDistances
                  : Even_Shot_Places(spread.LineLength, static_cast<int>(spread.NbShots), request.Offsets);

    workspace.Project.SuFile = request.SuFile;
    workspace.Project.CurrentFile = request.ProjectFile;
    Split_Project_Path(workspace.Project, request.ProjectFile);
    refusal = Set_Up_Project(workspace, spread);
    Fill_Grid(workspace);
    Scan_Channels(workspace, request.SuFile);
    return refusal;
}

}  // namespace tarnvik
