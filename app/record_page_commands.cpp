#include <array>

#include "app/commands.h"
#include "app/dialog_commands.h"
#include "app/record_choices.h"
#include "app/refusals.h"
#include "app/session.h"
#include "app/su_chain_commands.h"
#include "records/record_buttons.h"
#include "records/record_choice.h"
#include "records/record_readout.h"

namespace tarnvik {

namespace {

std::string Picking_Is_On(const Session& session) {
    return session.Outside.Show.Is_Open(Dialog::AutoPik) ? "close the automatic picking first" : "";
}

template <int step>
std::string No_Neighbour(const Session& session) {
    const std::string none = Without_Shown_Records(session);
    if (!none.empty() || Has_Neighbour(session.Work, step)) return none;
    return step < 0 ? "this is the first shot" : "this is the last shot";
}

std::string Zoom_Armed(const Session& session) {
    const std::string none = Without_Shown_Records(session);
    if (!none.empty() || session.Work.Record.ZoomMode != 1) return none;
    return "draw the area on the record";
}

std::string Whole_Already(const Session& session) {
    const std::string none = Without_Shown_Records(session);
    return !none.empty() || session.RecordArea.Enlarged() ? none : "the complete record is shown";
}

bool Turned(const Session& session) {
    return session.Work.Record.DisplayPolarity == -1;
}
bool Picking_Open(const Session& session) {
    return session.Outside.Show.Is_Open(Dialog::AutoPik);
}
bool Shifted(const Session& session) {
    return session.Work.Record.PickTimeShift != 0;
}
bool Lines_Shown(const Session& session) {
    return session.Work.Record.CrossHair;
}
bool Spectrum_Armed(const Session& session) {
    return session.Work.Record.SpectrumRequest == 1;
}

template <int step>
void Show_Neighbour(Session& session) {
    Go_To_Neighbour(session.Work, session.Outside, step);
}
void Arm_Zoom(Session& session) {
    session.RecordArea.Arm();
}
void Show_Whole_Record(Session& session) {
    session.RecordArea.Show_Whole();
}
void Refresh_Record(Session& session) {
    session.RecordArea.Refresh();
}
void Switch_Lines(Session& session) {
    Switch_Cross_Hair(session.Work, session.Outside);
    Note_Record_Choices(session.Work);
}
template <void (*Routine)(Workspace&, Ports&)>
void On_Record(Session& session) {
    Routine(session.Work, session.Outside);
}
void Arm_Spectrum_Here(Session& session) {
    Arm_Spectrum(session);
    session.Outside.Show.Show_Fields();
}

// clang-format off
const std::array record_page_commands = {
    Command{.Name = "Command18", .Tooltip = "Load a new SU file", .Icon = "record-load", .Run = Load_Records, .Refusal = Picking_Is_On},
    Command{.Name = "Command24", .Tooltip = "Move to previous shot", .Icon = "record-previous", .Shortcut = "PgUp", .Run = Show_Neighbour<-1>, .Refusal = No_Neighbour<-1>},
    Command{.Name = "Command23", .Tooltip = "Move to next shot", .Icon = "record-next", .Shortcut = "PgDown", .Run = Show_Neighbour<1>, .Refusal = No_Neighbour<1>},
    Command{.Name = "Command4", .Caption = "Z", .Tooltip = "Press Z button, then draw an area on the record display", .Icon = "magnifier", .Shortcut = "Z", .Run = Arm_Zoom, .Refusal = Zoom_Armed},
    Command{.Name = "Command17", .Caption = "UZ", .Tooltip = "Press UZ to display thecomplete record", .Icon = "record-whole", .Shortcut = "U; Home", .Run = Show_Whole_Record, .Refusal = Whole_Already},
    Command{.Name = "Command21", .Tooltip = "Refresh display, no zoom", .Icon = "record-refresh", .Shortcut = "R", .Run = Refresh_Record, .Refusal = Without_Shown_Records},
    Command{.Name = "CrossHair", .Tooltip = "Lines through the pointer", .Icon = "cross-hair", .Shortcut = "C", .Run = Switch_Lines, .Checked = Lines_Shown},
    Command{.Name = "Command10", .Tooltip = "Click here to reduce trace size of the record", .Icon = "gain-down", .Shortcut = "-", .Run = On_Record<Reduce_Trace_Size>, .Refusal = Without_Shown_Records},
    Command{.Name = "Command15", .Tooltip = "Click here to enlarge trace size of the record", .Icon = "gain-up", .Shortcut = "+", .Run = On_Record<Enlarge_Trace_Size>, .Refusal = Without_Shown_Records},
    Command{.Name = "Command25", .Tooltip = "Polarity of the display", .Icon = "polarity", .Run = On_Record<Turn_Display_Polarity>, .Checked = Turned, .Refusal = Without_Shown_Records},
    Command{.Name = "Command5", .Caption = "A", .Tooltip = "Automatic picking of first breaks", .Icon = "auto-pick", .Shortcut = "A", .Run = On_Record<Open_Or_Close_AutoPik>, .Checked = Picking_Open, .Refusal = Without_Shown_Records},
    Command{.Name = "Command16", .Caption = "FB Shift", .Tooltip = "Moves the first breaks of some traces by a time", .Icon = "pick-shift", .Run = On_Record<Shift_Picks>, .Refusal = Without_Shown_Records},
    Command{.Name = "Pick_Time_Shift", .Tooltip = "Time shift in ms for picking FBP", .Icon = "pick-time-shift", .Run = Ask_Time_Shift, .Checked = Shifted, .Refusal = Without_Shown_Records},
    Command{.Name = "Spectre_Frequency", .Tooltip = "Frequency spectrum of an area: draw it on the record", .Icon = "herz", .Run = Arm_Spectrum_Here, .Checked = Spectrum_Armed, .Refusal = Without_Shown_Records},
    Command{.Name = "Command1", .Caption = "Stack shots", .Tooltip = "Use this option to stack (add) contiguous shots,  up to 5 shots to enhance seismic signal", .Run = Stack_Neighbours, .Refusal = Without_Line_Or_Records},
};
// clang-format on

}  // namespace

std::span<const Command> Record_Page_Commands() {
    return record_page_commands;
}

}  // namespace tarnvik
