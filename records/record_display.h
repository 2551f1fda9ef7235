#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "records/record_files.h"
#include "records/spread_layout.h"

namespace tarnvik {

/// Colour of a shot's travel-time curve, so that the record shows it as the curves do.
using ShotColour = std::function<Colour(int shot)>;

/// Colour of a pick's mark: red by hand, blue by the automatic picking, green where it was dragged to.
Colour Pick_Colour(PickOrigin origin);

/// Drawing styles by their index in the list, which itself offers the first three.
enum RecordStyle : int { VariableArea = 0, WiggleOnly = 1, TwoColours = 2, AreaOnly = 3 };

/// An amplitude of full scale reaches this far, from one axis to the next.
inline constexpr double amplitude_reference = 1000;

/// Draws the traces shown of an SU file on ecran, its time scale on echelle3, and fills the size grid and the
/// record's identity. Asks nothing, writes nothing and reads that file alone. Does nothing when there is no
/// file or it is shorter than 1000 bytes. Open_Record, Measure_Record and Draw_Traces are its steps.
void Display_Record(Workspace& workspace, Ports& ports, const std::string& path,
                    const ShotColour& shot_colour = {});

/// Takes the counts of a file as they are now; another program may have changed it. A file met for the first
/// time is scanned for its channels. False when there is nothing to show.
bool Open_Record(Workspace& workspace, const std::string& path);

/// Scale and thinning for a picture of this size, and what the headers tell of the record.
void Measure_Record(Workspace& workspace, const Frame& frame, const std::string& path);

/// The traces alone, with pick marks where they are wanted, shot marker and, when they are wanted, the travel
/// times. Draws on any picture, so that a file or a page shows what the screen shows.
void Draw_Traces(Workspace& workspace, Picture& ecran, const std::string& path,
                 const ShotColour& shot_colour = {}, bool with_picks = true);

/// Shows the picks of some traces of the file anew on the record that stands on ecran, without drawing its
/// traces. Draws the whole record where that does not do: one of them has died or come back to life, or
/// ecran is not as it was left. Without colours a record with travel times is drawn as a whole.
void Show_Picks_On_Record(Workspace& workspace, Ports& ports, std::int64_t first_trace,
                          std::int64_t last_trace, const ShotColour& shot_colour = {});

/// Shows what an edit, an undo or a redo changed on the record: the picks named, the whole record, another
/// file, or nothing. Comes after the table was filled, which the shot marker is taken from.
void Show_Change_On_Record(Workspace& workspace, Ports& ports, const ChangeNotice& notice,
                           const ShotColour& shot_colour);

/// One row a trace; rows keep their factor when the record changes, empty or zero ones become 1.
void Fill_Size_Grid(Workspace& workspace);

/// Ticks and times in ms of the samples shown; also on the floating ruler strip.
void Draw_Time_Scale(const RecordView& view, Picture& echelle3);

/// First-break times of one shot (CurveOnRecord) or of all but the record's own, over the traces shown.
void Draw_TT_On_Record(const Workspace& workspace, Picture& ecran, const SpreadLayout& spread,
                       const ShotColour& shot_colour);

/// "2/ FLDR 207": the record and its field record number.
std::string Record_Identity(const RecordView& view);

}  // namespace tarnvik
