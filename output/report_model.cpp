#include "output/report_model.h"

#include <algorithm>

#include "core/end_shots.h"
#include "core/fault.h"
#include "depth/side_spread.h"
#include "output/section_sources.h"

namespace tarnvik {

namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

std::vector<SectionPlace> Places_In_Memory(const Project& project, SectionSource source) {
    try {
        switch (source) {
            case SectionSource::Abc:
                return Places_Of_Abc(project, Abc_Has_Two_Layers(project));
            case SectionSource::Grm:
                return Places_Of_Grm(project, project.GrmData);
            case SectionSource::Shots:
                break;
        }
        // Depths stay as they were computed: circles show what a slope does to them.
        return Places_Of_Shots(project, false);
    } catch (const Fault&) {
        return {};  // no depths, or those of another count of shots
    }
}

int Deepest_Layer(const SectionPlace& place) {
    for (int layer = Project::MaxRefractors; layer > 0; --layer) {
        if (place.Depths[At(layer)] > 0) return layer;
    }
    return 0;
}

/// Depth of an interface below a place: that of the one above it where the layer between has thinned out, 0
/// for none.
double Depth_Of(const SectionPlace& place, int layer) {
    if (!place.Known || layer > Deepest_Layer(place)) return 0;
    while (layer > 0 && place.Depths[At(layer)] <= 0)
        --layer;
    return layer > 0 ? place.Depths[At(layer)] : 0;
}

ReportCurve Run_Through(const std::vector<DepthArc>& arcs, InterfaceShape shape) {
    if (shape == InterfaceShape::Arcs) return Envelope_Of_Arcs(arcs);
    ReportCurve run;
    for (const DepthArc& arc : arcs)
        run.push_back({arc.Centre.X, arc.Centre.Z - arc.Radius});
    return run;
}

ReportInterface Interface_Of(const std::vector<SectionPlace>& places, int layer, InterfaceShape shape) {
    ReportInterface found;
    found.Layer = layer;
    std::vector<DepthArc> run;
    const auto end_run = [&] {
        if (run.empty()) return;
        found.Runs.push_back(Run_Through(run, shape));
        if (shape == InterfaceShape::Arcs) found.Arcs.insert(found.Arcs.end(), run.begin(), run.end());
        run.clear();
    };
    for (const SectionPlace& place : places) {
        const double depth = Depth_Of(place, layer);
        if (depth > 0) {
            run.push_back({{place.Distance, place.Elevation}, depth});
        } else {
            end_run();
        }
    }
    end_run();
    return found;
}

/// Error bars at the shots, the only places whose depths have errors that are known.
std::vector<DepthError> Errors_Of_Shots(const Project& project) {
    std::vector<DepthError> errors;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    for (int shot = first; shot <= std::min<int>(last, project.NbShots); ++shot) {
        const DepthWork::PerRefractor spread = Spread_Of_Sides(project, shot);
        double depth = 0;
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer) {
            depth += project.ShotThickness(shot, layer);
            if (spread[At(layer)] <= 0) continue;
            errors.push_back(
                {{project.ShotDistance(shot), project.ShotElevation(shot) - depth}, spread[At(layer)]});
        }
    }
    return errors;
}

}  // namespace

std::optional<double> ReportModel::Elevation_Of(int layer, double x) const {
    for (const ReportInterface& each : Interfaces) {
        if (each.Layer != layer) continue;
        for (const ReportCurve& run : each.Runs) {
            if (const auto z = Curve_At(run, x)) return z;
        }
    }
    return std::nullopt;
}

double ReportModel::Mean_Velocity(int layer) const {
    double sum = 0;
    int count = 0;
    for (const SectionPlace& place : Places) {
        const double velocity = place.Velocities[At(layer)];
        if (!place.Known || velocity <= 0) continue;
        sum += velocity;
        ++count;
    }
    return count > 0 ? sum / count : 0;
}

ReportCurve Ground_Of(const Project& project) {
    ReportCurve ground;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    for (int shot = first; shot <= std::min<int>(last, project.NbShots); ++shot)
        ground.push_back({project.ShotDistance(shot), project.ShotElevation(shot)});
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        ground.push_back({project.ReceiverData(ReceiverDistance, receiver),
                          project.ReceiverData(ReceiverElevation, receiver)});
    }
    std::stable_sort(ground.begin(), ground.end(),
                     [](const ReportPoint& a, const ReportPoint& b) { return a.X < b.X; });
    return ground;
}

ReportModel Model_Of(const Project& project, SectionSource source, InterfaceShape shape) {
    ReportModel model;
    model.Source = source;
    model.Places = Places_In_Memory(project, source);
    std::stable_sort(model.Places.begin(), model.Places.end(),
                     [](const SectionPlace& a, const SectionPlace& b) { return a.Distance < b.Distance; });
    int deepest = 0;
    for (const SectionPlace& place : model.Places)
        deepest = std::max(deepest, place.Known ? Deepest_Layer(place) : 0);
    const ReportCurve ground = Ground_Of(project);
    for (int layer = 1; layer <= deepest; ++layer) {
        ReportInterface next = Interface_Of(model.Places, layer, shape);
        for (ReportCurve& run : next.Runs) {
            run = Held_Below(run, ground);
            if (layer == 1) continue;
            for (const ReportCurve& above : model.Interfaces.back().Runs)
                run = Held_Below(run, above);
        }
        model.Interfaces.push_back(std::move(next));
    }
    if (source == SectionSource::Shots && deepest > 0) model.Errors = Errors_Of_Shots(project);
    return model;
}

std::string_view Method_Name(SectionSource source) {
    switch (source) {
        case SectionSource::Abc:
            return "ABC";
        case SectionSource::Grm:
            return "GRM";
        case SectionSource::Shots:
            break;
    }
    return "Shots";
}

}  // namespace tarnvik
