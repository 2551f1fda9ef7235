#include <array>
#include <string>

#include "app/commands.h"
#include "app/dialog_commands.h"
#include "app/file_commands.h"
#include "app/refusals.h"
#include "app/session.h"

namespace tarnvik {

namespace {

std::string Without_Shot(const Session& session) {
    const std::string refusal = Without_Project(session);
    if (!refusal.empty()) return refusal;
    const int shot = session.Work.Grids.Buildgrid.CurrentColumn;
    return shot >= 1 && shot <= session.Work.Project.NbShots ? "" : "Select a cell of the shot first";
}

/// The last shot cannot be taken out: a line without shots is none.
std::string Without_Two_Shots(const Session& session) {
    const std::string refusal = Without_Shot(session);
    if (!refusal.empty()) return refusal;
    return session.Work.Project.NbShots > 1 ? "" : "The line has no other shot";
}

void Choose_Elevations(Session& session, ElevationUpdate update) {
    session.Elevations = update;
    session.ElevationsChosen = true;
    session.Outside.Show.Show_Fields();
}

void Choose_Shots_From_Geophones(Session& session) {
    Choose_Elevations(session, ElevationUpdate::ShotsFromReceivers);
}

void Choose_Geophones_From_Shots(Session& session) {
    Choose_Elevations(session, ElevationUpdate::ReceiversFromShots);
}

bool Shots_From_Geophones(const Session& session) {
    return session.Elevations == ElevationUpdate::ShotsFromReceivers;
}

bool Geophones_From_Shots(const Session& session) {
    return session.Elevations == ElevationUpdate::ReceiversFromShots;
}

/// Until the user has chosen, the button carries the caption it has in the form.
std::string Caption_Of_Elevations(const Session& session) {
    return session.ElevationsChosen ? Elevation_Caption(session.Elevations) : "Interpol  Shot Z from Z geo";
}

constexpr std::string_view table_group = "Table";
constexpr std::string_view picks_group = "First breaks";
constexpr std::string_view line_group = "Line";
constexpr std::string_view elevations_group = "Elevations";
constexpr std::string_view coordinates_group = "Surveyed coordinates";

#define TARNVIK_XYZ_FORM                                                                                    \
    "<p>Text files with one point on a line, in the order of the line: <b>X Y Z</b> or <b>name X Y Z</b>, " \
    "separated by blanks, tabs, commas or semicolons, decimals behind a point. The first line may be a "    \
    "heading.</p><p>Distances are horizontal, along the path through the geophones.</p>"

// clang-format off
const std::array page_commands = {
    Command{.Name = "Save", .Menu = table_group, .Caption = "Save", .Tooltip = "Writes the project with the values of the tables", .Run = Save_Data, .Refusal = Without_Project},

    Command{.Name = "Command20", .Menu = picks_group, .Caption = "Load FBP from SU header", .Tooltip = "Import into grid  FBP value from SU file", .Run = Load_Header_Picks, .Refusal = Without_Line_Or_Records},
    Command{.Name = "Grid_2_SU", .Menu = picks_group, .Caption = "Store FBP in SU header", .Tooltip = "Writes the times of the grid into the trace headers of the SU file", .Run = Store_Header_Picks, .Refusal = Without_Line_Or_Records},

    Command{.Name = "Text6", .Menu = line_group, .Tooltip = "From end shot 1 to last end shot. Double click to change", .Run = Line_Length, .Refusal = Without_Project},
    Command{.Name = "Command6", .Menu = line_group, .Caption = "Distance correction", .Tooltip = "Press here to add or remove distance in order to have distance ZERO at First End Shot", .Run = Correct_Distances, .Refusal = Without_Project},
    Command{.Name = "TakeOutShot", .Menu = line_group, .Caption = "Remove shot", .Tooltip = "Takes the shot of the selected column out of the project in memory; its file is backed up first", .Run = Take_Out_Current_Shot, .Refusal = Without_Two_Shots},
    Command{.Name = "RemoveShot", .Menu = line_group, .Tooltip = "Double click to remove this shot", .Run = Remove_Current_Shot, .Refusal = Without_Two_Shots},

    Command{.Name = "ShotsFromGeophones", .Menu = elevations_group, .Caption = "Shots from geophones", .Tooltip = "Each shot between the two geophones beside it", .Run = Choose_Shots_From_Geophones, .Checked = Shots_From_Geophones},
    Command{.Name = "GeophonesFromShots", .Menu = elevations_group, .Caption = "Geophones from shots", .Tooltip = "Each geophone between the two shots beside it", .Run = Choose_Geophones_From_Shots, .Checked = Geophones_From_Shots},
    Command{.Name = "Command3", .Menu = elevations_group, .Caption = "Interpol  Shot Z from Z geo", .Tooltip = "Interpolates elevations along the line, in the direction chosen above", .Run = Interpolate_Elevations, .Text = Caption_Of_Elevations, .Refusal = Without_Project},
    Command{.Name = "Command11", .Menu = elevations_group, .Caption = "Compute distances  according to Z", .Tooltip = "Compute real  distances according to Geophone elevation", .Run = True_Distances, .Refusal = Without_Project},

    Command{.Name = "Command7", .Menu = coordinates_group, .Caption = "Enter XYZ files", .Tooltip = "<p>Read 2 ASCII files with geophone and shot XYZ location</p>" TARNVIK_XYZ_FORM, .Run = Enter_Xyz, .Refusal = Without_Project},
    Command{.Name = "Command9", .Menu = coordinates_group, .Caption = "Check XYZ text file", .Tooltip = TARNVIK_XYZ_FORM, .Run = Check_Xyz},
};
// clang-format on
#undef TARNVIK_XYZ_FORM

}  // namespace

std::span<const Command> Tables_Page_Commands() {
    return page_commands;
}

}  // namespace tarnvik
