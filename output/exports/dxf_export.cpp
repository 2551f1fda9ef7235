#include "output/exports/dxf_export.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "depth/shot_velocities.h"
#include "output/exports/export_values.h"

namespace tarnvik {

namespace {

struct DxfPoint {
    double X = 0;
    double Y = 0;
};
using Stretch = std::vector<DxfPoint>;

/// Colours of the layers by the numbers that drawing programs give them.
enum DxfColour : int { Red = 1, Yellow = 2, Green = 3, Blue = 5, White = 7, Grey = 8 };

/// The drawing in the making: pairs of a group code and a value, a line each, and the layers met.
class DxfDrawing {
  public:
    void Polyline(const std::string& layer, int colour, const Stretch& points) {
        if (points.size() < 2) {
            for (const DxfPoint& point : points)
                Point(layer, colour, point);
            return;
        }
        Begin("POLYLINE", layer, colour);
        Pair(66, "1");
        At({0, 0});
        Pair(70, "0");
        for (const DxfPoint& point : points) {
            Begin("VERTEX", layer, colour);
            At(point);
            Meet(point);
        }
        Begin("SEQEND", layer, colour);
    }
    void Point(const std::string& layer, int colour, DxfPoint point) {
        Begin("POINT", layer, colour);
        At(point);
        Meet(point);
    }
    void Text(const std::string& layer, int colour, DxfPoint point, double height, const std::string& text) {
        Begin("TEXT", layer, colour);
        At(point);
        Pair(40, Number(height));
        Pair(1, One_Line(text));
        Meet(point);
    }
    /// The whole file: header, layers, entities.
    std::string Finished() const {
        DxfDrawing file;
        file.Section("HEADER");
        file.Pair(9, "$ACADVER");
        file.Pair(1, "AC1009");
        file.Pair(9, "$DWGCODEPAGE");
        file.Pair(3, "ANSI_1252");
        file.Pair(9, "$EXTMIN");
        file.At(Lowest);
        file.Pair(9, "$EXTMAX");
        file.At(Highest);
        file.Pair(0, "ENDSEC");
        file.Section("TABLES");
        file.Table("LTYPE", 1);
        file.Pair(0, "LTYPE");
        file.Pair(2, "CONTINUOUS");
        file.Pair(70, "0");
        file.Pair(3, "Solid line");
        file.Pair(72, "65");
        file.Pair(73, "0");
        file.Pair(40, "0.0");
        file.Pair(0, "ENDTAB");
        file.Table("LAYER", static_cast<int>(Layers.size()));
        for (const auto& [name, colour] : Layers) {
            file.Pair(0, "LAYER");
            file.Pair(2, name);
            file.Pair(70, "0");
            file.Pair(62, CStr(colour));
            file.Pair(6, "CONTINUOUS");
        }
        file.Pair(0, "ENDTAB");
        file.Pair(0, "ENDSEC");
        file.Section("ENTITIES");
        file.Pairs += Pairs;
        file.Pair(0, "ENDSEC");
        file.Pair(0, "EOF");
        return file.Pairs;
    }

  private:
    static std::string Number(double value) { return Format(value, "0.000"); }
    void Pair(int code, std::string_view value) {
        Pairs += CStr(code) + "\r\n";
        Pairs += value;
        Pairs += "\r\n";
    }
    void At(DxfPoint point) {
        Pair(10, Number(point.X));
        Pair(20, Number(point.Y));
        Pair(30, "0.0");
    }
    void Section(std::string_view name) {
        Pair(0, "SECTION");
        Pair(2, name);
    }
    void Table(std::string_view name, int entries) {
        Pair(0, "TABLE");
        Pair(2, name);
        Pair(70, CStr(entries));
    }
    void Begin(std::string_view entity, const std::string& layer, int colour) {
        const auto same = [&layer](const auto& known) { return known.first == layer; };
        if (std::none_of(Layers.begin(), Layers.end(), same)) Layers.emplace_back(layer, colour);
        Pair(0, entity);
        Pair(8, layer);
    }
    void Meet(DxfPoint point) {
        if (!Met) Lowest = Highest = point;
        Met = true;
        Lowest = {std::min(Lowest.X, point.X), std::min(Lowest.Y, point.Y)};
        Highest = {std::max(Highest.X, point.X), std::max(Highest.Y, point.Y)};
    }

    std::string Pairs;
    std::vector<std::pair<std::string, int>> Layers;
    DxfPoint Lowest;
    DxfPoint Highest;
    bool Met = false;
};

/// The shots on the line, by their distance.
std::vector<int> Shots_Along_Line(const Project& project) {
    std::vector<int> shots;
    for (int shot = 1; shot <= project.NbShots; ++shot)
        if (!Is_Offset_Shot(project, shot)) shots.push_back(shot);
    std::stable_sort(shots.begin(), shots.end(), [&project](int one, int other) {
        return project.ShotDistance(one) < project.ShotDistance(other);
    });
    return shots;
}

/// The ground through shots and receivers.
Stretch Ground(const Project& project, const std::vector<int>& shots) {
    Stretch ground;
    for (const int shot : shots)
        ground.push_back({project.ShotDistance(shot), project.ShotElevation(shot)});
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        ground.push_back({Receiver_Distance(project, receiver), Receiver_Elevation(project, receiver)});
    std::stable_sort(ground.begin(), ground.end(),
                     [](const DxfPoint& one, const DxfPoint& other) { return one.X < other.X; });
    return ground;
}

/// The interfaces below the shots with their velocities, down to the first thickness of 0 of each.
void Draw_Shot_Interfaces(DxfDrawing& drawing, const Project& project, const std::vector<int>& shots,
                          double letters, const std::string& unit, ExportReport& report) {
    std::array<Stretch, Project::MaxRefractors + 1> interfaces;
    for (const int shot : shots) {
        int count = 0;
        std::array<double, 6> velocities{};
        Shot_Velocities(project, shot, count, velocities);
        double depth = 0;
        for (std::size_t layer = 1; layer <= Project::MaxRefractors; ++layer) {
            const double thickness = project.ShotThickness(shot, static_cast<int>(layer));
            if (thickness <= 0) break;
            const DxfPoint middle{project.ShotDistance(shot) + letters / 2,
                                  project.ShotElevation(shot) - depth - (thickness + letters) / 2};
            if (velocities[layer] > 0)
                drawing.Text("LABELS", White, middle, letters, CStr(Int(velocities[layer])) + unit);
            depth += thickness;
            interfaces[layer].push_back({project.ShotDistance(shot), project.ShotElevation(shot) - depth});
            if (velocities[layer + 1] > 0) {
                // The next layer says its own velocity when its thickness is known; the deepest here.
                const bool deepest = layer == Project::MaxRefractors ||
                                     project.ShotThickness(shot, static_cast<int>(layer) + 1) <= 0;
                if (deepest) {
                    drawing.Text("LABELS", White,
                                 {middle.X, project.ShotElevation(shot) - depth - 1.5 * letters}, letters,
                                 CStr(Int(velocities[layer + 1])) + unit);
                }
            }
        }
        if (depth == 0) report.LeftOut.push_back("Shot " + CStr(shot) + ": no depth is known below it");
    }
    for (std::size_t layer = 1; layer <= Project::MaxRefractors; ++layer) {
        if (!interfaces[layer].empty())
            drawing.Polyline("SHOT_INTERFACE_" + CStr(static_cast<int>(layer)), Red, interfaces[layer]);
    }
}

/// An interface below the receivers, a new stretch behind each receiver without a depth.
void Draw_Receiver_Interface(DxfDrawing& drawing, const Project& project, const std::string& layer,
                             int colour, const std::function<double(int)>& depth_below) {
    Stretch stretch;
    const auto end_stretch = [&] {
        if (!stretch.empty()) drawing.Polyline(layer, colour, stretch);
        stretch.clear();
    };
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const double depth = depth_below(receiver);
        if (depth > 0) {
            stretch.push_back(
                {Receiver_Distance(project, receiver), Receiver_Elevation(project, receiver) - depth});
        } else {
            end_stretch();
        }
    }
    end_stretch();
}

/// The user's labels, put where he wants them on the section.
void Draw_Remarks(DxfDrawing& drawing, const TextGrid& remarks, double letters) {
    for (int row = Project::RemarkFirstRow; row <= Project::RemarkLastRow; ++row) {
        const std::string& text = remarks.Text(row, 3);
        if (Trim(text).empty()) continue;
        drawing.Text("LABELS", White, {remarks.Value(row, 0), remarks.Value(row, 1) + remarks.Value(row, 2)},
                     letters, text);
    }
}

}  // namespace

std::string Dxf_Text(const Project& project, bool metric, ExportReport& report) {
    const std::vector<int> shots = Shots_Along_Line(project);
    const Stretch ground = Ground(project, shots);
    const double length = ground.empty() ? 0 : ground.back().X - ground.front().X;
    const double letters = length > 0 ? length / 120 : 1;
    report.Shots = static_cast<int>(shots.size());
    report.Receivers = project.NbReceivers;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        if (Is_Offset_Shot(project, shot))
            report.LeftOut.push_back("Shot " + CStr(shot) + ": it is an offset shot");
    }
    DxfDrawing drawing;
    drawing.Polyline("GROUND", Green, ground);
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        drawing.Point("RECEIVERS", Yellow,
                      {Receiver_Distance(project, receiver), Receiver_Elevation(project, receiver)});
    }
    for (const int shot : shots) {
        drawing.Point("SHOTS", Red, {project.ShotDistance(shot), Source_Elevation(project, shot)});
        drawing.Text("LABELS", White, {project.ShotDistance(shot), project.ShotElevation(shot) + letters},
                     letters, "Shot " + CStr(shot));
    }
    Draw_Shot_Interfaces(drawing, project, shots, letters, metric ? " m/s" : " f/s", report);
    const std::array<std::pair<const char*, int>, 3> rows = {{{"ABC_INTERFACE_1", ReceiverDepth1},
                                                              {"ABC_INTERFACE_2", ReceiverDepth2},
                                                              {"ABC_BEDROCK", ReceiverRockDepth}}};
    for (const auto& [layer, row] : rows) {
        Draw_Receiver_Interface(drawing, project, layer, Blue, [&project, row = row](int receiver) {
            return Plain(project.ReceiverData(row, receiver));
        });
    }
    if (project.GrmData.Has(9, project.NbReceivers)) {
        Draw_Receiver_Interface(drawing, project, "GRM_BEDROCK", Grey,
                                [&project](int receiver) { return project.GrmData(9, receiver); });
    }
    Draw_Remarks(drawing, project.remark_grid, letters);
    return drawing.Finished();
}

ExportReport Export_Dxf(Ports& ports, const ExportSource& source) {
    bool metric = true;
    ExportSource asked = source;
    asked.Choose = [&] {
        Workspace* work = source.Choose();
        if (work != nullptr) metric = work->Settings.Metric();
        return work;
    };
    return Export_One_File(ports, asked, ".dxf", [&metric](const Project& project, ExportReport& report) {
        return Dxf_Text(project, metric, report);
    });
}

}  // namespace tarnvik
