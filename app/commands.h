#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarnvik {

class Session;

/// One command as the user meets it: a key of the toolbar or an entry of a menu. Keys and entries that do the
/// same share their Run.
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

    bool Available() const { return Run != nullptr; }
};

/// All commands: first the toolbar's keys in the order of their buttons, then the menus from left to right
/// and from top to bottom. An entry whose caption is "-" is a line between groups.
std::span<const Command> Command_Table();

/// The command of that toolbar key or menu control; null when there is none.
const Command* Find_Command(std::string_view name);

/// Text for the status bar while an entry of later work is pointed at.
std::string Not_Available_Text(const Command& command);

/// Runs the command of that name: nothing for an unknown name and for one of later work.
void Run_Command(Session& session, std::string_view name);

}  // namespace tarnvik
