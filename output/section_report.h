#pragma once

#include <optional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "output/report_scale.h"
#include "output/report_view.h"

namespace tarnvik {

/// The page of a report on the tab of the sections: what it shows and how, and the pointer on its picture. It
/// stands in the place of the coloured section while ShownChoice is 1.
class SectionReport {
  public:
    SectionReport(Workspace& workspace, Ports& ports);

    ReportView View;
    int ShownChoice = 0;  ///< 0 the coloured section, 1 the page

    // Fields of the form.
    int SourceChoice = 0;                  ///< in the order of SectionSource
    int ShapeChoice = 1;                   ///< in the order of InterfaceShape
    int FillChoice = 1;                    ///< in the order of ReportFill
    std::string Scale = "fitting";         ///< or "1:500"
    std::string Exaggeration = "fitting";  ///< or a number
    std::string Note;                      ///< what the page lacks; empty for nothing

    bool Shown() const { return ShownChoice == 1; }

    /// Carries View to the fields; before the form shows them.
    void Follow();
    /// Section or page was chosen.
    void Shown_Chosen();
    /// A field was changed.
    void Choice_Changed();
    /// The line has changed: the page follows.
    void Line_Changed();
    /// Another project comes, with choices of its own.
    void Project_Left();

    /// Why the scale chosen cannot be drawn on a paper of that size in mm; empty where it can.
    std::string Scale_Fault(double width, double height) const;

    // The mouse on the page; places are distances and elevations. With `frame` (Ctrl) a frame is drawn, which
    // fills the picture when the button is let go.
    void Press(double x, double y, bool frame);
    void Move(double x, double y);
    void Release(double x, double y);
    void Leave();
    void Enlarge(double x, double y, double more_x, double more_y);
    void Pan(double across, double upward);
    void Show_All();

  private:
    /// The choices of the project are taken up when it is seen for the first time, and noted when they
    /// change.
    void Take_Up_Choices();
    bool Has_Depths(SectionSource source) const;
    void Note_Choices();
    /// All that can be in sight on the picture that stands.
    SectionWindow Whole() const;
    void Repaint();
    void Seen(const std::optional<SectionWindow>& before);

    Workspace& Work;
    Ports& Outside;
    std::optional<std::string> TakenUp;  ///< project whose choices are in force
    std::optional<double> FrameX;
    double FrameY = 0;
};

/// Why no page can be drawn; empty while one can.
std::string Without_Report(const Project& project);

}  // namespace tarnvik
