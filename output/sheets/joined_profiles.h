#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports/ports.h"
#include "core/project.h"
#include "core/settings.h"
#include "output/report_model.h"
#include "output/report_scale.h"
#include "output/sheets/paper_choice.h"
#include "output/sheets/sheet_source.h"

namespace tarnvik {

/// A line of the common profile.
struct JoinedLine {
    // Chosen by the user.
    std::string File;
    std::string Offset;     ///< of its beginning on the common axis; empty: where the line before ends
    bool OwnPlace = false;  ///< its own distances are those of the common axis
    bool Reversed = false;  ///< its distances run against the common axis
    SectionSource Source = SectionSource::Shots;

    // Read from the file.
    std::string Name;
    std::string Fault;   ///< why it cannot be drawn; empty where it can
    ReportCurve Ground;  ///< on its own axis
    ReportModel Model;   ///< likewise
    double Begin = 0;    ///< its first and its last distance, on its own axis
    double End = 0;
    double PlaceOf = 0;  ///< Begin, or of a reversed line End, on the common axis

    /// A distance of the line on the common axis.
    double Joined(double distance) const {
        return Reversed ? PlaceOf + (End - distance) : PlaceOf + (distance - Begin);
    }
    ReportCurve Joined(const ReportCurve& curve) const;
};

/// Profiles of several projects on one distance axis. The projects are only read.
class JoinedProfiles : public SheetSource {
  public:
    JoinedProfiles(Ports& ports, const Settings& settings, std::string title);

    std::vector<JoinedLine> Lines;
    int Selected = -1;  ///< line that the fields show, from 0

    // Fields of the form.
    std::string Offset;  ///< of the selected line; "own" for its own distances
    int Source = 0;
    bool Reversed = false;
    std::string Title;
    int Shape = 0;  ///< in the order of InterfaceShape
    bool Filled = true;
    std::string Scale = "fitting";
    std::string Exaggeration = "fitting";
    std::string LowestElevation;
    std::string HighestElevation;
    PaperChoice Paper;
    std::string Outcome;

    void Add(const std::vector<std::string>& files);
    void Choose_Lines();
    void Remove();
    /// Moves the selected line by one place up (-1) or down (1).
    void Move(int step);
    void Select(int line);
    /// A field of the selected line was changed.
    void Line_Changed();
    /// Another field was changed.
    void Changed();
    void Reload();

    void Tell(const std::string& text) const { Outside.Ask.Say(text, AppTitle, Icon::Warning); }

    /// A list of lines in a file of its own; names of files in its folder or below are told from there.
    void Open_Set();
    void Save_Set();
    /// Why it cannot be read; empty when it was.
    std::string Read_Set(const std::string& path);
    void New_Set();
    std::string Set_Text(const std::string& folder) const;
    /// Ground and interfaces of all lines, one row for each place of each line.
    std::string Table() const;
    void Save_Table();

    const std::vector<Sheet>& Sheets() const override { return All; }
    std::string Refusal() const override;
    bool May_Draw() override;
    std::string File_Name() const override { return "profiles"; }
    std::string Folder() const override;
    std::vector<std::string> Sources() const override;

    /// Distances and elevations of all that is drawn.
    SectionWindow Extent() const;
    /// How many layers the legend has.
    int Layers() const;
    const Settings& User_Settings() const { return UserSettings; }
    /// The room of a picture of this size for all lines.
    ReportRoom Room(double width, double height, double pixels_a_point) const;

  private:
    void Read(JoinedLine& line) const;
    void Place_Lines();
    void Lay_Out();
    void Show_Selected();
    std::string Write_New(const std::string& path, const std::string& text) const;

    Ports& Outside;
    const Settings& UserSettings;
    std::string AppTitle;
    std::string SetFile;
    std::vector<Sheet> All;
};

/// Draws the lines with ground, interfaces, names, axes, legend and title block. World coordinates of the
/// picture are distances of the common axis and elevations. Answers how it is laid out.
ReportFrame Draw_Joined(const JoinedProfiles& profiles, Picture& picture);

/// Colour of a layer, from 1, in drawing and legend.
Colour Layer_Fill(int layer);

}  // namespace tarnvik
