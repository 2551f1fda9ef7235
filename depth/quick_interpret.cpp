#include "depth/quick_interpret.h"

#include <algorithm>
#include <utility>

#include "core/fault.h"
#include "core/project_file.h"
#include "core/text/number.h"
#include "depth/intercept_depth.h"
#include "depth/true_velocity.h"
#include "traveltime/curve_axes.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/curves.h"
#include "traveltime/fitted_lines.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr const char* headings[] = {"", "V Left", "IT Left", "V Right", "IT Right", "Thick", "Depth"};
constexpr int column_count = 7;
constexpr const char* impossible = "Calculation impossible...";
constexpr double ms_per_second = 1000;
constexpr int held_width = 2;

/// A length to a tenth, half to even; empty for one that is too large to be shown.
std::string Shown_Length(double length) {
    const auto tenths = CInt(10 * length);
    return tenths ? CStr(*tenths / 10.0) : std::string();
}

Mark Limit_Mark(double x, int width) {
    return {Mark::Kind::Line, x, 0, x, curve_picture_height, colours::Red, width, false, {}};
}

}  // namespace

QuickInterpret::QuickInterpret(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

int QuickInterpret::Shot_Number() const {
    const int shot = CInt(Val(Shot)).value_or(0);
    const Project& line = Work.Project;
    const bool exists = shot >= 1 && shot <= line.NbShots && line.ShotTimes.Has(shot, line.NbReceivers) &&
                        line.ShotDistance.Has(shot);
    return exists ? shot : 0;
}

int QuickInterpret::Layers() const {
    return std::clamp<int>(CInt(Val(LayerCount)).value_or(1), 1, most_quick_layers);
}

void QuickInterpret::Take_Picture() {
    Work.Mode.Take(Dialog::quick_interpret, DisplayMode::Quick);
}

void QuickInterpret::Load() {
    const int shot = Work.Velocity.CurrentShot;
    Shot = CStr(shot >= 1 && shot <= Work.Project.NbShots ? shot : 1);
    LayerCount = "2";
    FirstGeophone = "1";
    LastGeophone = CStr(Work.Project.NbReceivers);
    SideChoice = Both;
    Limits = {};
    Grid1 = {};
    Held.reset();
    Work.Curves.Overlays[Dialog::quick_interpret].Moving = [this] { return Marks(); };
    Line_Changed();
}

void QuickInterpret::Close() {
    Held.reset();
    Work.Velocity.QuickStatus.clear();
    Show_Alone(Work.Curves, 0);
    Forget_Overlay(Work, Outside, Dialog::quick_interpret);
    Outside.Show.Close_Dialog(Dialog::quick_interpret);
    Work.Mode.Release(Dialog::quick_interpret);
    Outside.Show.Show_Curves();
    // Not "DROMO" but "dromo", which the mouse knows nothing of: kept, nothing reacts to a press until the
    // next command.
    Work.Mode.Display(DisplayMode::QuickOver);
}

void QuickInterpret::Line_Changed() {
    ShotEntries = Numbers_Up_To(Work.Project.NbShots);
    if (Shot_Number() == 0) Shot = "1";
    Shot_Changed();
}

void QuickInterpret::Picks_Changed() {
    if (Shot_Number() != 0) Quick_Regression();
}

void QuickInterpret::Shot_Changed() {
    ShotDepth = Shot_Number() != 0 ? CStr(Work.Project.ShotDepth(Shot_Number())) : "0";
    Depart_Quick();
}

void QuickInterpret::Layers_Changed() {
    Depart_Quick();
}

/// The grid has a row a layer; cells that stay keep what they hold.
void QuickInterpret::Affiche_Grid() {
    Grid1.Resize(Layers() + 1, column_count);
    for (int column = 0; column < column_count; ++column)
        Grid1.Set_Text(0, column, headings[column]);
    for (int row = 1; row <= Layers(); ++row)
        Grid1.Set_Text(row, 0, CStr(row));
}

void QuickInterpret::Choose_Side() {
    const double place = Rounded(Work.Project.ShotDistance(Shot_Number()));
    switch (Quick_Place_Of(Work.Project, Shot_Number())) {
        case QuickPlace::AtStart:
            SideChoice = Right;
            break;
        case QuickPlace::AtEnd:
            SideChoice = Left;
            break;
        case QuickPlace::Between:
            if (place > 1 && place < Work.Project.LineLength) SideChoice = Both;
            break;
    }
}

/// The picture has this shot alone.
void QuickInterpret::Show_Curve() {
    Work.Curves.ShotAlone = Shot_Number();
    if (Work.Curves.FrameDrawn == 1) {
        Outside.Show.Repaint_Page(Page::Curves);
    } else {
        Outside.Show.Show_Curves();
    }
    Outside.Show.Show_Grids();  // the list of shots tells which one is shown
}

void QuickInterpret::Depart_Quick() {
    Take_Picture();
    Held.reset();
    Affiche_Grid();
    if (Shot_Number() == 0) return Outside.Show.Show_Fields();
    Choose_Side();
    Place_Limits(Work.Project, Shot_Number(), Layers(), Limits);
    Quick_Regression();
    Show_Curve();
}

void QuickInterpret::Take_Limits(const QuickLimits& limits) {
    Take_Picture();
    Limits = limits;
    Quick_Regression();
}

void QuickInterpret::Put(int row, int column, const std::string& text) {
    TextGrid::Cell& cell = Grid1.At(row, column);
    cell.Text = text;
    cell.ForeColour.reset();
    cell.Align = TextGrid::Alignment::Right;
}

/// A value that is not the stretch's own stands in red.
void QuickInterpret::Put_Value(int row, int column, double value, bool own) {
    Put(row, column, CStr(value));
    if (!own) Grid1.At(row, column).ForeColour = colours::Red;
}

/// Fits between limits and fills grid and picture. The values that the dialogs share stay as they are.
bool QuickInterpret::Walk(const QuickLimits& limits) {
    Labels.clear();
    Shown = limits;
    const VelocityWork& before = Work.Velocity;
    try {
        Fitted = Walk_Between_Limits(Work.Project, Shot_Number(), Layers(), limits,
                                     {before.VelocityResult, before.InterceptResult, before.Correlation});
    } catch (const Fault&) {
        Fitted = {};
        Labels.emplace_back(impossible);
        return false;
    }
    for (int layer = 1; layer <= Layers(); ++layer) {
        const auto put = [this, layer](const QuickValue& value, int velocity, int intercept) {
            Put_Value(layer, velocity, value.Velocity, value.Fitted);
            Put_Value(layer, intercept, value.Intercept, value.Fitted);
        };
        put(Fitted.Left.at(static_cast<std::size_t>(layer)), VelocityLeft, InterceptLeft);
        put(Fitted.Right.at(static_cast<std::size_t>(layer)), VelocityRight, InterceptRight);
    }
    GridOfWalk = Grid1;
    Labels = Fitted.Texts;
    return true;
}

void QuickInterpret::Quick_Regression() {
    Take_Picture();
    if (Shot_Number() == 0) return;
    VelocityWork& work = Work.Velocity;
    work.CurrentShot = static_cast<std::int16_t>(Shot_Number());
    if (Walk(Limits)) {
        work.VelocityResult = Fitted.Last.Velocity;
        work.InterceptResult = Fitted.Last.Intercept;
        work.Correlation = Fitted.Last.Correlation;
        if (Fitted.ShotSide != 0) work.ShotSide = static_cast<std::int16_t>(Fitted.ShotSide);
    }
    Compute_Depths();
    Show_Moving_Marks(Work, Outside);
}

void QuickInterpret::Quick_Depth() {
    Take_Picture();
    Labels.clear();
    Compute_Depths();
}

/// The depths of what stands in the grid; the label is told why there are none.
void QuickInterpret::Compute_Depths() {
    for (int row = 1; row <= Layers(); ++row) {
        Put(row, Thickness, "");
        Put(row, Depth, "");
    }
    const auto both_sides = [this](int row, int left, int right) {
        return Grid1.Value(row, left) + Grid1.Value(row, right);
    };
    DepthWork& depth = Work.Depth;
    ApparentVelocities apparent;
    apparent.V1 = both_sides(1, VelocityLeft, VelocityRight) / 2;
    InterceptTimes input;
    input.Layers = Layers();
    for (int layer = 2; layer <= Layers(); ++layer) {
        const auto at = static_cast<std::size_t>(layer);
        apparent.A[at] = Grid1.Value(layer, VelocityLeft);
        apparent.B[at] = Grid1.Value(layer, VelocityRight);
        // A side without a value counts as 0: a shot at an end of the line has its values on both sides.
        input.IT[at - 1] = both_sides(layer, InterceptLeft, InterceptRight) / (2 * ms_per_second);
    }
    try {
        if (Vitesse_Vraie_Commune(Work, Outside, Shot_Number(), Layers(), apparent)) {
            depth.NbLayers = Layers();
            depth.IT = input.IT;
            depth.HalfShotDepth = input.HalfShotDepth = Val(ShotDepth) * 0.5;
            input.V = depth.TrueV;
            input.Angle = depth.AngleCritique;
            Intercept_Thicknesses(input, depth.Thick, depth.RetardCouche);
            double sum = 0;
            for (int layer = 1; layer < Layers(); ++layer) {
                const double thickness = depth.Thick[static_cast<std::size_t>(layer)];
                sum += thickness;
                Put(layer, Thickness, Shown_Length(thickness));
                Put(layer, Depth, Shown_Length(sum));
            }
        } else {
            Labels.push_back(Work.Velocity.QuickStatus);
        }
    } catch (const Fault&) {
        const bool second_layer = apparent.B[2] <= apparent.V1 || apparent.A[2] <= apparent.V1;
        Labels.push_back(second_layer ? Layer_Order_Message(2) : impossible);
    }
    depth.VelocityFault = false;
    Show_Labels();
}

/// The label has each text once.
void QuickInterpret::Show_Labels() {
    std::string& status = Work.Velocity.QuickStatus;
    status.clear();
    for (auto label = Labels.begin(); label != Labels.end(); ++label) {
        if (std::find(Labels.begin(), label, *label) != label) continue;
        if (!status.empty()) status += "\n";
        status += *label;
    }
    Outside.Show.Show_Fields();
}

void QuickInterpret::Side_Changed() {
    // Both sides come back from the curve.
    if (SideChoice == Both) return Quick_Regression();
    const bool to_left = SideChoice == Right;
    for (int row = 1; row <= Layers(); ++row) {
        for (const auto& [left, right] :
             {std::pair{VelocityLeft, VelocityRight}, std::pair{InterceptLeft, InterceptRight}}) {
            const TextGrid::Cell from = Grid1.At(row, to_left ? right : left);
            Grid1.At(row, to_left ? left : right) = from;
        }
    }
    Quick_Depth();
}

void QuickInterpret::Cells_Changed() {
    // What the user has typed is no value of another stretch any more.
    for (int row = 1; row <= Layers(); ++row) {
        for (int column = VelocityLeft; column <= InterceptRight; ++column) {
            if (Grid1.Text(row, column) != GridOfWalk.Text(row, column))
                Grid1.At(row, column).ForeColour.reset();
        }
    }
    Quick_Depth();
}

/// The first value of the grid that its field has no room for, as the user reads it.
std::string QuickInterpret::Value_Without_Room() const {
    for (int row = 1; row <= Layers(); ++row) {
        for (int column = VelocityLeft; column <= Thickness; ++column) {
            const bool velocity = column == VelocityLeft || column == VelocityRight;
            const double scale = velocity ? 1 : column == Thickness ? file_time_scale : file_refractor_scale;
            if (!CInt(Grid1.Value(row, column) * scale))
                return std::string(headings[column]) + " of layer " + CStr(row);
        }
    }
    return {};
}

void QuickInterpret::Command1() {
    const int shot = Shot_Number();
    if (shot == 0) return Outside.Ask.Say("Wrong Shot number", Work.AppTitle, Icon::Critical);
    if (const std::string value = Value_Without_Room(); !value.empty()) {
        Outside.Ask.Say("The file has no room for " + value + ", nothing has been recorded", Work.AppTitle,
                        Icon::Critical);
        return;
    }
    Take_Picture();
    Work.Velocity.CurrentShot = static_cast<std::int16_t>(shot);
    // Layers that the interpretation does not have are emptied, the fifth one always. The second one is
    // stored with one layer too: its row is not there and counts as 0.
    const auto value = [this](int row, int column) {
        return row <= Layers() ? Grid1.Value(row, column) : 0.0;
    };
    EditScope edit(Work, "Quick interpretation of shot " + CStr(shot));
    Project& line = Work.Project;
    for (int layer = 1; layer <= Project::MaxLayers; ++layer) {
        Store_If_It_Fits(line.VelocityA(shot, layer), value(layer, VelocityLeft));
        Store_If_It_Fits(line.VelocityB(shot, layer), value(layer, VelocityRight));
    }
    for (int refractor = 1; refractor <= Project::MaxRefractors; ++refractor) {
        line.InterceptA(shot, refractor) = value(refractor + 1, InterceptLeft);
        line.InterceptB(shot, refractor) = value(refractor + 1, InterceptRight);
        line.ShotThickness(shot, refractor) = value(refractor, Thickness);  // the deepest layer has none
    }
    edit.End();
    if (Files.SaveProject) Files.SaveProject(Work, Outside);
    Outside.Show.Show_Fields();
}

void QuickInterpret::Command2() {
    Quick_Depth();
}

void QuickInterpret::Command3() {
    // The title is the one that users know.
    Outside.Ask.Say(
        "1.- Select the shot and the number of layers    \n"
        "2.- Just move layer limits with the mouse (Press right button on)   \n"
        "Velocities will be computed using linear regression\n"
        "You can modify any velocity and intercept on the grid and re-compute depth\n"
        "Press OK, SAVE to record computations in current TV5 file",
        "QUICK INTREPRETATION info", Icon::Information);
}

bool QuickInterpret::Catch_Limit(double x) {
    Held = Shot_Number() == 0 ? std::nullopt : Limit_At(Limits, Layers(), x);
    HandX = x;
    if (Held) Show_Moving_Marks(Work, Outside);
    return Held.has_value();
}

void QuickInterpret::Drag_Limit(double x) {
    if (!Held) return;
    HandX = std::clamp(x, 0.0, curve_picture_width);
    const QuickPlace place = Quick_Place_Of(Work.Project, Shot_Number());
    const QuickLimits moved = Limits_After_Move(Limits, Layers(), *Held, place, x);
    if (moved != Shown) {
        Walk(moved);
        Compute_Depths();
    }
    Show_Moving_Marks(Work, Outside);
}

void QuickInterpret::Release_Limit(double x) {
    if (!Held) return;
    const QuickPlace place = Quick_Place_Of(Work.Project, Shot_Number());
    Limits = Limits_After_Move(Limits, Layers(), *Held, place, x);
    Held.reset();
    // The grid holds both sides again, whichever was chosen before.
    if (place == QuickPlace::Between) SideChoice = Both;
    Quick_Regression();
}

/// The limits and the lines fitted between them.
std::vector<Mark> QuickInterpret::Marks() const {
    std::vector<Mark> marks;
    const double factor = Work.Curves.TimeFactor;
    if (Shot_Number() == 0 || !(factor > 0)) return marks;
    for (const FittedLine& line : Fitted.Lines) {
        const std::vector<Mark> parts = Marks_Of_Fitted_Line(line, factor);
        marks.insert(marks.end(), parts.begin(), parts.end());
    }
    // The limit in hand stands under the hand, and on a whole number only when it is let go.
    const double in_hand = Held ? Rounded(HandX) : -1;
    for (const int side : {1, 2}) {
        for (int k = 1; k < Layers(); ++k) {
            const double x = Shown.at(static_cast<std::size_t>(side)).at(static_cast<std::size_t>(k));
            const Mark mark = Limit_Mark(x, 1);
            if ((!Held || x != in_hand) && std::find(marks.begin(), marks.end(), mark) == marks.end())
                marks.push_back(mark);
        }
    }
    if (Held) marks.push_back(Limit_Mark(HandX, held_width));
    return marks;
}

}  // namespace tarnvik
