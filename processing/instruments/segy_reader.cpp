// SEG-Y of 1975 and its revisions 1 and 2. Where the traces stand is found here, with an eye on the length of
// the file; segyio reads the words of their headers and the samples, always from bytes that are whole.

#include <segyio/segy.h>

#include <algorithm>
#include <cstring>

#include "core/fault.h"
#include "core/text/number.h"
#include "processing/instruments/field_reader.h"
#include "processing/instruments/segy_layout.h"
#include "processing/instruments/trace_remarks.h"

namespace tarnvik {

namespace {

constexpr int last_common_word = 71;  ///< up to byte 180 the words are those of an SU header

void Turn(char* bytes, std::size_t size) {
    std::reverse(bytes, bytes + size);
}

template <typename Number>
void Take(const std::string& bytes, std::vector<float>& samples, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        Number value;
        std::memcpy(&value, bytes.data() + i * sizeof value, sizeof value);
        samples[i] = static_cast<float>(value);
    }
}

class SegyReader : public FieldReader {
  public:
    explicit SegyReader(ByteSource& source) : Source(source) {
        Told.Format = "SEG-Y";
        Layout = Look_At_Segy(source, Told);
        Told.Traces = Layout.Traces;
        Told.Interval = Layout.Interval;
        Told.Samples = static_cast<int>(std::min<std::int64_t>(Layout.Samples, most_samples));
        Told.Usable = Layout.Traces > 0 && Samples_Fit();
        if (!Told.Usable) return;
        Look_At_Counts();
        const TraceHeader first = Header(1).Words;
        Told.Delay = first.Word(words::delrt);
        for (const int word : {words::fldr, words::ep}) {
            if (!Told.Shot && first.Word(word) != 0) Told.Shot = static_cast<std::int64_t>(first.Word(word));
        }
    }

    FieldHeader Header(std::int64_t trace) override {
        std::string bytes(header_length, '\0');
        Source.Read_At(Layout.Position(trace), bytes.data(), bytes.size());
        if (trace > std::max(looked_at, LastLookedAt)) {
            Look_At_Count(bytes, trace, Late);
            LastLookedAt = trace;
        }
        FieldHeader header;
        for (int word = 1; word <= last_common_word; ++word) {
            const HeaderWord& row = Header_Word(word);
            if (Layout.Order == ByteOrder::Little)
                Turn(bytes.data() + row.Offset, static_cast<std::size_t>(Size_Of_Word(row.Type)));
            std::int32_t value = 0;
            if (segy_get_field(bytes.data(), row.Offset + 1, &value) == SEGY_OK)
                header.Words.Set_Word(word, value);
        }
        header.Words.Set_Word(words::ns, Told.Samples);
        header.Words.Set_Word(words::dt, Rounded(Layout.Interval));
        return header;
    }

    void Samples(std::int64_t trace, std::vector<float>& samples) override {
        const auto count = static_cast<std::size_t>(Layout.Samples);
        const auto size = static_cast<std::size_t>(Layout.Format->Bytes);
        Bytes.resize(count * size);
        Source.Read_At(Layout.Position(trace) + Layout.HeaderBytes, Bytes.data(), Bytes.size());
        samples.assign(count, 0.0F);
        if (Layout.Format->Code == format_float64) {
            for (std::size_t i = 0; i < count; ++i)
                samples[i] = static_cast<float>(Double_At(Bytes.data() + i * size, Layout.Order));
            return;
        }
        // It takes bytes for big-endian ones.
        for (std::size_t i = 0; Layout.Order == ByteOrder::Little && i < count; ++i)
            Turn(Bytes.data() + i * size, size);
        if (segy_to_native(Layout.Format->Code, Layout.Samples, Bytes.data()) != SEGY_OK)
            throw Fault("the samples cannot be read");
        switch (Layout.Format->Code) {
            case SEGY_SIGNED_INTEGER_4_BYTE:
                return Take<std::int32_t>(Bytes, samples, count);
            case SEGY_SIGNED_SHORT_2_BYTE:
                return Take<std::int16_t>(Bytes, samples, count);
            case SEGY_SIGNED_CHAR_1_BYTE:
                return Take<std::int8_t>(Bytes, samples, count);
            default:
                return Take<float>(Bytes, samples, count);
        }
    }

    std::vector<std::string> Late_Faults() const override {
        std::vector<std::string> faults;
        Late.Tell(faults, Layout.Traces);
        return faults;
    }

  private:
    static constexpr std::int64_t looked_at = 1000;  ///< traces
    static constexpr int format_float64 = 6;         // of revision 2, unknown to the library

    bool Samples_Fit() {
        if (Layout.Samples > most_samples) {
            Told.Faults.push_back(
                "The traces have " + std::to_string(Layout.Samples) + " samples, an SU file holds " +
                std::to_string(most_samples) +
                " at most: the file is left out. Bring it to SU elsewhere and shorten it with "
                "the SU file utility.");
        }
        if (Layout.Interval > longest_interval) {
            Told.Faults.push_back("The sample interval, " + CStr(Layout.Interval) +
                                  " microseconds, does not fit the word dt: the file is left out.");
        }
        if (const double whole = Rounded(Layout.Interval); whole != Layout.Interval) {
            Told.Assumed.push_back("The sample interval, " + CStr(Layout.Interval) +
                                   " microseconds, is no whole number: dt is " + CStr(whole) + ".");
        }
        return Layout.Samples <= most_samples && Layout.Interval <= longest_interval;
    }

    /// A trace whose header tells another sample count than that by which it stands in the file.
    void Look_At_Count(const std::string& head, std::int64_t trace, TraceRemarks& remarks) const {
        const int samples = U16_At(head.data() + Header_Word(words::ns).Offset, Layout.Order);
        if (samples == 0 || samples == Layout.Samples) return;
        remarks.Add("The header of the trace tells another sample count; " + std::to_string(Layout.Samples) +
                        " samples are taken.",
                    trace);
    }
    /// The first traces alone: a large file is not read as a whole before it is converted.
    void Look_At_Counts() {
        TraceRemarks remarks;
        for (std::int64_t trace = 1; trace <= std::min(Layout.Traces, looked_at); ++trace)
            Look_At_Count(Bytes_Of_Source(Source, Layout.Position(trace), header_length), trace, remarks);
        remarks.Tell(Told.Faults, Layout.Traces);
    }

    ByteSource& Source;
    SegyLayout Layout;
    TraceRemarks Late;
    std::int64_t LastLookedAt = 0;
    std::string Bytes;
};

}  // namespace

std::unique_ptr<FieldReader> Open_Segy_File(ByteSource& source) {
    return std::make_unique<SegyReader>(source);
}

}  // namespace tarnvik
