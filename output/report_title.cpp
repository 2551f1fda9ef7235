// The title block of a report's page.

#include <algorithm>
#include <string>
#include <vector>

#include "core/text/number.h"
#include "output/report_picture.h"

namespace tarnvik {

namespace {

constexpr double rim = 6;  // points around the texts of a cell
constexpr double row_height = 13;
constexpr double sample_length = 20;  // of a line in the key, with its gap
constexpr double arrow_room = 18;
constexpr int text_font = 8;
constexpr int title_font = 12;
constexpr int smallest_font = 4;

struct Row {
    std::string Text;
    Colour InColour = colours::Black;
    bool Large = false;
    bool Sample = false;  ///< a line in SampleColour stands before the text
    Colour SampleColour = colours::Black;
};
struct Cell {
    std::vector<Row> Rows;
    bool North = false;  ///< an arrow stands before the text
};

std::string Scale_Text(double scale) {
    return "1:" + CStr(Rounded(scale * 100) / 100);
}

Cell Scales(const ReportView& view, const ReportFrame& frame) {
    Cell cell;
    const double chosen = view.Choices.Scale;
    if (frame.Scale > 0) {
        cell.Rows.push_back({"Horizontal " + Scale_Text(frame.Scale)});
        cell.Rows.push_back({"Vertical " + Scale_Text(frame.Scale / frame.Exaggeration)});
    } else {
        cell.Rows.push_back(
            {chosen > 0 ? "Scale " + Scale_Text(chosen) + " on paper" : "Scale fits the paper"});
    }
    cell.Rows.push_back({"Vertical exaggeration " + Format(frame.Exaggeration, "0.0#")});
    if (!frame.Fits) cell.Rows.push_back({Scale_Text(chosen) + " does not fit this paper", colours::Red});
    return cell;
}

Cell Key(const ReportView& view, const std::vector<ReportModel>& models) {
    Cell cell;
    bool errors = false;
    for (const ReportModel& model : models) {
        std::string text(Method_Name(model.Source));
        text += view.Choices.Shape == InterfaceShape::Arcs ? ": arcs and their envelope" : ": depths joined";
        cell.Rows.push_back({text, colours::Black, false, true, Method_Colour(model.Source)});
        errors = errors || !model.Errors.empty();
    }
    if (models.empty()) cell.Rows.push_back({"No depths"});
    if (errors && view.Choices.Errors)
        cell.Rows.push_back(
            {"Half the difference of both sides", colours::Black, false, true, colours::Black});
    return cell;
}

std::vector<Cell> Cells_Of(const Workspace& workspace, const ReportView& view,
                           const std::vector<ReportModel>& models, const ReportFrame& frame) {
    const ReportChoices& choices = view.Choices;
    const std::string& name = workspace.Project.ProjectName;
    Cell what;
    what.Rows.push_back({choices.Line.empty() ? "Line " + name : choices.Line, colours::Black, true});
    what.Rows.push_back({"Seismic refraction section"});
    if (!choices.Company.empty()) what.Rows.push_back({choices.Company});
    Cell date;
    date.Rows.push_back({"Date"});
    date.Rows.push_back({choices.Date.empty() ? view.Today : choices.Date});
    std::vector<Cell> cells = {what, Scales(view, frame), Key(view, models), date};
    if (!choices.North.empty()) cells.push_back({{{choices.North}}, true});
    return cells;
}

class BlockPainting {
  public:
    BlockPainting(const ReportFrame& frame, Picture& picture)
        : Page(frame),
          Main(picture),
          Size(picture.Current_Frame()),
          Point(picture.Pixels_Per_Point()),
          Bottom(Size.Height - frame.Margin) {}

    void Draw(const std::vector<Cell>& cells) {
        // A narrow page gets smaller letters instead of texts that run into each other.
        const double room = Size.Width - 2 * Page.Margin;
        double wanted = Width_Of(cells);
        while (wanted > room && text_font - Smaller > smallest_font) {
            ++Smaller;
            wanted = Width_Of(cells);
        }
        const double spare = std::max(0.0, room - wanted);
        Main.Set_Draw_Width(1);
        Box(Page.Margin, Page.BlockTop, Size.Width - Page.Margin, Bottom);
        double left = Page.Margin;
        for (const Cell& cell : cells) {
            if (left > Page.Margin) Box(left, Page.BlockTop, left, Bottom);
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

    void Set_Font(const Row& row) {
        Main.Set_Font_Size(std::max(smallest_font, (row.Large ? title_font : text_font) - Smaller));
    }

    double Width_Of(const Cell& cell) {
        double widest = 0;
        for (const Row& row : cell.Rows) {
            Set_Font(row);
            const double sample = row.Sample ? sample_length * Point : 0;
            widest = std::max(widest, Main.Size_Of(row.Text).Width + sample);
        }
        return widest + 2 * rim * Point + (cell.North ? arrow_room * Point : 0);
    }
    double Width_Of(const std::vector<Cell>& cells) {
        double width = 0;
        for (const Cell& cell : cells)
            width += Width_Of(cell);
        return width;
    }

    void Draw_Cell(const Cell& cell, double left) {
        double x = left + rim * Point;
        if (cell.North) {
            Draw_Arrow(x + arrow_room * Point / 3);
            x += arrow_room * Point;
        }
        double top = Page.BlockTop + 3 * Point;
        if (cell.North) top = (Page.BlockTop + Bottom) / 2 - row_height * Point / 2;
        for (const Row& row : cell.Rows) {
            Set_Font(row);
            double text = x;
            if (row.Sample) {
                const double middle = top + Main.Size_Of(row.Text).Height / 2;
                Main.Set_Draw_Width(2);
                Main.Line(X(x), Y(middle), X(x + (sample_length - rim) * Point), Y(middle), row.SampleColour);
                Main.Set_Draw_Width(1);
                text += sample_length * Point;
            }
            Main.Print_At(X(text), Y(top), row.Text, row.InColour);
            top += std::max(row_height * Point, Main.Size_Of(row.Text).Height);
        }
    }

    void Draw_Arrow(double x) {
        const double top = Page.BlockTop + rim * Point;
        const double foot = Bottom - rim * Point;
        const double wing = 4 * Point;
        Main.Set_Draw_Width(2);
        Main.Line(X(x), Y(foot), X(x), Y(top), colours::Black);
        for (const double side : {-wing, wing})
            Main.Line(X(x), Y(top), X(x + side), Y(top + 2.5 * wing), colours::Black);
        Main.Set_Draw_Width(1);
    }

    const ReportFrame& Page;
    Picture& Main;
    const Frame Size;
    const double Point;
    const double Bottom;
    int Smaller = 0;  ///< points that the letters are smaller than usual
};

}  // namespace

void Draw_Title_Block(const Workspace& workspace, const ReportView& view,
                      const std::vector<ReportModel>& models, const ReportFrame& frame, Picture& picture) {
    BlockPainting(frame, picture).Draw(Cells_Of(workspace, view, models, frame));
}

}  // namespace tarnvik
