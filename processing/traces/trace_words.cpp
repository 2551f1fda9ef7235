#include "processing/traces/trace_words.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "core/fault.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

/// A name without case, blanks and what joins the parts of a name.
std::string Bare(std::string_view name) {
    std::string bare;
    for (const char letter : name) {
        if (letter == ' ' || letter == '_') continue;
        bare += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return bare;
}

template <typename Kept>
double Read_As(const char* from) {
    Kept kept{};
    std::memcpy(&kept, from, sizeof kept);
    return static_cast<double>(kept);
}

template <typename Kept>
void Write_As(char* to, double value) {
    const auto kept = static_cast<Kept>(value);
    std::memcpy(to, &kept, sizeof kept);
}

template <typename Kept>
std::optional<double> Whole_Number(double value) {
    const double whole = Rounded(value);
    if (!(whole >= std::numeric_limits<Kept>::min() && whole <= std::numeric_limits<Kept>::max()))
        return std::nullopt;
    return whole;
}

}  // namespace

TraceWord::TraceWord(int number)
    : Word(number), Offset(Header_Word(number).Offset), Type(Header_Word(number).Type) {}

std::optional<TraceWord> TraceWord::Named(std::string_view name) {
    const std::string wanted = Bare(name);
    if (wanted.empty()) return std::nullopt;
    for (int number = 1; number <= header_words; ++number) {
        const std::string entry = Bare(Header_Word(number).Name);
        if (entry == wanted || entry.substr(0, entry.find('/')) == wanted) return TraceWord(number);
    }
    return std::nullopt;
}

double TraceWord::Value(const char* header) const {
    const char* at = header + Offset;
    if (Is_Count()) return Read_As<std::uint16_t>(at);
    if (Type == WordType::Int16) return Read_As<std::int16_t>(at);
    return Type == WordType::Int32 ? Read_As<std::int32_t>(at) : Read_As<float>(at);
}

std::optional<double> TraceWord::Held(double value) const {
    if (Is_Count()) return Whole_Number<std::uint16_t>(value);
    if (Type == WordType::Int16) return Whole_Number<std::int16_t>(value);
    if (Type == WordType::Int32) return Whole_Number<std::int32_t>(value);
    if (!(std::abs(value) <= std::numeric_limits<float>::max())) return std::nullopt;
    return static_cast<float>(value);
}

bool TraceWord::Set(char* header, double value) const {
    const auto held = Held(value);
    if (!held) return false;
    char* at = header + Offset;
    if (Is_Count())
        Write_As<std::uint16_t>(at, *held);
    else if (Type == WordType::Int16)
        Write_As<std::int16_t>(at, *held);
    else if (Type == WordType::Int32)
        Write_As<std::int32_t>(at, *held);
    else
        Write_As<float>(at, *held);
    return true;
}

void TraceWord::Set_Or_Fault(char* header, double value, long long trace) const {
    if (Set(header, value)) return;
    throw Fault("trace " + std::to_string(trace) + ": " + CStr(value) + " does not fit the header word " +
                Name());
}

}  // namespace tarnvik
