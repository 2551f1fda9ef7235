#include "traveltime/curve_labels.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>

#include "core/text/number.h"
#include "traveltime/curve_axes.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr int shot_number_font = 9;
constexpr double gap_to_point = 0.45;  // in heights of a letter, as all below
constexpr double room_beside = 2;      // margin right of the picture
constexpr double clear_distance = 0.75;
constexpr int most_pushes = 24;
constexpr int most_rows_at_foot = 10;

struct Area {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
    bool Overlaps(const Area& other) const {
        return Left < other.Right && other.Left < Right && Top < other.Bottom && other.Top < Bottom;
    }
};

/// Tops for labels in a column, in the order of the tops wished and none over another: runs that press on
/// each other move together, each as little as possible.
std::vector<double> Spread(const std::vector<double>& wished, double pitch, double last) {
    struct Run {
        double Sum = 0;  ///< of the tops wished, each less what stands above it in the run
        int Count = 0;
        double Top(double pitch, double last) const {
            return std::clamp(Sum / Count, 0.0, std::max(0.0, last - (Count - 1) * pitch));
        }
    };
    std::vector<Run> runs;
    for (const double top : wished) {
        runs.push_back({top, 1});
        while (runs.size() > 1) {
            const Run& below = runs.back();
            Run& above = runs[runs.size() - 2];
            if (above.Top(pitch, last) + above.Count * pitch <= below.Top(pitch, last)) break;
            above.Sum += below.Sum - below.Count * above.Count * pitch;
            above.Count += below.Count;
            runs.pop_back();
        }
    }
    std::vector<double> tops;
    for (const Run& run : runs) {
        for (int i = 0; i < run.Count; ++i)
            tops.push_back(run.Top(pitch, last) + i * pitch);
    }
    return tops;
}

class Placing {
  public:
    Placing(const std::vector<LabelWish>& wishes, double width, double height, int away)
        : Wishes(wishes), Width(width), Height(height), Away(away), Places(wishes.size()) {}

    std::vector<std::optional<LabelPlace>> Place_All() {
        std::vector<std::size_t> feet;
        std::vector<std::size_t> ends;
        for (std::size_t i = 0; i < Wishes.size(); ++i)
            (Wishes[i].Foot ? feet : ends).push_back(i);
        std::stable_sort(feet.begin(), feet.end(), [this](std::size_t a, std::size_t b) {
            return Wishes[a].Foot->X < Wishes[b].Foot->X;
        });
        for (const std::size_t foot : feet)
            Place_Foot(foot);
        std::stable_sort(ends.begin(), ends.end(), [this](std::size_t a, std::size_t b) {
            return Wishes[a].X != Wishes[b].X ? Wishes[a].X > Wishes[b].X : Wishes[a].Y < Wishes[b].Y;
        });
        for (auto first = ends.begin(); first != ends.end();) {
            const auto behind = std::find_if(first, ends.end(), [this, first](std::size_t i) {
                return Wishes[i].X < Wishes[*first].X - 1;
            });
            Place_Column({first, behind});
            first = behind;
        }
        return std::move(Places);
    }

  private:
    bool Take(std::size_t i, double left, double top) {
        const LabelWish& wish = Wishes[i];
        const Area area{left, top, left + wish.Width, top + wish.Height};
        if (std::any_of(Taken.begin(), Taken.end(), [&](const Area& other) { return other.Overlaps(area); }))
            return false;
        Taken.push_back(area);
        const double apart = std::abs(top + wish.Height / 2 - wish.Y);
        Places[i] = LabelPlace{left, top, !wish.Foot && apart > clear_distance * wish.Height};
        return true;
    }

    void Place_Foot(std::size_t i) {
        const LabelWish& wish = Wishes[i];
        for (int row = 0; row < most_rows_at_foot; ++row) {
            if (Take(i, wish.Foot->X, wish.Foot->Y + Away * row * wish.Height)) return;
        }
    }

    /// Labels of points at one place across, from top to bottom.
    void Place_Column(std::vector<std::size_t> column) {
        std::stable_sort(column.begin(), column.end(),
                         [this](std::size_t a, std::size_t b) { return Wishes[a].Y < Wishes[b].Y; });
        const double pitch = Wishes[column.front()].Height;
        // More than a column holds stand on both sides of their points.
        const bool both_sides = static_cast<double>(column.size()) * pitch > Height;
        for (int side = 0; side < (both_sides ? 2 : 1); ++side) {
            std::vector<std::size_t> part;
            for (std::size_t k = 0; k < column.size(); ++k) {
                if (!both_sides || static_cast<int>(k % 2) == side) part.push_back(column[k]);
            }
            std::vector<double> wished;
            for (const std::size_t i : part)
                wished.push_back(Wishes[i].Y - Wishes[i].Height / 2);
            const std::vector<double> tops = Spread(wished, pitch, Height - pitch);
            for (std::size_t k = 0; k < part.size(); ++k)
                Place_Beside(part[k], tops[k], side == 0);
        }
    }

    void Place_Beside(std::size_t i, double top, bool right_first) {
        const LabelWish& wish = Wishes[i];
        const double gap = gap_to_point * wish.Height;
        const double edge = wish.GoesOn ? Width : Width + room_beside * wish.Height;
        // A number on the frame's edge could not be read: it goes wholly into the margin.
        const bool on_edge = !wish.GoesOn && wish.X + gap < Width && wish.X + gap + wish.Width > Width;
        const double right = on_edge ? Width + gap / 2 : wish.X + gap;
        const double left = wish.X - gap - wish.Width;
        for (int push = 0; push <= most_pushes; ++push) {
            // 0, half a height down, half a height up, a whole one down ...
            const double moved = top + (push % 2 == 1 ? 1 : -1) * ((push + 1) / 2) * wish.Height / 2;
            if (moved < -wish.Height / 2 || moved + wish.Height > Height + wish.Height / 2) continue;
            for (const bool on_right : {right_first, !right_first}) {
                const double x = on_right ? right : left;
                if (x < 0 || x + wish.Width > edge) continue;
                if (Take(i, x, moved)) return;
            }
        }
    }

    const std::vector<LabelWish>& Wishes;
    double Width;
    double Height;
    int Away;
    std::vector<std::optional<LabelPlace>> Places;
    std::vector<Area> Taken;
};

/// Gathers what the curves of a project want on one picture.
class Wishing {
  public:
    Wishing(const Workspace& workspace, Picture& picture)
        : Line(workspace.Project),
          View(workspace.Curves),
          Window(Visible_Window(workspace.Curves)),
          Paper(picture),
          Pixels(picture.Current_Frame()) {}

    void Add(int shot) {
        const TextSize size = Paper.Size_Of(CStr(shot));
        const double shot_x = Shot_Position_Ecran(Line, shot);
        Add_Foot(shot, shot_x, size);
        Add_End(shot, size);
    }
    std::vector<LabelWish> Wishes;

  private:
    bool In_Sight(double x, double y) const {
        return x >= Window.X1 && x <= Window.X2 && y >= Window.Yv && y <= Window.Yw;
    }
    float Distance(int receiver) const { return Line.ReceiverData(ReceiverDistance, receiver); }

    /// A shot on the line has its number where its curve comes down; at the last receiver that is its end.
    void Add_Foot(int shot, double x, TextSize size) {
        const auto place = static_cast<float>(Line.ShotDistance(shot));
        const bool first = place == Distance(1);
        const bool between = place > Distance(1) && place < Distance(Line.NbReceivers);
        if (!(first || between) || x < Window.X1 || x > Window.X2) return;
        const double unit = std::abs(Pixels.To_Pixel_X(1) - Pixels.To_Pixel_X(0)) / std::max(View.ZoomX, 1.0);
        const double foot = Pixels.To_Pixel_X(first ? 0 : x);
        const double before = std::max(unit, size.Width + gap_to_point * size.Height);
        LabelWish wish{shot, foot, Pixels.To_Pixel_Y(Window.Yv), size.Width, size.Height, {}, false};
        constexpr double above_axis = 4;
        const double top = Pixels.To_Pixel_Y(Window.Yv + above_axis / std::max(View.ZoomY, 1.0));
        wish.Foot = PixelPoint{static_cast<int>(std::lround(first ? foot : foot - before)),
                               static_cast<int>(std::lround(top))};
        Wishes.push_back(wish);
    }

    void Add_End(int shot, TextSize size) {
        bool last = true;
        for (int receiver = Line.NbReceivers; receiver >= 1; --receiver) {
            const double time = Line.ShotTimes(shot, receiver);
            if (!(time > 0)) continue;
            const double x = Position_Ecran(Line, receiver);
            const double y = time / View.TimeFactor;
            if (In_Sight(x, y)) {
                Wishes.push_back(
                    {shot, Pixels.To_Pixel_X(x), Pixels.To_Pixel_Y(y), size.Width, size.Height, {}, !last});
                return;
            }
            last = false;
        }
    }

    const Project& Line;
    const CurveView& View;
    CurveWindow Window;
    Picture& Paper;
    Frame Pixels;
};

}  // namespace

std::vector<std::optional<LabelPlace>> Push_Apart(const std::vector<LabelWish>& wishes, double width,
                                                  double height, int away) {
    return Placing(wishes, width, height, away).Place_All();
}

std::vector<CurveLabel> Labels_Of_Curves(const Workspace& workspace, Picture& picture) {
    const Project& project = workspace.Project;
    std::vector<CurveLabel> labels;
    if (project.LineLength == 0 || project.NbReceivers < 1 || workspace.Curves.TimeFactor <= 0 ||
        !project.ReceiverData.Has(ReceiverDistance, project.NbReceivers))
        return labels;
    picture.Set_Font_Size(shot_number_font);
    Wishing wishing(workspace, picture);
    std::vector<Colour> colours_of;
    Colour colour = 0;
    for (int shot = 1; shot <= std::min<int>(project.NbShots, project.ShotTimes.Last_Row()); ++shot) {
        Shot_Colour(workspace, shot, colour);
        colours_of.push_back(colour);
        if (Shot_Displayed(workspace, shot)) wishing.Add(shot);
    }
    const Frame frame = picture.Current_Frame();
    const auto places =
        Push_Apart(wishing.Wishes, frame.Width, frame.Height, workspace.Curves.ZeroOnTop ? 1 : -1);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (!places[i]) continue;
        const LabelWish& wish = wishing.Wishes[i];
        const LabelPlace& place = *places[i];
        labels.push_back({wish.Shot, frame.To_World_X(place.Left), frame.To_World_Y(place.Top),
                          frame.To_World_X(place.Left + wish.Width),
                          frame.To_World_Y(place.Top + wish.Height), frame.To_World_X(wish.X),
                          frame.To_World_Y(wish.Y), place.Leader,
                          colours_of[static_cast<std::size_t>(wish.Shot - 1)]});
    }
    return labels;
}

void Draw_Labels(Picture& picture, const std::vector<CurveLabel>& labels) {
    picture.Set_Font_Size(shot_number_font);
    for (const CurveLabel& label : labels) {
        if (label.Leader) {
            const double near = label.X1 >= label.PointX ? label.X1 : label.X2;
            picture.Line(label.PointX, label.PointY, near, (label.Y1 + label.Y2) / 2, label.InColour);
        }
        picture.Print_At(label.X1, label.Y1, CStr(label.Shot), label.InColour);
    }
}

}  // namespace tarnvik
