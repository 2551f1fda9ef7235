#include "core/project_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>

#include "core/fault.h"
#include "core/files.h"
#include "core/text/item_reader.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "core/text/print_line.h"

namespace tarnvik {

namespace {

constexpr int remark_columns = 4;
constexpr int remark_text_column = 3;
constexpr std::size_t ending_length = 4;  // ".tv5"

/// The whole numbers of times, rows, shots and refractors pass through one place, which keeps the last number
/// read when the next one is missing or does not fit 32 bits.
class WholeNumbers {
  public:
    explicit WholeNumbers(ItemReader& items) : Items(items) {}

    std::int32_t Next() {
        double number = 0;
        if (Items.Number(number)) Last = CLng(number).value_or(Last);
        return Last;
    }

  private:
    ItemReader& Items;
    std::int32_t Last = 0;
};

void Read_Number(ItemReader& items, double& target) {
    items.Number(target);
}

void Read_Number(ItemReader& items, std::int16_t& target) {
    double number = 0;
    if (items.Number(number)) Store_If_It_Fits(target, number);
}

/// With wild counts the arrays stay unallocated; the numbers are then read past, as far as the file goes.
template <class Store>
void For_Each_Item(const ItemReader& items, bool allocated, int rows, int columns, Store store) {
    for (int row = 1; row <= rows; ++row) {
        for (int column = 1; column <= columns; ++column) {
            if (!allocated && items.At_End()) return;
            store(row, column);
        }
    }
}

void Read_Times_And_Receivers(ItemReader& items, WholeNumbers& numbers, Project& project) {
    const int receivers = project.NbReceivers;
    const bool allocated = project.ShotTimes.Has(0, 0);
    const auto read_into = [&](Array2<float>& array, int rows) {
        For_Each_Item(items, allocated, rows, receivers, [&](int row, int receiver) {
            const double value = numbers.Next() / static_cast<double>(file_time_scale);
            if (allocated) array(row, receiver) = static_cast<float>(value);
        });
    };
    read_into(project.ShotTimes, project.NbShots);
    read_into(project.ReceiverData, Project::FiledReceiverRows);
}

void Read_Shots(ItemReader& items, WholeNumbers& numbers, Project& project) {
    const int shots = project.NbShots;
    const bool allocated = project.ShotTimes.Has(0, 0);
    const std::array<Array1<double>*, 3> columns = {&project.ShotElevation, &project.ShotDistance,
                                                    &project.ShotDepth};
    For_Each_Item(items, allocated, shots, static_cast<int>(columns.size()), [&](int shot, int column) {
        const double value = numbers.Next() / static_cast<double>(file_time_scale);
        if (allocated) (*columns[static_cast<std::size_t>(column) - 1])(shot) = value;
    });

    For_Each_Item(items, allocated, shots, Project::MaxLayers, [&](int shot, int layer) {
        for (Array2<std::int16_t>* side : {&project.VelocityA, &project.VelocityB}) {
            std::int16_t velocity = 0;
            Read_Number(items, velocity);
            if (allocated) (*side)(shot, layer) = velocity;
        }
    });

    For_Each_Item(items, allocated, shots, Project::MaxRefractors, [&](int shot, int refractor) {
        for (Array2<double>* values :
             {&project.InterceptA, &project.InterceptB, &project.CritDistA, &project.CritDistB}) {
            const double value = numbers.Next() / file_refractor_scale;
            if (allocated) (*values)(shot, refractor) = value;
        }
        const double thickness = numbers.Next() / static_cast<double>(file_time_scale);
        if (allocated) project.ShotThickness(shot, refractor) = thickness;
    });
}

void Read_Remarks(ItemReader& items, TextGrid& grid) {
    grid.Resize(std::max(grid.Rows(), Project::RemarkLastRow + 1), std::max(grid.Columns(), remark_columns));
    std::array<double, remark_text_column> numbers{};
    std::string text;
    for (int row = Project::RemarkFirstRow; row <= Project::RemarkLastRow; ++row) {
        for (std::size_t column = 0; column < numbers.size(); ++column) {
            Read_Number(items, numbers[column]);
            grid.Set_Text(row, static_cast<int>(column), CStr(numbers[column]));
        }
        items.Text(text);
        grid.Set_Text(row, remark_text_column, From_Windows_1252(text));
    }
}

/// A cell or a path as it is filed: a line end in it would shift all that stands behind.
std::string Filed_Text(std::string_view text) {
    return To_Windows_1252(One_Line(text));
}

constexpr const char* line_end = "\r\n";

void Append_Shot_Rows(const Project& project, std::string& bytes) {
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        PrintLine line;
        for (const Array1<double>* values :
             {&project.ShotElevation, &project.ShotDistance, &project.ShotDepth}) {
            line.Item((*values)(shot)*file_time_scale);
        }
        bytes += line.End();
    }
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int layer = 1; layer <= Project::MaxLayers; ++layer) {
            bytes +=
                PrintLine().Item(project.VelocityA(shot, layer)).Item(project.VelocityB(shot, layer)).End();
        }
    }
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int refractor = 1; refractor <= Project::MaxRefractors; ++refractor) {
            PrintLine line;
            for (const Array2<double>* values :
                 {&project.InterceptA, &project.InterceptB, &project.CritDistA, &project.CritDistB}) {
                line.Item(CInt_Or_Fault((*values)(shot, refractor) * file_refractor_scale));
            }
            line.Item(CInt_Or_Fault(project.ShotThickness(shot, refractor) * file_time_scale));
            bytes += line.End();
        }
    }
}

}  // namespace

void Parse_Project(std::string_view bytes, Project& project) {
    ItemReader items(bytes);
    WholeNumbers numbers(items);
    Read_Number(items, project.NbShots);
    Read_Number(items, project.LineLength);
    Read_Number(items, project.NbReceivers);
    Redimension_Project(project);
    Read_Times_And_Receivers(items, numbers, project);
    Read_Shots(items, numbers, project);
    std::string su_file;
    if (items.Line(su_file)) project.SuFile = From_Windows_1252(su_file);
    Read_Remarks(items, project.remark_grid);
    Read_Number(items, project.TotalTime);
    project.TotalTime -= 1;
    Read_Number(items, project.DistanceShift);
}

std::optional<OversizedValue> Find_Oversized_Value(const Project& project) {
    const struct {
        const char* Name;
        const Array2<double>& Values;
        double Scale;
    } tables[] = {
        {"intercept time A", project.InterceptA, file_refractor_scale},
        {"intercept time B", project.InterceptB, file_refractor_scale},
        {"critical distance A", project.CritDistA, file_refractor_scale},
        {"critical distance B", project.CritDistB, file_refractor_scale},
        {"thickness", project.ShotThickness, file_time_scale},
    };
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer) {
            for (const auto& table : tables) {
                if (!table.Values.Has(shot, layer)) continue;
                const double value = table.Values(shot, layer);
                if (CInt(value * table.Scale)) continue;
                return OversizedValue{table.Name, shot, layer, value,
                                      std::numeric_limits<std::int16_t>::max() / table.Scale};
            }
        }
    }
    return std::nullopt;
}

namespace {

/// Blocks 1 to 8: everything in front of the total time.
std::string Bytes_Before_Total_Time(const Project& project) {
    if (!project.ShotTimes.Has(0, 0)) throw Fault("the project is not allocated");
    std::string bytes = PrintLine()
                            .Item(project.NbShots)
                            .Zone()
                            .Item(project.LineLength)
                            .Zone()
                            .Item(project.NbReceivers)
                            .End();
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        PrintLine line;
        // The product is taken in single precision: in double, half of all times with two decimals would
        // lie just below their hundredth and lose it here.
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            line.Item(std::floor(project.ShotTimes(shot, receiver) * file_time_scale));
        }
        bytes += line.End();
    }
    for (int row = 1; row <= Project::FiledReceiverRows; ++row) {
        PrintLine line;
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            line.Item(project.ReceiverData(row, receiver) * file_time_scale);
        }
        bytes += line.End();
    }
    Append_Shot_Rows(project, bytes);
    bytes += Filed_Text(project.SuFile) + line_end;
    for (int row = Project::RemarkFirstRow; row <= Project::RemarkLastRow; ++row) {
        PrintLine line;
        for (int column = 0; column < remark_text_column; ++column) {
            line.Item(project.remark_grid.Value(row, column)).Zone();
        }
        bytes += line.Raw(Filed_Text(project.remark_grid.Text(row, remark_text_column))).End();
    }
    return bytes;
}

}  // namespace

std::string Project_Bytes(const Project& project) {
    return Bytes_Before_Total_Time(project) + PrintLine().Item(project.TotalTime + 1).End() +
           PrintLine().Item(project.DistanceShift).End();
}

std::size_t Project_Fingerprint(const Project& project) {
    if (!project.ShotTimes.Has(0, 0) || Find_Oversized_Value(project)) return 0;
    return std::hash<std::string>()(Bytes_Before_Total_Time(project) + Print_Number(project.DistanceShift));
}

void Split_Project_Path(Project& project, const std::string& path) {
    if (path.empty()) return;
    const std::string name = Name_Of(path);
    project.ProjectDir = Folder_Of(path);
    project.ProjectName = name.substr(0, name.size() - std::min(name.size(), ending_length));
}

}  // namespace tarnvik
