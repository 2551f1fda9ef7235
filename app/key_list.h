#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnvik {

struct Command;

/// One line of the list of keys and gestures.
struct KeyRow {
    std::string Place;    ///< where it acts: "Everywhere", "Field record", ...
    std::string Keys;     ///< portable key text or the gesture: "Ctrl+S", "Ctrl + wheel"
    std::string Meaning;  ///< what it does
};

/// All keys and gestures of the program: those of the commands from their tables, and what the mouse does on
/// the pictures. Lines of one place stand together.
std::vector<KeyRow> Key_List();

/// Key of a command, its own or that of another entry which does the same; empty without one.
std::string_view Shortcut_Of(const Command& command);

}  // namespace tarnvik
