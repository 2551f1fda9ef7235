#include "output/section_places.h"

#include <algorithm>

#include "core/end_shots.h"
#include "depth/shot_velocities.h"
#include "output/slope_factor.h"

namespace tarnvik {

namespace {

constexpr int grm_velocity1 = 4;
constexpr int grm_thickness1 = 7;
constexpr int grm_bedrock = 9;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

SectionPlace Place_Of_Receiver(const Project& project, int receiver) {
    SectionPlace place;
    place.Distance = project.ReceiverData(ReceiverDistance, receiver);
    place.Elevation = project.ReceiverData(ReceiverElevation, receiver);
    return place;
}

/// Deepest interface of a place, 0 without any.
int Deepest(const SectionPlace& place) {
    for (int layer = Project::MaxRefractors; layer > 0; --layer) {
        if (place.Depths[At(layer)] > 0) return layer;
    }
    return 0;
}

/// Mean of an interface over the places within `half` of one, those without it left out.
double Mean_Around(const std::vector<SectionPlace>& places, int place, int half, int layer) {
    double sum = 0;
    int count = 0;
    for (int near = place - half; near <= place + half; ++near) {
        const double depth = places[At(near)].Depths[At(layer)];
        if (depth <= 0) continue;
        sum += depth;
        ++count;
    }
    return count > 0 ? sum / count : 0;
}

}  // namespace

std::vector<SectionPlace> Places_Of_Shots(const Project& project, bool slope) {
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    last = std::min<int>(last, project.NbShots);
    std::vector<SectionPlace> places;
    for (int shot = first; shot <= last; ++shot) {
        SectionPlace place;
        place.Distance = project.ShotDistance(shot);
        place.Elevation = project.ShotElevation(shot);
        int count = 0;
        Shot_Velocities(project, shot, count, place.Velocities);
        if (slope) Calcul_Facteur_Pente(project, shot, first, last, place.Factor);
        double depth = 0;
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer) {
            const double thickness = place.Factor * project.ShotThickness(shot, layer);
            if (thickness <= 0) continue;
            depth += thickness;
            place.Depths[At(layer)] = depth;
        }
        place.Known = depth > 0;
        places.push_back(place);
    }
    return places;
}

std::vector<SectionPlace> Places_Of_Abc(const Project& project, bool two_layers) {
    const std::array velocities = {ReceiverV1, ReceiverV2, ReceiverV3, ReceiverV4};
    const std::vector<ReceiverRow> depths =
        two_layers ? std::vector{ReceiverRockDepth}
                   : std::vector{ReceiverDepth1, ReceiverDepth2, ReceiverScratch};
    std::vector<SectionPlace> places;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        SectionPlace place = Place_Of_Receiver(project, receiver);
        for (std::size_t layer = 0; layer < velocities.size(); ++layer)
            place.Velocities[layer + 1] = project.ReceiverData(velocities[layer], receiver);
        for (std::size_t layer = 0; layer < depths.size(); ++layer)
            place.Depths[layer + 1] = std::max(0.0F, project.ReceiverData(depths[layer], receiver));
        place.Known = Deepest(place) > 0;
        places.push_back(place);
    }
    return places;
}

std::vector<SectionPlace> Places_Of_Grm(const Project& project, const Array2<double>& grm_data) {
    std::vector<SectionPlace> places;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        SectionPlace place = Place_Of_Receiver(project, receiver);
        for (int layer = 1; layer <= 3; ++layer)
            place.Velocities[At(layer)] = grm_data(grm_velocity1 + layer - 1, receiver);
        place.Depths[1] = std::max(0.0, grm_data(grm_thickness1, receiver));
        place.Depths[2] = std::max(0.0, grm_data(grm_bedrock, receiver));
        // The first thickness is interpolated to the ends of the line, where the bedrock is not reached.
        place.Known = place.Depths[2] > 0;
        places.push_back(place);
    }
    return places;
}

void Smooth_Bedrock(std::vector<SectionPlace>& places) {
    const std::vector<SectionPlace> rough = places;
    for (std::size_t i = 1; i + 1 < rough.size(); ++i) {
        const int bedrock = Deepest(rough[i]);
        const int before = Deepest(rough[i - 1]);
        const int behind = Deepest(rough[i + 1]);
        if (bedrock == 0 || before == 0 || behind == 0) continue;
        double depth = (rough[i - 1].Depths[At(before)] + rough[i].Depths[At(bedrock)] +
                        rough[i + 1].Depths[At(behind)]) /
                       3;
        for (int layer = 1; layer < bedrock; ++layer)
            depth = std::max(depth, rough[i].Depths[At(layer)]);
        places[i].Depths[At(bedrock)] = depth;
    }
}

void Smooth_Interfaces(std::vector<SectionPlace>& places, int over) {
    const std::vector<SectionPlace> rough = places;
    const int count = static_cast<int>(rough.size());
    for (int place = 0; place < count; ++place) {
        const int half = std::min({over / 2, place, count - 1 - place});
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer) {
            double& depth = places[At(place)].Depths[At(layer)];
            if (depth > 0) depth = Mean_Around(rough, place, half, layer);
        }
    }
}

}  // namespace tarnvik
