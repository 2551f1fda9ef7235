#include "output/report_axes.h"

#include <algorithm>

#include "output/axis_ticks.h"

namespace tarnvik {

namespace {

class Axes {
  public:
    Axes(const ReportFrame& page, const std::string& unit, Picture& picture)
        : Page(page), Window(page.Window), Unit(unit), Main(picture), Letter(picture.Size_Of("0").Height) {}

    void Draw_Distances() {
        const double tick = Letter / 3;
        const double widest = std::max(Main.Size_Of(Tick_Text(Window.Right)).Width, 2 * Letter);
        for (const double at : Axis_Ticks(Window.Left, Window.Right, Page.Right - Page.Left, 1.8 * widest)) {
            const std::string text = Tick_Text(at);
            Main.Line(at, Window.Bottom, at, Window.Bottom - Upward(tick), colours::Black);
            Main.Print_At(at - Across(Main.Size_Of(text).Width / 2), Window.Bottom - Upward(tick), text,
                          colours::Black);
        }
        const std::string name = "Distance (" + Unit + ")";
        Main.Print_At((Window.Left + Window.Right) / 2 - Across(Main.Size_Of(name).Width / 2),
                      Window.Bottom - Upward(tick + 1.05 * Letter), name, colours::Black);
    }

    void Draw_Elevations() {
        const double tick = Letter / 3;
        const auto print = [&](double top, const std::string& text) {
            Main.Print_At(Window.Left - Across(1.5 * tick + Main.Size_Of(text).Width), top, text,
                          colours::Black);
        };
        print(Window.Top, "Elev. (" + Unit + ")");
        for (const double at : Axis_Ticks(Window.Bottom, Window.Top, Page.Bottom - Page.Top, 2 * Letter)) {
            Main.Line(Window.Left - Across(tick), at, Window.Left, at, colours::Black);
            if ((Window.Top - at) * Page.PixelsY < 1.6 * Letter) continue;  // the axis' name stands there
            print(at + Upward(Letter / 2), Tick_Text(at));
        }
    }

  private:
    double Across(double pixels) const { return pixels / Page.PixelsX; }
    double Upward(double pixels) const { return pixels / Page.PixelsY; }

    const ReportFrame& Page;
    const SectionWindow& Window;
    const std::string& Unit;
    Picture& Main;
    const double Letter;
};

}  // namespace

void Draw_Report_Axes(const ReportFrame& page, const std::string& unit, Picture& picture) {
    Axes axes(page, unit, picture);
    axes.Draw_Distances();
    axes.Draw_Elevations();
}

}  // namespace tarnvik
