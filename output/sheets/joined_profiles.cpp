#include "output/sheets/joined_profiles.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/fault.h"
#include "core/files.h"
#include "core/grm_file.h"
#include "core/project_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/section_report.h"

namespace tarnvik {

namespace {

constexpr double metre = 1000;  // mm
constexpr double foot = 304.8;
constexpr double most_scale = 10e6;
constexpr const char* own_places = "own";

bool Has_Depths(const Project& project, SectionSource source) {
    return !Model_Of(project, source, InterfaceShape::Joined).Interfaces.empty();
}

/// The project with the values that its GRM file holds.
std::string Read_Line(const std::string& path, Project& project) {
    const auto bytes = Read_File(path);
    if (!bytes) return "This file does not exist !";
    const ReadingReport report = Parse_Project(*bytes, project);
    if (!report.Refusal.empty()) return "no project file: " + report.Refusal;
    if (const std::string reason = Without_Report(project); !reason.empty()) return "no line in this file";
    if (const auto grm = Read_File(Grm_File_Beside(path))) {
        const GrmReading reading = Parse_Grm(*grm, project.NbReceivers);
        if (reading.Good && reading.Remark.empty()) {
            for (int row = 1; row <= GrmContent::Rows; ++row) {
                for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
                    project.GrmData(row, receiver) = reading.Content.Data(row, receiver);
            }
        }
    }
    return {};
}

}  // namespace

ReportCurve JoinedLine::Joined(const ReportCurve& curve) const {
    ReportCurve joined;
    for (const ReportPoint& point : curve)
        joined.push_back({Joined(point.X), point.Z});
    if (Reversed) std::reverse(joined.begin(), joined.end());
    return joined;
}

JoinedProfiles::JoinedProfiles(Ports& ports, const Settings& settings, std::string title)
    : Outside(ports), UserSettings(settings), AppTitle(std::move(title)) {
    Paper.Choice = 1;  // A3: several lines are long
}

void JoinedProfiles::Read(JoinedLine& line) const {
    line.Ground.clear();
    line.Model = {};
    line.Name = Name_Of(line.File);
    line.Name = line.Name.substr(0, line.Name.rfind('.'));
    Project project;
    line.Fault = Read_Line(line.File, project);
    if (!line.Fault.empty()) return;
    try {
        line.Ground = Ground_Of(project);
        line.Model = Model_Of(project, line.Source, static_cast<InterfaceShape>(Shape));
    } catch (const Fault& fault) {
        line.Fault = fault.what();
        return;
    }
    line.Begin = line.Ground.front().X;
    line.End = line.Ground.back().X;
}

void JoinedProfiles::Place_Lines() {
    double end = 0;
    for (JoinedLine& line : Lines) {
        if (!line.Fault.empty()) continue;
        line.PlaceOf = line.OwnPlace ? line.Begin : line.Offset.empty() ? end : Val(line.Offset);
        end = line.PlaceOf + line.End - line.Begin;
    }
}

void JoinedProfiles::Add(const std::vector<std::string>& files) {
    std::string refused;
    for (const std::string& file : files) {
        JoinedLine line;
        line.File = file;
        Read(line);
        if (line.Fault.empty()) {
            // What the line has depths of: the latest method first.
            Project project;
            Read_Line(file, project);
            for (const SectionSource source :
                 {SectionSource::Shots, SectionSource::Abc, SectionSource::Grm}) {
                if (Has_Depths(project, source)) line.Source = source;
            }
            Read(line);
            Lines.push_back(std::move(line));
        } else {
            refused += (refused.empty() ? "" : "\r\n") + file + ": " + line.Fault;
        }
    }
    Selected = static_cast<int>(Lines.size()) - 1;
    Show_Selected();
    Lay_Out();
    if (!refused.empty()) Outside.Ask.Say(refused, AppTitle, Icon::Warning);
}

void JoinedProfiles::Choose_Lines() {
    const std::string path = Outside.Ask.Open_File(
        {"Line for the common profile", "Tarnvik project|*.TV5|All files|*.*|", "", Folder()});
    if (!path.empty()) Add({path});
}

void JoinedProfiles::Remove() {
    if (Selected < 0 || Selected >= static_cast<int>(Lines.size())) return;
    Lines.erase(Lines.begin() + Selected);
    Selected = std::min(Selected, static_cast<int>(Lines.size()) - 1);
    Show_Selected();
    Lay_Out();
}

void JoinedProfiles::Move(int step) {
    const int to = Selected + step;
    if (Selected < 0 || to < 0 || to >= static_cast<int>(Lines.size())) return;
    std::swap(Lines[static_cast<std::size_t>(Selected)], Lines[static_cast<std::size_t>(to)]);
    Selected = to;
    Lay_Out();
}

void JoinedProfiles::Select(int line) {
    Selected = line;
    Show_Selected();
}

void JoinedProfiles::Show_Selected() {
    const bool any = Selected >= 0 && Selected < static_cast<int>(Lines.size());
    const JoinedLine line = any ? Lines[static_cast<std::size_t>(Selected)] : JoinedLine();
    Offset = line.OwnPlace ? own_places : line.Offset;
    Source = static_cast<int>(line.Source);
    Reversed = line.Reversed;
}

void JoinedProfiles::Line_Changed() {
    if (Selected < 0 || Selected >= static_cast<int>(Lines.size())) return;
    JoinedLine& line = Lines[static_cast<std::size_t>(Selected)];
    line.OwnPlace = LCase(Trim(Offset)) == own_places;
    line.Offset = line.OwnPlace || Trim(Offset).empty() ? "" : CStr(Val(Offset));
    line.Source = static_cast<SectionSource>(Source);
    line.Reversed = Reversed;
    Read(line);
    Show_Selected();
    Lay_Out();
}

void JoinedProfiles::Changed() {
    // The shape of the interfaces is that of all lines.
    for (JoinedLine& line : Lines)
        Read(line);
    Lay_Out();
}

void JoinedProfiles::Reload() {
    Changed();
}

std::string JoinedProfiles::Refusal() const {
    if (const std::string fault = Paper.Fault(); !fault.empty()) return fault;
    const bool any =
        std::any_of(Lines.begin(), Lines.end(), [](const JoinedLine& line) { return line.Fault.empty(); });
    return any ? "" : "Add the projects whose profiles are to be joined";
}

bool JoinedProfiles::May_Draw() {
    std::string reason = Refusal();
    if (reason.empty()) {
        reason = Report_Scale_Fault(
            Room(Paper.Width() * points_a_millimetre, Paper.Height() * points_a_millimetre, 1));
        return reason.empty() || Outside.Ask.Ask_Yes(reason + ". Draw it so ?", AppTitle, Icon::Warning);
    }
    Outside.Ask.Say(reason, AppTitle, Icon::Warning);
    return false;
}

std::string JoinedProfiles::Folder() const {
    if (!SetFile.empty()) return Folder_Of(SetFile);
    return Lines.empty() ? std::string() : Folder_Of(Lines.back().File);
}

std::vector<std::string> JoinedProfiles::Sources() const {
    std::vector<std::string> files;
    for (const JoinedLine& line : Lines)
        files.push_back(line.File);
    return files;
}

SectionWindow JoinedProfiles::Extent() const {
    std::optional<SectionWindow> extent;
    const auto reach = [&](const ReportPoint& point) {
        if (!extent) extent = SectionWindow{point.X, point.X, point.Z, point.Z};
        extent->Left = std::min(extent->Left, point.X);
        extent->Right = std::max(extent->Right, point.X);
        extent->Bottom = std::min(extent->Bottom, point.Z);
        extent->Top = std::max(extent->Top, point.Z);
    };
    for (const JoinedLine& line : Lines) {
        if (!line.Fault.empty()) continue;
        for (const ReportPoint& point : line.Joined(line.Ground))
            reach(point);
        for (const ReportInterface& each : line.Model.Interfaces) {
            for (const ReportCurve& run : each.Runs) {
                // Beyond the line nothing is known of the ground.
                for (const ReportPoint& point : Part_Of_Curve(run, line.Begin, line.End))
                    reach({line.Joined(point.X), point.Z});
            }
        }
    }
    SectionWindow window = extent.value_or(SectionWindow{0, 1, 0, 1});
    if (!(window.Right > window.Left)) window.Right = window.Left + 1;
    if (!LowestElevation.empty() && Val(LowestElevation) < window.Top) window.Bottom = Val(LowestElevation);
    if (!HighestElevation.empty() && Val(HighestElevation) > window.Bottom)
        window.Top = Val(HighestElevation);
    return window;
}

int JoinedProfiles::Layers() const {
    int layers = 0;
    for (const JoinedLine& line : Lines)
        layers = std::max(layers, line.Model.Layers());
    return layers;
}

ReportRoom JoinedProfiles::Room(double width, double height, double pixels_a_point) const {
    ReportRoom room;
    room.Width = width;
    room.Height = height;
    room.PixelsAPoint = pixels_a_point;
    room.UnitMillimetres = UserSettings.Metric() ? metre : foot;
    const double scale = Scale_In(Scale);
    room.Scale = scale <= most_scale ? scale : 0;
    room.Exaggeration = std::max(0.0, Val(Exaggeration));
    room.Extent = Extent();
    return room;
}

void JoinedProfiles::Lay_Out() {
    Place_Lines();
    All.clear();
    Outcome = Refusal();
    if (!Outcome.empty()) return;
    All.push_back({Paper.Width(),
                   Paper.Height(),
                   {{{0, 0, Paper.Width(), Paper.Height()}, {}, [this](Picture& main, Picture&, Picture&) {
                         Draw_Joined(*this, main);
                     }}}});
    const ReportRoom room =
        Room(Paper.Width() * points_a_millimetre, Paper.Height() * points_a_millimetre, 1);
    Outcome = Report_Scale_Fault(room);
    if (Outcome.empty()) {
        const ReportFrame frame = Lay_Out_Report(room);
        Outcome = "1:" + CStr(frame.Scale) + ", exaggeration " + Format(frame.Exaggeration, "0.0#");
    }
}

}  // namespace tarnvik
