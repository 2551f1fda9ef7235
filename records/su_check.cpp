#include "records/su_check.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "core/positioned_file.h"
#include "core/text/number.h"
#include "records/header_words.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr std::int64_t segy_text = 3200;
constexpr std::int64_t segy_heads = 3600;  ///< text and binary head, where the first trace begins
constexpr std::int64_t looked_at = 4096;
constexpr std::size_t most_traces_named = 3;
// Intervals that a seismograph records with, microseconds.
constexpr int shortest_interval = 20;
constexpr int longest_interval = 20000;

enum class Order { Little, Big };

std::uint32_t Number_At(const std::string& bytes, std::int64_t offset, int size, Order order) {
    std::uint32_t number = 0;
    for (int i = 0; i < size; ++i) {
        const auto at = static_cast<std::size_t>(offset + (order == Order::Big ? i : size - 1 - i));
        number = number << 8 | (at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U);
    }
    return number;
}

int Word_Of(const std::string& header, int word, Order order) {
    const HeaderWord& row = Header_Word(word);
    if (row.Type == WordType::Int16)
        return static_cast<std::int16_t>(Number_At(header, row.Offset, 2, order));
    return static_cast<std::int32_t>(Number_At(header, row.Offset, 4, order));
}

/// How well a first header reads in a byte order; counts are small numbers, and the size of the file is a
/// multiple of that of a trace.
int Fit(const std::string& header, std::int64_t length, Order order) {
    int fit = 0;
    const Order other = order == Order::Little ? Order::Big : Order::Little;
    for (const int word : {words::tracl, words::tracr, words::fldr, words::tracf, words::ep}) {
        const auto here = std::abs(static_cast<std::int64_t>(Word_Of(header, word, order)));
        const auto there = std::abs(static_cast<std::int64_t>(Word_Of(header, word, other)));
        if (here < there) ++fit;
    }
    const int kind = Word_Of(header, words::trid, order);
    if (kind >= 1 && kind <= 9) ++fit;
    const int samples = Word_Of(header, words::ns, order);
    if (samples > 0 && length >= Trace_Length(samples) && length % Trace_Length(samples) == 0) fit += 2;
    const int interval = Word_Of(header, words::dt, order);
    if (interval >= shortest_interval && interval <= longest_interval) ++fit;
    return fit;
}

bool Is_Text(const std::string& head) {
    return !head.empty() && std::none_of(head.begin(), head.end(), [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return (code < 32 && code != '\t' && code != '\n' && code != '\r' && code != '\f') || code == 127;
    });
}

/// Share of the bytes of a text head that are blanks, letters or figures in one of its two alphabets.
bool Is_Text_Head(const std::string& head) {
    std::size_t ebcdic = 0;
    std::size_t ascii = 0;
    for (const char letter : head.substr(0, segy_text)) {
        const auto code = static_cast<unsigned char>(letter);
        if (code == 0x40 || (code >= 0x4A && code <= 0x7F) || code >= 0x81) ++ebcdic;
        if ((code >= 32 && code < 127) || code == '\r' || code == '\n') ++ascii;
    }
    return std::max(ebcdic, ascii) > segy_text * 9 / 10;
}

bool Is_Seg_Y(const std::string& head, std::int64_t length) {
    if (length < segy_heads || head.size() < segy_heads) return false;
    constexpr std::int64_t interval_at = 3216;
    constexpr std::int64_t samples_at = 3220;
    constexpr std::int64_t format_at = 3224;
    for (const Order order : {Order::Big, Order::Little}) {
        const auto format = Number_At(head, format_at, 2, order);
        const auto samples = Number_At(head, samples_at, 2, order);
        const auto interval = Number_At(head, interval_at, 2, order);
        if (format >= 1 && format <= 16 && samples > 0 && interval > 0 && Is_Text_Head(head)) return true;
    }
    return false;
}

bool Is_Seg_2(const std::string& head) {
    return head.size() > 4 && (head.compare(0, 2, "\x55\x3A") == 0 || head.compare(0, 2, "\x3A\x55") == 0);
}

SuCheck Refusal(SuCheck::Kind kind, std::string wrong) {
    return {kind, {std::move(wrong)}, {}};
}

/// Traces whose `ns` or `dt` is not that of the first.
void Look_At_All_Traces(const BytesAt& bytes, std::int64_t traces, int samples, int interval,
                        SuCheck& check) {
    const int words_at = Header_Word(words::ns).Offset;
    std::int64_t others = 0;
    std::string named;
    for (std::int64_t trace = 2; trace <= traces; ++trace) {
        const std::string read = bytes(Trace_Position(trace, samples) + words_at, 4);
        if (read.size() < 4) break;
        const auto its_samples = static_cast<std::int16_t>(Number_At(read, 0, 2, Order::Little));
        const auto its_interval = static_cast<std::int16_t>(Number_At(read, 2, 2, Order::Little));
        if (its_samples == samples && its_interval == interval) continue;
        if (static_cast<std::size_t>(others++) < most_traces_named) {
            named += std::string(named.empty() ? "" : "; ") + "trace " + CStr(static_cast<int>(trace)) +
                     ": ns = " + CStr(int{its_samples}) + ", dt = " + CStr(int{its_interval});
        }
    }
    if (others == 0) return;
    check.Wrong.push_back(CStr(static_cast<double>(others)) +
                          " traces tell another ns or dt than the first trace (ns = " + CStr(samples) +
                          ", dt = " + CStr(interval) + "): " + named +
                          (static_cast<std::size_t>(others) > most_traces_named ? " ..." : "") + ".");
    check.Assumed.emplace_back("ns and dt of the first trace hold for all traces.");
}

std::string Bytes_Text(std::int64_t count) {
    return CStr(static_cast<double>(count)) + " bytes";
}

void Turn(std::string& bytes, std::size_t at, std::size_t size) {
    if (at + size > bytes.size()) return;
    const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    std::reverse(first, first + static_cast<std::ptrdiff_t>(size));
}

}  // namespace

std::string SuCheck::Message(const std::string& path) const {
    if (Good()) return {};
    std::string text = path;
    for (const std::string& sentence : Wrong)
        text += "\r\n" + sentence;
    for (std::size_t i = 0; i < Assumed.size(); ++i)
        text += (i == 0 ? "\r\n\r\nAssumed: " : "\r\n") + Assumed[i];
    return text;
}

SuCheck Check_Su(const BytesAt& bytes, std::int64_t length) {
    const std::string head = bytes(0, std::min(length, looked_at));
    if (length == 0) return Refusal(SuCheck::Kind::Unusable, "The file is empty.");
    if (Is_Seg_Y(head, length)) {
        return Refusal(SuCheck::Kind::SegY,
                       "This is a SEG-Y file: a text head of 3200 bytes and a binary head of 400 bytes stand "
                       "before the traces. Convert it to SU first (File, conversion).");
    }
    if (Is_Seg_2(head)) {
        return Refusal(
            SuCheck::Kind::Seg2,
            "This is a SEG-2 file as a seismograph writes it. Convert it to SU first (File, SEG2 to "
            "SU conversion).");
    }
    if (Is_Text(head)) return Refusal(SuCheck::Kind::Text, "This is a text file, it holds no traces.");
    if (length < header_length) {
        return Refusal(SuCheck::Kind::Unusable,
                       "The file has " + Bytes_Text(length) + ", less than the header of one trace (240).");
    }
    if (Fit(head, length, Order::Big) > Fit(head, length, Order::Little) &&
        Word_Of(head, words::ns, Order::Big) > 0) {
        return Refusal(SuCheck::Kind::BigEndian,
                       "The byte order is that of other machines (big-endian): ns reads " +
                           CStr(Word_Of(head, words::ns, Order::Little)) + " instead of " +
                           CStr(Word_Of(head, words::ns, Order::Big)) + ".");
    }
    const int samples = Word_Of(head, words::ns, Order::Little);
    if (samples <= 0) {
        return Refusal(SuCheck::Kind::Unusable,
                       samples == 0 ? "ns, the number of samples of a trace, is 0 in the first header: the "
                                      "traces cannot be found."
                                    : "ns, the number of samples of a trace, is above 32767 in the first "
                                      "header: such traces cannot be read.");
    }
    const std::int64_t trace = Trace_Length(samples);
    if (length < trace) {
        return Refusal(SuCheck::Kind::Unusable,
                       "The file has " + Bytes_Text(length) + ", one trace of ns = " + CStr(samples) +
                           " samples would have " + CStr(static_cast<double>(trace)) + ".");
    }
    SuCheck check;
    const auto traces =
        static_cast<std::int64_t>(Rounded(static_cast<double>(length) / static_cast<double>(trace)));
    if (length % trace != 0) {
        check.Wrong.push_back("The size of the file, " + Bytes_Text(length) +
                              ", is no multiple of a trace of ns = " + CStr(samples) + " samples (" +
                              Bytes_Text(trace) + "): " + Bytes_Text(length % trace) + " are left over.");
        check.Assumed.push_back(
            CStr(static_cast<double>(traces)) + " traces" +
            (traces > length / trace ? ", the last one cut short." : "; the rest is not read."));
    }
    const int interval = Word_Of(head, words::dt, Order::Little);
    if (interval <= 0) {
        check.Wrong.push_back("dt, the sample interval, is " + CStr(interval) +
                              " microseconds in the first header.");
        check.Assumed.emplace_back("no times: the traces are shown, picks need dt in the headers.");
    }
    Look_At_All_Traces(bytes, traces, samples, interval, check);
    return check;
}

SuCheck Check_Su_File(const std::string& path) {
    PositionedFile file(path, PositionedFile::Access::Read);
    if (!file.Is_Open())
        return Refusal(SuCheck::Kind::Unusable, "The file cannot be opened: " + file.Reason() + ".");
    const BytesAt bytes = [&file](std::int64_t position, std::int64_t count) {
        std::string read(static_cast<std::size_t>(std::max<std::int64_t>(count, 0)), '\0');
        const std::int64_t got = file.Read_Some(position, read.data(), count);
        read.resize(static_cast<std::size_t>(std::max<std::int64_t>(got, 0)));
        return read;
    };
    return Check_Su(bytes, file.Length());
}

std::string Turned_Round(std::string bytes) {
    const int samples = bytes.size() < header_length ? 0 : Word_Of(bytes, words::ns, Order::Big);
    if (samples <= 0) return bytes;
    const auto trace = static_cast<std::size_t>(Trace_Length(samples));
    for (std::size_t start = 0; start < bytes.size(); start += trace) {
        for (int word = 1; word <= header_words; ++word) {
            const HeaderWord& row = Header_Word(word);
            Turn(bytes, start + static_cast<std::size_t>(row.Offset), row.Type == WordType::Int16 ? 2 : 4);
        }
        for (std::size_t at = start + header_length; at < start + trace && at < bytes.size(); at += 4)
            Turn(bytes, at, 4);
    }
    return bytes;
}

}  // namespace tarnvik
