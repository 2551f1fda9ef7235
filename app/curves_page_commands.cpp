#include <array>

#include "app/commands.h"
#include "app/session.h"
#include "app/view_commands.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

std::string Without_Shots(const Session& session) {
    return session.Work.Project.NbShots > 0 ? "" : "there is no project in memory";
}

int Chosen_Shot(const Session& session) {
    return session.Work.Grids.Grille_Shot.CurrentRow + 1;
}

void Only_Chosen_Shot(Session& session) {
    Show_Only_Shot(session.Work, session.Outside, Chosen_Shot(session));
    session.Outside.Show.Show_Fields();
}
void All_Shots(Session& session) {
    Show_All_Shots(session.Work, session.Outside);
    session.Outside.Show.Show_Fields();
}
void No_Shot(Session& session) {
    Show_No_Shot(session.Work, session.Outside);
    session.Outside.Show.Show_Fields();
}

// clang-format off
const std::array curves_page_commands = {
    Command{.Name = "OnlyThisShot", .Caption = "Only this", .Tooltip = "Draw the curve of the chosen shot alone", .Shortcut = "I", .Run = Only_Chosen_Shot, .Refusal = Without_Shots},
    Command{.Name = "AllShots", .Caption = "All", .Tooltip = "Draw the curves of all shots", .Shortcut = "L", .Run = All_Shots, .Refusal = Without_Shots},
    Command{.Name = "NoShot", .Caption = "None", .Tooltip = "Draw no curve", .Run = No_Shot, .Refusal = Without_Shots},
    Command{.Name = "WholePicture", .Caption = "Show all", .Tooltip = "The whole line and all times, also of the profile", .Shortcut = "Home", .Run = Whole_Picture, .Refusal = Without_Shots},
};
// clang-format on

}  // namespace

std::span<const Command> Curves_Page_Commands() {
    return curves_page_commands;
}

}  // namespace tarnvik
