#pragma once

#include <string>
#include <vector>

#include "core/project.h"
#include "output/exports/export_files.h"

namespace tarnvik {

/// A single-precision value of the project as the decimal number that the user knows (45.97 and not
/// 45.97000122).
double Plain(float value);

/// True for a shot outside the line, below distance 0 or beyond LineLength.
bool Is_Offset_Shot(const Project& project, int shot);

/// First break in ms, 0 without one: a time of 0 or below is none.
double First_Break(const Project& project, int shot, int receiver);
int Picks_Of_Shot(const Project& project, int shot);

double Receiver_Distance(const Project& project, int receiver);
double Receiver_Elevation(const Project& project, int receiver);
/// Elevation of the explosion, which lies ShotDepth below the ground.
double Source_Elevation(const Project& project, int shot);

/// The shots that go out, offset shots with them or not; the report counts them and their picks, and tells
/// what is left out: offset shots, and times below 0, which are no picks.
std::vector<int> Shots_To_Export(const Project& project, bool with_offset_shots, ExportReport& report);

/// Tells in the report which of these shots, and which receivers, have no picks, for formats that hold a line
/// for each pick and nothing else. They are not counted as written.
void Leave_Out_Without_Picks(const Project& project, const std::vector<int>& shots, ExportReport& report);

}  // namespace tarnvik
