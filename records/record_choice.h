#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Which record and which of its traces are shown.

/// Puts the view at record `record`, held between 1 and the number of records: all its traces, CurrentShot.
void Select_Record(Workspace& workspace, int record);

/// The user goes to a record (scroll bar, a row of Grille_Shot): selects it, asks for its stations where that
/// is wanted and shows it.
void Go_To_Record(Workspace& workspace, Ports& ports, int record);

/// Record before (-1) or behind (1) the one shown, with the same traces of it; nothing beyond the line's
/// shots.
void Go_To_Neighbour(Workspace& workspace, Ports& ports, int step);

/// False beyond the line's shots and the file's records.
bool Has_Neighbour(const Workspace& workspace, int step);

/// After the user typed a range into FirstTrace and LastTrace: CurrentShot follows the quotient, the record
/// stays.
void Take_Typed_Range(Workspace& workspace);

/// Asks for the stations of the record, once for each while "Multi spead profile" is set, and stores the
/// answers. What was entered is offered for the next record.
void Ask_Stations(Workspace& workspace, Ports& ports);

/// After the user typed a station into ShotStation or FirstGeophone, which belong to the first trace shown:
/// `ep` and `tracl` of the first trace of its record take them.
void Take_Typed_Stations(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
