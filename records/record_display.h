#pragma once

#include <functional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Colour of a shot's travel-time curve, so that the record shows it as the curves do.
using ShotColour = std::function<Colour(int shot)>;

/// Drawing styles by their index in Combo1; the list itself offers the first three.
enum RecordStyle : int { VariableArea = 0, WiggleOnly = 1, TwoColours = 2, AreaOnly = 3 };

/// World units of one trace; an amplitude of full scale reaches from one axis to the next.
inline constexpr double trace_width = 2000;
inline constexpr double amplitude_reference = 1000;

/// Draws the traces of Text9 to Text10 of an SU file on ecran, its time scale on echelle3, and fills the size
/// grid and the fields that tell the record's identity. Does nothing when there is no file or it is shorter
/// than 1000 bytes.
void Display_Record(Workspace& workspace, Ports& ports, const std::string& path,
                    const ShotColour& shot_colour = {});

/// The traces alone, with pick marks, shot marker and, when Check6 is set, the travel times. Draws on any
/// picture, so that a file or a page shows what the screen shows.
void Draw_Traces(Workspace& workspace, Picture& ecran, const std::string& path,
                 const ShotColour& shot_colour = {});

/// One row a trace; rows keep their factor when the record changes, empty or zero ones become 1.
void Fill_Size_Grid(Workspace& workspace);

/// Ticks and times in ms of the samples shown.
void Draw_Time_Scale(const RecordView& view, Picture& echelle3);

/// First-break times of one shot (Text21) or of all but the current one, over the traces shown.
void Draw_TT_On_Record(Workspace& workspace, Picture& ecran, const ShotColour& shot_colour);

/// Puts the fields at record `record`, held between 1 and the number of records: Text9, Text10, HScroll2.
void Select_Record(Workspace& workspace, int record);

/// After the user typed a range into Text9 and Text10: the record number that it stands for goes to HScroll2.
void Take_Typed_Range(Workspace& workspace);

/// After the user typed a station into Text13 or Text18: writes the shot station (`ep`) and the geophone
/// station (`tracl`) of the first trace shown into the SU file.
void Store_Stations(Workspace& workspace, Ports& ports, const std::string& path);

/// Receiver under the first trace shown: the geophone station of Text18, or the channel within the record
/// where that is no receiver of the line (a file whose `tracl` runs on from record to record).
int First_Receiver_Shown(const Workspace& workspace);

}  // namespace tarnvik
