#include "depth/grm_depth.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "core/fault.h"
#include "core/files.h"
#include "core/grm_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "depth/grm_curves.h"
#include "depth/grm_rows.h"
#include "depth/grm_storage.h"

namespace tarnvik {

namespace {

constexpr int columns = 12;
constexpr Colour interpolated_ground = 219 + 234 * 256 + 250 * 65536;

constexpr std::array<const char*, columns> headings = {
    "Rec.",
    "Offset 1",
    "Offset 2.",
    "GRM time",
    "Velocity\nlayer 1",
    "Velocity\nlayer 2",
    "Velocity\nlayer 3",
    "Thickness\nlayer 1",
    "Thickness\nlayer 2",
    "BedRock\ndepth",
    "BedRock\nelevation",
    "Vref",
};

constexpr const char* help_text =
    "GRM Depth Computation for 3 layers\r\n"
    "If not already recorded, you must input the first and second velocities for 1st and last receivers \r\n"
    "Enter a thickness for the first layer (At least 1st and last receivers)\r\n"
    "Velocities and thickness of other receivers will be interpolated\r\n"
    "Receiver spacing MUST BE constant to use this GRM module\r\n"
    "The true velocity of the bedrock is computed\r\n"
    "with the second layer thickness and bedrock depth\r\n"
    "You can save the data and print the seismic profil\r\n"
    "Formula used (with refraction correction)\r\n"
    "Tg  =  (Tay  +  Tbx -  (Tab +  XY / Vref)) / 2 \r\n"
    "it12 = intercept time 1, Z1 = Thickness layer 1\r\n"
    "it12 = (Z1 * Cos(ArcSin (V1 / V2))) / V1   \r\n"
    "Prof_GRM = (Tg - it12) * V2 / Cos(ArcSin (V2 / V3))\r\n"
    "If you have more than 3 layers, you must group 2 layers. \r\n"
    "For only 2 layers, input a fictitious layer 0.01 m thick\r\n"
    " with an intermediate velocity";

/// True for a text that is a number from its first letter to its last.
bool Is_Number(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stopped, fault] = std::from_chars(text.data(), end, value);
    return fault == std::errc() && stopped == end && std::isfinite(value);
}

std::string Shown(double value) {
    return value == 0 ? std::string() : CStr(value);
}

}  // namespace

GRM_depth::GRM_depth(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

void GRM_depth::Say(const std::string& text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
}

bool GRM_depth::Has_Line() const {
    const Project& project = Work.Project;
    return project.NbReceivers > 0 && project.GrmData.Has(Bedrock, project.NbReceivers) &&
           project.ReceiverData.Has(ReceiverDistance, project.NbReceivers);
}

void GRM_depth::Load() {
    Hint.clear();
    if (!Has_Line()) {
        Say("Bad file or no file loaded");
        return Close();
    }
    const std::string path = Grm_File_Beside(Work.Project.CurrentFile);
    if (File_Exists(path) && GRM_File_Differs(Work, path) &&
        Outside.Ask.Ask_Yes(Name_Of(path) + " holds other values than the line in memory. Read it ?",
                            Work.AppTitle)) {
        Read_GRM_File(Work, Outside, path);
    }
    // What was typed and not computed yet is still there when the dialog comes back.
    const bool kept = FilledFile == Work.Project.CurrentFile && FilledData == Work.Project.GrmData &&
                      GRM_Grid.Rows() == Work.Project.NbReceivers + 1;
    if (!kept) Fill();
    if (!kept || XYDistance.empty()) XYDistance = CStr(int{Work.Grm.GrmXY});
    TotalTime = CStr(Work.Project.TotalTime);
    FilledTotalTime = Work.Project.TotalTime;
    Outside.Show.Show_Fields();
}

void GRM_depth::Close() {
    Outside.Show.Close_Dialog(Dialog::GRM_depth);
}

/// Remembers what the grid shows of the project.
void GRM_depth::Note_Data() {
    FilledFile = Work.Project.CurrentFile;
    FilledData = Work.Project.GrmData;
    FilledTotalTime = Work.Project.TotalTime;
}

void GRM_depth::Fill() {
    const int receivers = Work.Project.NbReceivers;
    Interpolated.clear();
    GRM_Grid = TextGrid(receivers + 1, columns);
    for (int column = 0; column < columns; ++column) {
        GRM_Grid.Set_Text(0, column, headings.at(static_cast<std::size_t>(column)));
        GRM_Grid.At(0, column).Align = TextGrid::Alignment::Centre;
    }
    for (int row = 1; row <= receivers; ++row) {
        GRM_Grid.Set_Text(row, 0, CStr(row));
        for (int column = 0; column < columns; ++column)
            GRM_Grid.At(row, column).Align = TextGrid::Alignment::Right;
        for (int column = Offset1; column <= Bedrock; ++column)
            Show_Value(row, column);
    }
    GRM_Grid.CurrentRow = 1;
    GRM_Grid.CurrentColumn = V1;
    Note_Data();
}

void GRM_depth::Put(int row, int column, const std::string& text) {
    GRM_Grid.Set_Text(row, column, text);
    GRM_Grid.At(row, column).BackColour.reset();
    if (Is_Interpolated(row, column)) GRM_Grid.At(row, column).BackColour = interpolated_ground;
}

void GRM_depth::Show_Value(int row, int column) {
    Put(row, column, Shown(Work.Project.GrmData(column, row)));
}

bool GRM_depth::Is_Interpolated(int row, int column) const {
    return Interpolated.contains({row, column}) && !GRM_Grid.Text(row, column).empty();
}

bool GRM_depth::Is_Computed(int column) {
    return column == Time || column >= Z2;
}

bool GRM_depth::Editable(int row, int column) const {
    return row >= 1 && row < GRM_Grid.Rows() && column >= Offset1 && column <= Elevation;
}

void GRM_depth::Enter_Cell(int column) {
    const std::string hint =
        Is_Computed(column) ? "This column will be computed, but you can correct a data.." : "";
    if (hint == Hint) return;
    Hint = hint;
    Outside.Show.Show_Fields();
}

bool GRM_depth::Type(int row, int column, const std::string& text) {
    if (!Editable(row, column)) return false;
    const std::string typed = Trim(text);
    if (!typed.empty() && !Is_Number(typed)) {
        Hint = "\"" + typed + "\" is no number";
        Outside.Show.Show_Fields();
        return false;
    }
    Interpolated.erase({row, column});
    Put(row, column, Val(typed) == 0 ? std::string() : typed);
    return true;
}

void GRM_depth::Clear_Interpolated() {
    const auto filled = std::exchange(Interpolated, {});
    for (const auto& [row, column] : filled)
        Put(row, column, "");
    Outside.Show.Show_Grids();
}

void GRM_depth::Follow() {
    const Project& project = Work.Project;
    // The grid of another line is filled anew when the dialog comes back.
    if (FilledFile != project.CurrentFile && !Outside.Show.Is_Open(Dialog::GRM_depth)) return;
    if (GRM_Grid.Rows() == 0 || project.GrmData == FilledData) {
        if (FilledTotalTime != project.TotalTime) TotalTime = CStr(project.TotalTime);
        FilledTotalTime = project.TotalTime;
        return;
    }
    const Array2<double> before = FilledData;
    const bool same_line =
        GRM_Grid.Rows() == project.NbReceivers + 1 && before.Has(Bedrock, project.NbReceivers) && Has_Line();
    if (FilledTotalTime != project.TotalTime) TotalTime = CStr(project.TotalTime);
    if (!same_line) {
        if (Has_Line()) Fill();
        return;
    }
    for (int row = 1; row <= project.NbReceivers; ++row) {
        for (int column = Offset1; column <= Bedrock; ++column) {
            if (before(column, row) == project.GrmData(column, row)) continue;
            Show_Value(row, column);
            // An elevation of another depth would stand beside the new one.
            if (column == Bedrock) Put(row, Elevation, "");
        }
    }
    Note_Data();
}

/// XY of the field, within what the line allows, written back; whole numbers, odd ones stay odd.
int GRM_depth::Take_XY() {
    double xy = Int(2 * Val(Str(Val(XYDistance) / 2)));
    const int receivers = Work.Project.NbReceivers;
    if (xy > receivers / 2.0) {
        xy = Largest_XY(receivers);
        Say("XY Maximum " + CStr(xy) + " Receivers...");
    }
    if (xy < 2) {
        Say("XY Minimum 2 Receivers...");
        xy = 2;
    }
    XYDistance = CStr(xy);
    return static_cast<int>(xy);
}

void GRM_depth::Compute_Times(int half) {
    Project& project = Work.Project;
    const int receivers = project.NbReceivers;
    const std::vector<GrmTime> times =
        Grm_Times(project, half, Work.Velocity.VelocityResult, Val(ReferenceVelocity));
    for (int row = 1; row <= receivers; ++row) {
        const GrmTime& found = times[static_cast<std::size_t>(row) - 1];
        GRM_Grid.Set_Text(row, Vref, found.Velocity ? CStr(*found.Velocity) : std::string());
        if (found.Time) {
            project.GrmData(Time, row) = *found.Time;
            Put(row, Time, CStr(*found.Time));
        } else {
            const bool at_an_end = row <= half || row > receivers - half;
            Put(row, Time, at_an_end ? " " : "0");
        }
    }
}

void GRM_depth::Interpolate_Grid() {
    GrmReady = false;
    const int receivers = Work.Project.NbReceivers;
    for (const int column : {V1, V2, V3, Z1}) {
        std::vector<double> values;
        for (int row = 1; row <= receivers; ++row)
            values.push_back(GRM_Grid.Value(row, column));
        if (values.front() == 0) return Say("You must input a value for the first receiver...");
        if (values.back() == 0) return Say("You must input a value for the last receiver...");
        const std::vector<double> typed = values;
        Interpolate_Between_Anchors(values, column == Z1 ? GrmCut::Hundredths : GrmCut::Whole);
        for (int row = 1; row <= receivers; ++row) {
            const auto place = static_cast<std::size_t>(row) - 1;
            if (typed[place] != 0) continue;
            Interpolated.insert({row, column});
            Put(row, column, CStr(values[place]));
        }
    }
    GrmReady = true;
}

void GRM_depth::Compute_Grid(int row) {
    const double time = GRM_Grid.Value(row, Time);
    if (time == 0) return;
    const double upper = GRM_Grid.Value(row, Z1);
    const double lower = Second_Thickness(
        time, {GRM_Grid.Value(row, V1), GRM_Grid.Value(row, V2), GRM_Grid.Value(row, V3), upper});
    const double depth = upper + lower;
    const double elevation = Work.Project.ReceiverData(ReceiverElevation, row) - depth;
    Put(row, Z2, CStr(lower));
    Put(row, Bedrock, CStr(depth));
    Put(row, Elevation, CStr(Int(10 * elevation) / 10));
}

void GRM_depth::Grid_To_Data() {
    Project& project = Work.Project;
    for (int row = 1; row <= project.NbReceivers; ++row) {
        for (int column = Offset1; column <= Bedrock; ++column) {
            double& value = project.GrmData(column, row);
            // A text keeps fewer digits than the value that it shows.
            if (GRM_Grid.Text(row, column) != CStr(value)) value = GRM_Grid.Value(row, column);
        }
    }
}

void GRM_depth::Compute() {
    Work.Project.TotalTime = Val(TotalTime);
    const int xy = Take_XY();
    GRM_Grid.Set_Text(0, Time, std::string(headings[Time]) + "\nXY =" + CStr(xy));
    Compute_Times(xy / 2);
    Interpolate_Grid();
    if (!GrmReady) return;
    for (int row = 1; row <= Work.Project.NbReceivers; ++row)
        Compute_Grid(row);
    Grid_To_Data();
}

void GRM_depth::Command2() {
    GrmReady = false;
    if (!Has_Line() || GRM_Grid.Rows() != Work.Project.NbReceivers + 1) return;
    {
        const EditScope edit(Work, "GRM depth, XY " + Trim(XYDistance));
        try {
            Compute();
        } catch (const Fault&) {
            Say("GRM error", Icon::Critical);
        }
        Note_Data();
    }
    if (GrmReady) Work.Section.Source = SectionSource::Grm;
    Outside.Show.Show_Grids();
    Outside.Show.Show_Fields();
    if (GrmReady && OnComputed) OnComputed();
    // A message, and the profile, have brought the main window in front of the grid.
    Outside.Show.Bring_To_Front(Dialog::GRM_depth);
}

void GRM_depth::Command1() {
    if (!Has_Line() || GRM_Grid.Rows() != Work.Project.NbReceivers + 1) return;
    {
        const EditScope edit(Work, "GRM grid");
        Grid_To_Data();
        Note_Data();
    }
    Write_GRM_File(Work, Outside, XYDistance);
    Outside.Show.Show_Fields();
}

void GRM_depth::Command3() {
    Say(help_text, Icon::Information);
}

void GRM_depth::Command5() {
    if (!Has_Line() || !Read_GRM_File(Work, Outside, Grm_File_Beside(Work.Project.CurrentFile))) return;
    Fill();
    XYDistance = CStr(int{Work.Grm.GrmXY});
    TotalTime = CStr(Work.Project.TotalTime);
    Outside.Show.Show_Grids();
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
