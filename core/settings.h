#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/text_grid.h"

namespace tarnvik {

/// User settings that belong to no project, with their start values. The settings file also holds values of
/// the project block (CurrentFile, ProjectDir, SuFile, GeoSpace, NbReceivers, NbShots): those live in Project
/// alone.
struct Settings {
    std::string ColorScaleFile;
    std::string FbpDataFile;
    std::string FbpFormat;
    std::string Units = "meters";  ///< any other word counts as feet
    std::string FontName;
    std::string UserName;
    std::int16_t BackupEnabled = 0;  ///< -1 true, 0 false
    double ShotSpace = 0;
    std::array<std::string, 5> RecentFiles;  ///< newest first

    std::int16_t LangEnglish = 0;
    std::int16_t LangFrench = 0;
    std::int16_t LangSpanish = 0;
    std::int16_t LangGerman = 0;
    std::int16_t LangItalian = 0;

    bool MultiScreen = false;
    bool ColorChoice = false;             ///< curves coloured by apparent velocity
    std::array<double, 5> ColorLimits{};  ///< velocity limits of the colour classes
    std::array<Colour, 6> ClassColor{};
    Colour VelocityLineColor = 0;
    std::int16_t VelocityLineWidth = 1;
    float PaperScaleX = 1;
    float PaperScaleY = 1;

    bool Metric() const { return Units == "meters"; }
};

}  // namespace tarnvik
