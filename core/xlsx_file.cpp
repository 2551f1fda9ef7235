#include "core/xlsx_file.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "core/files.h"

namespace tarnvik {

namespace {

constexpr double letter_margin = 2;  ///< of a column's width, letters

/// First error of a run of calls.
class Outcome {
  public:
    void operator()(lxw_error error) {
        if (First == LXW_NO_ERROR) First = error;
    }
    lxw_error First = LXW_NO_ERROR;
};

void Write_Cell(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, const XlsxCell& cell, Outcome& note) {
    if (const auto* number = std::get_if<double>(&cell)) {
        note(worksheet_write_number(sheet, row, column, *number, nullptr));
    } else if (const auto* text = std::get_if<std::string>(&cell)) {
        note(worksheet_write_string(sheet, row, column, text->c_str(), nullptr));
    }
}

void Fill(lxw_workbook* book, lxw_worksheet* page, const XlsxSheet& sheet, Outcome& note) {
    lxw_format* bold = workbook_add_format(book);
    format_set_bold(bold);
    lxw_col_t column = 0;
    for (const std::string& heading : sheet.Headings) {
        note(worksheet_set_column(
            page, column, column,
            std::max<double>(LXW_DEF_COL_WIDTH, static_cast<double>(heading.size()) + letter_margin),
            nullptr));
        note(worksheet_write_string(page, 0, column++, heading.c_str(), bold));
    }
    lxw_row_t row = 1;
    for (const auto& cells : sheet.Rows) {
        column = 0;
        for (const XlsxCell& cell : cells)
            Write_Cell(page, row, column++, cell, note);
        ++row;
    }
    worksheet_freeze_panes(page, 1, 0);
    worksheet_repeat_rows(page, 0, 0);
}

}  // namespace

std::string Write_Xlsx(const std::string& path, const XlsxSheet& sheet) {
    // The library writes by name only, and tells why it cannot on the terminal alone.
    const std::string beside = path + ".xlsx.new";
    std::FILE* probe = std::fopen(beside.c_str(), "wb");
    if (probe == nullptr) return std::strerror(errno);
    std::fclose(probe);
    lxw_workbook* book = workbook_new(beside.c_str());
    if (book == nullptr) return "no memory";
    Outcome note;
    if (lxw_worksheet* page = workbook_add_worksheet(book, sheet.Name.c_str())) {
        std::string title = sheet.Title;
        std::string maker = "Tarnvik";
        lxw_doc_properties properties{};
        properties.title = title.data();
        properties.author = maker.data();
        note(workbook_set_properties(book, &properties));
        Fill(book, page, sheet, note);
    } else {
        note(LXW_ERROR_INVALID_SHEETNAME_CHARACTER);
    }
    note(workbook_close(book));
    std::string reason;
    if (note.First != LXW_NO_ERROR) {
        reason = lxw_strerror(note.First);
    } else if (const auto bytes = Read_File(beside)) {
        reason = Replace_File(path, *bytes);
    } else {
        reason = "the workbook cannot be read back";
    }
    std::error_code ignored;
    std::filesystem::remove(beside, ignored);
    return reason;
}

}  // namespace tarnvik
