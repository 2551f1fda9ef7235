#include "output/profile.h"

#include <algorithm>
#include <cmath>

#include "core/end_shots.h"
#include "core/fault.h"
#include "core/ports/silent_picture.h"
#include "core/text/number.h"
#include "output/horizontal_distances.h"
#include "output/profile_painting.h"
#include "traveltime/zoom.h"

namespace tarnvik {

namespace {

constexpr double elevation_span_limit = 90;
constexpr double single_factor_height = 100;
constexpr double largest_elevation = 32767;

/// Highest and lowest end shot or shot between them, and the thickest layer below them.
struct Extremes {
    double MaxElevation = 0;
    double MinElevation = 99999;
    double MaxThickness = 0;
};

Extremes Extremes_Of(const Project& project, int first, int last) {
    Extremes found;
    for (int shot = first; shot <= last; ++shot) {
        found.MaxElevation = std::max(found.MaxElevation, project.ShotElevation(shot));
        found.MinElevation = std::min(found.MinElevation, project.ShotElevation(shot));
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer)
            found.MaxThickness = std::max(found.MaxThickness, project.ShotThickness(shot, layer));
    }
    return found;
}

/// A line whose highest or lowest shot stands at 0 has most likely no elevations yet: the user gives them,
/// and meets what he gave before as the default.
void Ask_If_Zero(Ports& ports, const std::string& question, double& elevation,
                 std::optional<double>& answered) {
    if (elevation != 0) return;
    const std::string typed =
        ports.Ask.Input(question, " Seismic profile", answered ? CStr(*answered) : std::string());
    elevation = Val(typed);
    answered.reset();
    if (!typed.empty()) answered = elevation;
}

/// Vertical places of the profile between two elevations.
void Set_Places(ProfileView& view, double highest, double lowest, double thickness) {
    view.ProfileMinElevation = lowest;
    view.ProfileVScale = 1;
    view.ProfileMaxElevation = 10 * (1 + Int(highest / 10));
    view.ProfileVFactor = thickness + view.ProfileMaxElevation - lowest > single_factor_height ? 2 : 1;
}

void Check_Span(const Workspace& workspace, Ports& ports, double highest, double lowest) {
    if (std::abs(highest - lowest) <= elevation_span_limit) return;
    ports.Ask.Say("Impossible, elevation difference is more than 90 meters !", workspace.AppTitle,
                  Icon::Warning);
}

/// Finds elevations and factors of the profile, asking and warning on the way.
void Measure_Profile(Workspace& workspace, Ports& ports, const ProfileElevations& given) {
    const Project& project = workspace.Project;
    ProfileView& view = workspace.Profile;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    if (first > last) {
        ports.Ask.Say("Shot distance inverse, not possible", workspace.AppTitle, Icon::Warning);
    }
    const Extremes extremes = Extremes_Of(project, first, last);
    double highest = given.Max.value_or(extremes.MaxElevation);
    double lowest = given.Min.value_or(extremes.MinElevation);
    if (!given.Max) Ask_If_Zero(ports, "Maximum profile elevation", highest, view.GivenMaxElevation);
    if (!given.Min) Ask_If_Zero(ports, "Minimum profile elevation", lowest, view.GivenMinElevation);
    Check_Span(workspace, ports, highest, lowest);
    Set_Places(view, highest, lowest, extremes.MaxThickness);
    view.ZoomX = view.ZoomY = 1;
    view.Across = view.Up = 0;
    view.ExactWindow = false;
    Set_Zoom(workspace.Curves, 1, 1);
}

/// Corrects the slope distances as an edit of its own. A line that is flat stays without one.
void Correct_Distances(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    EditScope edit(workspace, "Horizontal distances of the profile");
    const Array2<float> as_measured = project.ReceiverData;
    const Array1<double> places = project.ShotDistanceZ;
    Horizontal_Distances(workspace, ports);
    if (project.ReceiverData == as_measured) {
        project.ShotDistanceZ = places;
        return;
    }
    edit.End();
    workspace.Fields.Status = "Slope distances of the receivers became horizontal ones; Ctrl+Z takes it back";
}

/// Why the profile of this project cannot be painted; empty when it can.
std::string Reason_Against_Painting(const Workspace& workspace) {
    SilentPicture profile;
    SilentPicture scale;
    return Paint_Profile(workspace, profile, scale);
}

/// The profile that stands, between the elevations typed beside it. What is not typed is taken of the line.
void Draw_Between_Given_Elevations(Workspace& workspace, Ports& ports) {
    ProfileView& view = workspace.Profile;
    if (workspace.Curves.FrameDrawn != 2) return;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(workspace.Project, first, last);
    try {
        const Extremes extremes = Extremes_Of(workspace.Project, first, last);
        const double highest = view.GivenMaxElevation.value_or(extremes.MaxElevation);
        const double lowest = view.GivenMinElevation.value_or(extremes.MinElevation);
        // A number that is still being typed may be anything.
        if (std::abs(highest) > largest_elevation || std::abs(lowest) > largest_elevation) return;
        Set_Places(view, highest, lowest, extremes.MaxThickness);
    } catch (const Fault&) {
        return;
    }
    ports.Show.Show_Profile();
}

}  // namespace

void Draw_Seismic_Profile(Workspace& workspace, Ports& ports, const ProfileElevations& given) {
    const DisplayMode before = workspace.Profile.DrawnMode;
    workspace.Profile.DrawnMode = workspace.Mode.On_Display();
    std::string failure = Reason_Against_Painting(workspace);
    if (failure.empty()) {
        try {
            Correct_Distances(workspace, ports);
            Measure_Profile(workspace, ports, given);
            workspace.Curves.FrameDrawn = 2;
            ports.Show.Show_Profile();
            return;
        } catch (const Fault& fault) {
            failure = fault.what();
        }
    }
    workspace.Profile.DrawnMode = before;
    ports.Ask.Say(failure, "Seismic profile Error", Icon::Critical);
}

void Give_Profile_Elevations(Workspace& workspace, Ports& ports, const ProfileElevations& given) {
    workspace.Profile.GivenMaxElevation = given.Max;
    workspace.Profile.GivenMinElevation = given.Min;
    Draw_Between_Given_Elevations(workspace, ports);
}

void Show_Combined(Workspace& workspace, Ports& ports) {
    Set_Zoom(workspace.Curves, 1, 1);
    ports.Show.Canvas_Of(Canvas::Dromo).Clear();
    ports.Show.Show_Curves();
    workspace.Mode.Display(DisplayMode::Profil3);
    Draw_Seismic_Profile(workspace, ports);
    workspace.Curves.FrameDrawn = 2;
    workspace.Mode.Display(DisplayMode::Both);
    ports.Show.Show_Fields();
}

void Show_Profile_Readout(Workspace& workspace, Ports& ports, double x, double y) {
    try {
        const ProfilePlaces places = Places_Of_Profile(workspace);
        const std::int16_t distance = CInt_Or_Fault(places.Distance(x));
        const std::int16_t elevation = CInt_Or_Fault(places.Elevation(y));
        workspace.Fields.ProfileReadout = "X=" + CStr(distance) + "m Z=" + CStr(elevation) + "m";
    } catch (const Fault&) {
        return;
    }
    ports.Show.Show_Fields();
}

}  // namespace tarnvik
