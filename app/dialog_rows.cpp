#include "app/dialog_rows.h"

#include <algorithm>
#include <array>

namespace tarnvik {

namespace {

// In the order in which they close: a dialog before the one that it was opened from.
constexpr std::array dialog_rows = {
    DialogRow{Dialog::frmSplash, "Tarnvik", "start", DialogPlace::Box, DisplayMode::None, false},
    DialogRow{Dialog::rechinfo, "New profile", "new_profile", DialogPlace::Box, DisplayMode::None, false},
    DialogRow{Dialog::PictureExport, "Save picture", "save_picture", DialogPlace::Box, DisplayMode::None,
              false},
    DialogRow{Dialog::AutoPik, "Automatic picking", "automatic_picking", DialogPlace::Dock, DisplayMode::None,
              false, Tab::Record},
    DialogRow{Dialog::confirm, "Record data", "record_data", DialogPlace::Box, DisplayMode::None, true},
    DialogRow{Dialog::SpeedF, "Velocity calculation", "velocity", DialogPlace::Dock, DisplayMode::Vitesse,
              true, Tab::Curves},
    DialogRow{Dialog::SpeedF2, "True Velocity Calculation", "true_velocity", DialogPlace::Dock,
              DisplayMode::Velocity, true, Tab::Curves},
    DialogRow{Dialog::SpeedF3, "Velocity 2", "hand_velocity", DialogPlace::Dock, DisplayMode::Vitesse2, true,
              Tab::Curves},
    DialogRow{Dialog::vELINE, "Velocity line", "velocity_ruler", DialogPlace::Dock, DisplayMode::None, true,
              Tab::Curves},
    DialogRow{Dialog::dip, "Tarnvik Dip computation", "dip", DialogPlace::Dock, DisplayMode::None, false},
    DialogRow{Dialog::Fcalcul, "Depth Computation", "depth", DialogPlace::Dock, DisplayMode::Calcul, true,
              Tab::Curves},
    DialogRow{Dialog::quick_interpret, "Quick interpretation", "quick", DialogPlace::Dock, DisplayMode::Quick,
              true, Tab::Curves},
    DialogRow{Dialog::FantomF, "Shot Translation", "phantom", DialogPlace::Dock, DisplayMode::Fantom, true,
              Tab::Curves},
    DialogRow{Dialog::Theoric_F, "Tarnvik Theoric travel time", "theoretic", DialogPlace::Dock,
              DisplayMode::None, true, Tab::Curves},
    DialogRow{Dialog::Erase_TT, "Time Time  break correction", "time_break", DialogPlace::Dock,
              DisplayMode::Dromo, true, Tab::Curves},
    DialogRow{Dialog::ABCGridF, "ABC Grid", "abc", DialogPlace::Box, DisplayMode::Abc, true},
    DialogRow{Dialog::DelayF, "Delay times", "delay_times", DialogPlace::Dock, DisplayMode::Delay, true,
              Tab::Curves},
    DialogRow{Dialog::GRM_depth, "GRM  Depth computation", "grm_depth", DialogPlace::Box, DisplayMode::None,
              true},
    DialogRow{Dialog::resu, "Seismic Profile", "results", DialogPlace::Window, DisplayMode::None, true},
    DialogRow{Dialog::Header, "Header editor", "header_editor", DialogPlace::Window, DisplayMode::None, true},
    DialogRow{Dialog::Conversion, "Seismograph file conversion", "conversion", DialogPlace::Box,
              DisplayMode::None, false},
    DialogRow{Dialog::rezize, "SU file utility", "su_utility", DialogPlace::Box, DisplayMode::None, false},
    DialogRow{Dialog::Update_FLDR, "Update FLDR and TRACF", "trace_numbers", DialogPlace::Box,
              DisplayMode::None, true},
    DialogRow{Dialog::GRM, "GRM", "grm", DialogPlace::Dock, DisplayMode::GrmV, true, Tab::Curves},
    DialogRow{Dialog::History, "History", "undo", DialogPlace::Dock, DisplayMode::None, false},
    DialogRow{Dialog::Zoom, "Enlargement factors", "zoom", DialogPlace::Dock, DisplayMode::None, false,
              Tab::Curves},
    DialogRow{Dialog::RulerF, "Ruler", "ruler", DialogPlace::Dock, DisplayMode::None, false},
    DialogRow{Dialog::Keys, "Keys and mouse", "keys", DialogPlace::Window, DisplayMode::None, false},
    DialogRow{Dialog::Travel_Time_2, "Travel times", "second_window", DialogPlace::Window, DisplayMode::None,
              false},
};

}  // namespace

std::span<const DialogRow> Dialog_Rows() {
    return dialog_rows;
}

const DialogRow* Row_Of(Dialog dialog) {
    const auto found = std::find_if(dialog_rows.begin(), dialog_rows.end(),
                                    [dialog](const DialogRow& row) { return row.Which == dialog; });
    return found == dialog_rows.end() ? nullptr : &*found;
}

}  // namespace tarnvik
