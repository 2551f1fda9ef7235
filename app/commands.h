#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarnvik {

class Session;

/// One command as the user meets it: a key of the toolbar, an entry of a menu, or a button of a page. Keys,
/// entries and buttons that do the same share their Run.
struct Command {
    std::string_view Name{};  ///< key of the toolbar button, or name of the menu control
    std::string_view Menu{};  ///< title of the menu; a submenu behind "/"; empty for a toolbar key
    std::string_view Caption{};
    std::string_view Tooltip{};
    std::string_view Icon{};                    ///< name in the icon family; empty for none
    std::string_view Shortcut{};                ///< portable key text ("Ctrl+S"); empty for none
    void (*Run)(Session&) = nullptr;            ///< null: belongs to later work; shown disabled
    bool (*Checked)(const Session&) = nullptr;  ///< mark of an entry that can be ticked; null for the others
    std::string (*Text)(const Session&) =
        nullptr;  ///< caption that changes (recent files); null for the others

    /// Why the command cannot be run now, in words for the user; empty when it can. Null: always.
    std::string (*Refusal)(const Session&) = nullptr;

    bool Available() const { return Run != nullptr; }
};

/// Commands of the main window: first the toolbar's keys in the order of their buttons, then the menus from
/// left to right and from top to bottom. An entry whose caption is "-" is a line between groups.
std::span<const Command> Command_Table();

/// Buttons of the record page, of the tables page and of the curves page, by the names of their controls.
std::span<const Command> Record_Page_Commands();
std::span<const Command> Tables_Page_Commands();
std::span<const Command> Curves_Page_Commands();
/// Keys of picking on the record, and the choices of its menu.
std::span<const Command> Picking_Commands();

/// The command of that toolbar key, menu control or button; null when there is none.
const Command* Find_Command(std::string_view name);

/// Text for the status bar while an entry of later work is pointed at.
std::string Not_Available_Text(const Command& command);

/// Why the command cannot be run now; empty when it can.
std::string Refusal_Of(const Command& command, const Session& session);

/// Runs the command of that name: nothing for an unknown name and for one of later work. One that is refused
/// tells the reason in the status field.
void Run_Command(Session& session, std::string_view name);

}  // namespace tarnvik
