#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnvik {

/// A surveyed point, coordinates in the project's length unit.
struct XyzPoint {
    std::string Name;  ///< empty in a file without names
    double X = 0;
    double Y = 0;
    double Z = 0;
};

/// Content of an XYZ text file, or why it could not be read; then there are no points.
struct XyzFile {
    std::vector<XyzPoint> Points;
    std::string Error;  ///< with the number of the line and its text; empty when all was read
};

/// Reads a text file of points, one on a line, in the order of the line: "X Y Z" or "name X Y Z", all lines
/// alike, separated by blanks, tabs, commas or semicolons; the point is the decimal sign. The first line may
/// be a heading; empty lines are skipped. Bytes are Windows-1252 (a UTF-8 mark at the start is skipped),
/// lines end in CR, LF or both.
XyzFile Read_Xyz(std::string_view bytes);

/// Distance of each point from the first along the horizontal path through all points.
std::vector<double> Path_Distances(std::span<const XyzPoint> path);

/// Distance, along the path of the geophones, of the place on it that is nearest to (x, y). The first and the
/// last leg of the path go on beyond its ends, so that shots before geophone 1 lie at negative distances.
double Place_On_Path(std::span<const XyzPoint> path, double x, double y);

}  // namespace tarnvik
