#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "records/area_band.h"
#include "records/auto_pik.h"
#include "records/pick_painting.h"
#include "records/record_zoom.h"

namespace tarnvik {

/// A press, move or release on a picture of the field record, in its world coordinates.
struct RecordEvent {
    double X = 0;
    double Y = 0;
    int Button = 0;  ///< 1 left, 2 right, 0 none; in a move the one that is held
};

/// The mouse on the record picture: picks, kills, drags of a pick, reversed traces, and the areas that the
/// zoom and the spectrum ask for.
///
/// A pick goes to the SU file and its twin, to ShotTimes and to Buildgrid, and is with the operating system
/// when the event returns. Where the file cannot be written the pick still goes to ShotTimes and the curves,
/// and the status field tells what is missing where.
class RecordPointer {
  public:
    RecordPointer(Workspace& workspace, Ports& ports, AutoPik& automatic, RecordZoom& zoom)
        : Work(workspace), Outside(ports), Automatic(automatic), Zoom(zoom), Painting(workspace, ports) {}

    /// The left button picks at once. The right one waits for its release, since it may become a drag.
    void Press(const RecordEvent& event);
    void Move(const RecordEvent& event);
    void Release(const RecordEvent& event);

  private:
    bool Area_Armed() const { return Work.Record.SpectrumRequest == 1 || Work.Record.ZoomMode == 1; }
    void Click(double x, double y, int button);
    void Pick(int trace, double y);
    void Read_Out(const RecordEvent& event);
    void Drag(const RecordEvent& event);

    Workspace& Work;
    Ports& Outside;
    AutoPik& Automatic;
    RecordZoom& Zoom;
    PickPainting Painting;
    AreaBand Band;
    bool RightHeld = false;
    bool Dragged = false;
    int Drags = 0;  ///< numbers the drags, whose events are one edit each
    RecordEvent Pressed;
};

}  // namespace tarnvik
