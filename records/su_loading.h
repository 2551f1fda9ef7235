#pragma once

#include <cstdint>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "records/su_file.h"

namespace tarnvik {

/// Channels of a record by the channel words of traces 1 to `traces`: the largest number met before they
/// start again. 0 when the fifth trace has the number of the first, which is read as "the channel word does
/// not run"; records of four channels fall under this too, since
/// nothing in the file tells the two apart.
std::int16_t Channels_Per_Record(SuTraces& file, std::int32_t traces);

/// Reads counts and channels of an SU file into the view and puts the record display at its first record.
/// False when the file cannot be opened.
bool Scan_Channels(Workspace& workspace, const std::string& path);

/// The project's SU file stands on the record page as it is named now, without a question: shown when it is
/// there, otherwise nothing is.
void Open_Records(Workspace& workspace, Ports& ports);

/// The project's SU file holds other traces under the same name: they are counted anew and shown, at the
/// record that stood there where there is still such one. The part in sight stays where the traces are as
/// many and as long as before.
void Reopen_Records(Workspace& workspace, Ports& ports);

/// Nothing is shown any more of the records: ecran and its time scale are blank and clicks on them do
/// nothing. The ways of drawing and of picking stay as they are set.
void Close_Records(Workspace& workspace, Ports& ports);

/// Takes up another SU file in the view: no zoom, its twin (the file without "_flt", when it is a filtered
/// one), trace sizes back to 1.
void Start_With_SU_File(Workspace& workspace, const std::string& path);

/// Why a path cannot be used, in the words for the user; empty when it can. More than 90 characters, and
/// letters that the processing tools do not stand (codes below 45, so blanks too, and from 171 up, and those
/// that Windows-1252 lacks), are refused.
std::string Path_Refusal(const std::string& path);

/// Lets the user choose an SU file and loads it, with all its questions; shows its first record. False when
/// it was given up: then everything is as it was.
bool Load_SU_File(Workspace& workspace, Ports& ports);

/// The same for a file that is chosen already; `path` has not been looked at yet.
bool Load_Chosen_SU_File(Workspace& workspace, Ports& ports, const std::string& path);

/// Looks at the bytes of an SU file and tells in one message what is wrong and what is assumed. Answers the
/// file to open: the path itself, a little-endian copy that the user had made of a big-endian file, or
/// nothing when the file is refused or the user gave up. The file itself is never changed.
std::string Checked_SU_File(Workspace& workspace, Ports& ports, const std::string& path);

/// Load_SU_File on behalf of the project in memory, which keeps the name of its own file.
bool Load_SU_File_Of_Project(Workspace& workspace, Ports& ports);

/// True when the project's SU file is there. When it is missing the user may look for it: then Load_SU_File
/// decides. The project keeps its own name.
bool Locate_SU_File(Workspace& workspace, Ports& ports);

/// The SU file of a project just opened: looked for when missing, scanned when found. Where the stored file
/// and one of the same name beside the project are both there, the user says once which one is meant. A
/// project without SU file is left alone.
void Offer_SU_File(Workspace& workspace, Ports& ports);

/// Numbers all traces of the project's records: records from 1, channels 1 to `channels` in each. Answers the
/// reason of a failure, empty when it went well.
std::string Renumber_Traces(Workspace& workspace, std::int32_t traces, std::int32_t channels);

/// Picks of the table into the headers of the SU file, each at the trace of its shot and receiver.
void Grid_2_SU(Workspace& workspace, Ports& ports);

/// Picks of the headers into the table and ShotTimes, after a question (Command20, "Load FBP from SU
/// header"). Picks whose trace the file lacks stay.
void Load_FBP_From_SU_Header(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
