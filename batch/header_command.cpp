// header: the words of an SU file's headers, shown, changed, checked and written as a table.

#include <CLI/CLI.hpp>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <numeric>
#include <optional>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/header_check.h"
#include "processing/header_reader.h"
#include "processing/header_spreadsheet.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

struct HeaderOptions {
    std::string Words;
    std::string Traces;
    std::string Set;  ///< "WORD=VALUE"
    bool Check = false;
};

/// A word that all traces get.
struct NewValue {
    int Word = 0;
    double Value = 0;
};

std::string One_Of_The_Words(const std::string& name) {
    return Word_Named(name) != 0 ? "" : "\"" + name + "\" is no word of the header";
}

std::vector<std::string> Names_In(const std::string& list) {
    std::vector<std::string> names;
    for (std::size_t start = 0;;) {
        const auto end = list.find(',', start);
        names.push_back(list.substr(start, end - start));
        if (end == std::string::npos) return names;
        start = end + 1;
    }
}

std::string Check_Names(const std::string& list) {
    for (const std::string& name : Names_In(list)) {
        if (std::string wrong = One_Of_The_Words(name); !wrong.empty()) return wrong;
    }
    return {};
}

std::string Check_Setting(const std::string& setting) {
    const auto sign = setting.rfind('=');
    if (sign == std::string::npos) return "\"" + setting + "\" is no WORD=VALUE";
    const std::string value = setting.substr(sign + 1);
    if (std::string wrong = Any_Number()(value); !wrong.empty()) return wrong;
    return One_Of_The_Words(setting.substr(0, sign));
}

std::vector<int> Words_Asked(const std::string& list) {
    std::vector<int> asked;
    if (list.empty()) {
        asked.resize(header_words);
        std::iota(asked.begin(), asked.end(), 1);
        return asked;
    }
    for (const std::string& name : Names_In(list))
        asked.push_back(Word_Named(name));
    return asked;
}

std::optional<NewValue> Value_Asked(const std::string& setting) {
    const auto sign = setting.rfind('=');
    if (sign == std::string::npos) return std::nullopt;
    return NewValue{Word_Named(setting.substr(0, sign)), Val(setting.substr(sign + 1))};
}

/// What the word reads once the value is written; nothing where it does not fit.
std::optional<double> As_Read(const NewValue& value) {
    TraceHeader header;
    if (!header.Set_Word(value.Word, value.Value)) return std::nullopt;
    return header.Word(value.Word);
}

/// All traces get the value or none: what was written before a fault is given back.
std::string Write_Value(Workspace& workspace, const std::string& path, const NewValue& value,
                        const HeaderTable& table) {
    EditScope edit(workspace, std::string("Header word ") + Header_Word(value.Word).Name);
    SuWriter file(path, &workspace.Edits);
    for (std::int64_t trace = table.First; trace <= table.Last && file.Is_Open(); ++trace) {
        if (file.Set_Word(trace, value.Word, value.Value) == Stored::Yes) continue;
        edit.Give_Up();
        break;
    }
    return file.Reason();
}

/// A row of values for each trace, as they stand or, before a value is saved, as they would.
Json Rows(const std::string& path, const HeaderTable& table, const std::optional<NewValue>& value) {
    HeaderReader headers(path);
    Json rows = Json::array();
    for (std::int64_t trace = table.First; trace <= table.Last && headers.Take(trace); ++trace) {
        Json row = Json::array();
        for (const int word : table.Words) {
            const bool changed = value && value->Word == word;
            const double number = changed ? *As_Read(*value) : headers.Word(word);
            row.push_back(std::isfinite(number) ? Json(number) : Json(nullptr));
            if (Header_Word(word).Type != WordType::Float32) row.back() = static_cast<std::int64_t>(number);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

class HeaderRun {
  public:
    HeaderRun(const CommonOptions& common, const HeaderOptions& options, const std::string& folder)
        : Common(common), Options(options), Run(common, folder), Value(Value_Asked(options.Set)) {
        Table.Words = Words_Asked(options.Words);
    }

    ExitStatus Do() {
        const bool made = Find_Traces() && Run.May_Write(Common.Out) && Change() && Write_Table();
        std::vector<std::string> faults;
        if (made && Options.Check) faults = Check_Headers(Common.ProjectFile);
        if (Common.Json) {
            Print_Json(made, faults);
        } else if (made && Options.Check) {
            for (const std::string& fault : faults)
                std::cout << fault << "\n";
            if (faults.empty()) std::cout << "no faults\n";
        } else if (made && Common.Out.empty()) {
            Print_Rows();
        }
        return made ? Done : Refused;
    }

  private:
    /// The range of traces; all without --traces.
    bool Find_Traces() {
        const HeaderReader headers(Common.ProjectFile);
        if (!headers.Is_Open()) return Run.Refuse(Common.ProjectFile + ": " + headers.Reason());
        Table.First = Options.Traces.empty() ? 1 : static_cast<std::int64_t>(Val(Options.Traces));
        Table.Last = headers.Nb_Traces();
        if (const auto colon = Options.Traces.find(':'); colon != std::string::npos)
            Table.Last = static_cast<std::int64_t>(Val(Options.Traces.substr(colon + 1)));
        if (headers.Nb_Traces() > 0 && Table.Last <= headers.Nb_Traces()) return true;
        return Run.Refuse(Common.ProjectFile + " has " + CStr(static_cast<double>(headers.Nb_Traces())) +
                          " traces");
    }
    bool Change() {
        if (!Value) return true;
        if (!As_Read(*Value)) {
            return Run.Refuse(CStr(Value->Value) + " does not fit the word " + Header_Word(Value->Word).Name +
                              "; nothing is written");
        }
        if (!Common.Save) return true;
        const std::string reason = Write_Value(Run.Program.Work, Common.ProjectFile, *Value, Table);
        return reason.empty() || Run.Refuse(Common.ProjectFile + " cannot be written: " + reason);
    }
    bool Write_Table() {
        if (Common.Out.empty()) return true;
        const std::string reason = Write_Header_Spreadsheet(Common.ProjectFile, Table, Common.Out);
        return reason.empty() || Run.Refuse(Common.Out + " cannot be written: " + reason);
    }
    Json Names() const {
        Json names = Json::array();
        for (const int word : Table.Words)
            names.push_back(Header_Word(word).Name);
        return names;
    }
    void Print_Json(bool made, const std::vector<std::string>& faults) const {
        Json json;
        json["words"] = Names();
        json["traces"] = made ? Rows(Common.ProjectFile, Table, Value) : Json::array();
        if (Options.Check) json["faults"] = faults;
        json["file"] = made ? Common.Out : std::string();
        json["messages"] = Run.Prompts.Messages();
        std::cout << json.dump(1, ' ', false, Json::error_handler_t::replace) << "\n";
    }
    void Print_Rows() const {
        constexpr int width = 13;
        std::cout << std::setw(8) << "Trace";
        for (const int word : Table.Words)
            std::cout << std::setw(width) << Header_Word(word).Name;
        std::cout << "\n";
        std::int64_t trace = Table.First;
        for (const Json& row : Rows(Common.ProjectFile, Table, Value)) {
            std::cout << std::setw(8) << trace++;
            for (const Json& value : row)
                std::cout << std::setw(width) << (value.is_null() ? "-" : CStr(value.get<double>()));
            std::cout << "\n";
        }
    }

    const CommonOptions& Common;
    const HeaderOptions& Options;
    BatchRun Run;
    HeaderTable Table;
    std::optional<NewValue> Value;
};

}  // namespace

void Add_Header(CLI::App& app, Request& request) {
    auto options = std::make_shared<HeaderOptions>();
    CLI::App* command = app.add_subcommand("header", "the header words of an SU file");
    command->add_option("FILE", request.Common.ProjectFile, "SU file")->required();
    command->add_option("--words", options->Words, "names of words, separated by commas; all without it")
        ->check(Check_Names);
    command->add_option("--traces", options->Traces, "FIRST:LAST; all without it")->check(First_To_Last());
    command->add_option("--set", options->Set, "WORD=VALUE for these traces; kept with --save")
        ->check(Check_Setting);
    command->add_flag("--save", request.Common.Save, "write the value into the file");
    command->add_flag("--check", options->Check, "tell what is wrong with the headers");
    command->add_option("--out", request.Common.Out, "table to write (.xlsx or .csv)")
        ->check(Name_Ending_In({".xlsx", ".csv"}));
    Add_Answers(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return HeaderRun(common, *options, folder).Do();
        };
    });
}

}  // namespace tarnvik
