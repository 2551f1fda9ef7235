#include "processing/instruments/segy_layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "core/text/number.h"
#include "processing/instruments/field_reader.h"

namespace tarnvik {

namespace {

constexpr std::array<SegyFormat, 6> formats = {{{1, 4, "ibm32"},
                                                {2, 4, "int32"},
                                                {3, 2, "int16"},
                                                {5, 4, "float32"},
                                                {6, 8, "float64"},
                                                {8, 1, "int8"}}};
constexpr int last_format = 16;
constexpr std::int64_t trace_head = header_length;

// Bytes of the binary header, from its beginning.
constexpr std::size_t interval_at = 16;
constexpr std::size_t samples_at = 20;
constexpr std::size_t format_at = 24;
constexpr std::size_t long_samples_at = 68;
constexpr std::size_t long_interval_at = 72;
constexpr std::size_t order_at = 96;
constexpr std::size_t revision_at = 300;
constexpr std::size_t text_headers_at = 304;
constexpr std::size_t trace_headers_at = 306;
constexpr std::size_t first_trace_at = 320;
constexpr std::size_t trailers_at = 328;
constexpr std::size_t binary_bytes = 400;
// And of a trace header.
constexpr std::size_t trace_samples_at = 114;
constexpr std::size_t trace_interval_at = 116;

constexpr const char* end_stanza = "((SEG: EndText))";
constexpr std::int64_t line_letters = 80;

/// The binary header in one byte order.
class BinaryHead {
  public:
    BinaryHead(const std::string& bytes, ByteOrder order) : Bytes(bytes), Order(order) {
        Bytes.resize(binary_bytes);
    }
    int Format() const { return U16(format_at); }
    std::int64_t Samples() const {
        const std::int64_t longer = Revision() >= 2 ? I32_At(Bytes.data() + long_samples_at, Order) : 0;
        return longer > 0 ? longer : U16(samples_at);
    }
    double Interval() const {
        const double finer = Revision() >= 2 ? Double_At(Bytes.data() + long_interval_at, Order) : 0;
        constexpr double longest = 1e6;
        return std::isfinite(finer) && finer > 0 && finer < longest ? finer : U16(interval_at);
    }
    /// 0 for 1975; the writers of little-endian files turn the two bytes of the number, too.
    int Revision() const {
        const auto first = static_cast<unsigned char>(Bytes[revision_at]);
        const auto second = static_cast<unsigned char>(Bytes[revision_at + 1]);
        const int revision = first == 0 && Order == ByteOrder::Little ? second : first;
        return revision <= 2 ? revision : 0;
    }
    int Text_Headers() const { return I16_At(Bytes.data() + text_headers_at, Order); }
    std::int64_t Trace_Headers() const {
        return Revision() >= 2 ? I32_At(Bytes.data() + trace_headers_at, Order) : 0;
    }
    std::uint64_t First_Trace() const {
        return Revision() >= 2 ? Unsigned_At<8>(Bytes.data() + first_trace_at, Order) : 0;
    }
    std::int64_t Trailers() const { return Revision() >= 2 ? I32_At(Bytes.data() + trailers_at, Order) : 0; }

  private:
    int U16(std::size_t at) const { return U16_At(Bytes.data() + at, Order); }
    std::string Bytes;
    ByteOrder Order;
};

bool Known(int format) {
    return format >= 1 && format <= last_format && format != 13 && format != 14;
}

int Fit(const std::string& binary, const std::string& trace, ByteOrder order, std::int64_t length) {
    const BinaryHead head(binary, order);
    int fit = Known(head.Format()) ? 4 : 0;
    const SegyFormat* format = Segy_Format(head.Format());
    if (format != nullptr) ++fit;
    const std::int64_t samples = head.Samples();
    if (samples > 0 && samples <= most_samples) ++fit;
    if (head.Interval() > 0 && head.Interval() <= 20000) ++fit;
    const std::int64_t of_trace =
        trace.size() >= trace_head ? U16_At(trace.data() + trace_samples_at, order) : 0;
    if (of_trace > 0 && of_trace <= most_samples) ++fit;
    if (of_trace > 0 && of_trace == samples) fit += 2;
    const std::int64_t counted = samples > 0 ? samples : of_trace;
    if (format != nullptr && counted > 0 &&
        (length - segy_heads_bytes) % (trace_head + counted * format->Bytes) == 0)
        fit += 2;
    return fit;
}

/// Byte order: as a file of revision 2 tells it, or that in which the headers make more sense.
ByteOrder Order_Of(const std::string& binary, const std::string& trace, std::int64_t length) {
    constexpr std::uint32_t as_written = 0x01020304;
    for (const ByteOrder order : {ByteOrder::Big, ByteOrder::Little}) {
        if (U32_At(binary.data() + order_at, order) == as_written) return order;
    }
    return Fit(binary, trace, ByteOrder::Little, length) > Fit(binary, trace, ByteOrder::Big, length)
               ? ByteOrder::Little
               : ByteOrder::Big;
}

class LayoutSearch {
  public:
    LayoutSearch(ByteSource& source, FieldFile& told)
        : Source(source), Length(source.Length().value_or(0)), Told(told) {}

    SegyLayout Find() {
        const std::string text = Bytes_Of_Source(Source, 0, segy_text_bytes);
        Told.TextHeader = Kind_Of_Text_Header(text);
        Told.Notes = Lines_Of_Text_Header(text, Told.TextHeader);
        const std::string binary = Bytes_Of_Source(Source, segy_text_bytes, binary_bytes);
        if (binary.size() < binary_bytes) {
            Told.Faults.push_back("The file ends within the binary header.");
            return Layout;
        }
        Layout.Order = Order_Of(binary, Bytes_Of_Source(Source, segy_heads_bytes, trace_head), Length);
        Told.ByteOrder = Name_Of_Order(Layout.Order);
        if (Told.TextHeader.empty()) Told.Assumed.push_back("The text header holds no text.");
        const BinaryHead head(binary, Layout.Order);
        Layout.Format = Segy_Format(head.Format());
        if (Layout.Format == nullptr) {
            Told.Faults.push_back("The binary header tells sample format " + CStr(head.Format()) +
                                  (Known(head.Format()) ? ", which cannot be read here."
                                                        : ", which is none: the samples cannot be read."));
            return Layout;
        }
        Told.SampleFormat = Layout.Format->Name;
        Find_First_Trace(head);
        Count_Traces(head);
        return Layout;
    }

  private:
    std::string Trace_Head() { return Bytes_Of_Source(Source, Layout.FirstTrace, trace_head); }
    std::int64_t Traces_Length() const { return Length - Layout.FirstTrace - Trailer; }
    bool Room_For_A_Trace() const { return Traces_Length() > Layout.HeaderBytes; }

    /// Text headers, further trace headers and trailers are believed where the file has room for them.
    void Find_First_Trace(const BinaryHead& head) {
        const std::int64_t texts = head.Revision() >= 1 ? head.Text_Headers() : 0;
        std::int64_t first = segy_heads_bytes + std::max<std::int64_t>(texts, 0) * segy_text_bytes;
        if (texts < 0) first = Behind_End_Stanza();
        const std::uint64_t told_first = head.First_Trace();
        if (told_first >= segy_heads_bytes && told_first < static_cast<std::uint64_t>(Length))
            first = static_cast<std::int64_t>(told_first);
        if (first + trace_head > Length) {
            Told.Faults.push_back("The binary header tells " + CStr(static_cast<double>(texts)) +
                                  " further text headers, for which the file is too short: the traces are "
                                  "taken to begin at byte 3600.");
            first = segy_heads_bytes;
        } else if (first != segy_heads_bytes) {
            Told.Assumed.push_back("The traces begin at byte " + std::to_string(first) +
                                   ", behind further text headers.");
        }
        Layout.FirstTrace = first;
        constexpr std::int64_t most_headers = 100;
        const std::int64_t headers = head.Trace_Headers();
        if (headers > 0 && headers <= most_headers) {
            Layout.HeaderBytes += headers * trace_head;
            Told.Assumed.push_back("Each trace has " + CStr(static_cast<double>(headers)) +
                                   " further headers, which are passed over.");
        }
        const std::int64_t trailers = head.Trailers();
        if (trailers > 0 && trailers < Length / segy_text_bytes) Trailer = trailers * segy_text_bytes;
        if (!Room_For_A_Trace()) Trailer = 0;
    }
    /// Byte behind the text header that ends a list of unknown length.
    std::int64_t Behind_End_Stanza() {
        constexpr int most_headers = 1000;
        std::int64_t at = segy_heads_bytes;
        for (int header = 0; header < most_headers && at + segy_text_bytes <= Length; ++header) {
            const std::string line = Bytes_Of_Source(Source, at, line_letters);
            at += segy_text_bytes;
            for (const char* kind : {"ASCII", "EBCDIC"}) {
                const auto lines = Lines_Of_Text_Header(line, kind);
                if (!lines.empty() && lines.front().rfind(end_stanza, 0) == 0) return at;
            }
        }
        Told.Faults.push_back(
            "No end of the further text headers is found: the traces are taken to begin at "
            "byte 3600.");
        return segy_heads_bytes;
    }

    bool Fits(std::int64_t samples) const {
        const std::int64_t trace = Layout.HeaderBytes + samples * Layout.Format->Bytes;
        return samples > 0 && Traces_Length() >= trace && Traces_Length() % trace == 0;
    }
    /// True where a second trace of the same sample count stands behind a first one of this length.
    bool Leads_To_A_Trace(std::int64_t samples, std::int64_t of_trace) {
        const std::int64_t next = Layout.FirstTrace + Layout.HeaderBytes + samples * Layout.Format->Bytes;
        const std::string head = Bytes_Of_Source(Source, next, trace_head);
        return head.size() == trace_head && of_trace > 0 &&
               U16_At(head.data() + trace_samples_at, Layout.Order) == of_trace;
    }

    void Count_Traces(const BinaryHead& head) {
        const std::string trace = Trace_Head();
        if (trace.size() < trace_head) {
            Told.Faults.push_back("The file has no whole trace.");
            return;
        }
        const std::int64_t of_trace = U16_At(trace.data() + trace_samples_at, Layout.Order);
        Choose_Samples(head.Samples(), of_trace);
        Choose_Interval(head.Interval(), U16_At(trace.data() + trace_interval_at, Layout.Order));
        if (Layout.Samples == 0) {
            Told.Faults.push_back(
                "Neither the binary header nor the first trace header tells a sample count: the "
                "traces cannot be found.");
            return;
        }
        Layout.Traces = Traces_Length() / Layout.Trace_Bytes();
        const std::int64_t rest = Traces_Length() % Layout.Trace_Bytes();
        if (Layout.Traces == 0) {
            Told.Faults.push_back("The file ends within its first trace.");
        } else if (rest != 0) {
            Told.Faults.push_back("The file ends within trace " + std::to_string(Layout.Traces + 1) + ": " +
                                  std::to_string(Layout.Traces) + " whole traces are taken, " +
                                  std::to_string(rest) + " bytes are left out.");
        }
    }
    void Choose_Samples(std::int64_t of_file, std::int64_t of_trace) {
        Layout.Samples = of_file > 0 ? of_file : of_trace;
        if (of_file == of_trace || of_trace == 0) return;
        if (of_file == 0) {
            Told.Assumed.push_back("The binary header tells no sample count: " + std::to_string(of_trace) +
                                   ", that of the first trace, is taken.");
            return;
        }
        const bool file_fits = Fits(of_file);
        bool by_trace = Fits(of_trace) && !file_fits;
        const bool neither = !file_fits && !by_trace;
        if (neither) by_trace = Leads_To_A_Trace(of_trace, of_trace) && !Leads_To_A_Trace(of_file, of_trace);
        if (by_trace) Layout.Samples = of_trace;
        Told.Assumed.push_back("The binary header tells " + std::to_string(of_file) +
                               " samples, the first trace " + std::to_string(of_trace) + ": " +
                               std::to_string(Layout.Samples) +
                               (neither ? " is taken, neither fits the length of the file."
                                        : " is taken, it fits the length of the file."));
    }
    void Choose_Interval(double of_file, int of_trace) {
        Layout.Interval = of_file > 0 ? of_file : of_trace;
        if (of_file == 0 && of_trace > 0) {
            Told.Assumed.push_back("The binary header tells no sample interval: " + CStr(of_trace) +
                                   " microseconds, that of the first trace, is taken.");
        } else if (of_trace > 0 && Rounded(of_file) != of_trace) {
            Told.Assumed.push_back("The binary header tells " + CStr(of_file) +
                                   " microseconds a sample, the first trace " + CStr(of_trace) + ": " +
                                   CStr(of_file) + " is taken.");
        }
        if (Layout.Interval == 0) Told.Faults.push_back("No sample interval is told: dt is 0.");
    }

    ByteSource& Source;
    std::int64_t Length;
    FieldFile& Told;
    SegyLayout Layout;
    std::int64_t Trailer = 0;
};

bool Format_In_Either_Order(const std::string& binary) {
    return binary.size() == binary_bytes && (Known(BinaryHead(binary, ByteOrder::Big).Format()) ||
                                             Known(BinaryHead(binary, ByteOrder::Little).Format()));
}

}  // namespace

const SegyFormat* Segy_Format(int code) {
    const auto* found = std::find_if(formats.begin(), formats.end(),
                                     [code](const SegyFormat& one) { return one.Code == code; });
    return found == formats.end() ? nullptr : found;
}

bool Looks_Like_Segy(ByteSource& source) {
    const std::string text = Bytes_Of_Source(source, 0, segy_text_bytes);
    const std::string binary = Bytes_Of_Source(source, segy_text_bytes, binary_bytes);
    return text.size() == segy_text_bytes && Format_In_Either_Order(binary) &&
           !Kind_Of_Text_Header(text).empty();
}

bool May_Be_Segy_Without_Text(ByteSource& source) {
    const std::string binary = Bytes_Of_Source(source, segy_text_bytes, binary_bytes);
    const std::string trace = Bytes_Of_Source(source, segy_heads_bytes, trace_head);
    if (trace.size() < trace_head || !Format_In_Either_Order(binary)) return false;
    const ByteOrder order = Order_Of(binary, trace, source.Length().value_or(0));
    const BinaryHead head(binary, order);
    const std::int64_t samples = head.Samples();
    return Segy_Format(head.Format()) != nullptr && samples > 0 &&
           U16_At(trace.data() + trace_samples_at, order) == samples;
}

SegyLayout Look_At_Segy(ByteSource& source, FieldFile& told) {
    return LayoutSearch(source, told).Find();
}

}  // namespace tarnvik
