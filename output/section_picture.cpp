#include "output/section_picture.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/end_shots.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/axis_ticks.h"
#include "output/report_model.h"
#include "output/section_files.h"
#include "output/section_window.h"

namespace tarnvik {

namespace {

constexpr double usual_font = 8;
constexpr double smallest_font = 3;
constexpr double largest_font = 72;
constexpr int title_font = 9;
constexpr double row_height = 0.25;
constexpr int most_user_labels = 5;
constexpr int legend_slices = 100;

std::string_view Title_Of(SectionSource source) {
    switch (source) {
        case SectionSource::Abc:
            return "ABC method depth computation     ";
        case SectionSource::Grm:
            return "GRM method depth computation     ";
        case SectionSource::Shots:
            break;
    }
    return "Shot point depth computation     ";
}

class SectionPainting {
  public:
    SectionPainting(const Workspace& workspace, const ColourScale& scale, const SectionPictures& pictures)
        : Work(workspace),
          View(workspace.Section),
          Line(workspace.Project),
          Grid(*workspace.Section.Grid),
          Scale(scale),
          Main(pictures.Main),
          Below(pictures.Below),
          Beside(pictures.Beside),
          Room(pictures.Room),
          Window(Section_In_Sight(workspace)) {}

    void Draw() {
        Make_Room();
        Main.Clear();
        Main.Set_Clip(Window.Left, Window.Top, Window.Right, Window.Bottom);
        Draw_Cells();
        Draw_Ground();
        Main.Clear_Clip();
        Draw_Marks();
        Main.Box(Window.Left, Window.Top, Window.Right, Window.Bottom, colours::Black, false);
        Draw_Title();
        if (LegendShown) Draw_Legend();
        Draw_Distances();
        Draw_Elevations();
    }

  private:
    static void Set_Usual_Font(Picture& picture) {
        picture.Set_Draw_Width(1);
        picture.Set_Font_Size(static_cast<int>(usual_font));
    }

    int Label_Font() const {
        return static_cast<int>(
            std::lround(std::clamp(usual_font * View.LabelScale, smallest_font, largest_font)));
    }

    std::string Legend_Title() const { return "Velocity " + Work.Settings.Units + "/s"; }
    std::string Unit() const { return Work.Settings.Metric() ? "m" : "f"; }

    /// The world window of the main picture: the part in sight, room above it for the title and for labels,
    /// room on the right for the legend.
    void Make_Room() {
        Set_Usual_Font(Main);
        Main.Set_Draw_Mode(DrawMode::Copy);
        const Frame frame = Main.Current_Frame();
        Letter = Main.Size_Of("0").Height;
        const double wanted =
            std::max(Main.Size_Of(Legend_Title()).Width, Main.Size_Of("00000").Width + 3 * Letter) +
            1.5 * Letter;
        // On a very small picture the section needs the room more.
        LegendShown = View.ShowScale && (Room || frame.Width > 3 * wanted);
        double right = LegendShown ? wanted : Letter;
        Main.Set_Font_Size(Label_Font());
        double above = std::min(frame.Height / 3, 2 * Letter + 2 * Main.Size_Of("S").Height);
        if (Room) {
            right = Room->Right * Main.Pixels_Per_Point();
            above = Room->Above * Main.Pixels_Per_Point();
        }
        Set_Usual_Font(Main);
        UnitX = (Window.Right - Window.Left) / std::max(1.0, frame.Width - right);
        UnitY = (Window.Top - Window.Bottom) / std::max(1.0, frame.Height - above);
        RoomRight = Window.Right + right * UnitX;
        RoomTop = Window.Top + above * UnitY;
        Main.Scale(Window.Left, RoomTop, RoomRight, Window.Bottom);
    }

    /// The cells in sight alone, so that an enlarged section is drawn as fast as a whole one.
    void Draw_Cells() {
        const double column_width = Line.LineLength / Grid.GridColumns;
        const int first_column =
            std::clamp(Column_At(Grid, Line.LineLength, Window.Left), 1, Grid.GridColumns);
        const int last_column =
            std::clamp(Column_At(Grid, Line.LineLength, Window.Right), first_column, Grid.GridColumns);
        const int lowest = std::clamp(Row_At(Grid, Window.Bottom), 1, Grid.GridRows);
        const int highest = std::clamp(Row_At(Grid, Window.Top), lowest, Grid.GridRows);
        CellRaster raster;
        raster.Columns = last_column - first_column + 1;
        raster.Rows = highest - lowest + 1;
        std::vector<Colour> colours(static_cast<std::size_t>(raster.Columns) *
                                    static_cast<std::size_t>(raster.Rows));
        for (int column = first_column; column <= last_column; ++column) {
            double velocity = 0;
            Colour colour = CellRaster::no_colour;
            std::size_t at = static_cast<std::size_t>(column - first_column);
            for (int row = highest; row >= lowest; --row) {
                const double here = Grid.Filled(column, row);
                if (here != velocity) {
                    velocity = here;
                    colour = velocity == 0 ? CellRaster::no_colour : Scale.Of(velocity);
                }
                colours[at] = colour;
                at += static_cast<std::size_t>(raster.Columns);
            }
        }
        raster.Colours = colours;
        Main.Cells((first_column - 1) * column_width, Elevation_Of_Row(Grid, highest),
                   last_column * column_width, Elevation_Of_Row(Grid, lowest) - row_height, raster);
    }

    void Draw_Ground() {
        Main.Set_Draw_Width(1);
        const ReportCurve ground = Ground_Of(Line);
        for (std::size_t i = 1; i < ground.size(); ++i) {
            Main.Line(ground[i - 1].X, ground[i - 1].Z, ground[i].X, ground[i].Z, colours::Black);
        }
    }

    bool In_Sight(double x, double y) const {
        return x >= Window.Left && x <= Window.Right && y >= Window.Bottom && y <= Window.Top;
    }

    /// Labels stand at the cell of their place, as the rows and columns of the grid have it.
    double Column_Place(double distance) const {
        return Rounded(Grid.GridColumns * distance / Line.LineLength) * Line.LineLength / Grid.GridColumns;
    }
    double Row_Place(double elevation) const {
        return Grid.MinElevation + Rounded((elevation - Grid.MinElevation) / row_height) * row_height;
    }

    /// A text whose lower edge stands at (x, y), the middle of it at x.
    void Print_Above(double x, double y, const std::string& text, Colour colour) {
        const TextSize size = Main.Size_Of(text);
        Main.Print_At(x - size.Width / 2 * UnitX, y + size.Height * UnitY, text, colour);
    }

    void Draw_Marks() {
        Main.Set_Font_Size(Label_Font());
        if (View.ShowGeophones) {
            for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver) {
                const double x = Column_Place(Line.ReceiverData(ReceiverDistance, receiver));
                const double y = Row_Place(Line.ReceiverData(ReceiverElevation, receiver));
                if (In_Sight(x, y)) Print_Above(x, y, "v", colours::Black);
            }
        }
        if (View.ShowShots) Draw_Shots();
        Draw_User_Labels();
        Set_Usual_Font(Main);
    }

    void Draw_Shots() {
        int first = 1;
        int last = 1;
        First_Last_End_Shot(Line, first, last);
        const double height = Main.Size_Of("S").Height * UnitY;
        // Numbers of shots close together stand above each other.
        constexpr int tiers = 3;
        std::array<double, tiers> taken;
        taken.fill(-1e300);
        for (int shot = first; shot <= std::min<int>(last, Line.NbShots); ++shot) {
            const double x = Column_Place(Line.ShotDistance(shot));
            const double y = Row_Place(Line.ShotElevation(shot));
            if (!In_Sight(x, y)) continue;
            const std::string text = CStr(shot) + "S";
            const double half = Main.Size_Of(text).Width / 2 * UnitX;
            std::size_t tier = 0;
            while (tier + 1 < tiers && x - half < taken[tier])
                ++tier;
            taken[tier] = x + half;
            const double above = (static_cast<double>(tier) + (View.ShowGeophones ? 0.7 : 0.1)) * height;
            Print_Above(x, y + above, text, colours::Black);
        }
    }

    void Draw_User_Labels() {
        const TextGrid& remarks = Line.remark_grid;
        for (int row = Project::RemarkFirstRow; row < Project::RemarkFirstRow + most_user_labels; ++row) {
            const std::string text = Trim(remarks.Text(row, 3));
            const double x = remarks.Value(row, 0);
            const double y = remarks.Value(row, 1) + remarks.Value(row, 2);
            if (text.empty() || !In_Sight(x, y)) continue;
            const auto below = Read_Section(Work, x, y);
            const bool dark = below && below->Velocity != 0 && Is_Dark(Scale.Of(below->Velocity));
            Main.Print_At(x, y + Main.Size_Of(text).Height / 2 * UnitY, text,
                          dark ? colours::White : colours::Black);
        }
    }

    void Draw_Title() {
        Main.Set_Font_Size(title_font);
        const std::string title = std::string(Title_Of(Grid.Source)) + Line.ProjectName;
        Main.Print_At(Window.Left, RoomTop, title, colours::Black);
        Set_Usual_Font(Main);
    }

    double Largest_Velocity() const {
        if (View.MaxVelocity > 0) return View.MaxVelocity;
        double largest = 1;
        for (int column = 1; column <= Grid.GridColumns; ++column) {
            for (int row = 1; row <= Grid.GridRows; ++row)
                largest = std::max(largest, Grid.Filled(column, row));
        }
        return largest;
    }

    void Draw_Legend() {
        const double left = Window.Right + Letter * UnitX;
        const double right = left + 1.5 * Letter * UnitX;
        const double most = Largest_Velocity();
        const double height = Window.Top - Window.Bottom;
        const auto place = [&](double velocity) { return Window.Bottom + velocity / most * height; };
        std::vector<double> named;
        if (Scale.In_Bands()) {
            double low = 0;
            for (const ColourScale::Step& step : Scale.Steps()) {
                if (step.Velocity <= 0 || step.Velocity >= most) continue;
                Legend_Box(left, right, place(low), place(step.Velocity), low);
                low = step.Velocity;
                named.push_back(low);
            }
            Legend_Box(left, right, place(low), Window.Top, low);
            named.push_back(0);
            named.push_back(most);
        } else {
            for (int slice = 0; slice < legend_slices; ++slice) {
                const double low = most * slice / legend_slices;
                const double high = most * (slice + 1) / legend_slices;
                Legend_Box(left, right, place(low), place(high), (low + high) / 2);
            }
            named = Axis_Ticks(0, most, height / UnitY, 2 * Letter);
        }
        Main.Box(left, Window.Top, right, Window.Bottom, colours::Black, false);
        std::sort(named.begin(), named.end());
        double free_from = Window.Bottom - height;
        for (const double velocity : named) {
            const double y = place(velocity);
            if (y - Letter / 2 * UnitY < free_from) continue;
            free_from = y + Letter / 2 * UnitY;
            Main.Line(right, y, right + Letter / 3 * UnitX, y, colours::Black);
            Main.Print_At(right + Letter / 2 * UnitX, y + Letter / 2 * UnitY, Tick_Text(velocity),
                          colours::Black);
        }
        Main.Print_At(left, Window.Top + 1.7 * Letter * UnitY, Legend_Title(), colours::Black);
    }

    void Legend_Box(double left, double right, double low, double high, double velocity) {
        // A little of the next slice too, which covers it: no seam shows on paper.
        Main.Box(left, std::min(high + UnitY, Window.Top), right, low, Scale.Of(velocity), true);
    }

    void Draw_Distances() {
        Set_Usual_Font(Below);
        Below.Scale(Window.Left, 1, RoomRight, 0);
        Below.Clear();
        const Frame frame = Below.Current_Frame();
        const double unit = 1 / std::max(1.0, frame.Height);
        const double letter = Below.Size_Of("0").Height;
        Below.Line(Window.Left, 1, Window.Right, 1, colours::Black);
        const double widest = std::max(Below.Size_Of(Tick_Text(Window.Right)).Width, 2 * letter);
        const double pixels = (Window.Right - Window.Left) / UnitX;
        for (const double at : Axis_Ticks(Window.Left, Window.Right, pixels, 2 * widest)) {
            const std::string text = Tick_Text(at);
            Below.Line(at, 1, at, 1 - letter / 3 * unit, colours::Black);
            Below.Print_At(at - Below.Size_Of(text).Width / 2 * UnitX, 1 - letter / 3 * unit, text,
                           colours::Black);
        }
        const std::string name = "Distance (" + Unit() + ")";
        const double middle = (Window.Left + Window.Right) / 2;
        Below.Print_At(middle - Below.Size_Of(name).Width / 2 * UnitX, 1 - 1.3 * letter * unit, name,
                       colours::Black);
    }

    void Draw_Elevations() {
        Set_Usual_Font(Beside);
        Beside.Scale(0, RoomTop, 1, Window.Bottom);
        Beside.Clear();
        const Frame frame = Beside.Current_Frame();
        const double unit = 1 / std::max(1.0, frame.Width);
        const double letter = Beside.Size_Of("0").Height;
        Beside.Line(1, Window.Top, 1, Window.Bottom, colours::Black);
        const double pixels = (Window.Top - Window.Bottom) / UnitY;
        for (const double at : Axis_Ticks(Window.Bottom, Window.Top, pixels, 2 * letter)) {
            const std::string text = Tick_Text(at);
            Beside.Line(1 - letter / 3 * unit, at, 1, at, colours::Black);
            Beside.Print_At(1 - (letter / 2 + Beside.Size_Of(text).Width) * unit, at + letter / 2 * UnitY,
                            text, colours::Black);
        }
        const std::string name = "Elev. (" + Unit() + ")";
        Beside.Print_At(1 - (letter / 2 + Beside.Size_Of(name).Width) * unit,
                        Window.Top + 1.7 * letter * UnitY, name, colours::Black);
    }

    const Workspace& Work;
    const SectionView& View;
    const Project& Line;
    const SectionGrid& Grid;
    const ColourScale& Scale;
    Picture& Main;
    Picture& Below;
    Picture& Beside;
    const std::optional<SectionRoom> Room;
    const SectionWindow Window;
    double Letter = 0;  ///< height of the usual letters, pixels
    double UnitX = 1;   ///< world units of a pixel
    double UnitY = 1;
    double RoomRight = 0;  ///< edges of the world window, beyond the part in sight
    double RoomTop = 0;
    bool LegendShown = false;
};

}  // namespace

void Draw_Section(const Workspace& workspace, const ColourScale& scale, const SectionPictures& pictures) {
    if (!workspace.Section.Grid) {
        for (Picture* picture : {&pictures.Main, &pictures.Below, &pictures.Beside})
            picture->Clear();
        return;
    }
    SectionPainting(workspace, scale, pictures).Draw();
}

void Draw_Section_Cut(const Workspace& workspace, const ColourScale& scale, const Frame& main, Picture& cut) {
    const SectionView& view = workspace.Section;
    const SectionWindow window = Section_In_Sight(workspace);
    const double most = view.MaxVelocity > 0 ? view.MaxVelocity : 1;
    cut.Set_Draw_Width(1);
    cut.Set_Font_Size(static_cast<int>(usual_font));
    cut.Scale(0, main.Top, most, main.Bottom);
    cut.Clear();
    if (!view.Grid || !view.CutAt) return;
    const SectionGrid& grid = *view.Grid;
    const Frame frame = cut.Current_Frame();
    const double unit_x = most / std::max(1.0, frame.Width);
    const double unit_y = (main.Top - main.Bottom) / std::max(1.0, frame.Height);
    const double letter = cut.Size_Of("0").Height;
    const int column =
        std::clamp(Column_At(grid, workspace.Project.LineLength, *view.CutAt), 1, grid.GridColumns);
    const int lowest = std::clamp(Row_At(grid, window.Bottom), 1, grid.GridRows);
    const int highest = std::clamp(Row_At(grid, window.Top), lowest, grid.GridRows);
    double before = 0;  // velocity above, for the stair between two layers
    for (int row = highest; row >= lowest;) {
        const double velocity = grid.Filled(column, row);
        int end = row;
        while (end >= lowest && grid.Filled(column, end) == velocity)
            --end;
        const double top = std::min(Elevation_Of_Row(grid, row), window.Top);
        const double bottom = std::max(Elevation_Of_Row(grid, end), window.Bottom);
        if (velocity != 0) {
            const double x = std::min(velocity, most);
            cut.Box(0, top, x, bottom, scale.Of(velocity), true);
            cut.Line(std::min(before, most), top, x, top, colours::Black);
            cut.Line(x, top, x, bottom, colours::Black);
            const std::string text = CStr(Rounded(velocity));
            const TextSize size = cut.Size_Of(text);
            // Beside the column, or in it where that leaves no room.
            const bool inside = frame.Width - x / unit_x < size.Width + letter;
            const double left = inside ? x - (size.Width + letter / 2) * unit_x : x + letter / 2 * unit_x;
            if ((top - bottom) / unit_y > size.Height) {
                cut.Print_At(left, (top + bottom) / 2 + size.Height / 2 * unit_y, text,
                             inside && Is_Dark(scale.Of(velocity)) ? colours::White : colours::Black);
            }
        }
        before = velocity;
        row = end;
    }
    cut.Box(0, window.Top, most, window.Bottom, colours::Black, false);
    cut.Print_At(0, window.Top + 1.2 * letter * unit_y,
                 "X=" + Format(*view.CutAt, "0.0") + (workspace.Settings.Metric() ? "m" : "f"),
                 colours::Black);
}

}  // namespace tarnvik
