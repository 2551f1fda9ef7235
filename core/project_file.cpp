#include "core/project_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
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

bool Allocated(const Project& project) {
    return project.ShotTimes.Has(0, 0);
}

void Read_Rows(ItemReader& items, WholeNumbers& numbers, const Project& project, Array2<float>& array,
               int rows) {
    const bool allocated = Allocated(project);
    For_Each_Item(items, allocated, rows, project.NbReceivers, [&](int row, int receiver) {
        const double value = numbers.Next() / static_cast<double>(file_time_scale);
        if (allocated) array(row, receiver) = static_cast<float>(value);
    });
}

void Read_Times(ItemReader& items, WholeNumbers& numbers, Project& project) {
    Read_Rows(items, numbers, project, project.ShotTimes, project.NbShots);
}

void Read_Receivers(ItemReader& items, WholeNumbers& numbers, Project& project) {
    Read_Rows(items, numbers, project, project.ReceiverData, Project::FiledReceiverRows);
}

void Read_Places(ItemReader& items, WholeNumbers& numbers, Project& project) {
    const bool allocated = Allocated(project);
    const std::array<Array1<double>*, 3> columns = {&project.ShotElevation, &project.ShotDistance,
                                                    &project.ShotDepth};
    For_Each_Item(items, allocated, project.NbShots, static_cast<int>(columns.size()),
                  [&](int shot, int column) {
                      const double value = numbers.Next() / static_cast<double>(file_time_scale);
                      if (allocated) (*columns[static_cast<std::size_t>(column) - 1])(shot) = value;
                  });
}

void Read_Velocities(ItemReader& items, Project& project) {
    const bool allocated = Allocated(project);
    For_Each_Item(items, allocated, project.NbShots, Project::MaxLayers, [&](int shot, int layer) {
        for (Array2<std::int16_t>* side : {&project.VelocityA, &project.VelocityB}) {
            std::int16_t velocity = 0;
            Read_Number(items, velocity);
            if (allocated) (*side)(shot, layer) = velocity;
        }
    });
}

void Read_Refractors(ItemReader& items, WholeNumbers& numbers, Project& project) {
    const bool allocated = Allocated(project);
    For_Each_Item(items, allocated, project.NbShots, Project::MaxRefractors, [&](int shot, int refractor) {
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

namespace {

// Lines up to this size are read however much of their file is missing; larger counts must have a file that
// can hold their times, two bytes each.
constexpr int most_shots_of_cut_file = Project::MaxShots;
constexpr int most_receivers_of_cut_file = 1000;

constexpr int remarks_block = 8;
constexpr std::array<const char*, 10> block_names = {
    "the counts", "the picks",   "the receivers", "the shots",      "the velocities",
    "the depths", "the SU file", "the remarks",   "the total time", "the distance shift"};

bool Has_Bytes_Of_No_Text(std::string_view bytes) {
    return std::any_of(bytes.begin(), bytes.end(), [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return code < 32 && letter != '\t' && letter != '\r' && letter != '\n';
    });
}

/// Watches how far the file goes, block by block.
class BlockWatch {
  public:
    explicit BlockWatch(const ItemReader& items) : Items(items) {}

    void Block_Is_Read() {
        ++Block;
        if (FirstCut == 0 && !Items.All_There()) FirstCut = Block;
        if (FirstWord == 0 && !Items.No_Words()) FirstWord = Block;
    }
    std::string Missing() const {
        std::string text;
        if (FirstCut == 1) text = "The file ends within block 1 of 10 (the counts).";
        if (FirstCut > 1) {
            text = "The file ends after block " + CStr(FirstCut - 1) + " of 10 (" + Name(FirstCut - 1) +
                   "): missing in whole or in part are " + Name(FirstCut) +
                   (FirstCut < 10 ? " and what follows." : ".");
        }
        if (FirstWord > 0) {
            if (!text.empty()) text += "\r\n";
            text += "There are words where numbers should stand, first in block " + CStr(FirstWord) + " (" +
                    Name(FirstWord) + ").";
            if (FirstWord == remarks_block) text += " A comma in a remark ends it and shifts what follows.";
        }
        return text;
    }

  private:
    static std::string Name(int block) { return block_names[static_cast<std::size_t>(block) - 1]; }
    const ItemReader& Items;
    int Block = 0;
    int FirstCut = 0;
    int FirstWord = 0;
};

/// Why the counts are none; empty when they are.
std::string Refusal_Of_Counts(const Project& project, bool number_read, std::size_t bytes) {
    if (!number_read) return "it does not begin with the number of shots";
    if (project.NbShots < 0 || project.NbReceivers < 0) return "its number of shots or receivers is below 0";
    const std::int64_t picks = std::int64_t{project.NbShots} * project.NbReceivers;
    const bool large =
        project.NbShots > most_shots_of_cut_file || project.NbReceivers > most_receivers_of_cut_file;
    if (picks > max_picks || (large && 2 * picks > static_cast<std::int64_t>(bytes))) {
        return "it tells of " + CStr(int{project.NbShots}) + " shots and " + CStr(int{project.NbReceivers}) +
               " receivers, more than a file of its length can hold";
    }
    return {};
}

}  // namespace

std::string No_Project_Text(const std::string& path, const ReadingReport& report) {
    return path + " is no project file: " + report.Refusal + ".";
}

ReadingReport Parse_Project(std::string_view bytes, Project& project) {
    ReadingReport report;
    if (Has_Bytes_Of_No_Text(bytes)) report.Refusal = "it holds bytes that stand in no text";
    ItemReader items(bytes);
    BlockWatch watch(items);
    WholeNumbers numbers(items);
    Read_Number(items, project.NbShots);
    const bool begins_with_number = items.All_There() && items.No_Words();
    Read_Number(items, project.LineLength);
    Read_Number(items, project.NbReceivers);
    watch.Block_Is_Read();
    const std::string refusal = Refusal_Of_Counts(project, begins_with_number, bytes.size());
    if (report.Refusal.empty()) report.Refusal = refusal;
    if (begins_with_number && !refusal.empty()) {
        project.NbShots = 0;
        project.NbReceivers = 0;
    }
    Redimension_Project(project);
    Read_Times(items, numbers, project);
    watch.Block_Is_Read();
    Read_Receivers(items, numbers, project);
    watch.Block_Is_Read();
    Read_Places(items, numbers, project);
    watch.Block_Is_Read();
    Read_Velocities(items, project);
    watch.Block_Is_Read();
    Read_Refractors(items, numbers, project);
    watch.Block_Is_Read();
    std::string su_file;
    if (items.Line(su_file)) project.SuFile = From_Windows_1252(su_file);
    watch.Block_Is_Read();
    Read_Remarks(items, project.remark_grid);
    watch.Block_Is_Read();
    Read_Number(items, project.TotalTime);
    project.TotalTime -= 1;
    watch.Block_Is_Read();
    Read_Number(items, project.DistanceShift);
    watch.Block_Is_Read();
    report.Missing = watch.Missing();
    return report;
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

std::string Project_Bytes(const Project& project) {
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
    return bytes + PrintLine().Item(project.TotalTime + 1).End() +
           PrintLine().Item(project.DistanceShift).End();
}

void Split_Project_Path(Project& project, const std::string& path) {
    if (path.empty()) return;
    const std::string name = Name_Of(path);
    project.ProjectDir = Folder_Of(path);
    project.ProjectName = name.substr(0, name.size() - std::min(name.size(), ending_length));
}

}  // namespace tarnvik
