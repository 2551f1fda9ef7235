#pragma once

#include <optional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "output/colour_scale.h"
#include "traveltime/file_routines.h"

namespace tarnvik {

/// The tab of the coloured section: how it is made and looked at, and the pointer on its picture. Ticks and
/// numbers of the form are those of Work.Section; here are its lists and its buttons.
class ColouredSection {
  public:
    ColouredSection(Workspace& workspace, Ports& ports, FileRoutines files = {});

    int Combo3 = 0;         ///< source of the depths, in the order of SectionSource
    int Combo4 = 1;         ///< "  Bezier Curve" or "  Linear"
    int Combo5 = 0;         ///< quality, the normal one first
    int ColourChoice = 0;   ///< in the order of SectionColours
    std::string ScaleNote;  ///< what is wrong with the colour scale file; empty when it is used

    /// Carries Work.Section to the lists and reads the colour scale; before the form shows its fields.
    void Follow();
    /// An entry of Combo3 was chosen: the next section is made of it.
    void Source_Chosen();
    /// An option of the making changed: the section that stands is made anew.
    void Option_Changed();
    /// An option of the look changed: it is painted anew.
    void Look_Changed();
    /// The button of the section.
    void Command13();
    /// A colour scale file is chosen, or its name was typed.
    void Command14();
    void Text19_Typed();
    /// The helps of the two info buttons.
    void Command8();
    void Text34();

    /// The line has changed: the section that stands follows. One that is no longer possible is gone.
    void Line_Changed();
    /// Another project comes.
    void Project_Left();

    /// Colours in force. Where the file cannot be used those of the even scale are.
    const ColourScale& Scale();

    // The mouse on the section; places are distances and elevations. With `frame` (Ctrl) a frame is drawn,
    // which fills the picture when the button is let go.
    void Press(double x, double y, bool frame);
    void Move(double x, double y);
    void Release(double x, double y);
    void Leave();
    void Enlarge(double x, double y, double more_x, double more_y);
    void Pan(double across, double upward);
    /// The key R: the whole section.
    void Show_All();
    bool Framing() const { return FrameX.has_value(); }
    /// The cut beside the section, by the picture that stands.
    void Draw_Cut();

  private:
    void Repaint();
    void Show_Cut_Mark();
    void Read_Scale();

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    std::optional<double> FrameX;
    double FrameY = 0;
    ColourScale InForce;
    /// What InForce was made of.
    struct Choice {
        SectionColours Colours = SectionColours::File;
        std::string File;
        double MaxVelocity = 0;
        bool operator==(const Choice&) const = default;
    };
    std::optional<Choice> MadeOf;
};

/// Why no section can be drawn; empty while one stands.
std::string Without_Section(const Workspace& workspace);

}  // namespace tarnvik
