#include "output/coloured_section.h"

#include <utility>
#include <vector>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/section.h"
#include "output/section_picture.h"
#include "output/section_window.h"

namespace tarnvik {

namespace {

constexpr const char* line_end = "\r\n";

// The words of the helps stand as users know them.
constexpr std::array section_help = {
    "You can enlarge colored profiles, press CTRL to draw a polygon with the mouse, press R for normal "
    "display",
    "The chart can be modified using the configuration panel, just click on the graph with the right mouse "
    "button",
    "Colored sections requires to have at least 3 layers and all DELAY times (only one can be missing).",
    "This display is valid only for nearly horizontal layers. With a uneven topo always use ABC or GRM "
    "display",
    "Migration (conventionnal display with circles) is necessary for dipping layers",
    "You can also use slope correction with shot depth, layer depth is adjusted using",
    "a depth factor is computed uing adjacent shot elevation, receiver elevation are not considered",
};
constexpr std::array grid_help = {
    "A regular grid is interpolated using layer depth and elevation",
    "in order to produce colored depth sections, elevation grid cell unit is 0.25 m",
    "Colored section requires to have at least 3 layers and depth computation must be achieved.",
    "This display is valid only for nearly horizontal layers. With a uneven topo always use ABC or GRM "
    "display",
    "Migration is necessary for dipping layers, you can check the slope correction check box",
    "to apply slope correction to all shot depth. Layer depth is adjusted using",
    "a depth factor computed using adjacent shot elevation, receiver elevation are not considered",
    "shot and receiver position can be plotted.",
    "You can also put a label, like BOREHOLE N°  anywhere",
    "Just enter the distance and elevation and vertical shift with the text",
    "Use the same units as the plot, you can make different tests",
};

template <std::size_t count>
std::string Lines(const std::array<const char*, count>& texts) {
    std::string all;
    for (const char* text : texts)
        all += (all.empty() ? "" : line_end) + std::string(text);
    return all;
}

}  // namespace

ColouredSection::ColouredSection(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void ColouredSection::Follow() {
    const SectionView& view = Work.Section;
    Combo3 = static_cast<int>(view.Source);
    Combo4 = view.Line == SectionLine::Bezier ? 0 : 1;
    Combo5 = view.GridQuality - 1;
    ColourChoice = static_cast<int>(view.Colours);
    Read_Scale();
}

void ColouredSection::Source_Chosen() {
    Work.Section.Source = static_cast<SectionSource>(Combo3);
    Outside.Show.Show_Fields();
}

void ColouredSection::Option_Changed() {
    SectionView& view = Work.Section;
    view.Line = Combo4 == 0 ? SectionLine::Bezier : SectionLine::Linear;
    view.GridQuality = Combo5 + 1;
    Line_Changed();
    Outside.Show.Show_Fields();
}

void ColouredSection::Look_Changed() {
    Work.Section.Colours = static_cast<SectionColours>(ColourChoice);
    Repaint();
    Outside.Show.Show_Fields();
}

void ColouredSection::Command13() {
    Work.Section.Enlarged.reset();
    tarnvik::Command13(Work, Outside, Files);
    // Also where the former section is gone.
    Repaint();
    Outside.Show.Show_Fields();
}

void ColouredSection::Command14() {
    const std::string path = Outside.Ask.Open_File({"Select a LVL color scale",
                                                    "LVL File |*.LVL|Text file |*.TXT|Color map |*.CLR|",
                                                    Work.Fields.Text19, Folder_Of(Work.Fields.Text19)});
    if (path.empty()) return;
    Work.Fields.Text19 = path;
    Text19_Typed();
}

void ColouredSection::Text19_Typed() {
    Work.Settings.ColorScaleFile = Work.Fields.Text19;
    ColourChoice = static_cast<int>(SectionColours::File);
    // The same name may stand for new contents.
    MadeOf.reset();
    Look_Changed();
}

void ColouredSection::Command8() {
    Outside.Ask.Say(Lines(section_help), Work.AppTitle, Icon::Information);
}

void ColouredSection::Text34() {
    Outside.Ask.Say(Lines(grid_help), Work.AppTitle, Icon::Information);
}

void ColouredSection::Line_Changed() {
    if (!Work.Section.Grid) return;
    const std::string reason = Make_Section_Again(Work, Outside);
    if (!reason.empty()) {
        Work.Section.Enlarged.reset();
        Work.Section.CutAt.reset();
        Work.Fields.Status = "The section is gone: " + reason;
    }
    Repaint();
}

void ColouredSection::Project_Left() {
    SectionView& view = Work.Section;
    view.Source = SectionSource::Shots;
    view.Enlarged.reset();
    view.CutAt.reset();
    FrameX.reset();
    if (!std::exchange(view.Grid, std::nullopt)) return;
    Leave();
    Repaint();
}

const ColourScale& ColouredSection::Scale() {
    Read_Scale();
    return InForce;
}

void ColouredSection::Read_Scale() {
    const SectionView& view = Work.Section;
    const Choice wanted{view.Colours, Work.Fields.Text19, view.MaxVelocity};
    if (MadeOf == wanted) return;
    MadeOf = wanted;
    ScaleNote.clear();
    InForce = Even_Scale(view.Colours == SectionColours::ColourBlind ? colour_blind_colours : even_colours,
                         view.MaxVelocity);
    if (view.Colours != SectionColours::File) return;
    auto bytes = Read_File(wanted.File);
    // The scales that come with the program lie beside it, whatever folder a settings file names.
    if (!bytes) bytes = Read_File(Outside.Launch.Program_Folder() + "/" + Name_Of(wanted.File));
    if (!bytes) {
        ScaleNote = "Not found, the even scale is used";
        return;
    }
    ColourScaleReading reading = Read_Colour_Scale(From_Windows_1252(*bytes), view.MaxVelocity);
    if (reading.Fault.empty()) {
        InForce = std::move(reading.Scale);
    } else {
        ScaleNote = "Not usable: " + reading.Fault + "; the even scale is used";
    }
}

void ColouredSection::Repaint() {
    Outside.Show.Repaint_Page(Page::Section);
}

void ColouredSection::Press(double x, double y, bool frame) {
    if (!Work.Section.Grid || !frame) return;
    FrameX = x;
    FrameY = y;
}

void ColouredSection::Move(double x, double y) {
    if (!Work.Section.Grid) return;
    if (FrameX) {
        const Mark mark{Mark::Kind::Box, *FrameX, FrameY, x, y, colours::Red};
        Outside.Show.Show_Marks(Canvas::Section, MarkLayer::Selection, {mark});
    }
    const auto reading = Read_Section(Work, x, y);
    if (!reading) {
        Leave();
        return;
    }
    const std::string unit = Work.Settings.Metric() ? " m" : " f";
    Work.Fields.Text1 =
        "X= " + Format(reading->Distance, "0.0") + unit + "  Z= " + Format(reading->Elevation, "0.00") + unit;
    if (reading->Velocity != 0) Work.Fields.Text1 += "  V= " + CStr(Rounded(reading->Velocity)) + unit + "/s";
    Work.Section.CutAt = reading->Distance;
    Show_Cut_Mark();
    Draw_Cut();
    Outside.Show.Show_Fields();
}

void ColouredSection::Release(double x, double y) {
    if (!FrameX) return;
    Outside.Show.Show_Marks(Canvas::Section, MarkLayer::Selection, {});
    const SectionWindow before = Section_In_Sight(Work);
    Frame_Section(Work, *FrameX, FrameY, x, y);
    FrameX.reset();
    if (!(before == Section_In_Sight(Work))) Repaint();
}

void ColouredSection::Leave() {
    // The cut stays as it is, so that it can be read.
    Work.Fields.Text1.clear();
    Outside.Show.Show_Marks(Canvas::Section, MarkLayer::Pointer, {});
    Outside.Show.Show_Fields();
}

void ColouredSection::Enlarge(double x, double y, double more_x, double more_y) {
    const SectionWindow before = Section_In_Sight(Work);
    Enlarge_Section(Work, x, y, more_x, more_y);
    if (!(before == Section_In_Sight(Work))) Repaint();
}

void ColouredSection::Pan(double across, double upward) {
    const SectionWindow before = Section_In_Sight(Work);
    Pan_Section(Work, across, upward);
    if (!(before == Section_In_Sight(Work))) Repaint();
}

void ColouredSection::Show_All() {
    if (!Work.Section.Enlarged) return;
    Work.Section.Enlarged.reset();
    Repaint();
}

void ColouredSection::Draw_Cut() {
    const Frame main = Outside.Show.Canvas_Of(Canvas::Section).Current_Frame();
    Draw_Section_Cut(Work, Scale(), main, Outside.Show.Canvas_Of(Canvas::SectionCut));
}

void ColouredSection::Show_Cut_Mark() {
    const SectionWindow window = Section_In_Sight(Work);
    Mark mark{Mark::Kind::Line,    *Work.Section.CutAt, window.Top,
              *Work.Section.CutAt, window.Bottom,       colours::Red};
    mark.Dashed = true;
    Outside.Show.Show_Marks(Canvas::Section, MarkLayer::Pointer, {mark});
}

std::string Without_Section(const Workspace& workspace) {
    return workspace.Section.Grid ? "" : "No section is made yet";
}

}  // namespace tarnvik
