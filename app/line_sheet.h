#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/display_choices.h"
#include "output/sheets/line_layout.h"
#include "output/sheets/paper_choice.h"
#include "output/sheets/sheet_source.h"

namespace tarnvik {

class Session;

/// Travel-time curves, profile and coloured section of a line on one sheet, their distances under each other
/// at a true scale, with a title block. The pages are the program's own; the project stays as it is.
class LineSheet : public SheetSource {
  public:
    /// Loads nothing yet.
    explicit LineSheet(Session& session);

    // Fields of the form.
    bool WithCurves = true;
    bool WithProfile = true;
    bool WithSection = true;
    int Source = 0;  ///< of the depths, in the order of SectionSource
    PaperChoice Paper;
    std::string Scale = "fitting";          ///< or "1:500"
    std::string VerticalScale = "fitting";  ///< likewise
    std::string Title;
    std::string Client;
    std::string Place;
    std::string Operator;
    std::string Date;  ///< empty for today
    std::string Remarks;
    std::string North;    ///< direction of the line beside an arrow, empty for none
    std::string Outcome;  ///< the scales of the sheet, or what is wrong with them

    /// Takes up a line: `file` may be a copy of the project `name` with changes that are not saved. A file
    /// that is no project is told; then no line is open.
    void Open(const std::string& file, const std::string& name, bool unsaved);
    /// Asks for a project.
    void Choose_Line();
    /// A field was changed: the sheet follows, and the choices are remembered.
    void Changed();
    /// The scale that fits is taken in the place of the one that does not; nothing where all fits.
    void Take_Fitting();

    /// What keeps the sheet from being drawn; empty where it can be.
    std::string Refusal() const override;
    /// The line that is open, with what is not saved of it.
    std::string Line_Text() const;
    bool Fits() const { return Layout.Fault.empty(); }
    const LineLayout& Laid_Out() const { return Layout; }
    /// What the sheet lacks, and why.
    const std::vector<std::string>& Notes() const { return Missing; }
    const std::vector<Sheet>& Sheets() const override { return All; }
    /// Asks what to do where the scales do not fit.
    bool May_Draw() override;
    std::string File_Name() const override;
    std::string Folder() const override;
    std::vector<std::string> Sources() const override { return {Line}; }

  private:
    enum class Panel { Curves, Profile, Section };
    void Lay_Out();
    void Add_Panels(LineLayoutWish& wish, std::vector<Panel>& panels);
    std::optional<LinePanel> Profile_Panel();
    std::optional<LinePanel> Section_Panel();
    SheetPart Part_Of(Panel panel, const SheetArea& window);
    void Draw_Block(Picture& picture);
    void Draw_Notes(Picture& picture);
    std::string Time_Scale() const;
    void Recall();
    void Remember();
    void Take_Best_Source();

    Session& Program;
    DisplayChoices Texts;  ///< of the sheets, by project
    std::string Line;      ///< the project's own file; empty while no line is open
    bool Unsaved = false;
    LineLayout Layout;
    double TimeHeight = 0;  ///< of the curves' window, mm
    std::vector<std::string> Missing;
    std::vector<Sheet> All;
};

}  // namespace tarnvik
