#include <array>

#include "app/commands.h"
#include "app/record_choices.h"
#include "app/refusals.h"
#include "app/session.h"

namespace tarnvik {

namespace {

constexpr int stride = 10;  ///< of an arrow with Shift

template <int traces, int samples>
void Move(Session& session) {
    session.PickKeys.Move(traces, samples);
}
template <void (KeyboardPicking::*Routine)()>
void Do(Session& session) {
    (session.PickKeys.*Routine)();
}
template <bool PickingView::*choice>
void Toggle(Session& session) {
    session.PickKeys.Toggle(choice);
    Note_Record_Choices(session.Work);
}
template <bool PickingView::*choice>
bool Is_On(const Session& session) {
    return session.Work.Record.Picking.*choice;
}
template <SnapTo feature>
void Choose(Session& session) {
    session.PickKeys.Choose(feature);
    Note_Record_Choices(session.Work);
}
template <SnapTo feature>
bool Chosen(const Session& session) {
    return session.Work.Record.Picking.Feature == feature;
}

// clang-format off
const std::array picking_commands = {
    Command{.Name = "Cursor_Left", .Tooltip = "Trace to the left", .Shortcut = "Left", .Run = Move<-1, 0>, .Refusal = Without_Shown_Records},
    Command{.Name = "Cursor_Right", .Tooltip = "Trace to the right", .Shortcut = "Right", .Run = Move<1, 0>, .Refusal = Without_Shown_Records},
    Command{.Name = "Cursor_Up", .Tooltip = "One sample up", .Shortcut = "Up", .Run = Move<0, -1>, .Refusal = Without_Shown_Records},
    Command{.Name = "Cursor_Down", .Tooltip = "One sample down", .Shortcut = "Down", .Run = Move<0, 1>, .Refusal = Without_Shown_Records},
    Command{.Name = "Cursor_Far_Left", .Tooltip = "Ten traces to the left", .Shortcut = "Shift+Left", .Run = Move<-stride, 0>, .Refusal = Without_Shown_Records},
    Command{.Name = "Cursor_Far_Right", .Tooltip = "Ten traces to the right", .Shortcut = "Shift+Right", .Run = Move<stride, 0>, .Refusal = Without_Shown_Records},
    Command{.Name = "Cursor_Far_Up", .Tooltip = "Ten samples up", .Shortcut = "Shift+Up", .Run = Move<0, -stride>, .Refusal = Without_Shown_Records},
    Command{.Name = "Cursor_Far_Down", .Tooltip = "Ten samples down", .Shortcut = "Shift+Down", .Run = Move<0, stride>, .Refusal = Without_Shown_Records},
    Command{.Name = "Cursor_Hide", .Tooltip = "Hide the cursor of the keys", .Shortcut = "Esc", .Run = Do<&KeyboardPicking::Leave>, .Refusal = Without_Shown_Records},
    Command{.Name = "Pick_Here", .Caption = "Pick and go on", .Tooltip = "Pick at the cursor and go to the next trace", .Shortcut = "Space", .Run = Do<&KeyboardPicking::Pick>, .Refusal = Without_Shown_Records},
    Command{.Name = "Unpick_Here", .Caption = "Remove pick", .Tooltip = "Take the pick of the active trace away", .Shortcut = "Del", .Run = Do<&KeyboardPicking::Remove>, .Refusal = Without_Shown_Records},
    Command{.Name = "Kill_Here", .Caption = "Kill or revive trace", .Tooltip = "Mark the active trace as dead, or bring it back", .Shortcut = "K", .Run = Do<&KeyboardPicking::Kill_Or_Revive>, .Refusal = Without_Shown_Records},
    Command{.Name = "Snap_Here", .Caption = "Snap cursor", .Tooltip = "Move the cursor to the onset, or to what is chosen below", .Shortcut = "S", .Run = Do<&KeyboardPicking::Snap>, .Refusal = Without_Shown_Records},
    Command{.Name = "Paint_Picks", .Caption = "Paint picks", .Tooltip = "Hold P and drag with the left button: picks along the line", .Shortcut = "P", .Run = Toggle<&PickingView::Painting>, .Checked = Is_On<&PickingView::Painting>, .Refusal = Without_Shown_Records},
    Command{.Name = "Magnify", .Caption = "Magnifier", .Tooltip = "The traces around pointer or cursor, enlarged", .Shortcut = "M", .Run = Toggle<&PickingView::Magnifier>, .Checked = Is_On<&PickingView::Magnifier>, .Refusal = Without_Shown_Records},
    Command{.Name = "Snap_Onset", .Caption = "Onset", .Tooltip = "First sample above the noise before it", .Run = Choose<SnapTo::Onset>, .Checked = Chosen<SnapTo::Onset>},
    Command{.Name = "Snap_Zero", .Caption = "Zero crossing", .Tooltip = "Change of sign next to the cursor", .Run = Choose<SnapTo::ZeroCrossing>, .Checked = Chosen<SnapTo::ZeroCrossing>},
    Command{.Name = "Snap_Peak", .Caption = "Peak", .Tooltip = "Largest value next to the cursor", .Run = Choose<SnapTo::Peak>, .Checked = Chosen<SnapTo::Peak>},
    Command{.Name = "Snap_Trough", .Caption = "Trough", .Tooltip = "Smallest value next to the cursor", .Run = Choose<SnapTo::Trough>, .Checked = Chosen<SnapTo::Trough>},
    Command{.Name = "Snap_Every", .Caption = "Snap every pick", .Tooltip = "Picks of mouse and keys go to the onset, or to what is chosen", .Run = Toggle<&PickingView::SnapEvery>, .Checked = Is_On<&PickingView::SnapEvery>},
    Command{.Name = "Next_Record", .Caption = "Next record after the last trace", .Tooltip = "The pick of a record's last trace brings the next record", .Run = Toggle<&PickingView::NextRecord>, .Checked = Is_On<&PickingView::NextRecord>},
    Command{.Name = "Show_Neighbours", .Caption = "Line through the picks", .Tooltip = "Faint line through the picks of the record", .Shortcut = "N", .Run = Toggle<&PickingView::Neighbours>, .Checked = Is_On<&PickingView::Neighbours>, .Refusal = Without_Shown_Records},
    Command{.Name = "Show_Reciprocal", .Caption = "Reciprocal times", .Tooltip = "Times expected from the shots at the other end, with the shot's number", .Shortcut = "T", .Run = Toggle<&PickingView::Reciprocal>, .Checked = Is_On<&PickingView::Reciprocal>, .Refusal = Without_Shown_Records},
    Command{.Name = "Show_Shot_Before", .Caption = "Picks of the shot before", .Tooltip = "Picks of the same offset in the shot before", .Shortcut = "O", .Run = Toggle<&PickingView::ShotBefore>, .Checked = Is_On<&PickingView::ShotBefore>, .Refusal = Without_Shown_Records},
};
// clang-format on

}  // namespace

std::span<const Command> Picking_Commands() {
    return picking_commands;
}

}  // namespace tarnvik
