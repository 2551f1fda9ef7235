#include "app/key_list.h"

#include <algorithm>

#include "app/commands.h"

namespace tarnvik {

namespace {

constexpr const char* everywhere = "Everywhere";
constexpr const char* on_record = "Field record";
constexpr const char* on_tables = "Tables";
constexpr const char* on_curves = "Travel times and profile";
constexpr const char* on_section = "Section";
constexpr const char* in_dialogs = "Tool windows";

struct Gesture {
    const char* Place;
    const char* Keys;
    const char* Meaning;
};

constexpr Gesture gestures[] = {
    {on_record, "Click", "Pick the first break of the trace"},
    {on_record, "Right click",
     "Kill the trace, after a question; with the automatic picking open: start it here"},
    {on_record, "Right drag", "Move the pick of the trace"},
    {on_record, "Wheel", "Scroll in time"},
    {on_record, "Ctrl + wheel", "Enlarge the time at the pointer"},
    {on_record, "Shift + wheel", "Enlarge the traces at the pointer"},
    {on_record, "Alt + wheel", "Trace size"},
    {on_record, "Middle drag", "Move the part in sight"},
    {on_record, "P + drag", "Pick along the line drawn"},
    {on_record, "Drag on the time scale", "Show a part of the time"},
    {on_tables, "Ctrl+C, Ctrl+V", "Copy and paste cells"},
    {on_tables, "Delete", "Empty the cells selected"},
    {on_curves, "Double click", "Take the pick up to move or delete it"},
    {on_curves, "Wheel", "Scroll"},
    {on_curves, "Ctrl + wheel", "Enlarge the time at the pointer"},
    {on_curves, "Shift + wheel", "Enlarge the distance at the pointer"},
    {on_curves, "Middle drag", "Move the part in sight"},
    {on_curves, "Drag, with Velocity 2 open", "Draw the line whose velocity and intercept time are shown"},
    {on_curves, "Click, with True Velocity open", "Fill the receiver box entered last"},
    {on_curves, "Drag of a limit",
     "Quick interpretation: move the limit between two layers, with either button"},
    {on_curves, "Drag on the moving curve", "While a shot is translated: slide its curve"},
    {on_curves, "Drag, Alt + wheel",
     "With the time break correction open: carry the curve of its shot up and down"},
    {in_dialogs, "Up, Down, Page Up, Page Down, wheel",
     "Time break correction: step the curve, by 2 ms with Page and with Shift"},
    {on_curves, "Drag, arrows, Page Up/Down", "Delay times open: move a curve or the total time line"},
    {on_curves, "Pointer on a GRM curve", "Tell its XY, receiver and value"},
    {on_section, "Ctrl + drag", "Frame what shall fill the picture"},
    {on_section, "R", "The whole section"},
    {on_section, "Wheel, arrows, drag", "Move the part in sight"},
    {on_section, "Ctrl + wheel", "Enlarge the elevations at the pointer"},
    {on_section, "Shift + wheel", "Enlarge the distances at the pointer"},
    {on_section, "+ and -", "Enlarge and shrink"},
    {on_section, "Right click", "Save or copy the section"},
    {in_dialogs, "Alt+Left, Alt+Right", "Header editor: the 120 traces before or behind"},
    {in_dialogs, "Enter, Escape", "Give the keys back to the picture"},
    {in_dialogs, "Ctrl+Return", "Save the velocity and go to the next layer"},
};

std::string Without_Mnemonic(std::string_view caption) {
    std::string text(caption);
    std::erase(text, '&');
    return text;
}

void Add_Commands(std::span<const Command> commands, const char* place, std::vector<KeyRow>& rows) {
    for (const Command& command : commands) {
        if (command.Shortcut.empty() || !command.Available()) continue;
        const std::string_view meaning = command.Tooltip.empty() ? command.Caption : command.Tooltip;
        rows.push_back({place, std::string(command.Shortcut), Without_Mnemonic(meaning)});
    }
}

}  // namespace

std::vector<KeyRow> Key_List() {
    std::vector<KeyRow> rows;
    Add_Commands(Command_Table(), everywhere, rows);
    Add_Commands(Record_Page_Commands(), on_record, rows);
    Add_Commands(Picking_Commands(), on_record, rows);
    Add_Commands(Tables_Page_Commands(), on_tables, rows);
    Add_Commands(Curves_Page_Commands(), on_curves, rows);
    for (const Gesture& gesture : gestures)
        rows.push_back({gesture.Place, gesture.Keys, gesture.Meaning});
    const auto rank = [](const KeyRow& row) {
        constexpr std::string_view places[] = {everywhere, on_record,  on_tables,
                                               on_curves,  on_section, in_dialogs};
        return std::find(std::begin(places), std::end(places), row.Place) - std::begin(places);
    };
    std::stable_sort(rows.begin(), rows.end(),
                     [&rank](const KeyRow& one, const KeyRow& other) { return rank(one) < rank(other); });
    return rows;
}

std::string_view Shortcut_Of(const Command& command) {
    if (!command.Shortcut.empty() || !command.Available()) return command.Shortcut;
    for (const Command& other : Command_Table()) {
        if (other.Run == command.Run && !other.Shortcut.empty()) return other.Shortcut;
    }
    return {};
}

}  // namespace tarnvik
