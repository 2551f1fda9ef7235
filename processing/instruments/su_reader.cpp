// SU traces of either byte order.

#include <algorithm>
#include <cstring>

#include "core/text/number.h"
#include "processing/instruments/byte_order.h"
#include "processing/instruments/field_reader.h"
#include "records/su_check.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr std::int64_t samples_at = 114;

class SuReader : public FieldReader {
  public:
    explicit SuReader(ByteSource& source) : Source(source), Length(source.Length().value_or(0)) {
        SuCheck check =
            Check_Su([this](std::int64_t at, std::int64_t count) { return As_It_Stands(at, count); }, Length);
        if (check.Is == SuCheck::Kind::BigEndian) {
            Order = ByteOrder::Big;
            SampleCount = Samples_Word(ByteOrder::Big);
            check =
                Check_Su([this](std::int64_t at, std::int64_t count) { return Turned(at, count); }, Length);
        }
        if (check.Refused()) {
            Refuse(check);
            return;
        }
        SampleCount = Samples_Word(Order);
        Told.Format = "SU";
        Told.ByteOrder = Name_Of_Order(Order);
        Told.SampleFormat = "float32";
        Told.Samples = SampleCount;
        Told.Faults = check.Wrong;
        // Only whole traces are taken, whatever a display would do with a cut one.
        Told.Traces = Length / Trace_Length(SampleCount);
        if (Length % Trace_Length(SampleCount) != 0)
            Told.Assumed.push_back(CStr(static_cast<double>(Told.Traces)) + " whole traces are taken.");
        Told.Usable = Told.Traces > 0;
        const TraceHeader first = Words_Of(1);
        Told.Interval = std::max(first.Word(words::dt), 0.0);
        Told.Delay = first.Word(words::delrt);
        if (first.Word(words::fldr) != 0) Told.Shot = static_cast<std::int64_t>(first.Word(words::fldr));
    }

    FieldHeader Header(std::int64_t trace) override { return {Words_Of(trace), {}}; }

    void Samples(std::int64_t trace, std::vector<float>& samples) override {
        Bytes.resize(static_cast<std::size_t>(SampleCount) * sizeof(float));
        Source.Read_At(Trace_Position(trace, SampleCount) + header_length, Bytes.data(), Bytes.size());
        samples.resize(static_cast<std::size_t>(SampleCount));
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = Float_At(Bytes.data() + i * sizeof(float), Order);
    }

  private:
    std::string As_It_Stands(std::int64_t position, std::int64_t count) {
        return Bytes_Of_Source(Source, position, count);
    }
    /// Bytes of a big-endian file as a little-endian one has them.
    std::string Turned(std::int64_t position, std::int64_t count) {
        const std::int64_t start = position / Trace_Length(SampleCount) * Trace_Length(SampleCount);
        const std::int64_t before = position - start;
        std::string bytes =
            Turned_Round(As_It_Stands(start, std::max<std::int64_t>(before + count, header_length)));
        if (before >= static_cast<std::int64_t>(bytes.size())) return {};
        return bytes.substr(static_cast<std::size_t>(before), static_cast<std::size_t>(count));
    }
    int Samples_Word(ByteOrder order) {
        const std::string bytes = As_It_Stands(samples_at, 2);
        return bytes.size() < 2 ? 0 : U16_At(bytes.data(), order);
    }
    TraceHeader Words_Of(std::int64_t trace) {
        std::string bytes(header_length, '\0');
        Source.Read_At(Trace_Position(trace, SampleCount), bytes.data(), bytes.size());
        if (Order == ByteOrder::Big) bytes = Turned_Round(bytes);
        TraceHeader header;
        std::copy(bytes.begin(), bytes.end(), header.Bytes.begin());
        header.Set_Word(words::ns, SampleCount);
        header.Set_Word(words::dt, Told.Interval == 0 ? header.Word(words::dt) : Told.Interval);
        return header;
    }

    void Refuse(const SuCheck& check) {
        Told.Faults = check.Wrong;
        if (check.Is != SuCheck::Kind::Unusable) return;
        for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
            const int samples = Samples_Word(order);
            if (samples <= most_samples || Length % Trace_Length(samples) != 0) continue;
            Told.Format = "SU";
            Told.ByteOrder = Name_Of_Order(order);
            Told.SampleFormat = "float32";
            Told.Traces = Length / Trace_Length(samples);
            Told.Faults = {"The traces have " + CStr(samples) + " samples, more than " + CStr(most_samples) +
                           ": the file is left out. Shorten it with the SU file utility."};
            return;
        }
    }

    ByteSource& Source;
    std::int64_t Length;
    ByteOrder Order = ByteOrder::Little;
    int SampleCount = 0;
    std::string Bytes;
};

}  // namespace

std::unique_ptr<FieldReader> Open_Su_File(ByteSource& source) {
    return std::make_unique<SuReader>(source);
}

}  // namespace tarnvik
