#include "output/section_sources.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "core/end_shots.h"
#include "core/fault.h"
#include "core/files.h"
#include "core/grm_file.h"
#include "core/text/number.h"
#include "depth/shot_velocities.h"
#include "output/elevation_extremes.h"
#include "output/section_places.h"
#include "output/topo_rows.h"
#include "output/velocity_grid.h"

namespace tarnvik {

namespace {

constexpr int columns_a_quality = 120;
constexpr int grm_bedrock = 9;

bool Refuse(const Workspace& workspace, Ports& ports, const std::string& text) {
    ports.Ask.Say(text, workspace.AppTitle, Icon::Critical);
    return false;
}

/// A warning that the user may pass over: "Quit ?" with Yes ends.
bool Ends(const Workspace& workspace, Ports& ports, const std::string& question) {
    return ports.Ask.Ask_Yes(question, workspace.AppTitle, Icon::Warning);
}

void Make_Grid(Workspace& workspace, std::vector<SectionPlace> places, int columns,
               SectionElevations between) {
    SectionView& view = workspace.Section;
    if (places.empty()) throw Fault("nothing stands on the line");
    if (view.Smoothing) Smooth_Bedrock(places);
    if (view.SmoothingFactor > 1) Smooth_Interfaces(places, view.SmoothingFactor);
    GridLayout layout;
    layout.GridColumns = columns;
    layout.GridRows = Grid_Rows(between.Max, between.Min);
    layout.MaxElevation = between.Max;
    layout.MinElevation = between.Min;
    layout.LineLength = workspace.Project.LineLength;
    layout.Line = view.Line;
    view.Grid = Grid_Of_Places(places, layout, trace_surface_topo(workspace.Project, columns, between.Max));
    view.Grid->Source = view.Source;
}

/// Runs one source: the former grid is gone, and whatever cannot be computed is told.
bool Run_Source(Workspace& workspace, Ports& ports, SectionSource source,
                const std::function<bool()>& make_grid) {
    SectionView& view = workspace.Section;
    view.Grid.reset();
    view.Source = source;
    std::string failure;
    try {
        return make_grid();
    } catch (const Fault& fault) {
        failure = fault.what();
    } catch (const std::bad_alloc&) {
        failure = "not enough memory";
    }
    view.Grid.reset();
    return Refuse(workspace, ports, "This section is not possible: " + failure);
}

/// Checks of the shots on the line: depths, their number, their layers.
bool Shots_Will_Do(const Workspace& workspace, Ports& ports) {
    const Project& project = workspace.Project;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    last = std::min<int>(last, project.NbShots);
    double thickness = 0;
    bool same_layers = true;
    int layers_before = 0;
    for (int shot = first; shot <= last; ++shot) {
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer)
            thickness += project.ShotThickness(shot, layer);
        int layers = 0;
        std::array<double, Project::MaxLayers + 1> velocities{};
        Shot_Velocities(project, shot, layers, velocities);
        if (shot > first && layers != layers_before) same_layers = false;
        layers_before = layers;
    }
    if (thickness == 0) {
        // Whatever the answer: there is nothing that could be shown.
        Ends(workspace, ports, "You must first compute depth below all shot, Quit ?");
        return false;
    }
    if (project.NbShots == 2)
        return Refuse(workspace, ports, " This Graph is not possible with only two shots");
    return same_layers ||
           !Ends(workspace, ports,
                 "All shots must have then same layer number !, you can enter very thin ...virtual... layer. "
                 "Exit now ?");
}

bool Any_Above_0(const Project& project, ReceiverRow row) {
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        if (project.ReceiverData(row, receiver) > 0) return true;
    }
    return false;
}

/// Closes single gaps of the bedrock depth between the receivers that the distance XY reaches at both ends of
/// the line. False where two receivers beside each other have none.
bool Close_Bedrock_Gaps(Array2<double>& grm_data, int xy, int receivers) {
    for (int receiver = std::max(xy, 2); receiver <= receivers - std::max(xy, 1); ++receiver) {
        double& depth = grm_data(grm_bedrock, receiver);
        if (depth != 0) continue;
        const double before = grm_data(grm_bedrock, receiver - 1);
        const double behind = grm_data(grm_bedrock, receiver + 1);
        if (before == 0 || behind == 0) return false;
        depth = (before + behind) / 2;
    }
    return true;
}

/// What the GRM file beside the project holds; nothing when there is none or it is another line's.
std::optional<GrmContent> Recorded_Grm(const Project& project) {
    if (project.CurrentFile.empty()) return std::nullopt;
    const auto bytes = Read_File(Grm_File_Beside(project.CurrentFile));
    if (!bytes) return std::nullopt;
    GrmReading reading = Parse_Grm(*bytes, project.NbReceivers);
    if (!reading.Good) return std::nullopt;
    return std::move(reading.Content);
}

std::vector<SectionPlace> Places_Of(const Workspace& workspace) {
    const Project& project = workspace.Project;
    switch (workspace.Section.Source) {
        case SectionSource::Abc:
            return Places_Of_Abc(project, Abc_Has_Two_Layers(project));
        case SectionSource::Grm:
            if (const auto recorded = Recorded_Grm(project)) return Places_Of_Grm(project, recorded->Data);
            return {};
        case SectionSource::Shots:
            break;
    }
    return Places_Of_Shots(project, workspace.Section.SlopeCorrection);
}

}  // namespace

bool Abc_Has_Two_Layers(const Project& project) {
    return Any_Above_0(project, ReceiverRockDepth) && !Any_Above_0(project, ReceiverDepth2) &&
           !Any_Above_0(project, ReceiverScratch);
}

bool Shot_Grid(Workspace& workspace, Ports& ports, SectionElevations between) {
    return Run_Source(workspace, ports, SectionSource::Shots, [&] {
        if (!Shots_Will_Do(workspace, ports)) return false;
        const SectionView& view = workspace.Section;
        Make_Grid(workspace, Places_Of_Shots(workspace.Project, view.SlopeCorrection),
                  view.GridQuality * columns_a_quality, between);
        return true;
    });
}

bool ABC_Grille(Workspace& workspace, Ports& ports, SectionElevations between) {
    return Run_Source(workspace, ports, SectionSource::Abc, [&] {
        const Project& project = workspace.Project;
        const auto rows = {ReceiverRockDepth, ReceiverDepth1, ReceiverDepth2, ReceiverScratch};
        if (std::none_of(rows.begin(), rows.end(),
                         [&project](ReceiverRow row) { return Any_Above_0(project, row); })) {
            return Refuse(workspace, ports, "First, you must  compute depth below receivers with ABC method");
        }
        const bool two_layers = Abc_Has_Two_Layers(project);
        if (two_layers &&
            Ends(workspace, ports, "With two layers, ABC is not possible, add a third level, Quit ?"))
            return false;
        Make_Grid(workspace, Places_Of_Abc(project, two_layers), 2 * project.NbReceivers, between);
        return true;
    });
}

bool GRM_Grille(Workspace& workspace, Ports& ports, SectionElevations between) {
    return Run_Source(workspace, ports, SectionSource::Grm, [&] {
        const Project& project = workspace.Project;
        std::optional<GrmContent> recorded = Recorded_Grm(project);
        if (!recorded) return Refuse(workspace, ports, "You must first run and record GRM !");
        Array2<double>& grm_data = recorded->Data;
        if (!Close_Bedrock_Gaps(grm_data, recorded->GrmXY, project.NbReceivers)) {
            return Refuse(workspace, ports,
                          "Two consecutives empty values not admitted !, you must correct and re-run this "
                          "module");
        }
        Make_Grid(workspace, Places_Of_Grm(project, grm_data), 2 * project.NbReceivers, between);
        return true;
    });
}

SectionElevations Fitting_Elevations(const Workspace& workspace) {
    constexpr double step = 10;
    SectionElevations fitting;
    Recherche_Alti_Mini_Maxi(workspace.Project, fitting.Min, fitting.Max);
    double lowest = fitting.Min;
    try {
        for (const SectionPlace& place : Places_Of(workspace)) {
            for (const double depth : place.Depths)
                lowest = std::min(lowest, place.Elevation - depth);
        }
    } catch (const Fault&) {
        return fitting;  // what is wrong with the depths is told where the grid is made
    }
    // The deepest interface has some of its layer below it.
    if (lowest < fitting.Min) fitting.Min = step * Int((lowest - 1) / step);
    return fitting;
}

}  // namespace tarnvik
