// Cells of the grid: what is typed, pasted or cleared.

#include <algorithm>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/header_editor.h"
#include "processing/su_names.h"

namespace tarnvik {

namespace {

/// A whole number as the keys of a cell let it be typed.
bool Is_Whole_Number(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::string Header::Room_Of(int word) {
    return Header_Word(word).Type == WordType::Int16 ? "-32768 to 32767" : "-2147483648 to 2147483647";
}

bool Header::Takes_Integer_Into_Float(int column) {
    return column >= 1 && column <= header_words && Header_Word(column).Type == WordType::Float32;
}

std::string Header::Word_Described(int column) const {
    if (column < 1 || column > header_words) return {};
    const HeaderWord& word = Header_Word(column);
    std::string text = CStr(column) + "  " + word.Name + ": " + word.Label;
    if (Takes_Integer_Into_Float(column))
        text += "  (read as a float, but written as a whole number: 3 reads back as 4.203895E-45)";
    return text;
}

bool Header::Editable(int row, int column) const {
    return FlexArray.Has(row, column) && row >= 1 && column >= 1;
}

std::string Header::Refused_Text(int row, int column, const std::string& why) const {
    return "Trace " + FlexArray.Text(row, 0) + ", " + Header_Word(column).Name + ": " + why;
}

/// Adds what a text makes of a cell. False, with a hint, when it cannot stand there.
bool Header::Take_Text(int row, int column, std::string_view text, std::vector<NewValue>& values) {
    const std::string& shown = FlexArray.Text(row, column);
    std::string typed = Trim(text);
    // What a cell shows already stays as it is, a float with a point included.
    if (typed == shown) return true;
    if (typed.empty()) typed = "0";
    if (!Is_Whole_Number(typed)) {
        Hint = Refused_Text(row, column, "\"" + One_Line(typed) + "\" is no whole number");
        return false;
    }
    const double value = Val(typed);
    if (!Bytes_Of_Word(column, value)) {
        Hint = Refused_Text(row, column, typed + " does not fit, only " + Room_Of(column));
        return false;
    }
    if (CStr(value) != shown) values.push_back({FirstTrace + row - 1, column, value});
    return true;
}

/// All of them as one edit; false, with a hint, when the file could not be written and stays as it was.
bool Header::Write_Cells(const std::vector<NewValue>& values) {
    if (values.empty()) return true;
    const NewValue& one = values.front();
    const auto number = [](std::int64_t trace) { return CStr(static_cast<double>(trace)); };
    const std::string name =
        values.size() == 1
            ? std::string("Header word ") + Header_Word(one.Word).Name + " of trace " + number(one.Trace)
            : number(std::ssize(values)) + " header words, traces " + number(one.Trace) + " to " +
                  number(values.back().Trace);
    SuWriter file(Texth1, &Work.Edits);
    EditScope edit(Work, Edit_Name_Of(Work, name, Texth1));
    bool written = file.Is_Open();
    for (std::size_t i = 0; written && i < values.size();) {
        const std::int64_t trace = values[i].Trace;
        TraceHeader before;
        written = file.Read_Header(trace, before);
        TraceHeader after = before;
        for (; i < values.size() && values[i].Trace == trace; ++i)
            after.Set_Word(values[i].Word, values[i].Value);
        written = written && file.Set_Header(trace, before, after) == Stored::Yes;
    }
    if (!written) {
        Hint = Texth1 + " cannot be written: " + file.Reason();
        edit.Give_Up();
    }
    edit.End();
    Read_Again();
    return written;
}

bool Header::Type(int row, int column, std::string_view text) {
    if (!Editable(row, column)) return false;
    Hint.clear();
    std::vector<NewValue> values;
    return Take_Text(row, column, text, values) && Write_Cells(values);
}

bool Header::Paste(int row, int column, const std::vector<std::vector<std::string>>& cells) {
    Hint.clear();
    int beyond = 0;
    std::vector<NewValue> values;
    for (const auto& line : cells) {
        int to = column;
        for (const std::string& text : line) {
            if (!Editable(row, to)) {
                ++beyond;
            } else if (!Take_Text(row, to, text, values)) {
                Hint += "; nothing was pasted";
                return false;
            }
            ++to;
        }
        ++row;
    }
    if (!Write_Cells(values)) return false;
    if (beyond > 0) Hint = CStr(beyond) + " of the cells reach beyond the grid and were left out";
    return true;
}

void Header::Clear(int first_row, int first_column, int last_row, int last_column) {
    Hint.clear();
    std::vector<NewValue> values;
    for (int row = std::max(first_row, 1); row <= last_row; ++row) {
        for (int column = std::max(first_column, 1); column <= last_column; ++column) {
            if (Editable(row, column)) Take_Text(row, column, "0", values);
        }
    }
    Write_Cells(values);
}

}  // namespace tarnvik
