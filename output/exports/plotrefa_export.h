#pragma once

#include <string>
#include <vector>

#include "output/exports/export_files.h"

namespace tarnvik {

/// What the user chooses for the PLOTREFA files.
struct PlotrefaChoices {
    double Spacing = 0;  ///< station spacing
    bool OffsetShots = false;
    double AddedDistance = 0;
};

/// The ASC file: a line of the version, one of the counts, then for each shot its distance and the number of
/// its picks, and below it receiver distance and time in ms of each pick.
std::string Plotrefa_Text(const Project& project, const std::vector<int>& shots,
                          const PlotrefaChoices& choices);
/// Distance and elevation of each receiver.
std::string Plotrefa_Receivers(const Project& project, const PlotrefaChoices& choices);

/// Distance that most neighbours of the receivers have, 1 with less than two of them.
double Usual_Spacing(const Project& project);

/// Menu entry `PLOTREFA_CNV`: asks for the line and its choices and writes NAME.VS, NAME_XZ.txt and
/// NAME2.ASC.
ExportReport Export_Plotrefa(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
