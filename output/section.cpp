#include "output/section.h"

#include <optional>
#include <string>
#include <utility>

#include "core/files.h"
#include "core/ports/passing_prompts.h"
#include "core/text/number.h"
#include "output/elevation_extremes.h"
#include "output/profile.h"
#include "output/section_files.h"

namespace tarnvik {

namespace {

constexpr double elevation_difference_limit = 90;
constexpr double elevation_step = 10;  ///< of elevations that fit

/// Elevations far from each other may be a slip: the user is asked.
bool Difference_Is_Meant(const Workspace& workspace, Ports& ports, SectionElevations between) {
    const double difference = between.Max - between.Min;
    return difference <= elevation_difference_limit ||
           ports.Ask.Ask_Yes("Are you sure that elevation difference is " + CStr(difference),
                             workspace.AppTitle);
}

bool Make_Grid_Of_Source(Workspace& workspace, Ports& ports, SectionElevations between) {
    switch (workspace.Section.Source) {
        case SectionSource::Abc:
            return ABC_Grille(workspace, ports, between);
        case SectionSource::Grm:
            return GRM_Grille(workspace, ports, between);
        case SectionSource::Shots:
            break;
    }
    return Shot_Grid(workspace, ports, between);
}

/// The ".dat" file beside the project. One of that name that is no section's is replaced only when the user
/// agrees.
void Write_Dat(Workspace& workspace, Ports& ports) {
    const std::string path = Section_Dat_File(workspace.Project.CurrentFile);
    if (!Is_Section_Dat(path) &&
        !ports.Ask.Ask_Yes(path + " already exists, overwrite ?", workspace.AppTitle, Icon::Warning))
        return;
    const std::string reason =
        Replace_File(path, Section_Dat(*workspace.Section.Grid, workspace.Project.LineLength));
    if (reason.empty()) return;
    ports.Ask.Say(path + " cannot be written: " + reason + ".", workspace.AppTitle, Icon::Critical);
}

}  // namespace

bool Command13(Workspace& workspace, Ports& ports, const FileRoutines& files) {
    const ProfileView& view = workspace.Profile;
    const SectionElevations fitting = Fitting_Elevations(workspace);
    const SectionElevations between = {view.GivenMaxElevation.value_or(fitting.Max),
                                       view.GivenMinElevation.value_or(fitting.Min)};
    if (!Difference_Is_Meant(workspace, ports, between)) return false;
    const bool saved = files.SaveProject(workspace, ports);
    if (!Make_Grid_Of_Source(workspace, ports, between)) return false;
    if (saved) Write_Dat(workspace, ports);
    if (between.Min >= fitting.Min + elevation_step) {
        workspace.Fields.Status =
            "The section ends above its deepest interface; an empty minimum elevation shows all of it";
    }
    ports.Show.Select_Tab(Tab::Section);
    ports.Show.Repaint_Page(Page::Section);
    ports.Show.Show_Fields();
    return true;
}

bool Make_Section(Workspace& workspace, Ports& ports, SectionElevations between) {
    return Difference_Is_Meant(workspace, ports, between) && Make_Grid_Of_Source(workspace, ports, between);
}

std::string Make_Section_Again(Workspace& workspace, Ports& ports) {
    SectionView& view = workspace.Section;
    if (!view.Grid) return "no section stands";
    const SectionElevations between = {view.Grid->MaxElevation, view.Grid->MinElevation};
    // The source chosen for the next section stays chosen.
    const SectionSource chosen = std::exchange(view.Source, view.Grid->Source);
    const std::string reason = Make_Section_Unasked(workspace, ports, between);
    view.Source = chosen;
    return reason;
}

std::string Make_Section_Unasked(Workspace& workspace, Ports& ports, SectionElevations between) {
    PassingPrompts prompts;
    Ports passing{prompts, ports.Show, ports.Launch};
    return Make_Grid_Of_Source(workspace, passing, between) ? std::string() : prompts.Last;
}

void Command19(Workspace& workspace, Ports& ports) {
    double mini = 0;
    double maxi = 0;
    Recherche_Alti_Mini_Maxi(workspace.Project, mini, maxi);
    Give_Profile_Elevations(workspace, ports, {maxi, mini});
    ports.Show.Show_Fields();
}

}  // namespace tarnvik
