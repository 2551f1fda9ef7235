#pragma once

#include <string>
#include <vector>

#include "core/sheet.h"
#include "output/section_picture.h"

namespace tarnvik {

/// A page about the line that is to stand on a sheet, as wide as the line is at the sheet's scale.
struct LinePanel {
    PageLayout Layout = {};
    double Before = 0;      ///< length units that its window goes on before the beginning of the line
    double Behind = 0;      ///< likewise behind its end
    double Height = 0;      ///< length units upwards; 0: no elevations, takes the height that is left
    SectionRoom Room = {};  ///< of its window that belongs to no distance or elevation, points
};

/// What decides the layout of a sheet with pages about one line, one below the other.
struct LineLayoutWish {
    double Width = 297;  ///< of the paper, mm
    double Height = 210;
    double BlockHeight = 28;  ///< at its foot, mm
    double LineLength = 0;    ///< above 0
    double UnitMillimetres = 1000;
    double Scale = 0;          ///< 1 to so many across; 0 for the largest round one that fits
    double VerticalScale = 0;  ///< of elevations likewise; 0 for a round exaggeration, at least 1, that fits
    std::vector<LinePanel> Panels;  ///< from the top
};

struct LineLayout {
    double Scale = 0;
    double Exaggeration = 1;         ///< of heights against distances
    double Origin = 0;               ///< place of distance 0 on the paper, mm
    std::vector<SheetArea> Windows;  ///< of the panels
    SheetArea Block;                 ///< at the foot, between the margins
    std::string Fault;  ///< why the scales asked for do not fit and which one does; another one is laid out
    double NextScale = 0;     ///< with a fault: the one across that fits, 0 where that is not what is wrong
    double NextVertical = 0;  ///< likewise of elevations

    double Vertical_Scale() const { return Scale / Exaggeration; }
};

/// Distances of all panels stand under each other at one scale. Round scales and exaggerations are those of
/// Round_Scale_Not_Below and Round_Exaggeration_Not_Above.
LineLayout Lay_Out_Line(const LineLayoutWish& wish);

}  // namespace tarnvik
