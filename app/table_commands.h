#pragma once

namespace tarnvik {

class Session;

/// Opens `resu`, the results of the line as a table.
void Show_Results(Session& session);

// Tables of the line in memory that are written beside its project.

/// Distance, elevation and depths below each receiver as whole numbers.
void Record_Depth_File(Session& session);
/// The delay result line by receiver.
void Record_Delay_Results(Session& session);
/// The delays alone.
void Record_Delay_List(Session& session);
/// Depths below the shots.
void Record_Shot_Depths(Session& session);
/// The last three one after the other; those of the delays where there are any.
void Record_Ascii_Files(Session& session);

}  // namespace tarnvik
