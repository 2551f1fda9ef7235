#include "batch/option_checks.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

/// The finite number that a text is, from its first letter to its last.
std::optional<double> Whole_Text_As_Number(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stopped, fault] = std::from_chars(text.data(), end, value);
    if (fault != std::errc() || stopped != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::vector<std::string> Parts(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t at = text.find(separator); at != std::string::npos; at = text.find(separator, from)) {
        parts.push_back(text.substr(from, at - from));
        from = at + 1;
    }
    parts.push_back(text.substr(from));
    return parts;
}

bool Is_Count(const std::string& text) {
    const auto value = Whole_Text_As_Number(text);
    return value && *value >= 1 && *value <= std::numeric_limits<std::int32_t>::max() &&
           *value == Int(*value);
}

/// Why a text is no FIRST:LAST whose end lies `beyond` or more behind its begin; empty when it is one.
std::string Check_Range(const std::string& text, double beyond) {
    const std::vector<std::string> parts = Parts(text, ':');
    const bool whole = parts.size() == 2 && Is_Count(parts[0]) && Is_Count(parts[1]);
    return whole && Val(parts[1]) >= Val(parts[0]) + beyond ? "" : text + " is no FIRST:LAST, such as 1:500";
}

CLI::Validator Check(std::string description, std::function<std::string(std::string&)> check) {
    return CLI::Validator(std::move(check), std::move(description));
}

}  // namespace

CLI::Validator Number_Between(double least, double most) {
    const std::string range = "number from " + CStr(least) + " to " + CStr(most);
    return Check(range, [least, most, range](const std::string& text) -> std::string {
        const auto value = Whole_Text_As_Number(text);
        return value && *value >= least && *value <= most ? "" : text + " is no " + range;
    });
}

CLI::Validator Any_Number() {
    return Check("NUMBER", [](const std::string& text) -> std::string {
        return Whole_Text_As_Number(text) ? "" : text + " is no number";
    });
}

CLI::Validator Number_Above_0() {
    return Check("number above 0", [](const std::string& text) -> std::string {
        return Whole_Text_As_Number(text).value_or(0) > 0 ? "" : text + " is no number above 0";
    });
}

CLI::Validator List_Of_Numbers() {
    return Check("A,B,...", [](const std::string& text) -> std::string {
        for (const std::string& part : Parts(text, ',')) {
            if (!Whole_Text_As_Number(Trim(part))) return "\"" + part + "\" is no number in " + text;
        }
        return {};
    });
}

CLI::Validator So_Many_Numbers(std::size_t count) {
    const std::string wanted = CStr(static_cast<int>(count)) + " numbers separated by commas";
    return Check(wanted, [count, wanted](const std::string& text) -> std::string {
        const std::vector<std::string> parts = Parts(text, ',');
        const bool numbers = std::all_of(parts.begin(), parts.end(), [](const std::string& part) {
            return Whole_Text_As_Number(Trim(part)).has_value();
        });
        return numbers && parts.size() == count ? "" : text + " is not " + wanted;
    });
}

CLI::Validator List_Of_Receivers(std::size_t most) {
    return Check("A,B,...", [most](const std::string& text) -> std::string {
        const std::vector<std::string> parts = Parts(text, ',');
        if (parts.size() > most) return CStr(static_cast<int>(most)) + " receivers at most";
        for (const std::string& part : parts) {
            if (!Is_Count(Trim(part))) return "\"" + part + "\" is no receiver in " + text;
        }
        return {};
    });
}

CLI::Validator First_And_Last() {
    return Check("FIRST:LAST", [](const std::string& text) { return Check_Range(text, 1); });
}

CLI::Validator First_To_Last() {
    return Check("FIRST:LAST", [](const std::string& text) { return Check_Range(text, 0); });
}

CLI::Validator Name_Ending_In(std::vector<std::string> endings) {
    std::string words;
    for (const std::string& ending : endings)
        words += (words.empty() ? "" : ", ") + ending;
    return Check("FILE", [endings = std::move(endings), words](const std::string& text) -> std::string {
        for (const std::string& ending : endings) {
            if (text.size() > ending.size() && LCase(Right(text, ending.size())) == ending) return {};
        }
        return text + " does not end in " + words;
    });
}

CLI::Validator Picture_Name() {
    return Name_Ending_In({".png", ".svg", ".pdf", ".wmf", ".jpg", ".jpeg", ".bmp"});
}

std::vector<double> Numbers(const std::string& list) {
    std::vector<double> numbers;
    if (list.empty()) return numbers;
    for (const std::string& part : Parts(list, ','))
        numbers.push_back(Whole_Text_As_Number(Trim(part)).value_or(0));
    return numbers;
}

}  // namespace tarnvik
