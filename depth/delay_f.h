#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/delay_times.h"
#include "traveltime/file_routines.h"
#include "traveltime/moving_curve.h"

namespace tarnvik {

/// Dialog "Delay times": two offset shots are slid onto the end shots, a level line gives the reciprocal time
/// of the line, and the delay below each receiver follows. The curves and the line are moved by scroll bars,
/// keys, or by dragging them on the picture in mode "DELAY".
class DelayF {
  public:
    /// What the hand can move.
    enum class Handle { LeftCurve, RightCurve, TotalLine };

    DelayF(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::string FixedLeft;    ///< Text1, end shot
    std::string FixedRight;   ///< Text2
    std::string MovingLeft;   ///< Text3, offset shot
    std::string MovingRight;  ///< Text4
    std::vector<std::string> ShotEntries;
    ScrollBar VScroll1;         ///< of the left offset shot, units of the picture downwards
    ScrollBar VScroll2;         ///< of the right one
    ScrollBar VScroll3;         ///< of the total time line, units of the picture upwards
    std::string TotalTimeText;  ///< under "Total Time ms"
    std::string Hint;           ///< why the offset shots proposed are none; empty when all is well
    bool SaveEnabled = false;   ///< Command3
    bool DepthEnabled = false;  ///< Command4

    void Load();   ///< the form opens
    void Close();  ///< the form closes
    void Shots_Changed();
    void VScroll1_Changed();
    void VScroll2_Changed();
    void VScroll3_Changed();
    void Command2();  ///< " Delay &Compute"
    void Command3();  ///< "&Save"
    void Command4();  ///< "&Depth compute"
    void Command5();  ///< "C&ls"
    void Command6();  ///< "Info"

    ScrollBar& Bar_Of(Handle what);
    /// The hand has moved a scroll bar, or the curve or line itself; beyond its range it stays at the end.
    void Move(Handle what, int value);
    /// A shift in units of the picture that need not be whole, and a total time in ms, which is cut to a
    /// tenth. False after a message about the shots.
    bool Shift(Handle what, double units);
    void Set_Total_Time(double ms);
    /// The curve slid; shot 0 where its field names none.
    MovingCurve Curve_Of(Handle what) const;

    /// An undo or redo has changed the project.
    void Project_Went_Back();

    /// The delays are found and shown; nothing has been asked about them yet.
    std::function<void()> On_Computed;

    /// Element 1 and on: what the last computation found; empty before.
    const std::vector<ReceiverDelay>& Found() const { return Delays; }

    /// The delays that the project holds as a curve over the others, also while the dialog is closed. False
    /// after the message that there are none.
    bool Show_Delay_Curve();
    void Hide_Delay_Curve();
    bool Delay_Curve_Shown() const { return DelayCurve; }

  private:
    /// A shot number as the fields give it.
    enum class ShotFault { None, Wrong, Missing };
    ShotFault Read_Shots(Handle what, int& fixed, int& moving) const;
    bool Refuse(ShotFault fault);
    double& Shift_Of(Handle what) { return what == Handle::RightCurve ? ShiftRight : ShiftLeft; }
    bool Slide(Handle what, double units);
    void Ask_Bedrock(DelayQuestion& question);
    void List_Delays();
    void Ask_For_Depths();
    void Show_Overlay();
    void Draw_Standing(Picture& picture) const;
    std::vector<Mark> Moving_Marks() const;
    void Follow_Total_Time();
    void Bar_Follows_Line();
    void Say(const std::string& text, Icon icon = Icon::None);

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    double ShiftLeft = 0;  ///< units of the picture taken from the offset shots' curves
    double ShiftRight = 0;
    bool Open = false;
    bool CurvesShown = false;    ///< until the screen is cleared
    bool LineMoved = false;      ///< the total time is the line's
    double TotalTimeOfLine = 0;  ///< ms
    bool DelayCurve = false;
    std::vector<ReceiverDelay> Delays;
};

}  // namespace tarnvik
