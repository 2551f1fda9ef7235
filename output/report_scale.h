#pragma once

#include <string>

#include "core/workspace.h"

namespace tarnvik {

/// What decides the size of a section on a page.
struct ReportRoom {
    double Width = 0;   ///< of the picture, pixels
    double Height = 0;  ///< likewise
    double PixelsAPoint = 1;
    bool OnPaper = true;            ///< true scale; on a screen the section fills its room
    double UnitMillimetres = 1000;  ///< a length unit of the line on the ground
    double Scale = 0;         ///< 1 to so many, chosen by the user; 0 for the largest round one that fits
    double Exaggeration = 0;  ///< likewise
    SectionWindow Extent;     ///< of what is shown: the line, ground and deepest interface
    bool Enlarged = false;    ///< Extent is what the user has enlarged, and needs no room around it
};

/// Where the section stands on the page and how large. Pixels count from the top left corner.
struct ReportFrame {
    SectionWindow Window;  ///< distances and elevations inside the frame
    double Left = 0;       ///< the frame
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
    double BlockTop = 0;  ///< the title block below it, between the margins
    double Margin = 0;
    double PixelsX = 1;  ///< of a length unit
    double PixelsY = 1;
    double Scale = 0;         ///< on paper 1 to so many across, 0 on a screen
    double Exaggeration = 1;  ///< of heights against distances
    bool Fits = true;  ///< false where the scale chosen was too large for the paper and another one is drawn
};

/// Lays a section out on a page. Round scales are 1, 1.25, 1.5, 2, 2.5, 3, 4, 5, 6 or 7.5 times a power of
/// ten; round exaggerations are 1, 1.5, 2, 2.5, 3, 4, 5, 6, 8, 10 and more.
ReportFrame Lay_Out_Report(const ReportRoom& room);

/// Why the scale chosen cannot be drawn on this paper, with the paper that it needs and the scale that fits;
/// empty where it can.
std::string Report_Scale_Fault(const ReportRoom& room);

/// The next round scale that is no larger drawing than 1 to `least`; the next round exaggeration.
double Round_Scale_Not_Below(double least);
double Round_Exaggeration_Not_Above(double most);

/// A scale as the user types it, "1:500" or "500"; 0 for other words.
double Scale_In(const std::string& text);

}  // namespace tarnvik
