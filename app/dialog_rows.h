#pragma once

#include <optional>
#include <span>

#include "core/display_mode.h"
#include "core/ports/display.h"

namespace tarnvik {

/// Where a dialog stands while it is open.
enum class DialogPlace {
    Dock,    ///< tool window at the right side of the pictures, or floating
    Window,  ///< window of its own beside the main window
    Box,     ///< dialog box in the middle of the main window
};

/// What is the same for all dialogs, one row for each: the form adds its controls and nothing else.
struct DialogRow {
    Dialog Which;
    const char* Title = "";
    const char* Chapter = "";  ///< of the manual: name of its file in docs/manual without the ending
    DialogPlace Place = DialogPlace::Dock;
    /// What a press on the curves means while the dialog has the picture; None for one that never takes it.
    DisplayMode Mode = DisplayMode::None;
    /// Computes on the project in memory, so that it closes when another one comes.
    bool ClosesWithProject = false;
    /// The tab whose picture a tool window works on: it is in sight with that tab only. None: with all.
    std::optional<Tab> Home{};
};

std::span<const DialogRow> Dialog_Rows();
/// Null for a dialog that has no row.
const DialogRow* Row_Of(Dialog dialog);

}  // namespace tarnvik
