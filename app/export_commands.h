#pragma once

namespace tarnvik {

class Session;

/// Menu entries of the exports that choose their line in a file dialog. The line in memory is exported as it
/// stands there, any other one from its file; memory stays as it is.
void Export_To_Plotrefa(Session& session);
void Export_To_SeisOpt2D(Session& session);
void Export_To_Rayfract(Session& session);

/// Menu entries of the exports of the line in memory.
void Export_To_Unified_Format(Session& session);
void Export_Picks_As_Csv(Session& session);
void Export_Profile_As_Dxf(Session& session);
/// The coloured section in memory, or the one whose cells stand beside the project, for a map program.
void Export_To_Surfer(Session& session);

/// Picks of another program's file become a project file, which is opened.
void Import_Pick_File(Session& session);

}  // namespace tarnvik
