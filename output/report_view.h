#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/workspace.h"
#include "output/report_model.h"

namespace tarnvik {

/// What fills the layers.
enum class ReportFill { None, Colours, Hatching };

/// What the page of a report shows, and how.
struct ReportChoices {
    SectionSource Source = SectionSource::Shots;  ///< method whose layers are filled and have velocities
    std::array<bool, 3> Also{};  ///< methods whose interfaces are drawn too, by SectionSource
    InterfaceShape Shape = InterfaceShape::Arcs;
    ReportFill Fill = ReportFill::Colours;
    bool Shots = true;
    bool Geophones = true;
    bool Velocities = true;
    bool Errors = true;
    double Scale = 0;         ///< on paper 1 to so many; 0 for the largest round one that fits
    double Exaggeration = 0;  ///< of heights; 0 for the largest round one that fits
    // Texts of the title block; an empty one is the usual one, or is left out.
    std::string Line;  ///< usually the project's name
    std::string Company;
    std::string Date;   ///< usually today
    std::string North;  ///< beside the arrow, such as "N 35 E"

    bool operator==(const ReportChoices&) const = default;
};

/// State of the page.
struct ReportView {
    ReportChoices Choices;
    std::string Today;                      ///< date of a page that has none of its own
    std::optional<SectionWindow> Enlarged;  ///< nothing while all of it is in sight
};

/// The methods that the page shows, the one of the layers first; those without depths are left out.
std::vector<ReportModel> Models_Of(const Project& project, const ReportChoices& choices);

/// Distances of the ground, elevations of ground and deepest interface.
SectionWindow Report_Extent(const Project& project, const std::vector<ReportModel>& models);

}  // namespace tarnvik
