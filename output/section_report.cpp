#include "output/section_report.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/report_picture.h"
#include "output/section_window.h"

namespace tarnvik {

namespace {

constexpr const char* fitting = "fitting";
constexpr double points_an_inch = 72;
constexpr double millimetres_an_inch = 25.4;
constexpr double most_exaggeration = 1000;
constexpr double most_scale = 10e6;

// What is remembered of each project, by name.
constexpr std::pair<const char*, bool ReportChoices::*> switches[] = {
    {"report.shots", &ReportChoices::Shots},
    {"report.geophones", &ReportChoices::Geophones},
    {"report.velocities", &ReportChoices::Velocities},
    {"report.errors", &ReportChoices::Errors},
};
constexpr std::pair<const char*, double ReportChoices::*> numbers[] = {
    {"report.scale", &ReportChoices::Scale},
    {"report.exaggeration", &ReportChoices::Exaggeration},
};
constexpr std::pair<const char*, std::string ReportChoices::*> texts[] = {
    {"report.line", &ReportChoices::Line},
    {"report.company", &ReportChoices::Company},
    {"report.date", &ReportChoices::Date},
    {"report.north", &ReportChoices::North},
};
constexpr const char* also_names[] = {"report.also_shots", "report.also_abc", "report.also_grm"};
constexpr const char* shown_name = "report.shown";
constexpr const char* source_name = "report.source";
constexpr const char* shape_name = "report.shape";
constexpr const char* fill_name = "report.fill";

std::string Scale_Text(double scale) {
    return scale > 0 ? "1:" + CStr(scale) : fitting;
}

template <class Choice>
void Take_Choice(Choice& choice, const std::optional<double>& value, int last) {
    if (value) choice = static_cast<Choice>(std::clamp(static_cast<int>(*value), 0, last));
}

}  // namespace

SectionReport::SectionReport(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

void SectionReport::Take_Up_Choices() {
    const std::string& key = Work.Project.CurrentFile;
    if (TakenUp == key) return;
    TakenUp = key;
    if (!Work.Choices.Are_Kept() || key.empty()) return;
    const DisplayChoices& kept = Work.Choices;
    // What one line's report was like is a good start for the next one's, but not its texts.
    ReportChoices& choices = View.Choices;
    choices.Line.clear();
    choices.Date.clear();
    choices.North.clear();
    Take_Choice(ShownChoice, kept.Number(key, shown_name), 1);
    Take_Choice(choices.Source, kept.Number(key, source_name), 2);
    Take_Choice(choices.Shape, kept.Number(key, shape_name), 1);
    Take_Choice(choices.Fill, kept.Number(key, fill_name), 2);
    for (const auto& [name, field] : switches) {
        if (const auto value = kept.Number(key, name)) choices.*field = *value != 0;
    }
    for (const auto& [name, field] : numbers) {
        if (const auto value = kept.Number(key, name)) choices.*field = std::max(0.0, *value);
    }
    for (const auto& [name, field] : texts) {
        if (const auto value = kept.Get(key, name)) choices.*field = *value;
    }
    for (std::size_t source = 0; source < choices.Also.size(); ++source) {
        if (const auto value = kept.Number(key, also_names[source])) choices.Also[source] = *value != 0;
    }
}

void SectionReport::Note_Choices() {
    const std::string& key = Work.Project.CurrentFile;
    DisplayChoices& kept = Work.Choices;
    if (!kept.Are_Kept() || key.empty()) return;
    const ReportChoices& choices = View.Choices;
    kept.Set_Number(key, shown_name, ShownChoice);
    kept.Set_Number(key, source_name, static_cast<double>(choices.Source));
    kept.Set_Number(key, shape_name, static_cast<double>(choices.Shape));
    kept.Set_Number(key, fill_name, static_cast<double>(choices.Fill));
    for (const auto& [name, field] : switches)
        kept.Set_Number(key, name, choices.*field ? 1 : 0);
    for (const auto& [name, field] : numbers)
        kept.Set_Number(key, name, choices.*field);
    for (const auto& [name, field] : texts)
        kept.Set(key, name, choices.*field);
    for (std::size_t source = 0; source < choices.Also.size(); ++source)
        kept.Set_Number(key, also_names[source], choices.Also[source] ? 1 : 0);
}

void SectionReport::Follow() {
    Take_Up_Choices();
    const ReportChoices& choices = View.Choices;
    SourceChoice = static_cast<int>(choices.Source);
    ShapeChoice = static_cast<int>(choices.Shape);
    FillChoice = static_cast<int>(choices.Fill);
    if (Scale_In(Scale) != choices.Scale || choices.Scale == 0) Scale = Scale_Text(choices.Scale);
    if (Val(Exaggeration) != choices.Exaggeration || choices.Exaggeration == 0)
        Exaggeration = choices.Exaggeration > 0 ? CStr(choices.Exaggeration) : fitting;
    Note.clear();
    if (Shown() && Without_Report(Work.Project).empty() && !Has_Depths(choices.Source)) {
        Note = "No depths by this method yet";
    }
}

bool SectionReport::Has_Depths(SectionSource source) const {
    return Without_Report(Work.Project).empty() &&
           !Model_Of(Work.Project, source, View.Choices.Shape).Interfaces.empty();
}

void SectionReport::Shown_Chosen() {
    // A page that opens shows what there is.
    SectionSource& chosen = View.Choices.Source;
    if (Shown() && !Has_Depths(chosen)) {
        for (const SectionSource source :
             {SectionSource::Grm, SectionSource::Abc, SectionSource::Shots, Work.Section.Source}) {
            if (Has_Depths(source)) chosen = source;
        }
    }
    Note_Choices();
    Leave();
    // The form shows and hides pictures before the page is painted on them.
    Outside.Show.Show_Fields();
    Repaint();
}

void SectionReport::Choice_Changed() {
    ReportChoices& choices = View.Choices;
    choices.Source = static_cast<SectionSource>(SourceChoice);
    choices.Shape = static_cast<InterfaceShape>(ShapeChoice);
    choices.Fill = static_cast<ReportFill>(FillChoice);
    const double scale = Scale_In(Scale);
    choices.Scale = scale <= most_scale ? scale : 0;
    const double exaggeration = Val(Exaggeration);
    choices.Exaggeration = exaggeration > 0 && exaggeration <= most_exaggeration ? exaggeration : 0;
    Note_Choices();
    Repaint();
    Outside.Show.Show_Fields();
}

void SectionReport::Line_Changed() {
    if (Shown()) Repaint();
}

void SectionReport::Project_Left() {
    View.Enlarged.reset();
    FrameX.reset();
    TakenUp.reset();
}

std::string SectionReport::Scale_Fault(double width, double height) const {
    if (!Shown()) return {};
    ReportRoom room = Room_Of_Report(Work, View, Models_Of(Work.Project, View.Choices),
                                     Outside.Show.Canvas_Of(Canvas::Section), true);
    room.PixelsAPoint = 1;
    room.Width = width / millimetres_an_inch * points_an_inch;
    room.Height = height / millimetres_an_inch * points_an_inch;
    return Report_Scale_Fault(room);
}

SectionWindow SectionReport::Whole() const {
    ReportView all = View;
    all.Enlarged.reset();
    return Lay_Out_Report(Room_Of_Report(Work, all, Models_Of(Work.Project, View.Choices),
                                         Outside.Show.Canvas_Of(Canvas::Section), false))
        .Window;
}

void SectionReport::Repaint() {
    Outside.Show.Repaint_Page(Page::Section);
}

void SectionReport::Seen(const std::optional<SectionWindow>& before) {
    if (before != View.Enlarged) Repaint();
}

void SectionReport::Press(double x, double y, bool frame) {
    if (!frame || !Without_Report(Work.Project).empty()) return;
    FrameX = x;
    FrameY = y;
}

void SectionReport::Move(double x, double y) {
    if (!Without_Report(Work.Project).empty()) return;
    if (FrameX) {
        const Mark mark{Mark::Kind::Box, *FrameX, FrameY, x, y, colours::Red};
        Outside.Show.Show_Marks(Canvas::Section, MarkLayer::Selection, {mark});
    }
    // Once for a move: the envelopes of a long line take milliseconds.
    const std::vector<ReportModel> models = Models_Of(Work.Project, View.Choices);
    const SectionWindow window =
        Lay_Out_Report(Room_Of_Report(Work, View, models, Outside.Show.Canvas_Of(Canvas::Section), false))
            .Window;
    if (x < window.Left || x > window.Right || y < window.Bottom || y > window.Top) {
        Leave();
        return;
    }
    const std::string unit = Work.Settings.Metric() ? " m" : " f";
    std::string& text = Work.Fields.Text1;
    text = "X= " + Format(x, "0.0") + unit + "  Z= " + Format(y, "0.00") + unit;
    const auto ground = Curve_At(Ground_Of(Work.Project), x);
    if (ground && *ground >= y) {
        text += "  depth " + Format(*ground - y, "0.0") + unit;
        const bool known = !models.empty() && models.front().Source == View.Choices.Source;
        int layer = known && models.front().Elevation_Of(1, x) ? 1 : 0;
        while (layer > 0 && layer < models.front().Layers() &&
               y < models.front().Elevation_Of(layer, x).value_or(y))
            ++layer;
        if (layer > 0) text += "  layer " + CStr(layer);
    }
    Outside.Show.Show_Fields();
}

void SectionReport::Release(double x, double y) {
    if (!FrameX) return;
    Outside.Show.Show_Marks(Canvas::Section, MarkLayer::Selection, {});
    const auto before = View.Enlarged;
    Frame_Window(Whole(), View.Enlarged, *FrameX, FrameY, x, y);
    FrameX.reset();
    Seen(before);
}

void SectionReport::Leave() {
    Work.Fields.Text1.clear();
    Outside.Show.Show_Marks(Canvas::Section, MarkLayer::Pointer, {});
    Outside.Show.Show_Fields();
}

void SectionReport::Enlarge(double x, double y, double more_x, double more_y) {
    const auto before = View.Enlarged;
    Enlarge_Window(Whole(), View.Enlarged, x, y, more_x, more_y);
    Seen(before);
}

void SectionReport::Pan(double across, double upward) {
    const auto before = View.Enlarged;
    Pan_Window(Whole(), View.Enlarged, across, upward);
    Seen(before);
}

void SectionReport::Show_All() {
    const auto before = std::exchange(View.Enlarged, std::nullopt);
    Seen(before);
}

std::string Without_Report(const Project& project) {
    return project.NbShots > 0 && project.NbReceivers > 0 && project.LineLength > 0 &&
                   project.ShotTimes.Last_Row() > 0
               ? ""
               : "No line is open";
}

}  // namespace tarnvik
