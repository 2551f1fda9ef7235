#pragma once

#include <cstdint>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "processing/trace_count.h"

namespace tarnvik {

/// Dialog Update_FLDR, "Update FLDR and TRACF": numbers the traces and records of an SU file anew, for
/// recorders that do not write these words or write them badly.
class Update_FLDR {
  public:
    Update_FLDR(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    /// The form opens on the project's SU file.
    void Load();
    void Command1();  ///< "Input SU  file": asks for it
    void Input_Typed();
    /// "RENUMBER": one edit over all traces; stopped by the progress it leaves the file as it was.
    void Command3(const TraceProgress& progress = {});
    void Command4();  ///< the help

    std::string Text1;  ///< SU file
    std::string Text3;  ///< traces of a record
    std::string Text4;  ///< number of the first record
    std::string Hint;

  private:
    bool File_Refused();
    bool Records_Refused(std::int64_t channels, std::int32_t& first_record);
    void Renumber(std::int32_t channels, std::int32_t first_record, const TraceProgress& progress);
    void Channels_Are(std::int32_t channels);
    void Say(const std::string& text, Icon icon = Icon::Critical);

    Workspace& Work;
    Ports& Outside;
    std::string Shown;  ///< the file that Text3 was looked up in
    std::int64_t NbTraces = 0;
};

}  // namespace tarnvik
