#include "app/line_sheet.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "app/line_loading.h"
#include "app/local_time.h"
#include "app/pages.h"
#include "app/session.h"
#include "core/end_shots.h"
#include "core/files.h"
#include "core/settings_file.h"
#include "core/text/number.h"
#include "output/profile.h"
#include "output/profile_painting.h"
#include "output/report_model.h"
#include "output/report_view.h"
#include "output/section.h"
#include "output/section_window.h"
#include "output/title_block.h"
#include "traveltime/curve_axes.h"

namespace tarnvik {

namespace {

constexpr const char* section_of_settings = "tvmprint";
constexpr const char* fitting = "fitting";
constexpr double metre = 1000;  // mm
constexpr double foot = 304.8;
constexpr double most_scale = 10e6;
// World units of the profile's picture.
constexpr double profile_rim = 10;  ///< before and behind the line
constexpr double profile_line = 180;
constexpr double profile_height = 100;
constexpr double profile_step = 10;   ///< from one elevation line to the next
constexpr double grm_stretch = 1.16;  ///< of the arcs of GRM
constexpr int grm_bedrock_row = 9;
// Points.
constexpr SectionRoom section_room = {.Right = 78, .Above = 42};
constexpr double least_below = 0.1;  ///< of a section's height, below its deepest interface
constexpr double note_height = 5;    // mm
constexpr std::size_t remark_letters = 44;
constexpr std::size_t most_remark_rows = 5;

constexpr std::pair<const char*, std::string LineSheet::*> texts[] = {
    {"sheet.title", &LineSheet::Title},
    {"sheet.client", &LineSheet::Client},
    {"sheet.place", &LineSheet::Place},
    {"sheet.operator", &LineSheet::Operator},
    {"sheet.date", &LineSheet::Date},
    {"sheet.remarks", &LineSheet::Remarks},
    {"sheet.north", &LineSheet::North},
    {"sheet.scale", &LineSheet::Scale},
    {"sheet.vertical", &LineSheet::VerticalScale},
};
constexpr std::pair<const char*, bool LineSheet::*> switches[] = {
    {"Curves", &LineSheet::WithCurves},
    {"Profile", &LineSheet::WithProfile},
    {"Section", &LineSheet::WithSection},
};

double Scale_Asked(const std::string& text) {
    const double scale = Scale_In(text);
    return scale <= most_scale ? scale : 0;
}

DisplayMode Mode_Of(SectionSource source) {
    switch (source) {
        case SectionSource::Abc:
            return DisplayMode::Profil2;
        case SectionSource::Grm:
            return DisplayMode::Profil4;
        case SectionSource::Shots:
            break;
    }
    return DisplayMode::Profil;
}

const char* Depths_Of(SectionSource source) {
    switch (source) {
        case SectionSource::Abc:
            return "by delay times (ABC)";
        case SectionSource::Grm:
            return "by GRM";
        case SectionSource::Shots:
            break;
    }
    return "by intercept times";
}

bool Has_Depths(const Project& project, SectionSource source) {
    return !Model_Of(project, source, InterfaceShape::Joined).Interfaces.empty();
}

/// Height on the profile's picture of the deepest arc that the mode shows.
double Deepest_Arc(const Workspace& work, SectionSource source) {
    const Project& project = work.Project;
    const ProfilePlaces places = Places_Of_Profile(work);
    const double stretch = places.VerticalScale * places.VerticalFactor;
    double lowest = profile_height;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    for (int shot = first; shot <= std::min<int>(last, project.NbShots); ++shot) {
        double depth = 0;
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer)
            depth += project.ShotThickness(shot, layer);
        lowest = std::min(lowest, places.Y(project.ShotElevation(shot)) - stretch * depth);
    }
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        double depth = 0;
        if (source == SectionSource::Abc) {
            for (const ReceiverRow row : {ReceiverRockDepth, ReceiverDepth1, ReceiverDepth2})
                depth = std::max<double>(depth, project.ReceiverData(row, receiver));
        }
        if (source == SectionSource::Grm && project.GrmData.Has(grm_bedrock_row, receiver))
            depth = grm_stretch * project.GrmData(grm_bedrock_row, receiver);
        lowest =
            std::min(lowest, places.Y(project.ReceiverData(ReceiverElevation, receiver)) - stretch * depth);
    }
    return lowest;
}

}  // namespace

LineSheet::LineSheet(Session& session) : Program(session) {
    // Three panels above each other want height.
    Paper.Upright = true;
}

void LineSheet::Open(const std::string& file, const std::string& name, bool unsaved) {
    Line.clear();
    const std::string reason = Load_Line(Program, file, name);
    if (!reason.empty()) Program.Outside.Ask.Say(reason, Program.Work.AppTitle, Icon::Warning);
    if (reason.empty() && Without_Report(Program.Work.Project).empty()) {
        Line = name;
        Unsaved = unsaved;
        Recall();
        Take_Best_Source();
    } else if (reason.empty()) {
        Program.Outside.Ask.Say(name + " holds no travel times", Program.Work.AppTitle, Icon::Warning);
    }
    Lay_Out();
}

void LineSheet::Choose_Line() {
    const std::string path = Program.Outside.Ask.Open_File(
        {"Line for the sheet", "Tarnvik project|*.TV5|All files|*.*|", "", Folder()});
    if (!path.empty()) Open(path, path, false);
}

void LineSheet::Take_Best_Source() {
    const Project& project = Program.Work.Project;
    if (Has_Depths(project, static_cast<SectionSource>(Source))) return;
    for (const SectionSource source : {SectionSource::Grm, SectionSource::Abc, SectionSource::Shots}) {
        if (Has_Depths(project, source)) Source = static_cast<int>(source);
    }
}

void LineSheet::Recall() {
    const std::string& file = Program.SettingsFile;
    for (const auto& [name, field] : texts)
        this->*field = field == &LineSheet::Scale || field == &LineSheet::VerticalScale ? fitting : "";
    if (file.empty()) return;
    for (const auto& [name, field] : switches) {
        const std::string value = Read_Setting(file, section_of_settings, name);
        if (!value.empty()) this->*field = value != "0";
    }
    Paper.Take(Read_Setting(file, section_of_settings, "Paper"));
    // Who works for whom is mostly the same on the next line.
    Operator = Read_Setting(file, section_of_settings, "Operator");
    Client = Read_Setting(file, section_of_settings, "Client");
    Texts.Keep_In(Folder_Of(file) + "Sheets.txt");
    for (const auto& [name, field] : texts) {
        if (const auto value = Texts.Get(Line, name)) this->*field = *value;
    }
    if (const auto source = Texts.Number(Line, "sheet.source"))
        Source = std::clamp(static_cast<int>(*source), 0, 2);
}

void LineSheet::Remember() {
    const std::string& file = Program.SettingsFile;
    if (file.empty() || Line.empty()) return;
    // Choices that are not remembered spoil nothing; the settings tell their own faults.
    for (const auto& [name, field] : switches)
        Write_Setting(file, section_of_settings, name, this->*field ? "1" : "0");
    Write_Setting(file, section_of_settings, "Paper", Paper.Text());
    Write_Setting(file, section_of_settings, "Operator", Operator);
    Write_Setting(file, section_of_settings, "Client", Client);
    for (const auto& [name, field] : texts)
        Texts.Set(Line, name, this->*field);
    Texts.Set_Number(Line, "sheet.source", Source);
    Texts.Save();
}

void LineSheet::Changed() {
    Remember();
    Lay_Out();
}

void LineSheet::Take_Fitting() {
    if (Layout.NextScale > 0) Scale = Scale_Text(Layout.NextScale);
    if (Layout.NextVertical > 0) VerticalScale = Scale_Text(Layout.NextVertical);
    if (!Fits()) Changed();
}

std::string LineSheet::Refusal() const {
    if (Line.empty()) return "No line is open";
    if (const std::string fault = Paper.Fault(); !fault.empty()) return fault;
    return All.empty() ? "Nothing is chosen for the sheet" : "";
}

bool LineSheet::May_Draw() {
    if (const std::string refusal = Refusal(); !refusal.empty()) {
        Program.Outside.Ask.Say(refusal, Program.Work.AppTitle, Icon::Warning);
        return false;
    }
    if (Fits()) return true;
    if (Layout.NextScale == 0 && Layout.NextVertical == 0) {
        Program.Outside.Ask.Say(Layout.Fault, Program.Work.AppTitle, Icon::Warning);
        return false;
    }
    if (!Program.Outside.Ask.Ask_Yes(Layout.Fault + ". Take it ?", Program.Work.AppTitle, Icon::Warning))
        return false;
    Take_Fitting();
    return Fits();
}

std::string LineSheet::File_Name() const {
    return Program.Work.Project.ProjectName + "_sheet";
}

std::string LineSheet::Line_Text() const {
    if (Line.empty()) return "No line is open";
    return Name_Of(Line) + (Unsaved ? " with changes that are not saved" : "");
}

std::string LineSheet::Folder() const {
    return Folder_Of(Line);
}

std::optional<LinePanel> LineSheet::Profile_Panel() {
    Workspace& work = Program.Work;
    const auto source = static_cast<SectionSource>(Source);
    ProfileView& view = work.Profile;
    view = {};
    view.DrawnMode = Mode_Of(source);
    // The elevations of the line; a line that is only looked at gets no slope correction.
    work.Curves.FrameDrawn = 2;
    Give_Profile_Elevations(work, Program.Outside, {});
    const ProfilePlaces places = Places_Of_Profile(work);
    const double lowest = Deepest_Arc(work, source);
    const double bottom = std::clamp(profile_step * std::floor((lowest - 1) / profile_step), 0.0,
                                     profile_height - 2 * profile_step);
    // The window begins at the lower edge of what there is.
    view.ExactWindow = true;
    view.ZoomY = profile_height / (profile_height - bottom);
    view.Up = bottom * view.ZoomY;
    LinePanel panel;
    panel.Layout = Profile_Layout();
    panel.Before = panel.Behind = profile_rim / profile_line * work.Project.LineLength;
    panel.Height = (profile_height - bottom) / (places.VerticalScale * places.VerticalFactor);
    return panel;
}

std::optional<LinePanel> LineSheet::Section_Panel() {
    Workspace& work = Program.Work;
    work.Section.Source = static_cast<SectionSource>(Source);
    work.Section.Enlarged.reset();
    const std::string reason = Make_Section_Unasked(work, Program.Outside, Fitting_Elevations(work));
    if (!work.Section.Grid) {
        Missing.push_back("Without the section: " + reason);
        return std::nullopt;
    }
    // The grid reaches from ten to ten; empty paper above and below is worth a larger scale.
    SectionWindow window = Whole_Section(work);
    ReportChoices interfaces;
    interfaces.Source = work.Section.Source;
    interfaces.Shape = InterfaceShape::Joined;
    const SectionWindow extent = Report_Extent(work.Project, Models_Of(work.Project, interfaces));
    const double room = std::max(1.0, least_below * (extent.Top - extent.Bottom));
    window.Top = std::min(window.Top, std::ceil(extent.Top) + 1);
    window.Bottom = std::max(window.Bottom, std::floor(extent.Bottom - room));
    work.Section.Enlarged = window;
    LinePanel panel;
    panel.Layout = Section_Layout();
    panel.Room = section_room;
    panel.Height = window.Top - window.Bottom;
    return panel;
}

void LineSheet::Add_Panels(LineLayoutWish& wish, std::vector<Panel>& panels) {
    const auto add = [&](Panel what, const std::optional<LinePanel>& panel) {
        if (!panel) return;
        panels.push_back(what);
        wish.Panels.push_back(*panel);
    };
    const auto source = static_cast<SectionSource>(Source);
    const bool depths = Has_Depths(Program.Work.Project, source);
    if (WithCurves) add(Panel::Curves, LinePanel{.Layout = Curves_Layout()});
    if ((WithProfile || WithSection) && !depths) {
        const std::string left_out = WithProfile && WithSection ? "profile and section"
                                     : WithProfile              ? "the profile"
                                                                : "the section";
        Missing.push_back("Without " + left_out + ": the line has no depths " + Depths_Of(source) + " yet");
        return;
    }
    try {
        if (WithProfile) add(Panel::Profile, Profile_Panel());
    } catch (const Fault& fault) {
        Missing.push_back(std::string("Without the profile: ") + fault.what());
    }
    if (WithSection) add(Panel::Section, Section_Panel());
}

void LineSheet::Lay_Out() {
    All.clear();
    Missing.clear();
    Layout = {};
    Outcome.clear();
    if (Line.empty() || !Paper.Fault().empty()) {
        Outcome = Refusal();
        return;
    }
    const Workspace& work = Program.Work;
    LineLayoutWish wish;
    std::vector<Panel> panels;
    Add_Panels(wish, panels);
    if (panels.empty()) {
        Outcome = Missing.empty() ? Refusal() : Missing.front();
        return;
    }
    wish.Width = Paper.Width();
    wish.Height = Paper.Height();
    const double notes = note_height * static_cast<double>(Missing.size());
    wish.BlockHeight += notes;
    wish.LineLength = work.Project.LineLength;
    wish.UnitMillimetres = work.Settings.Metric() ? metre : foot;
    wish.Scale = Scale_Asked(Scale);
    wish.VerticalScale = Scale_Asked(VerticalScale);
    Layout = Lay_Out_Line(wish);

    Sheet sheet{wish.Width, wish.Height, {}};
    for (std::size_t index = 0; index < panels.size(); ++index)
        sheet.Parts.push_back(Part_Of(panels[index], Layout.Windows[index]));
    SheetArea block = Layout.Block;
    if (notes > 0) {
        sheet.Parts.push_back({{block.Left, block.Top, block.Width, notes},
                               {},
                               [this](Picture& main, Picture&, Picture&) { Draw_Notes(main); }});
        block.Top += notes;
        block.Height -= notes;
    }
    sheet.Parts.push_back({block, {}, [this](Picture& main, Picture&, Picture&) { Draw_Block(main); }});
    All.push_back(std::move(sheet));
    Outcome = Fits() ? "Horizontal " + Scale_Text(Layout.Scale) + ", vertical " +
                           Scale_Text(Layout.Vertical_Scale()) + ", exaggeration " +
                           Format(Layout.Exaggeration, "0.0#")
                     : Layout.Fault;
}

SheetPart LineSheet::Part_Of(Panel panel, const SheetArea& window) {
    const auto page = [this](Page what) {
        return [this, what](Picture& main, Picture& strip_x, Picture& strip_y) {
            Draw_Page(Program, what, {main, strip_x, strip_y, true, section_room});
        };
    };
    switch (panel) {
        case Panel::Profile:
            return {Area_Around(window, Profile_Layout()), Profile_Layout(),
                    [draw = page(Page::Profile), this](Picture& main, Picture& strip_x, Picture& strip_y) {
                        draw(main, strip_x, strip_y);
                        // The frame ends where the window does.
                        const ProfileView& view = Program.Work.Profile;
                        const double bottom = view.Up / view.ZoomY;
                        main.Line(0, bottom, profile_line + 2 * profile_rim, bottom, colours::Black);
                    }};
        case Panel::Section:
            return {Area_Around(window, Section_Layout()), Section_Layout(), page(Page::Section)};
        case Panel::Curves:
            break;
    }
    TimeHeight = window.Height;
    return {Area_Around(window, Curves_Layout()), Curves_Layout(), page(Page::Curves)};
}

std::string LineSheet::Time_Scale() const {
    if (!WithCurves || !(TimeHeight > 0)) return {};
    constexpr double centimetre = 10;
    const double each = Program.Work.Curves.TimeFactor * curve_picture_height / TimeHeight * centimetre;
    return "Times: 1 cm = " + Format(each, each < 10 ? "0.0#" : "0.0") + " ms";
}

void LineSheet::Draw_Notes(Picture& picture) {
    const Frame size = picture.Current_Frame();
    picture.Scale(0, 0, size.Width, size.Height);
    picture.Clear();
    picture.Set_Font_Size(8);
    for (std::size_t row = 0; row < Missing.size(); ++row) {
        picture.Print_At(0, size.Height * static_cast<double>(row) / static_cast<double>(Missing.size()),
                         Missing[row], colours::Red);
    }
}

void LineSheet::Draw_Block(Picture& picture) {
    picture.Clear();
    const Project& project = Program.Work.Project;
    TitleCell what;
    what.Rows.push_back({.Text = Title.empty() ? "Line " + project.ProjectName : Title, .Large = true});
    const auto labelled = [](TitleCell& cell, const char* name, const std::string& text) {
        if (!text.empty()) cell.Rows.push_back({.Text = std::string(name) + text});
    };
    labelled(what, "Client: ", Client);
    labelled(what, "Place: ", Place);
    what.Rows.push_back({.Text = "File: " + Name_Of(Line)});
    if (Unsaved) what.Rows.push_back({.Text = "With changes that are not saved", .InColour = colours::Red});

    TitleCell scales;
    scales.Rows.push_back({.Text = "Horizontal " + Scale_Text(Layout.Scale)});
    const bool heights = Layout.Windows.size() > (WithCurves ? 1U : 0U);
    if (heights) {
        scales.Rows.push_back({.Text = "Vertical " + Scale_Text(Layout.Vertical_Scale())});
        scales.Rows.push_back({.Text = "Vertical exaggeration " + Format(Layout.Exaggeration, "0.0#")});
        labelled(scales, "Depths ", Depths_Of(static_cast<SectionSource>(Source)));
    }
    labelled(scales, "", Time_Scale());

    TitleCell when;
    when.Rows.push_back(
        {.Text = "Date: " +
                 (Date.empty() ? Local_Time_Text(std::chrono::system_clock::now(), "%Y-%m-%d") : Date)});
    labelled(when, "Operator: ", Operator);
    std::vector<TitleCell> cells = {what, scales};
    if (!Remarks.empty()) {
        TitleCell remarks;
        for (const std::string& row : Broken_Text(Remarks, remark_letters)) {
            if (remarks.Rows.size() < most_remark_rows) remarks.Rows.push_back({.Text = row});
        }
        cells.push_back(remarks);
    }
    cells.push_back(when);
    if (!North.empty()) cells.push_back({{{.Text = North}}, true});
    const Frame size = picture.Current_Frame();
    const double rim = picture.Pixels_Per_Point() / 2;
    Draw_Title_Cells(picture, {rim, rim, size.Width - rim, size.Height - rim}, cells);
}

}  // namespace tarnvik
