#pragma once

#include <string>
#include <vector>

namespace tarnvik::test {

/// What a Windows metafile draws, as a reader plays it: colours are those of the objects selected at the
/// time.
struct PlayedMetafile {
    struct Figure {
        int Function = 0;         ///< of its record
        std::vector<int> Places;  ///< x and y in turn; of boxes left, top, right, bottom
        int Ink = -1;             ///< colour of the pen, or of the letters; -1 without
        int Filling = -1;         ///< colour of the brush; -1 without
        std::string Letters;
        std::vector<int> Advances;
        int FontHeight = 0;
        std::vector<int> Clip;  ///< left, top, right, bottom; empty for all
    };
    static constexpr int Polygon = 0x0324;
    static constexpr int Polyline = 0x0325;
    static constexpr int Ellipse = 0x0418;
    static constexpr int Rectangle = 0x041B;
    static constexpr int Polygons = 0x0538;
    static constexpr int Text = 0x0A32;

    std::string Fault;  ///< the first thing that breaks the format; empty for a sound file
    int Width = 0;
    int Height = 0;
    int UnitsAnInch = 0;
    int Deletions = 0;
    std::vector<Figure> Figures;

    std::vector<Figure> All(int function) const;
    std::vector<Figure> Texts(const std::string& letters) const;
};

/// Reads a placeable metafile record by record and holds its heads against what comes: check sum, sizes,
/// longest record, number of objects, and objects made before they are selected and never deleted in use.
PlayedMetafile Play_Metafile(const std::string& bytes);

}  // namespace tarnvik::test
