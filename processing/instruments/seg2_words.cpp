#include "processing/instruments/seg2_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <vector>

#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

// Keywords of the standard of 1990 (S. E. Pullan, Geophysics 55).

constexpr double ms_per_second = 1000;
constexpr double farthest_place = 2e9;  // what a 32-bit word holds without decimals

constexpr std::array<const char*, 12> months = {"jan", "feb", "mar", "apr", "may", "jun",
                                                "jul", "aug", "sep", "oct", "nov", "dec"};
constexpr std::array<const char*, 12> month_names = {"January",   "February", "March",    "April",
                                                     "May",       "June",     "July",     "August",
                                                     "September", "October",  "November", "December"};

bool Is_Figure(char letter) {
    return letter >= '0' && letter <= '9';
}
bool Is_Letter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
}

/// Groups of figures and of letters; all else separates.
std::vector<std::string> Groups_Of(const std::string& text) {
    std::vector<std::string> groups;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool figure = Is_Figure(text[i]);
        if (!figure && !Is_Letter(text[i])) continue;
        const bool goes_on =
            i > 0 && !groups.empty() && (figure ? Is_Figure(text[i - 1]) : Is_Letter(text[i - 1]));
        if (!goes_on) groups.emplace_back();
        groups.back() += text[i];
    }
    return groups;
}

/// A group of up to four figures; 0 for any other.
int Whole(const std::string& group) {
    int value = 0;
    if (group.size() > 4) return 0;
    std::from_chars(group.data(), group.data() + group.size(), value);
    return value;
}

int Month_Named(const std::string& group) {
    const std::string name = LCase(group.substr(0, 3));
    const auto found = std::find(months.begin(), months.end(), name);
    return found == months.end() ? 0 : static_cast<int>(found - months.begin()) + 1;
}

std::optional<Seg2Date> Date_Of(int year, int month, int day, bool sure) {
    using namespace std::chrono;
    constexpr int turn_of_century = 70;
    if (year < turn_of_century) year += 2000;
    if (year < 100) year += 1900;
    if (month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
    const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok()) return std::nullopt;
    const auto before = sys_days(date) - sys_days(date.year() / January / 1);
    return Seg2Date{year, static_cast<int>(before.count()) + 1, sure,
                    CStr(day) + " " + month_names.at(static_cast<std::size_t>(month) - 1) + " " + CStr(year)};
}

class WordsOfTrace {
  public:
    WordsOfTrace(const Seg2Strings& file, const Seg2Strings& trace, std::int64_t number,
                 TraceRemarks& assumed, TraceRemarks& faults)
        : OfFile(file), OfTrace(trace), Number(number), Assumed(assumed), Faults(faults) {}

    Seg2Trace Read() {
        Read_Times();
        Read_Numbers();
        Read_Scale();
        Read_Date();
        Read_Places();
        Read_Filters();
        return Result;
    }

  private:
    std::optional<std::string> Value(const char* keyword) const {
        auto value = OfTrace.Value(keyword);
        return value ? value : OfFile.Value(keyword);
    }
    /// The number behind a keyword; text that is none is told.
    std::optional<double> Number_Of(const char* keyword) {
        const auto text = Value(keyword);
        if (!text || text->empty()) return std::nullopt;
        const auto number = Leading_Number(*text);
        if (!number) Wrong(std::string(keyword) + " \"" + *text + "\" is no number: it is passed over.");
        return number;
    }
    std::optional<std::int64_t> Whole_Of(const char* keyword) {
        const auto number = Number_Of(keyword);
        const auto whole = number ? CLng(*number) : std::nullopt;
        if (number && !whole) Wrong(std::string(keyword) + " " + CStr(*number) + " is too large.");
        return whole ? std::optional<std::int64_t>(*whole) : std::nullopt;
    }
    void Wrong(const std::string& sentence) { Faults.Add(sentence, Number); }
    void Assume(const std::string& sentence) { Assumed.Add(sentence, Number); }
    void Put(int word, double value, const char* keyword) {
        if (!Result.Header.Words.Set_Word(word, value)) {
            Wrong(std::string(keyword) + " " + CStr(value) + " does not fit the word " +
                  Header_Word(word).Name + ", which stays 0.");
        }
    }

    void Read_Times() {
        Result.Interval = Number_Of("SAMPLE_INTERVAL");
        const auto delay = Number_Of("DELAY");
        if (!delay) {
            Assume("No DELAY: recording is taken to begin with the shot.");
            return;
        }
        constexpr double rounding = 1e6;  // what binary fractions leave behind a decimal
        Result.Delay = std::round(*delay * ms_per_second * rounding) / rounding;
        if (const double whole = Rounded(Result.Delay); whole != Result.Delay) {
            Assume("DELAY " + CStr(Result.Delay) + " ms is no whole number of ms: delrt is " + CStr(whole) +
                   ".");
        }
        if (!Result.Header.Words.Set_Word(words::delrt, Result.Delay)) {
            Wrong("DELAY " + CStr(Result.Delay) +
                  " ms does not fit the word delrt, which stays 0: times count from the first sample.");
        }
    }

    void Read_Numbers() {
        Result.Shot = Whole_Of("SHOT_SEQUENCE_NUMBER");
        Result.Channel = Whole_Of("CHANNEL_NUMBER");
        Result.Station = Whole_Of("RECEIVER_STATION_NUMBER");
        if (const auto shot_station = Whole_Of("SOURCE_STATION_NUMBER"))
            Put(words::ep, static_cast<double>(*shot_station), "SOURCE_STATION_NUMBER");
        const std::string type = UCase(Value("TRACE_TYPE").value_or(""));
        Result.Header.Words.Set_Word(words::trid,
                                     type.find("DEAD") == std::string::npos ? live_trace : dead_trace);
    }

    void Read_Scale() {
        const auto factor = Number_Of("DESCALING_FACTOR");
        if (factor && *factor != 0) {
            Result.Factor = *factor;
        } else {
            Assume(factor ? "DESCALING_FACTOR 0 is passed over: samples are as they stand in the file."
                          : "No DESCALING_FACTOR: samples are as they stand in the file.");
        }
        const auto stack = Number_Of("STACK");
        if (!stack || *stack < 1) return;
        Put(words::nvs, *stack, "STACK");
        if (*stack > 1 && Tells_That_Stack_Is_A_Sum()) {
            Result.Factor /= *stack;
            Assume("The file says that the stack is a sum: samples are divided by STACK " + CStr(*stack) +
                   ".");
        }
    }
    /// There is no keyword for it; instruments say it behind STACK, with a keyword of their own or in a note.
    bool Tells_That_Stack_Is_A_Sum() const {
        for (const Seg2Strings* strings : {&OfTrace, &OfFile}) {
            for (const auto& [keyword, value] : strings->Words) {
                if (keyword.find("STACK") != std::string::npos && Means_A_Sum(keyword + " " + value))
                    return true;
            }
            for (const std::string& note : strings->Notes) {
                if (UCase(note).find("STACK") != std::string::npos && Means_A_Sum(note)) return true;
            }
        }
        return false;
    }
    static bool Means_A_Sum(const std::string& text) {
        const std::vector<std::string> groups = Groups_Of(UCase(text));
        const auto has = [&groups](std::initializer_list<const char*> words_sought) {
            return std::any_of(groups.begin(), groups.end(), [&](const std::string& group) {
                return std::any_of(words_sought.begin(), words_sought.end(),
                                   [&](const char* word) { return group.rfind(word, 0) == 0; });
            });
        };
        const auto is = [&groups](std::initializer_list<const char*> words_sought) {
            return std::any_of(words_sought.begin(), words_sought.end(), [&](const char* word) {
                return std::find(groups.begin(), groups.end(), word) != groups.end();
            });
        };
        const bool divided = has({"NORMALI", "DIVI", "AVERAG", "SCALED"});
        if (has({"UNNORMALI", "UNDIVI", "UNAVERAG"})) return true;
        if (divided) return is({"NOT", "NO", "FALSE", "OFF", "UN", "NON", "WITHOUT"});
        return is({"SUM", "SUMMED", "SUMMATION"});
    }

    void Read_Date() {
        const auto text = Value("ACQUISITION_DATE");
        if (text && !text->empty()) {
            if (const auto date = Read_Seg2_Date(*text)) {
                Result.Header.Words.Set_Word(words::Year, date->Year);
                Result.Header.Words.Set_Word(words::Day, date->Day);
                Assume("ACQUISITION_DATE \"" + *text + "\" is read as " + date->Read +
                       (date->Sure ? "." : ": the day is taken to stand before the month."));
            } else {
                Wrong("ACQUISITION_DATE \"" + *text + "\" is no date: it is passed over.");
            }
        }
        const auto time = Value("ACQUISITION_TIME");
        if (!time || time->empty()) return;
        const std::vector<std::string> groups = Groups_Of(*time);
        std::array<int, 3> parts{};
        for (std::size_t i = 0; i < parts.size() && i < groups.size(); ++i)
            parts.at(i) = Whole(groups[i]);
        if (groups.size() < 2 || parts[0] > 24 || parts[1] > 59 || parts[2] > 60) {
            Wrong("ACQUISITION_TIME \"" + *time + "\" is no time: it is passed over.");
            return;
        }
        Result.Header.Words.Set_Word(words::Hour, parts[0]);
        Result.Header.Words.Set_Word(words::Minute, parts[1]);
        Result.Header.Words.Set_Word(words::sec, parts[2]);
    }

    void Read_Places() {
        TracePlaces& places = Result.Header.Places;
        Read_Location("RECEIVER_LOCATION", places.ReceiverX, places.ReceiverY, places.ReceiverElevation);
        Read_Location("SOURCE_LOCATION", places.ShotX, places.ShotY, places.ShotElevation);
        if (!places.ReceiverX) Assume("No RECEIVER_LOCATION: gx is 0.");
        if (!places.ShotX) Assume("No SOURCE_LOCATION: sx is 0.");
        Result.Header.Words.Set_Word(words::counit, 1);
        const std::string units = UCase(Value("UNITS").value_or(""));
        if (!units.empty() && units.find("METER") == std::string::npos &&
            units.find("METRE") == std::string::npos) {
            Assume("UNITS " + units + ": places are kept as they stand.");
        }
    }
    void Read_Location(const char* keyword, std::optional<double>& x, std::optional<double>& y,
                       std::optional<double>& elevation) {
        const auto text = Value(keyword);
        if (!text || text->empty()) return;
        const std::vector<double> numbers = Numbers_Of_Text(*text);
        const bool fit = !numbers.empty() && std::all_of(numbers.begin(), numbers.end(), [](double place) {
            return std::abs(place) < farthest_place;
        });
        if (!fit) {
            Wrong(std::string(keyword) + " \"" + *text + "\" is no place: it is passed over.");
            return;
        }
        x = numbers[0];
        if (numbers.size() > 1) y = numbers[1];
        if (numbers.size() > 2) elevation = numbers[2];
    }

    void Read_Filters() {
        Read_Filter("LOW_CUT_FILTER", words::lcf, words::lcs);
        Read_Filter("HIGH_CUT_FILTER", words::hcf, words::hcs);
        Read_Filter("ALIAS_FILTER", words::afilf, words::afils);
        Read_Filter("NOTCH_FREQUENCY", words::nofilf, 0);
        if (const auto gain = Number_Of("FIXED_GAIN")) {
            Put(words::gain, 1, "FIXED_GAIN");
            Put(words::igc, *gain, "FIXED_GAIN");
        }
    }
    void Read_Filter(const char* keyword, int corner, int slope) {
        const std::vector<double> numbers = Numbers_Of_Text(Value(keyword).value_or(""));
        if (!numbers.empty()) Put(corner, numbers[0], keyword);
        if (numbers.size() > 1 && slope != 0) Put(slope, numbers[1], keyword);
    }

    const Seg2Strings& OfFile;
    const Seg2Strings& OfTrace;
    std::int64_t Number;
    TraceRemarks& Assumed;
    TraceRemarks& Faults;
    Seg2Trace Result;
};

}  // namespace

std::optional<Seg2Date> Read_Seg2_Date(const std::string& text) {
    const std::vector<std::string> groups = Groups_Of(text);
    if (groups.size() < 3) return std::nullopt;
    const int first = Whole(groups[0]);
    const int second = Whole(groups[1]);
    const int third = Whole(groups[2]);
    if (const int month = Month_Named(groups[1]); month != 0) {
        return groups[0].size() > 2 ? Date_Of(first, month, third, true) : Date_Of(third, month, first, true);
    }
    if (const int month = Month_Named(groups[0]); month != 0) return Date_Of(third, month, second, true);
    if (groups[0].size() > 2) return Date_Of(first, second, third, true);
    constexpr int last_month = 12;
    if (second > last_month) return Date_Of(third, first, second, true);
    return Date_Of(third, second, first, first > last_month || first == second);
}

Seg2Trace Read_Seg2_Words(const Seg2Strings& file, const Seg2Strings& trace, std::int64_t number,
                          TraceRemarks& assumed, TraceRemarks& faults) {
    return WordsOfTrace(file, trace, number, assumed, faults).Read();
}

}  // namespace tarnvik
