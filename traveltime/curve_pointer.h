#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

class MovePick;

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
    /// Whether a press means this handler, of a dialog that has no mode of its own; see CurvePointer.
    virtual bool Takes(const PointerEvent&) { return true; }
    /// A key on the picture, see CurvePointer::Key; false when it means nothing here.
    virtual bool Key(int) { return false; }
    virtual void Leave() {}  ///< the pointer has left the picture
};

/// Moments of the pointer; the receiver under it is found differently at each.
enum class PointerMoment { Press, Move, Release };

/// ms per unit of the picture as the pointer reads them, from the latest pick. Exactly 50 ms gives 0.5 here,
/// where the time grid keeps 1; kept, so that times read off such a line stay what they were.
double Pick_Factor(double max_time);

/// Number of the receiver nearest to a place on the picture. While moving it is one more than at a press;
/// kept, as users know the read-out. At a release it is kept within 1..`receivers`, which is at least 1.
double Receiver_At(double x, int receivers, PointerMoment moment);

/// The mouse and the keys on the travel-time picture: keeps the read-out, moves picks, and hands each event
/// to what the display mode in force makes of it. Without a project nothing reacts.
class CurvePointer {
  public:
    CurvePointer(Workspace& workspace, Ports& ports);
    ~CurvePointer();
    CurvePointer(const CurvePointer&) = delete;
    CurvePointer& operator=(const CurvePointer&) = delete;

    void Press(const PointerEvent& event);
    void Move(const PointerEvent& event);
    void Release(const PointerEvent& event);
    void Double_Click(const PointerEvent& event);
    /// The pointer has left the picture: no curve is lit any more.
    void Leave();
    /// A key by its code: 107 plus, 109 minus, 33 and 34 Page Up and Down, 37 to 40 left, up, right, down.
    void Key(int code);

    /// The handler of a display mode, which must live as long as this object. It goes before the built-in one
    /// of the normal state.
    void Register(DisplayMode mode, CurvePointerHandler* handler);
    /// The handler of a dialog that has the picture in a mode which is not its own: it gets the presses that
    /// it takes, with what follows until the release, and the keys; all else stays as the mode has it.
    void Register(Dialog dialog, CurvePointerHandler* handler);

    /// The user has clicked on a curve, which no dialog had the picture for: its shot, and its pick nearest
    /// to the pointer.
    std::function<void(PickPlace)> On_Choose;

    /// The pick caught by a double click: its writer and the saving of the project are set here.
    MovePick& Pick_In_Hand() { return *Moving; }

  private:
    bool Read_Out(const PointerEvent& event, PointerMoment moment);
    void Take_Pick_Factor();
    std::string Read_Out_Text(PointerMoment moment) const;
    bool Shows_Curves() const;
    void Hover(const PointerEvent& event);
    void Choose(const PointerEvent& release);
    CurvePointerHandler* Of_Dialog() const;
    CurvePointerHandler* Handler() const;
    void Dispatch(void (CurvePointerHandler::*what)(const PointerEvent&), const PointerEvent& event);

    Workspace& Work;
    Ports& Outside;
    std::unique_ptr<CurvePointerHandler> DromoMode;
    std::unique_ptr<MovePick> Moving;
    std::map<DisplayMode, CurvePointerHandler*> Handlers;
    std::map<Dialog, CurvePointerHandler*> DialogHandlers;
    CurvePointerHandler* Taken = nullptr;  ///< by a dialog, from its press to the release
};

}  // namespace tarnvik
