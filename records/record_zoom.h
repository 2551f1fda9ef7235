#pragma once

#include <cstdint>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "records/area_band.h"
#include "records/spectrum_area.h"

namespace tarnvik {

/// What part of the record is shown: the zoom to an area, by the time scale, and the way to the neighbouring
/// records.
class RecordZoom {
  public:
    RecordZoom(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    bool Command4Enabled = true;    ///< arming the zoom
    bool Command17Enabled = false;  ///< back to the complete record

    void Command4();   ///< the next drag on the record selects the area to show
    void Command17();  ///< complete record
    void Command21();  ///< complete record with size factors 1 and the gain typed
    void Command24();  ///< previous shot
    void Command23();  ///< next shot

    /// Shows the traces and samples of an area. An area of less than two traces is refused.
    void Zoom_To(const RecordArea& dragged);

    /// Mouse on the time scale echelle3, in samples: a drag selects the samples to show.
    void Scale_Press(double y);
    void Scale_Move(double y);
    void Scale_Release(double y);

  private:
    void Show_All();
    void Show_Neighbour(int step);
    void Draw_Scale_Line(double y);
    Workspace& Work;
    Ports& Outside;
    std::string ZoomedFile;  ///< file whose traces are zoomed, empty for none
    double FullFirst = 0;    ///< traces shown before the zoom
    double FullLast = 0;
    bool ScaleHeld = false;
    bool LineDrawn = false;
    double ScaleStart = 0;
    double LineAt = 0;
};

}  // namespace tarnvik
