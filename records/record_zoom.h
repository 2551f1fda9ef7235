#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "records/spectrum_area.h"

namespace tarnvik {

/// What part of the record is shown: the enlargement of an area and of a stretch of time.
class RecordZoom {
  public:
    RecordZoom(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    void Arm();         ///< Command4: the next drag on the record selects the area to show
    void Show_Whole();  ///< Command17: complete record
    void Refresh();     ///< Command21: complete record with size factors 1
    /// True while a part of the record is shown or an area is awaited.
    bool Enlarged() const;

    /// Shows the traces and samples of an area. An area of less than two traces is refused.
    void Zoom_To(const RecordArea& dragged);

    /// Mouse on the time scale echelle3, in samples: a drag selects the samples to show.
    void Scale_Press(double y);
    void Scale_Move(double y);
    void Scale_Release(double y);

  private:
    void Show_All();
    void Draw_Scale_Line(double y);
    Workspace& Work;
    Ports& Outside;
    bool ScaleHeld = false;
    bool LineDrawn = false;
    double ScaleStart = 0;
    double LineAt = 0;
};

}  // namespace tarnvik
