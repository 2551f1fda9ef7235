#include "depth/abc_grid_f.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "core/end_shots.h"
#include "core/fault.h"
#include "core/text/number.h"
#include "depth/delay_times.h"
#include "depth/shot_velocities.h"

namespace tarnvik {

namespace {

constexpr int most_layers = 4;
constexpr std::size_t path_letters = 35;
constexpr double largest_value = 1e9;  // no velocity and no time comes near it

/// A row of the upper grid.
struct GridRow {
    const char* Caption;
    int Row;  ///< of ReceiverData; 0 for a caption without values
    AbcReceivers::Row AbcReceivers::*Typed = nullptr;
};

// A third intercept time has its row, but nothing is known of it yet.
constexpr std::array grid_rows = {
    GridRow{"IT1", ReceiverIntercept1, &AbcReceivers::IT1},
    GridRow{"IT2", ReceiverIntercept2, &AbcReceivers::IT2},
    GridRow{"IT3", 0},
    GridRow{"delay", ReceiverIntercept},
    GridRow{"V1", ReceiverV1, &AbcReceivers::V1},
    GridRow{"V2", ReceiverV2, &AbcReceivers::V2},
    GridRow{"V3", ReceiverV3, &AbcReceivers::V3},
    GridRow{"V4", ReceiverV4, &AbcReceivers::V4},
    GridRow{"Depth1", ReceiverDepth1},
    GridRow{"Depth2", ReceiverDepth2},
    GridRow{"Depth3", ReceiverScratch},
    GridRow{"Rock", ReceiverRockDepth},
};

constexpr int shown_refractors = 3;

const GridRow* Row_At(int row) {
    return row >= 1 && row <= static_cast<int>(grid_rows.size())
               ? &grid_rows.at(static_cast<std::size_t>(row) - 1)
               : nullptr;
}

void Put(TextGrid& grid, int row, int column, std::string text,
         TextGrid::Alignment side = TextGrid::Alignment::Right) {
    TextGrid::Cell& cell = grid.At(row, column);
    cell.Text = std::move(text);
    cell.Align = side;
}

/// The last letters of a path, not cutting one in the middle.
std::string End_Of(const std::string& path) {
    std::size_t start = path.size();
    for (std::size_t letters = 0; start > 0 && letters < path_letters;) {
        if ((static_cast<unsigned char>(path[--start]) & 0xC0) != 0x80) ++letters;
    }
    return path.substr(start);
}

}  // namespace

ABCGridF::ABCGridF(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void ABCGridF::Say(const std::string& text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
}

void ABCGridF::Refuse_And_Close(const std::string& text) {
    Say(text, Icon::Critical);
    Close();
}

void ABCGridF::Load() {
    const Project& project = Work.Project;
    Work.Mode.Take(Dialog::ABCGridF, DisplayMode::Abc);
    AbcOption = interpolation;
    Computed = false;
    Shots = {};
    Title = "Delay:  " + End_Of(project.CurrentFile);
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    int most = 0;
    for (int shot = first; shot <= last && project.VelocityA.Has(shot, Project::MaxLayers); ++shot) {
        int layers = 0;
        std::array<double, 6> velocities{};
        Shot_Velocities(project, shot, layers, velocities);
        most = std::max(most, layers);
    }
    Layers = CStr(most);
    Fill_Grids();
    Outside.Show.Show_Fields();
}

void ABCGridF::Close() {
    Outside.Show.Close_Dialog(Dialog::ABCGridF);
    Work.Mode.Release(Dialog::ABCGridF);
}

void ABCGridF::Option_Changed() {
    Fill_Grids();
    Outside.Show.Show_Fields();
}

void ABCGridF::Project_Went_Back() {
    Fill_Grids();
    Outside.Show.Show_Fields();
}

void ABCGridF::Fill_Grids() {
    Fill_Receivers();
    Fill_Shots();
}

void ABCGridF::Fill_Receivers() {
    const Project& project = Work.Project;
    const int receivers = std::max(0, std::min<int>(project.NbReceivers, project.ReceiverData.Last_Column()));
    ABCGrid.Resize(static_cast<int>(grid_rows.size()) + 1, receivers + 1);
    Put(ABCGrid, 0, 0, "Geo.", TextGrid::Alignment::Centre);
    for (int receiver = 1; receiver <= receivers; ++receiver)
        Put(ABCGrid, 0, receiver, CStr(receiver), TextGrid::Alignment::Centre);
    for (int row = 1; row < ABCGrid.Rows(); ++row) {
        const GridRow& own = *Row_At(row);
        Put(ABCGrid, row, 0, own.Caption, TextGrid::Alignment::Left);
        for (int receiver = 1; receiver <= receivers; ++receiver)
            Put(ABCGrid, row, receiver, own.Row == 0 ? "" : CStr(project.ReceiverData(own.Row, receiver)));
    }
}

void ABCGridF::Fill_Shots() {
    const Project& project = Work.Project;
    const int shots = std::max(0, std::min<int>(project.NbShots, project.InterceptA.Last_Row()));
    ABCGrid2.Resize(2 * shown_refractors + 1, shots + 1);
    for (int shot = 1; shot <= shots; ++shot)
        Put(ABCGrid2, 0, shot, "Shot." + CStr(shot), TextGrid::Alignment::Centre);
    const std::string unit = Work.Settings.Metric() ? " m" : " f";
    for (int refractor = 1; refractor <= shown_refractors; ++refractor) {
        Put(ABCGrid2, refractor, 0, "IT" + CStr(refractor) + " A/B", TextGrid::Alignment::Left);
        const int distances = shown_refractors + refractor;
        Put(ABCGrid2, distances, 0, "CD" + CStr(refractor), TextGrid::Alignment::Left);
        for (int shot = 1; shot <= shots; ++shot) {
            Put(ABCGrid2, refractor, shot,
                CStr(project.InterceptA(shot, refractor)) + "/" + CStr(project.InterceptB(shot, refractor)));
            Put(ABCGrid2, distances, shot, CStr(project.CritDistA(shot, refractor)) + unit);
        }
    }
}

bool ABCGridF::Editable(int row, int column) const {
    const GridRow* own = Row_At(row);
    return AbcOption == grid_values && own != nullptr && own->Typed != nullptr && column >= 1 &&
           ABCGrid.Has(row, column);
}

bool ABCGridF::Type(int row, int column, const std::string& text) {
    if (!Editable(row, column)) {
        Say("No change");
        return false;
    }
    if (!(std::abs(Number_In(text).value_or(2 * largest_value)) <= largest_value)) {
        Say("Impossible value: " + text, Icon::Critical);
        return false;
    }
    ABCGrid.Set_Text(row, column, text);
    return true;
}

void ABCGridF::Double_Clicked(int row, int column) {
    if (!Editable(row, column)) Say("No change possible here");
}

void ABCGridF::Shot_Grid_Touched() {
    Say("For shot corrections, use CALCUL module");
}

/// Each cell by the number that it begins with; one that stands as it was filled keeps all its digits.
void ABCGridF::Read_Grid_Values(AbcReceivers& receivers) const {
    for (int row = 1; row < ABCGrid.Rows(); ++row) {
        const GridRow& own = *Row_At(row);
        if (own.Typed == nullptr) continue;
        AbcReceivers::Row& values = receivers.*own.Typed;
        for (int column = 1; column < ABCGrid.Columns(); ++column) {
            float& value = values.at(static_cast<std::size_t>(column));
            const std::string& text = ABCGrid.Text(row, column);
            if (text != CStr(value)) value = static_cast<float>(Val(text));
        }
    }
}

/// False after a message; the receivers are then as they were.
bool ABCGridF::Interpolate(int layers, AbcReceivers& receivers) {
    const Project& project = Work.Project;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    if (last > AbcShots::last_shot) {
        Say("Shot " + CStr(last) + ": values can be interpolated up to shot " + CStr(AbcShots::last_shot) +
                " only, use the grid values",
            Icon::Critical);
        return false;
    }
    try {
        Take_Shots(project, layers, first, last, Shots);
        if (const std::string fault = Order_Fault(Shots, layers, first, last); !fault.empty()) {
            Say(fault, Icon::Critical);
            return false;
        }
        AbcReceivers found = receivers;
        Interpolate_Shots(project, Shots, first, last, found);
        receivers = std::move(found);
        return true;
    } catch (const Fault&) {
        Say("Impossible: distances of the shots or length of the line", Icon::Critical);
        return false;
    }
}

void ABCGridF::CalculBt() {
    Computed = false;
    LargestRock = 0;
    Work.Mode.Take(Dialog::ABCGridF, DisplayMode::Abc);
    const int layers = CInt(Val(Layers)).value_or(most_layers + 1);
    if (layers > most_layers) return Refuse_And_Close("Too many Layers..max: 4");
    // There is no depth without a layer below.
    if (layers < 2) return Refuse_And_Close("Layer Number is missing...");
    const double half_shot_depth = Number_In(Work.Fields.Text23).value_or(2 * largest_value);
    if (std::abs(half_shot_depth) > largest_value) {
        Say("Impossible value: " + Work.Fields.Text23, Icon::Critical);
        return;
    }
    AbcReceivers receivers = Receivers_Of(Work.Project);
    if (AbcOption < 1) {
        Read_Grid_Values(receivers);
    } else if (!Interpolate(layers, receivers)) {
        return;
    }
    Work.Depth.NbLayers = layers;
    Work.Depth.HalfShotDepth = half_shot_depth;
    const AbcDepths depths = Depth_Below_Receivers(receivers, layers, Work.Depth.HalfShotDepth);
    {
        const EditScope edit(Work, "ABC depths");
        Store_Receivers(Work.Project, receivers);
        Store_Depths(Work.Project, depths);
    }
    LargestRock = depths.LargestRock;
    Computed = true;
    Fill_Grids();
    if (!Has_Delays(Work.Project)) Work.Fields.Status = "No receiver has a delay: all depths are 0";
    Work.Section.Source = SectionSource::Abc;
    Close();
    if (Show_Profile) Show_Profile();
    Outside.Show.Show_Fields();
}

void ABCGridF::SaveBt() {
    if (Files.SaveProject) Files.SaveProject(Work, Outside);
}

void ABCGridF::Command1() {
    Say("Depths under receivers determination: Delay time Method\r\n"
        "If intercepts times at each receivers, velocities and delay times are already determined, the "
        "depth, "
        "up to\r\n"
        "4 layers under each receiver can be computed\r\n"
        "Intercept times and velocities are interpolated from shot data (INTERPOLATION OPTION) but you can "
        "corrected data on the grid easily (GRID VALUES OPTION) before computation\r\n"
        "!!! Shots data cannot be corrected in this level !!!\r\n"
        "For formula, refer to REDPATH 1973",
        Icon::Information);
}

}  // namespace tarnvik
