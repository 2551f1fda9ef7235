#include "processing/header_spreadsheet.h"

#include <algorithm>
#include <cmath>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "core/xlsx_file.h"
#include "processing/header_reader.h"

namespace tarnvik {

namespace {

constexpr std::int64_t sheet_rows = 1048576;  ///< of a workbook, the line of headings among them
constexpr std::int64_t told_after = 1000;     ///< traces

// The list of the columns differs from the list of words in two places, as users' sheets have it.
constexpr int vertically_summed = 9;
constexpr int horizontally_stacked = 10;

XlsxCell Cell_Of(double value) {
    if (std::isfinite(value)) return value;
    return std::isnan(value) ? std::string("NaN") : std::string(value < 0 ? "-inf" : "inf");
}

std::string Text_Of(const XlsxCell& cell) {
    const auto* number = std::get_if<double>(&cell);
    return number != nullptr ? CStr(*number) : std::get<std::string>(cell);
}

}  // namespace

std::string Spreadsheet_Heading(int word) {
    if (word == vertically_summed) return "Number of vertically summed traces";
    if (word == horizontally_stacked) return "Number of horizontally stacked";
    return Header_Word(word).Label;
}

std::string Write_Header_Spreadsheet(const std::string& su_file, const HeaderTable& table,
                                     const std::string& target, const TraceProgress& progress) {
    HeaderReader headers(su_file);
    if (!headers.Is_Open()) return headers.Reason();
    const std::int64_t last = std::min(table.Last, headers.Nb_Traces());
    const std::int64_t count = last - table.First + 1;
    if (table.First < 1 || count < 1) return "no trace to write";
    const bool csv = LCase(Right(target, 4)) == ".csv";
    if (!csv && count >= sheet_rows)
        return "a sheet holds no more than " + CStr(static_cast<double>(sheet_rows - 1)) +
               " traces; take a CSV file";

    const auto row_of = [&](std::int64_t trace) {
        std::vector<XlsxCell> row{static_cast<double>(trace)};
        for (const int word : table.Words)
            row.push_back(Cell_Of(headers.Word(word)));
        return row;
    };
    const auto stopped = [&](std::int64_t trace) {
        const std::int64_t done = trace - table.First + 1;
        return progress && (done % told_after == 0 || trace == last) && !progress(done, count);
    };
    std::vector<std::string> headings{"Trace Nb"};
    for (const int word : table.Words)
        headings.push_back(Spreadsheet_Heading(word));

    if (!csv) {
        XlsxSheet sheet{"Headers", Name_Of(su_file), std::move(headings), {}};
        sheet.Rows.reserve(static_cast<std::size_t>(count));
        for (std::int64_t trace = table.First; trace <= last && headers.Take(trace); ++trace) {
            sheet.Rows.push_back(row_of(trace));
            if (stopped(trace)) return "Stopped";
        }
        return Write_Xlsx(target, sheet);
    }
    return Replace_File_In_Pieces(target, [&](const PieceWriter& write) -> std::string {
        std::string line;
        for (const std::string& heading : headings)
            line += (line.empty() ? "" : ";") + heading;
        if (!write(To_Windows_1252(line) + "\r\n")) return {};
        for (std::int64_t trace = table.First; trace <= last && headers.Take(trace); ++trace) {
            line.clear();
            for (const XlsxCell& cell : row_of(trace))
                line += (line.empty() ? "" : ";") + Text_Of(cell);
            if (!write(line + "\r\n")) return {};
            if (stopped(trace)) return "Stopped";
        }
        return {};
    });
}

}  // namespace tarnvik
