#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Picking without the mouse: an active trace and a time cursor on the record. The cursor shows from the
/// first key on; that key only shows it. On a trace it stands at the pick, or where the first break may be.
class KeyboardPicking {
  public:
    KeyboardPicking(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    /// Arrows: traces to the right, samples downward. Dead traces are no obstacle.
    void Move(int traces, int samples);
    /// Picks at the cursor and steps to the next trace that lives; behind the last one to the next record,
    /// where that is chosen.
    void Pick();
    void Remove();          ///< takes the pick away and stays
    void Kill_Or_Revive();  ///< asks nothing: it can be undone
    void Snap();            ///< moves the cursor to what is chosen to snap to

    void Choose(SnapTo feature);
    void Toggle(bool PickingView::*choice);
    /// Hides the cursor.
    void Leave();

    /// The record on screen, its picks or the choices have changed: cursor, lines beside the picks and
    /// magnifier are shown anew. Another record has the cursor at its first trace that lives.
    void Follow();

  private:
    bool Wake();
    void Start();
    void Go_To(int trace, int step);
    void Bring_Into_Sight();
    void Show_Cursor();
    bool Ready() const;

    Workspace& Work;
    Ports& Outside;
};

/// After a pick of the last trace of a record, where that is chosen: shows the next one. False when not.
bool Go_On_To_Next_Record(Workspace& workspace, Ports& ports, int trace);

}  // namespace tarnvik
