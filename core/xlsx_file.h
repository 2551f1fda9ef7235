#pragma once

#include <string>
#include <variant>
#include <vector>

namespace tarnvik {

/// A cell of a spreadsheet: empty, a number, or a text (never a formula).
using XlsxCell = std::variant<std::monostate, double, std::string>;

/// A spreadsheet of one sheet: a line of headings, which stays in sight, and the rows under it.
struct XlsxSheet {
    std::string Name;   ///< of the sheet, up to 31 letters, none of []:*?/\ among them
    std::string Title;  ///< of the document
    std::vector<std::string> Headings;
    std::vector<std::vector<XlsxCell>> Rows;
};

/// Writes an Office Open XML workbook (".xlsx"), as Replace_File writes: a file that stands there is replaced
/// whole or stays. Answers the reason of a failure, empty when it went well.
std::string Write_Xlsx(const std::string& path, const XlsxSheet& sheet);

}  // namespace tarnvik
