#include "output/sheets/line_layout.h"

#include <algorithm>
#include <cmath>

#include "core/text/number.h"
#include "output/report_scale.h"
#include "output/title_block.h"

namespace tarnvik {

namespace {

// Millimetres.
constexpr double margin = 10;
constexpr double gap = 2;               ///< between two panels
constexpr double least_height = 35;     ///< of a panel without elevations
constexpr double least_width = 20;      ///< of the line
constexpr double share_of_times = 0.4;  ///< of the paper's height, where heights have a choice
constexpr double hair = 1e-6;

/// The sizes of a wish at a scale.
class Measures {
  public:
    explicit Measures(const LineLayoutWish& wish) : Wish(wish) {
        Content = wish.Height - 2 * margin - wish.BlockHeight - gap;
        for (const LinePanel& panel : wish.Panels) {
            const SheetArea around = Area_Around({0, 0, 0, 0}, panel.Layout);
            Between += around.Height + panel.Room.Above / points_a_millimetre + gap;
            Heights += panel.Height;
            if (panel.Height <= 0) ++Flexible;
        }
    }

    /// mm of a length unit.
    double Unit(double scale) const { return Wish.UnitMillimetres / scale; }

    double Origin(double scale) const {
        double left = 0;
        for (const LinePanel& panel : Wish.Panels) {
            left = std::max(left, -Area_Around({0, 0, 0, 0}, panel.Layout).Left + panel.Before * Unit(scale));
        }
        return margin + left;
    }
    double Needed_Width(double scale) const {
        double right = 0;
        for (const LinePanel& panel : Wish.Panels) {
            right = std::max(right, Area_Around({0, 0, 0, 0}, panel.Layout).Right() +
                                        panel.Room.Right / points_a_millimetre + panel.Behind * Unit(scale));
        }
        return Origin(scale) + Wish.LineLength * Unit(scale) + right + margin;
    }
    double Needed_Height(double scale, double exaggeration) const {
        return Wish.Height - Content + Between + Heights * Unit(scale) * exaggeration +
               Flexible * least_height;
    }
    /// Room for the heights and for the panels without elevations.
    double Free() const { return Content - Between; }

    double Exaggeration_At(double scale) const {
        if (Wish.VerticalScale > 0) return scale / Wish.VerticalScale;
        const double unit = Heights * Unit(scale);
        if (!(unit > 0)) return 1;
        const double wanted = Flexible > 0 ? std::max(least_height, share_of_times * Content) : 0;
        const double most = (Free() - wanted) / unit;
        return most >= 1 ? Round_Exaggeration_Not_Above(most) : 1;
    }

    bool Wide_Enough(double scale) const {
        return Needed_Width(scale) <= Wish.Width + hair && Wish.LineLength * Unit(scale) > 0;
    }
    bool Fits(double scale) const {
        return Wide_Enough(scale) && Needed_Height(scale, Exaggeration_At(scale)) <= Wish.Height + hair;
    }

    const LineLayoutWish& Wish;
    double Content = 0;
    double Between = 0;  ///< strips and gaps above each other
    double Heights = 0;  ///< length units of all panels
    int Flexible = 0;
};

/// The largest round scale that fits; 0 where none does, which elevations at a scale of their own, or a paper
/// without room, can be the reason of.
double Fitting_Scale(const Measures& sizes) {
    double scale = 1;
    while (sizes.Wish.LineLength * sizes.Unit(scale) > least_width) {
        if (sizes.Fits(scale)) return scale;
        scale = Round_Scale_Not_Below(scale * (1 + 1e-3));
    }
    return 0;
}

std::string Millimetres(double size) {
    return CStr(std::ceil(size - hair));
}

}  // namespace

LineLayout Lay_Out_Line(const LineLayoutWish& wish) {
    LineLayout layout;
    LineLayoutWish taken = wish;
    layout.Scale = wish.Scale > 0 && Measures(wish).Fits(wish.Scale) ? wish.Scale : 0;
    const auto fault = [&](double scale, double wanted) {
        const Measures sizes(wish);
        return Scale_Text(wanted) + " does not fit the paper: it needs " +
               Millimetres(sizes.Needed_Width(scale)) + " x " +
               Millimetres(sizes.Needed_Height(scale, sizes.Exaggeration_At(scale))) + " mm, there are " +
               CStr(std::floor(wish.Width)) + " x " + CStr(std::floor(wish.Height)) + " mm";
    };
    if (layout.Scale == 0) layout.Scale = Fitting_Scale(Measures(wish));
    if (layout.Scale > 0 && wish.Scale > 0 && layout.Scale != wish.Scale) {
        layout.NextScale = layout.Scale;
        layout.Fault = fault(wish.Scale, wish.Scale) + ". " + Scale_Text(layout.NextScale) + " fits";
    }
    if (layout.Scale == 0 && wish.VerticalScale > 0) {
        // The elevations take the room by themselves.
        taken.Scale = taken.VerticalScale = 0;
        const double across =
            wish.Scale > 0 && Measures(taken).Fits(wish.Scale) ? wish.Scale : Fitting_Scale(Measures(taken));
        if (across > 0) {
            double vertical = wish.VerticalScale;
            do {
                vertical = Round_Scale_Not_Below(vertical * (1 + 1e-3));
                taken.VerticalScale = vertical;
            } while (!Measures(taken).Fits(across));
            layout.Scale = across;
            layout.NextVertical = vertical;
            layout.Fault =
                fault(across, wish.VerticalScale) + ". " + Scale_Text(vertical) + " fits for the elevations";
        }
    }
    if (layout.Scale == 0) {
        layout.Fault = "The paper is too small for this sheet";
        // Drawn over its edges all the same, so that the user sees what there is.
        layout.Scale = Round_Scale_Not_Below(wish.LineLength * wish.UnitMillimetres / least_width);
    }

    const Measures sizes(taken);
    const double unit = sizes.Unit(layout.Scale);
    layout.Exaggeration = sizes.Exaggeration_At(layout.Scale);
    layout.Origin = sizes.Origin(layout.Scale);
    const double left_over = sizes.Free() - sizes.Heights * unit * layout.Exaggeration;
    const double flexible = sizes.Flexible > 0 ? std::max(1.0, left_over / sizes.Flexible) : 0;
    double top = margin;
    for (const LinePanel& panel : wish.Panels) {
        const SheetArea around = Area_Around({0, 0, 0, 0}, panel.Layout);
        SheetArea window;
        window.Left = layout.Origin - panel.Before * unit;
        window.Top = top - around.Top;
        window.Width =
            (panel.Before + wish.LineLength + panel.Behind) * unit + panel.Room.Right / points_a_millimetre;
        window.Height = (panel.Height > 0 ? panel.Height * unit * layout.Exaggeration : flexible) +
                        panel.Room.Above / points_a_millimetre;
        top = window.Bottom() + around.Bottom() + gap;
        layout.Windows.push_back(window);
    }
    layout.Block = {margin, wish.Height - margin - wish.BlockHeight, wish.Width - 2 * margin,
                    wish.BlockHeight};
    return layout;
}

}  // namespace tarnvik
