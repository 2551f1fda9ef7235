#include "output/title_block.h"

#include <algorithm>

#include "core/text/number.h"

namespace tarnvik {

namespace {

// Points.
constexpr double rim = 6;  // around the texts of a cell
constexpr double top_gap = 3;
constexpr double row_height = 13;
constexpr double sample_length = 20;  // of a line in the key, with its gap
constexpr double arrow_room = 18;
constexpr int text_font = 8;
constexpr int title_font = 12;
constexpr int smallest_font = 4;

class BlockPainting {
  public:
    BlockPainting(Picture& picture, const TitlePlace& place)
        : Place(place), Main(picture), Size(picture.Current_Frame()), Point(picture.Pixels_Per_Point()) {}

    void Draw(const std::vector<TitleCell>& cells) {
        // A narrow page gets smaller letters instead of texts that run into each other.
        const double room = Place.Right - Place.Left;
        double wanted = Width_Of(cells);
        const double height = Place.Bottom - Place.Top;
        while ((wanted > room || Height_Of(cells) > height) && text_font - Smaller > smallest_font) {
            ++Smaller;
            wanted = Width_Of(cells);
        }
        const double spare = std::max(0.0, room - wanted);
        Main.Set_Draw_Width(1);
        Box(Place.Left, Place.Top, Place.Right, Place.Bottom);
        double left = Place.Left;
        for (const TitleCell& cell : cells) {
            if (left > Place.Left) Box(left, Place.Top, left, Place.Bottom);
            Draw_Cell(cell, left);
            left += Width_Of(cell);
            // The line's name has the room that is left.
            if (&cell == &cells.front()) left += spare;
        }
        Main.Set_Font_Size(text_font);
    }

  private:
    double X(double pixel) const { return Size.To_World_X(pixel); }
    double Y(double pixel) const { return Size.To_World_Y(pixel); }
    void Box(double x1, double y1, double x2, double y2) {
        if (x1 == x2) {
            Main.Line(X(x1), Y(y1), X(x2), Y(y2), colours::Black);
        } else {
            Main.Box(X(x1), Y(y1), X(x2), Y(y2), colours::Black, false);
        }
    }

    void Set_Font(const TitleRow& row) {
        Main.Set_Font_Size(std::max(smallest_font, (row.Large ? title_font : text_font) - Smaller));
    }

    double Width_Of(const TitleCell& cell) {
        double widest = 0;
        for (const TitleRow& row : cell.Rows) {
            Set_Font(row);
            const double sample = row.Sample ? sample_length * Point : 0;
            widest = std::max(widest, Main.Size_Of(row.Text).Width + sample);
        }
        return widest + 2 * rim * Point + (cell.North ? arrow_room * Point : 0);
    }
    double Row_Height(const TitleRow& row) {
        Set_Font(row);
        const double usual = row_height * Point * (text_font - Smaller) / text_font;
        return std::max(usual, Main.Size_Of(row.Text).Height);
    }
    double Height_Of(const std::vector<TitleCell>& cells) {
        double highest = 0;
        for (const TitleCell& cell : cells) {
            double height = top_gap * Point;
            for (const TitleRow& row : cell.Rows)
                height += Row_Height(row);
            highest = std::max(highest, height);
        }
        return highest;
    }
    double Width_Of(const std::vector<TitleCell>& cells) {
        double width = 0;
        for (const TitleCell& cell : cells)
            width += Width_Of(cell);
        return width;
    }

    void Draw_Cell(const TitleCell& cell, double left) {
        double x = left + rim * Point;
        if (cell.North) {
            Draw_Arrow(x + arrow_room * Point / 3);
            x += arrow_room * Point;
        }
        double top = Place.Top + top_gap * Point;
        if (cell.North) top = (Place.Top + Place.Bottom) / 2 - row_height * Point / 2;
        for (const TitleRow& row : cell.Rows) {
            Set_Font(row);
            double text = x;
            if (row.Sample) {
                const double middle = top + Main.Size_Of(row.Text).Height / 2;
                Main.Set_Draw_Width(row.SampleWidth);
                Main.Line(X(x), Y(middle), X(x + (sample_length - rim) * Point), Y(middle), row.SampleColour);
                Main.Set_Draw_Width(1);
                text += sample_length * Point;
            }
            Main.Print_At(X(text), Y(top), row.Text, row.InColour);
            top += Row_Height(row);
        }
    }

    void Draw_Arrow(double x) {
        const double top = Place.Top + rim * Point;
        const double foot = Place.Bottom - rim * Point;
        const double wing = 4 * Point;
        Main.Set_Draw_Width(2);
        Main.Line(X(x), Y(foot), X(x), Y(top), colours::Black);
        for (const double side : {-wing, wing})
            Main.Line(X(x), Y(top), X(x + side), Y(top + 2.5 * wing), colours::Black);
        Main.Set_Draw_Width(1);
    }

    const TitlePlace& Place;
    Picture& Main;
    const Frame Size;
    const double Point;
    int Smaller = 0;  ///< points that the letters are smaller than usual
};

}  // namespace

void Draw_Title_Cells(Picture& picture, const TitlePlace& place, const std::vector<TitleCell>& cells) {
    BlockPainting(picture, place).Draw(cells);
}

std::string Scale_Text(double scale) {
    return "1:" + CStr(Rounded(scale * 100) / 100);
}

std::vector<std::string> Broken_Text(const std::string& text, std::size_t letters) {
    std::vector<std::string> rows;
    std::size_t from = 0;
    while (from < text.size()) {
        std::size_t end = text.size();
        if (end - from > letters) {
            end = text.rfind(' ', from + letters);
            if (end == std::string::npos || end <= from) end = std::min(text.find(' ', from), text.size());
        }
        rows.push_back(text.substr(from, end - from));
        from = end;
        while (from < text.size() && text[from] == ' ')
            ++from;
    }
    return rows;
}

}  // namespace tarnvik
