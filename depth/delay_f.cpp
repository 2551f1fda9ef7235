#include "depth/delay_f.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "core/end_shots.h"
#include "core/fault.h"
#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "depth/shot_velocities.h"
#include "traveltime/curve_axes.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr int least_scroll = -100;
constexpr int most_scroll = 250;
constexpr double point_radius = 0.3;
constexpr int number_size = 7;  // points: they stand close
constexpr const char* no_delay = "No delay available !!!";

bool Line_In_Memory(const Project& project) {
    return project.NbShots > 0 && project.NbReceivers > 0 &&
           project.ShotTimes.Has(project.NbShots, project.NbReceivers);
}

/// True when the shots on the line were not interpreted with one number of layers. Offset shots have no
/// layers of their own.
bool Layers_Differ(const Project& project) {
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    std::set<int> counts;
    for (int shot = first; shot <= std::min<int>(last, project.NbShots); ++shot) {
        int layers = 0;
        std::array<double, 6> velocities{};
        Shot_Velocities(project, shot, layers, velocities);
        counts.insert(layers);
    }
    return counts.size() > 1;
}

/// A point and its number, as they stand for a delay on the curves.
void Draw_Delay(Picture& picture, const CurveView& view, double x, double delay) {
    const double y = Divide(delay, view.TimeFactor);
    picture.Circle(x, y, point_radius / std::max(view.ZoomX, 1.0), colours::Magenta);
    picture.Set_Font_Size(number_size);
    if (const auto number = CInt(delay))
        picture.Print_At(x + point_radius, y, CStr(*number), colours::Magenta);
}

}  // namespace

DelayF::DelayF(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void DelayF::Say(const std::string& text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
}

void DelayF::Load() {
    const Project& project = Work.Project;
    Open = true;
    Work.Mode.Take(Dialog::DelayF, DisplayMode::Delay);
    ShiftLeft = ShiftRight = 0;
    VScroll1 = VScroll2 = VScroll3 = {0, least_scroll, most_scroll};
    SaveEnabled = DepthEnabled = LineMoved = false;
    Delays.clear();
    if (!Line_In_Memory(project)) {
        Say("Bad file or no file loaded");
        Close();
        return;
    }
    TotalTimeOfLine = 0;
    {
        // The reciprocal time is found anew each time; the former one comes back with an undo.
        const EditScope edit(Work, "Total time back to 0");
        Work.Project.TotalTime = 0;
    }
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    ShotEntries = Numbers_Up_To(project.NbShots);
    FixedLeft = CStr(first);
    FixedRight = CStr(std::min<int>(last, project.NbShots));
    MovingLeft = "1";
    MovingRight = CStr(int{project.NbShots});
    Shots_Changed();
    if (Layers_Differ(project) &&
        Outside.Ask.Ask_Yes(" To compute ABC method all shot must have the same number of layers, Quit ?",
                            Work.AppTitle)) {
        Close();
        return;
    }
    CurvesShown = true;
    Show_Overlay();
    Follow_Total_Time();
    Outside.Show.Show_Fields();
}

void DelayF::Close() {
    const bool was_open = std::exchange(Open, false);
    CurvesShown = false;
    Delays.clear();
    Forget_Overlay(Work, Outside, Dialog::DelayF);
    if (DelayCurve) Show_Overlay();
    Outside.Show.Close_Dialog(Dialog::DelayF);
    Work.Mode.Release(Dialog::DelayF);
    // A profile that was drawn meanwhile stays.
    if (was_open && Work.Curves.FrameDrawn != 2) Outside.Show.Show_Curves();
}

DelayF::ShotFault DelayF::Read_Shots(Handle what, int& fixed, int& moving) const {
    const bool right = what == Handle::RightCurve;
    const auto number = [](const std::string& text) { return CInt(Val(text)).value_or(-1); };
    fixed = number(right ? FixedRight : FixedLeft);
    moving = number(right ? MovingRight : MovingLeft);
    const int shots = Work.Project.NbShots;
    if (std::max(fixed, moving) > shots || std::min(fixed, moving) < 0) return ShotFault::Wrong;
    return fixed == 0 || moving == 0 ? ShotFault::Missing : ShotFault::None;
}

bool DelayF::Refuse(ShotFault fault) {
    if (fault == ShotFault::None) return false;
    if (fault == ShotFault::Wrong) Say("Impossible, wrong Shot number...", Icon::Critical);
    if (fault == ShotFault::Missing) Say("Value missing...", Icon::Critical);
    return true;
}

void DelayF::Shots_Changed() {
    const auto offset = [this](const std::string& text) {
        const int shot = CInt(Val(text)).value_or(0);
        if (!Work.Project.ShotDistance.Has(shot)) return true;
        const double place = Work.Project.ShotDistance(shot);
        return place < 0 || place > Work.Project.LineLength;
    };
    const bool left = offset(MovingLeft);
    const bool right = offset(MovingRight);
    Hint.clear();
    if (!left && !right) {
        Hint = "Neither moving shot is an offset shot";
    } else if (!left || !right) {
        Hint = "Shot " + (left ? MovingRight : MovingLeft) + " is no offset shot";
    }
    Show_Moving_Marks(Work, Outside);
    Outside.Show.Show_Fields();
}

ScrollBar& DelayF::Bar_Of(Handle what) {
    switch (what) {
        case Handle::LeftCurve:
            return VScroll1;
        case Handle::RightCurve:
            return VScroll2;
        case Handle::TotalLine:
            break;
    }
    return VScroll3;
}

void DelayF::Move(Handle what, int value) {
    ScrollBar& bar = Bar_Of(what);
    bar.Value = std::clamp(value, bar.Min, bar.Max);
    switch (what) {
        case Handle::LeftCurve:
            VScroll1_Changed();
            break;
        case Handle::RightCurve:
            VScroll2_Changed();
            break;
        case Handle::TotalLine:
            VScroll3_Changed();
            break;
    }
}

void DelayF::VScroll1_Changed() {
    Slide(Handle::LeftCurve, VScroll1.Value);
}

void DelayF::VScroll2_Changed() {
    Slide(Handle::RightCurve, VScroll2.Value);
}

bool DelayF::Shift(Handle what, double units) {
    ScrollBar& bar = Bar_Of(what);
    bar.Value = static_cast<int>(std::clamp<double>(std::lround(units), bar.Min, bar.Max));
    return Slide(what, units);
}

bool DelayF::Slide(Handle what, double units) {
    int fixed = 0;
    int moving = 0;
    const ShotFault fault = Read_Shots(what, fixed, moving);
    double& shift = Shift_Of(what);
    if (fault == ShotFault::None) shift = units;
    if (fault == ShotFault::Missing) shift = 0;
    // The bar never stands where the curve does not.
    if (fault != ShotFault::None) Bar_Of(what).Value = static_cast<int>(std::lround(shift));
    CurvesShown = true;
    Show_Moving_Marks(Work, Outside);
    if (Refuse(fault)) {
        Outside.Show.Show_Fields();
        return false;
    }
    return true;
}

void DelayF::VScroll3_Changed() {
    // Whole units of the picture: the time of the line is its height.
    Set_Total_Time(Work.Curves.TimeFactor * VScroll3.Value);
}

void DelayF::Set_Total_Time(double ms) {
    const EditScope edit(Work, "Total time", "total time of the line");
    TotalTimeOfLine = Int(10 * ms) / 10;
    Bar_Follows_Line();
    Work.Project.TotalTime = TotalTimeOfLine;
    LineMoved = true;
    CurvesShown = true;
    Follow_Total_Time();
    Show_Moving_Marks(Work, Outside);
}

void DelayF::Bar_Follows_Line() {
    const double height = Work.Curves.TimeFactor > 0 ? TotalTimeOfLine / Work.Curves.TimeFactor : 0;
    VScroll3.Value = static_cast<int>(std::clamp<double>(Rounded(height), VScroll3.Min, VScroll3.Max));
}

void DelayF::Follow_Total_Time() {
    TotalTimeText = CStr(TotalTimeOfLine);
}

void DelayF::Project_Went_Back() {
    if (!Open) return;
    if (TotalTimeOfLine != Work.Project.TotalTime) {
        TotalTimeOfLine = Work.Project.TotalTime;
        LineMoved = TotalTimeOfLine != 0;
        Bar_Follows_Line();
        Follow_Total_Time();
    }
    Delays.clear();
    Shots_Changed();
    Outside.Show.Repaint_Page(Page::Curves);
}

void DelayF::Ask_Bedrock(DelayQuestion& question) {
    const std::string last = CStr(int{Work.Project.NbReceivers});
    if (!Outside.Ask.Ask_Yes("Do you want to use the First Breaks of the End Shot instead of FB of the "
                             "offset shot for the bedrock portion ?",
                             Work.AppTitle)) {
        return;
    }
    const auto receiver = [this](const std::string& shot, const std::string& usual) {
        const std::string typed = Outside.Ask.Input(
            "Enter the number of the first receiver corresponding to the bedrock on the End shot " + shot,
            Work.AppTitle, usual);
        const int number = CInt(Val(typed)).value_or(0);
        const bool on_line = number >= 1 && number <= Work.Project.NbReceivers;
        return on_line ? number : static_cast<int>(Val(usual));
    };
    DelayQuestion::Limits limits;
    limits.First = receiver("1", "1");
    limits.Last = receiver(last, last);
    question.Bedrock = limits;
}

void DelayF::Command2() {
    DelayQuestion question;
    const ShotFault left = Read_Shots(Handle::LeftCurve, question.FixedLeft, question.MovingLeft);
    const ShotFault right = Read_Shots(Handle::RightCurve, question.FixedRight, question.MovingRight);
    if (ShiftLeft == 0 && ShiftRight == 0) {
        Work.Fields.Status = "First move the offset shots onto the end shots";
        Outside.Show.Show_Fields();
        return;
    }
    if (Refuse(left) || Refuse(right)) return;
    SaveEnabled = true;
    Ask_Bedrock(question);
    question.ShiftLeft = ShiftLeft;
    question.ShiftRight = ShiftRight;
    question.TimeFactor = Work.Curves.TimeFactor;
    try {
        EditScope edit(Work, "Delay times");
        // A save has raised the value in memory: what the line shows counts.
        if (LineMoved) Work.Project.TotalTime = TotalTimeOfLine;
        question.TotalTime = Work.Project.TotalTime;
        Delays = Delay_Times(Work.Project, question);
        Store_Delays(Work.Project, Delays);
    } catch (const Fault&) {
        Delays.clear();
    }
    DepthEnabled = true;
    CurvesShown = true;
    Outside.Show.Repaint_Page(Page::Curves);
    Outside.Show.Show_Fields();
    if (On_Computed && !Delays.empty()) On_Computed();
    if (!Outside.Ask.Ask_Yes("Do you want to save the Delay times", Work.AppTitle)) {
        Close();
        return;
    }
    if (Files.SaveProject) Files.SaveProject(Work, Outside);
    List_Delays();
    Ask_For_Depths();
}

/// The delays in a row of remark_grid, a column a receiver, where the table has no such row yet. Below seven
/// shots it is one of the rows that the project file keeps.
void DelayF::List_Delays() {
    Project& project = Work.Project;
    TextGrid& grid = project.remark_grid;
    const int row = project.NbShots + 3;
    const EditScope edit(Work, "Delay times in the remarks");
    grid.Resize(std::max(grid.Rows(), row + 1), std::max(grid.Columns(), project.NbReceivers + 1));
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        grid.Set_Text(row, receiver, Format(project.ReceiverData(ReceiverIntercept, receiver), "##00.0"));
        grid.At(row, receiver).Align = TextGrid::Alignment::Right;
    }
    Outside.Show.Show_Grids();
}

void DelayF::Ask_For_Depths() {
    // The wording is the one that users know.
    if (Outside.Ask.Ask_Yes("Compute thickness below all reveivers", Work.AppTitle))
        Outside.Show.Open_Dialog(Dialog::ABCGridF, false);
}

void DelayF::Command3() {
    if (Files.SaveProject) Files.SaveProject(Work, Outside);
    Ask_For_Depths();
}

void DelayF::Command4() {
    Ask_For_Depths();
}

void DelayF::Command5() {
    // The shifts stay: the next move shows the curves again.
    CurvesShown = false;
    Delays.clear();
    Outside.Show.Show_Curves();
}

void DelayF::Command6() {
    Say("How to use ABC module ?\r\n"
        "Delay correspond to the travel time from the surface to the bedrock below a receiver\r\n"
        "1.- You NEED at least 2 offset shots\r\n"
        "2.- Move down offset 1 just to fit as well as possible with the end shot 1 (far from the shot)\r\n"
        "3.- Move last offset just to fit at best with the last end shot (far from the shot)\r\n"
        "4.- Move down the total time line (reciprocal time)\r\n"
        "to touch the end of end shots and translated shots (time must be equal)\r\n"
        "5.- Compute delays using only offset times or offset times and End shot for the far distances",
        Icon::Information);
}

MovingCurve DelayF::Curve_Of(Handle what) const {
    MovingCurve curve;
    int fixed = 0;
    if (what == Handle::TotalLine || Read_Shots(what, fixed, curve.Shot) == ShotFault::Wrong) return {};
    curve.Shift = what == Handle::RightCurve ? ShiftRight : ShiftLeft;
    Shot_Colour(Work, curve.Shot, curve.InColour);
    return curve;
}

std::vector<Mark> DelayF::Moving_Marks() const {
    std::vector<Mark> marks;
    if (!CurvesShown) return marks;
    const auto add = [&marks, this](const MovingCurve& curve) {
        if (curve.Shot < 1) return;
        const std::vector<Mark> own = Marks_Of_Moving_Curve(Work, curve);
        marks.insert(marks.end(), own.begin(), own.end());
    };
    for (const Handle side : {Handle::LeftCurve, Handle::RightCurve}) {
        add(Curve_Of(side));
        // The end shot is what the curve is held against, whether the list of shots shows it or not.
        MovingCurve end;
        int moving = 0;
        if (Read_Shots(side, end.Shot, moving) != ShotFault::None || Shot_Displayed(Work, end.Shot)) continue;
        Shot_Colour(Work, end.Shot, end.InColour);
        add(end);
    }
    constexpr int line_width = 2;
    constexpr double text_at = 87;
    constexpr double text_height = 4;
    const double y = VScroll3.Value;
    marks.push_back({Mark::Kind::Line, 0, y, curve_picture_width, y, colours::Red, line_width, false, {}});
    marks.push_back({Mark::Kind::Text, text_at, y + (Work.Curves.ZeroOnTop ? -text_height : text_height), 0,
                     0, colours::Red, 1, false, TotalTimeText + " ms"});
    return marks;
}

void DelayF::Draw_Standing(Picture& picture) const {
    const Project& project = Work.Project;
    if (!(Work.Curves.TimeFactor > 0) || project.LineLength == 0) return;
    if (DelayCurve) {
        double before_x = 0;
        double before_y = 0;
        bool joined = false;
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            if (!project.ReceiverData.Has(ReceiverIntercept, receiver)) break;
            const double delay = project.ReceiverData(ReceiverIntercept, receiver);
            if (delay == 0) continue;
            const double x = Position_Ecran(project, receiver);
            const double y = delay / Work.Curves.TimeFactor;
            if (joined) picture.Line(before_x, before_y, x, y, colours::Magenta);
            Draw_Delay(picture, Work.Curves, x, delay);
            before_x = x;
            before_y = y;
            joined = true;
        }
    }
    for (const ReceiverDelay& found : Delays) {
        // As computed, also below 0.
        if (found.D) Draw_Delay(picture, Work.Curves, found.X, *found.D);
    }
}

void DelayF::Show_Overlay() {
    CurveOverlay overlay;
    overlay.Standing = [this](Picture& picture) { Draw_Standing(picture); };
    if (Open) overlay.Moving = [this] { return Moving_Marks(); };
    Work.Curves.Overlays[Dialog::DelayF] = std::move(overlay);
    Show_Moving_Marks(Work, Outside);
}

bool DelayF::Show_Delay_Curve() {
    if (!Has_Delays(Work.Project)) {
        Say(no_delay);
        return false;
    }
    DelayCurve = true;
    Show_Overlay();
    return true;
}

void DelayF::Hide_Delay_Curve() {
    if (!std::exchange(DelayCurve, false) || Open) return;
    Forget_Overlay(Work, Outside, Dialog::DelayF);
}

}  // namespace tarnvik
