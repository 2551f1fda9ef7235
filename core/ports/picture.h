#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "core/frame.h"
#include "core/text_grid.h"

namespace tarnvik {

/// A point in whole pixels from the top left corner of a picture.
struct PixelPoint {
    int X = 0;
    int Y = 0;
    bool operator==(const PixelPoint&) const = default;
};

/// Room that a text takes, in pixels.
struct TextSize {
    double Width = 0;
    double Height = 0;
};

/// Cells of equal size, row by row from the top left corner, each of one colour or of none.
struct CellRaster {
    static constexpr Colour no_colour = -1;
    int Columns = 0;
    int Rows = 0;
    std::span<const Colour> Colours;  ///< Columns * Rows of them
    Colour At(int column, int row) const {
        return Colours[static_cast<std::size_t>(row) * static_cast<std::size_t>(Columns) +
                       static_cast<std::size_t>(column)];
    }
};

enum class DrawMode { Copy, Xor };
enum class PointerShape { Arrow, Cross, Hourglass, PickMove, Resize };

/// What the drawing routines draw on: a window's picture, a page, a file, or a list in a test. World
/// coordinates are set by Scale; letters and pens are counted in points, so that they agree on a screen of
/// any density and on paper. The pen (current position) is moved by lines, points and printed text, as told
/// at each verb.
class Picture {
  public:
    virtual ~Picture() = default;

    /// World coordinates of the top left and the bottom right corner.
    virtual void Scale(double left, double top, double right, double bottom) = 0;
    /// The world coordinates in force and the size in pixels.
    virtual Frame Current_Frame() const = 0;
    /// Pixels of a point, a 72nd of an inch: what a true scale on paper needs. Those of a usual screen where
    /// the device has no size.
    virtual double Pixels_Per_Point() const { return 96.0 / 72; }
    /// Wipes the picture white and puts the pen at (0, 0).
    virtual void Clear() = 0;
    /// From now on every verb, Clear among them, leaves alone what lies outside this rectangle of world
    /// coordinates in force.
    virtual void Set_Clip(double x1, double y1, double x2, double y2) = 0;
    virtual void Clear_Clip() = 0;

    /// Straight line; the pen ends at (x2, y2).
    virtual void Line(double x1, double y1, double x2, double y2, Colour colour) = 0;
    /// Upright rectangle of two opposite corners, outline or filled; the pen ends at (x2, y2).
    virtual void Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) = 0;
    /// Fills the rectangle of two opposite corners with cells, the first one at (x1, y1); those without a
    /// colour leave what stands there. Here as boxes, of which equal neighbours in a column are one; a device
    /// of pixels has a way of its own. The pen is anywhere afterwards.
    virtual void Cells(double x1, double y1, double x2, double y2, const CellRaster& cells);
    /// Circle, round on the device, its radius in horizontal world units; the pen ends at the centre.
    virtual void Circle(double x, double y, double radius, Colour colour) = 0;
    /// Arc of that circle from angle `start` to `end` in radians, counter-clockwise from three o'clock;
    /// `aspect` is the ratio of height to width. The pen ends at the centre.
    virtual void Arc(double x, double y, double radius, Colour colour, double start, double end,
                     double aspect) = 0;
    /// A dot of the pen's width; the pen ends there.
    virtual void Point(double x, double y, Colour colour) = 0;
    /// Text in `colour` whose top left corner is at the pen; the pen goes to the start of the next line of
    /// text.
    virtual void Print(std::string_view text, Colour colour) = 0;

    /// Room of a text in the font in force. A device without letters counts a usual size for each.
    virtual TextSize Size_Of(std::string_view text) const {
        constexpr TextSize usual_letter{7, 14};
        return {usual_letter.Width * static_cast<double>(text.size()), usual_letter.Height};
    }

    /// Remembers the picture as it stands, so that what is drawn from now on can be taken off again.
    virtual void Keep_Background() = 0;
    /// Gives the remembered picture back inside a rectangle of two opposite corners; the margin goes with a
    /// rectangle that reaches the edge of the window. False when nothing is remembered any more: the picture
    /// was cleared or has another size.
    virtual bool Bring_Back(double x1, double y1, double x2, double y2) = 0;

    /// Filled polygon and open line through pixel points, in the fill and line colour given.
    virtual void Polygon(std::span<const PixelPoint> points, Colour fill) = 0;
    virtual void Polyline(std::span<const PixelPoint> points, Colour colour) = 0;

    virtual void Move_To(double x, double y) = 0;
    virtual double Pen_X() const = 0;
    virtual double Pen_Y() const = 0;

    virtual void Set_Draw_Mode(DrawMode mode) = 0;
    virtual void Set_Draw_Width(int points) = 0;
    virtual void Set_Font_Size(int points) = 0;
    virtual void Set_Pointer(PointerShape shape) = 0;
    /// While off, the picture shows each verb at once (rubber bands); while on, at the end of the event.
    virtual void Set_Buffering(bool on) = 0;

    /// Line from the pen to (x, y).
    void Line_To(double x, double y, Colour colour) { Line(Pen_X(), Pen_Y(), x, y, colour); }
    /// Text with its top left corner at (x, y).
    void Print_At(double x, double y, std::string_view text, Colour colour) {
        Move_To(x, y);
        Print(text, colour);
    }
};

/// The sixteen-colour table's entries in use, and colours met in many pictures.
namespace colours {
inline constexpr Colour Black = 0;
inline constexpr Colour Red = 255;
inline constexpr Colour Green = 32768;
inline constexpr Colour Lime = 65280;
inline constexpr Colour Blue = 0xFF0000;
inline constexpr Colour Magenta = 0xFF00FF;
inline constexpr Colour Brown = 16512;
inline constexpr Colour Cyan = 0xFFFF00;
inline constexpr Colour Yellow = 65535;
inline constexpr Colour White = 0xFFFFFF;
inline constexpr Colour LightGrey = 0xC0C0C0;
inline constexpr Colour Grey = 0x808080;
inline constexpr Colour ScaleBlue = 115 + 173 * 256 + 214 * 65536;  ///< RGB(115, 173, 214) of the scale texts
}  // namespace colours

}  // namespace tarnvik
