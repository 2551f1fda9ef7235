#pragma once

#include "core/workspace.h"

namespace tarnvik {

/// A press, move or release on the Dromo picture, in its world coordinates.
struct PointerEvent {
    double X = 0;
    double Y = 0;
    bool LeftButton = false;
    bool RightButton = false;
};

/// What the mouse on the Dromo picture means in one display mode. The dialog of a mode registers its handler;
/// before a handler runs, the read-out values of CurveView (MouseDistance, MouseReceiver, MouseTime, DownX
/// ...) are up to date.
class CurvePointerHandler {
  public:
    virtual ~CurvePointerHandler() = default;
    virtual void Press(const PointerEvent&) {}
    virtual void Move(const PointerEvent&) {}
    virtual void Release(const PointerEvent&) {}
};

}  // namespace tarnvik
