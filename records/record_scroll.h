#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// A stretch of whole numbers from First up to End, which it reaches but does not cross: traces with the one
/// behind the last, or samples.
struct Stretch {
    int First = 0;
    int End = 0;
    int Length() const { return End - First; }
    bool operator==(const Stretch&) const = default;
};

/// `shown` drawn out by `factor` (above 1 less is shown, below 1 more) so that what stands at `share` of its
/// length stays there, as far as whole numbers and the ends of `whole` let it. At least `least` is shown,
/// and a step that can be made is always made.
Stretch Enlarged(Stretch shown, Stretch whole, double share, double factor, int least);

/// `shown` moved by `by`, never beyond the ends of `whole`.
Stretch Moved(Stretch shown, Stretch whole, int by);

/// Enlarging and moving what is shown of the record by wheel, by drag and by the scroll bars. Places are
/// world coordinates of the record's picture. Nothing can be moved out of sight.
class RecordScroll {
  public:
    RecordScroll(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    Stretch Samples() const;
    Stretch All_Samples() const;
    Stretch Traces() const;
    Stretch All_Traces() const;  ///< of the record

    /// One step of the wheel each; parts of a step count too.
    void Enlarge_Time(double sample, double steps);
    void Enlarge_Traces(double x, double steps);
    /// Through the time, or through the traces while all of the time is in sight. Upwards is positive.
    void Pan(double steps);
    void Turn_Gain(double steps);

    /// The record follows the hand from where it was grabbed; places in pixels of the picture.
    void Grab(double across, double down);
    void Drag_To(double across, double down);
    void Let_Go() { Held = false; }
    bool Is_Held() const { return Held; }

    /// The scroll bars: the first sample, the first trace.
    void Go_To_Sample(int first);
    void Go_To_Trace(int first);

  private:
    bool Has_Record() const { return Work.Record.RecordWidth > 0; }
    void Show(Stretch samples, Stretch traces);

    Workspace& Work;
    Ports& Outside;
    double PartOfStep = 0;  ///< turned and not yet moved
    bool Held = false;
    double GrabX = 0;
    double GrabY = 0;
    Stretch GrabbedSamples;
    Stretch GrabbedTraces;
};

/// What is shown becomes traces first to last of the file. The size factors stay with their traces.
void Show_Trace_Range(Workspace& workspace, int first, int last);

}  // namespace tarnvik
