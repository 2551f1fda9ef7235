#include "output/profile.h"

#include <algorithm>
#include <cmath>

#include "core/end_shots.h"
#include "core/fault.h"
#include "core/text/number.h"
#include "output/horizontal_distances.h"
#include "output/profile_painting.h"

namespace tarnvik {

namespace {

constexpr double elevation_span_limit = 90;
constexpr double single_factor_height = 100;

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

/// A line whose highest or lowest shot stands at 0 has most likely no elevations yet: the user gives them.
void Ask_If_Zero(Ports& ports, const std::string& question, double& elevation, std::string& field) {
    if (elevation != 0) return;
    field = ports.Ask.Input(question, " Seismic profile", "");
    elevation = Val(field);
}

/// Finds elevations and factors of the profile, asking and warning on the way.
void Measure_Profile(Workspace& workspace, Ports& ports) {
    const Project& project = workspace.Project;
    ProfileView& view = workspace.Profile;
    MainFields& fields = workspace.Fields;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    if (first > last) {
        ports.Ask.Say("Shot distance inverse, not possible", workspace.AppTitle, Icon::Warning);
    }
    const Extremes extremes = Extremes_Of(project, first, last);
    view.ProfileMaxElevation = extremes.MaxElevation;
    view.ProfileMinElevation = extremes.MinElevation;
    Ask_If_Zero(ports, "Maximum profile elevation", view.ProfileMaxElevation, fields.Text27);
    Ask_If_Zero(ports, "Minimum profile elevation", view.ProfileMinElevation, fields.Text33);
    fields.Text32 = CStr(Val(fields.Text27) - Val(fields.Text33));
    ports.Show.Show_Fields();
    if (std::abs(view.ProfileMaxElevation - view.ProfileMinElevation) > elevation_span_limit) {
        ports.Ask.Say("Impossible, elevation difference is more than 90 meters !", workspace.AppTitle,
                      Icon::Warning);
    }
    view.ProfileVScale = 1;
    workspace.Curves.ZoomX = 1;
    workspace.Curves.ZoomY = 1;
    view.ProfileMaxElevation = 10 * (1 + Int(view.ProfileMaxElevation / 10));
    Places_Of_Profile(workspace);  // a line of length 0 ends here, before anything is wiped
    const double height = extremes.MaxThickness + view.ProfileMaxElevation - view.ProfileMinElevation;
    view.ProfileVFactor = height > single_factor_height ? 2 : 1;
}

/// The places that the correction of slope distances changes, to put them back when nothing was drawn.
class KeptDistances {
  public:
    explicit KeptDistances(const Project& project)
        : ReceiverData(project.ReceiverData), ShotDistanceZ(project.ShotDistanceZ) {}
    void Put_Back(Project& project) const {
        project.ReceiverData = ReceiverData;
        project.ShotDistanceZ = ShotDistanceZ;
    }

  private:
    Array2<float> ReceiverData;
    Array1<double> ShotDistanceZ;
};

}  // namespace

void Draw_Seismic_Profile(Workspace& workspace, Ports& ports, Picture& profile, Picture& scale) {
    const KeptDistances before(workspace.Project);
    std::string failure;
    workspace.Profile.DrawnMode = workspace.Mode.On_Display();
    try {
        Horizontal_Distances(workspace, ports);
        Measure_Profile(workspace, ports);
        workspace.Curves.FrameDrawn = 2;
        failure = Paint_Profile(workspace, profile, scale);
    } catch (const Fault& fault) {
        failure = fault.what();
    }
    if (failure.empty()) return;
    before.Put_Back(workspace.Project);
    ports.Ask.Say(failure, "Seismic profile Error", Icon::Critical);
}

void Draw_Seismic_Profile(Workspace& workspace, Ports& ports) {
    Draw_Seismic_Profile(workspace, ports, ports.Show.Canvas_Of(Canvas::Dromo1),
                         ports.Show.Canvas_Of(Canvas::EchelleY1));
}

void Show_Combined(Workspace& workspace, Ports& ports) {
    ports.Show.Canvas_Of(Canvas::Dromo).Clear();
    workspace.Profile.ProfileOverlay = true;
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
