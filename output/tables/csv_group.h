#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnvik {

/// A table of results as a text file holds it, fields separated by semicolons (or tabs, or by commas where
/// no semicolon stands), the headings in the first line.
struct CsvTable {
    std::string Path;
    std::vector<std::string> Headings;
    std::vector<std::vector<std::string>> Rows;  ///< each as long as Headings
    /// The last column holds the line's name in each row, and as its heading: as the delay results have it.
    bool NamesLine = false;
    std::vector<std::string>
        Faults;  ///< what is wrong, with the number of the line; such a table is not used
};

/// Reads a table from the bytes of a file (Windows-1252 or UTF-8). Empty lines are passed over; blanks around
/// a field do not count.
CsvTable Read_Csv_Table(const std::string& path, std::string_view bytes);

/// How tables become one.
struct CsvGroupRequest {
    bool LineColumn = true;    ///< a last column "Line": the line's name, or the file's where it has none
    bool FillMissing = false;  ///< a column that a table lacks stays empty there; otherwise that is a refusal
};

/// Several tables as one: the columns of the first, those of the others by their names, wherever they stand.
struct CsvGroup {
    std::vector<std::string> Headings;
    std::vector<std::vector<std::string>> Rows;
    std::string Refusal;             ///< which file does not go with the others, and why
    std::vector<std::string> Notes;  ///< what the user should know
};
CsvGroup Group_Tables(const std::vector<CsvTable>& tables, const CsvGroupRequest& request);

/// Writes the group, as a workbook where the name ends in ".xlsx", else as text with semicolons. Answers the
/// reason of a failure, empty when it went well.
std::string Write_Csv_Group(const std::string& path, const CsvGroup& group);

}  // namespace tarnvik
