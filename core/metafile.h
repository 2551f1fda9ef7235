#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_grid.h"

namespace tarnvik {

/// A place in a metafile: units from its top left corner, y downward. What does not fit 16 bits is held at
/// their ends.
struct MetaPoint {
    int X = 0;
    int Y = 0;
    bool operator==(const MetaPoint&) const = default;
};

struct MetaBox {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
    bool operator==(const MetaBox&) const = default;
};

struct MetaPen {
    int Width = 1;  ///< units
    Colour Ink = 0;
};

struct MetaFont {
    std::string Family;    ///< UTF-8
    int Height = 0;        ///< of the letters without the room between lines, units
    int TenthDegrees = 0;  ///< turned counter-clockwise
    bool Bold = false;
    bool Italic = false;
};

/// Writes a drawing as a placeable Windows metafile: the 22-byte head with size, density and check sum, then
/// the records of a 16-bit metafile, as the published descriptions of the format tell them (MS-WMF, version
/// 0x0300). Pens, brushes and fonts are made when a figure needs them and kept in the table of objects while
/// there is room.
class Metafile {
  public:
    /// Sides of a metafile in units at most: figures may still reach a little beyond its edges.
    static constexpr int longest_side = 30000;
    /// Densities beyond 1440 are not understood by all readers.
    static constexpr int most_units_an_inch = 1440;

    /// Units an inch that a drawing of that size can have.
    static int Density_For(double width_inches, double height_inches);

    /// Sizes in units up to `longest_side`.
    Metafile(int width, int height, int units_an_inch);

    /// What the figures from now on are drawn with. No pen or no brush: no outline, no filling.
    void Set_Pen(const std::optional<MetaPen>& pen);
    void Set_Brush(const std::optional<Colour>& colour);
    void Set_Font(const MetaFont& font);
    void Set_Text_Colour(Colour colour);
    /// Figures and texts from now on end at the box; nothing for the whole drawing.
    void Set_Clip(const std::optional<MetaBox>& clip);

    void Polyline(std::span<const MetaPoint> points);
    /// Closed figures that are filled as one; `winding`: also where they overlap each other.
    void Polygons(std::span<const std::vector<MetaPoint>> figures, bool winding);
    /// A box filled up to its edges, at least a unit wide and high.
    void Fill_Box(const MetaBox& box, Colour colour);
    void Ellipse(const MetaBox& around);
    /// Text whose base line starts at `base`, each letter as far from the one before as `advances` tells
    /// (units, one for each letter; none: as the reader's font has it). Letters that Windows-1252 lacks
    /// become "?".
    void Text(MetaPoint base, std::string_view utf8, std::span<const int> advances);

    /// The whole file.
    std::string Bytes() const;

  private:
    enum Kind { Pen, Brush, Font, kinds };
    struct Slot {
        std::string Record;  ///< that makes the object; empty when the slot is free
        std::uint64_t LastUse = 0;
    };

    void Add(std::uint16_t function, std::string_view parameters);
    void Add_Words(std::uint16_t function, std::initializer_list<int> words);
    void Take_Clip(const MetaBox& reach);
    void Take(Kind kind);
    void Take_Pen_And_Brush(const MetaBox& reach);
    MetaBox With_Pen(MetaBox box) const;
    std::size_t Room_For_An_Object();

    int Width;
    int Height;
    int Density;
    std::string Records;
    std::uint32_t LongestRecord = 3;  ///< words
    std::vector<Slot> Slots;
    std::map<std::string, std::size_t, std::less<>> SlotOf;
    std::uint64_t Uses = 0;

    // What is wanted, and what the records so far have set.
    std::string Wanted[kinds];
    std::optional<std::size_t> Selected[kinds];
    Colour TextColour = 0;
    std::optional<Colour> TextColourSet;
    std::optional<bool> WindingSet;
    bool TextWaySet = false;  ///< letters on their base line, nothing behind them
    int PenWidth = 1;
    int FontHeight = 0;
    bool Turned = false;
    std::optional<MetaBox> Clip;
    std::optional<MetaBox> ClipSet;
};

}  // namespace tarnvik
