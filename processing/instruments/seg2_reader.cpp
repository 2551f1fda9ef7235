// SEG-2, the standard of 1990 for files of engineering seismographs (S. E. Pullan, Geophysics 55): a block
// that points at the descriptor of each trace, the samples behind each descriptor.

#include <algorithm>
#include <cmath>
#include <set>

#include "core/fault.h"
#include "core/text/number.h"
#include "processing/instruments/field_reader.h"
#include "processing/instruments/seg2_samples.h"
#include "processing/instruments/seg2_strings.h"
#include "processing/instruments/seg2_words.h"

namespace tarnvik {

namespace {

constexpr std::int64_t block_head = 32;  ///< fixed part of each descriptor block
constexpr std::uint16_t trace_marker = 0x4422;
constexpr std::uint16_t file_marker = 0x3A55;
constexpr double microseconds = 1e6;

/// Where a trace stands and how it becomes one of the SU file.
struct StoredTrace {
    std::int64_t Position = 0;  ///< of the descriptor block
    std::int64_t Data = 0;
    std::int64_t Samples = 0;
    Seg2Code Code = Seg2Code::Int16;
    double Factor = 1;
    FieldHeader Header;
};

/// End marks in the head of the file: a length and two letters.
std::string End_Mark(const std::string& head, std::size_t at) {
    const auto length = static_cast<unsigned char>(head[at]);
    return length >= 1 && length <= 2 ? head.substr(at + 1, length) : std::string();
}

class Seg2Reader : public FieldReader {
  public:
    explicit Seg2Reader(ByteSource& source) : Source(source), Length(source.Length().value_or(0)) {
        Told.Format = "SEG-2";
        const std::string head = Bytes_Of_Source(Source, 0, block_head);
        if (static_cast<std::int64_t>(head.size()) < block_head) {
            Told.Faults.push_back("The file ends within the file descriptor block.");
            return;
        }
        Order = U16_At(head.data(), ByteOrder::Little) == file_marker ? ByteOrder::Little : ByteOrder::Big;
        Told.ByteOrder = Name_Of_Order(Order);
        Ends = {End_Mark(head, 8), End_Mark(head, 11)};
        const std::vector<std::int64_t> places = Pointers(head);
        Read_File_Strings(places);
        Blocks.insert(places.begin(), places.end());
        for (const std::int64_t place : places)
            Take_Trace(place);
        Finish(places.size());
    }

    FieldHeader Header(std::int64_t trace) override { return At(trace).Header; }

    void Samples(std::int64_t trace, std::vector<float>& samples) override {
        const StoredTrace& stored = At(trace);
        const auto count = static_cast<std::size_t>(stored.Samples);
        Bytes.resize(static_cast<std::size_t>(Bytes_Of_Samples(stored.Code, stored.Samples)));
        Source.Read_At(stored.Data, Bytes.data(), Bytes.size());
        Decoded.resize(count);
        Decode_Seg2(Bytes, stored.Code, Order, Decoded);
        samples.assign(static_cast<std::size_t>(Told.Samples), 0.0F);
        for (std::size_t i = 0; i < count; ++i)
            samples[i] = static_cast<float>(Decoded[i] * stored.Factor);
    }

  private:
    const StoredTrace& At(std::int64_t trace) const {
        if (trace < 1 || trace > static_cast<std::int64_t>(Traces.size())) throw Fault("no such trace");
        return Traces[static_cast<std::size_t>(trace - 1)];
    }
    void Wrong(const std::string& sentence) { Told.Faults.push_back(sentence); }

    /// Places of the trace descriptor blocks that lie in the file.
    std::vector<std::int64_t> Pointers(const std::string& head) {
        constexpr std::int64_t pointer_bytes = 4;
        const std::int64_t block = U16_At(head.data() + 4, Order);
        std::int64_t count = U16_At(head.data() + 6, Order);
        const std::int64_t room =
            std::min(block, std::max<std::int64_t>(Length - block_head, 0)) / pointer_bytes;
        if (count > room) {
            Wrong("The file tells " + std::to_string(count) + " traces, its list of traces has room for " +
                  std::to_string(room) + ".");
            count = room;
        }
        StringsAt = block_head + block;
        const std::string list = Bytes_Of_Source(Source, block_head, count * pointer_bytes);
        std::vector<std::int64_t> places;
        std::set<std::int64_t> met;
        for (std::int64_t i = 0; i < count; ++i) {
            const std::int64_t place = U32_At(list.data() + i * pointer_bytes, Order);
            if (place < block_head || place + block_head > Length) {
                Faults.Add("The trace lies outside the file and is lost.", i + 1);
            } else if (!met.insert(place).second) {
                Faults.Add("The trace stands twice in the list of traces and is taken once.", i + 1);
            } else {
                places.push_back(place);
            }
        }
        return places;
    }

    void Read_File_Strings(const std::vector<std::int64_t>& places) {
        constexpr std::int64_t longest = 1 << 16;
        std::int64_t end = StringsAt + longest;
        for (const std::int64_t place : places) {
            if (place >= StringsAt) end = std::min(end, place);
        }
        OfFile = Read_Seg2_Strings(Bytes_Of_Source(Source, StringsAt, end - StringsAt), Order, Ends);
        Told.Notes = OfFile.Notes;
        for (const auto& [keyword, value] : OfFile.Words)
            Told.Notes.push_back(keyword + " " + value);
    }

    void Take_Trace(std::int64_t place) {
        const std::int64_t number = static_cast<std::int64_t>(Traces.size()) + 1;
        const std::string head = Bytes_Of_Source(Source, place, block_head);
        if (U16_At(head.data(), Order) != trace_marker) {
            Wrong("No trace descriptor block stands at byte " + std::to_string(place) +
                  ": this trace is lost.");
            return;
        }
        const auto code = Seg2_Code(static_cast<unsigned char>(head[12]));
        if (!code) {
            Wrong("Data format code " + std::to_string(static_cast<unsigned char>(head[12])) + " at byte " +
                  std::to_string(place) + " is none of 1 to 5: this trace is lost.");
            return;
        }
        StoredTrace trace;
        trace.Position = place;
        trace.Code = *code;
        const std::int64_t block = std::max<std::int64_t>(U16_At(head.data() + 2, Order), block_head);
        trace.Data = place + block;
        const auto next = Blocks.upper_bound(place);
        const std::int64_t end = next == Blocks.end() ? Length : *next;
        const std::optional<std::int64_t> samples = Samples_Of(head, trace, end, number);
        if (!samples) {
            Wrong("The file ends within the trace at byte " + std::to_string(place) + ": it is left out.");
            return;
        }
        trace.Samples = *samples;
        const Seg2Strings strings =
            Read_Seg2_Strings(Bytes_Of_Source(Source, place + block_head, block - block_head), Order, Ends);
        Seg2Trace told = Read_Seg2_Words(OfFile, strings, number, Assumed, Faults);
        trace.Header = told.Header;
        trace.Factor = told.Factor;
        if (number == 1) {
            for (const std::string& note : strings.Notes)
                Told.Notes.push_back(note);
            for (const auto& [keyword, value] : strings.Words)
                Told.Notes.push_back(keyword + " " + value);
        }
        Tell_Format(Name_Of_Code(*code), number);
        Traces.push_back(std::move(trace));
        Words.push_back(std::move(told));
    }

    /// Samples that the trace has: where the two counts of its descriptor differ, the one that fits the room
    /// up to the next trace or the end of the file. Nothing where the file ends before.
    std::optional<std::int64_t> Samples_Of(const std::string& head, const StoredTrace& trace,
                                           std::int64_t end, std::int64_t number) {
        if (trace.Data > Length) return std::nullopt;
        constexpr std::int64_t padding = 4;  // blocks may be filled up to whole words
        const std::int64_t room = Samples_In_Bytes(trace.Code, std::max<std::int64_t>(end - trace.Data, 0));
        const std::int64_t bytes = U32_At(head.data() + 4, Order);
        const std::int64_t by_bytes = Samples_In_Bytes(trace.Code, bytes);
        const std::int64_t by_count = U32_At(head.data() + 8, Order);
        const std::int64_t spare = bytes - Bytes_Of_Samples(trace.Code, by_count);
        if (spare >= 0 && spare < padding && by_count <= room) return by_count;
        std::int64_t taken = by_count <= room ? by_count : by_bytes;
        if (by_count <= room && by_bytes <= room) {
            const auto fills = [&](std::int64_t count) {
                return end - trace.Data - Bytes_Of_Samples(trace.Code, count) < padding;
            };
            taken = fills(by_bytes) && !fills(by_count) ? by_bytes : by_count;
        }
        if (taken > room) {
            if (end == Length || room == 0) return std::nullopt;
            taken = room;
        }
        Faults.Add("The trace tells " + std::to_string(by_count) + " samples and a block for " +
                       std::to_string(by_bytes) + "; " + std::to_string(taken) + " are taken.",
                   number);
        return taken;
    }

    void Tell_Format(const std::string& name, std::int64_t number) {
        if (Told.SampleFormat.empty()) Told.SampleFormat = name;
        if (Told.SampleFormat != name) Assumed.Add("The samples are of another kind: " + name + ".", number);
    }

    void Finish(std::size_t traces_told) {
        Told.Traces = static_cast<std::int64_t>(Traces.size());
        std::int64_t longest = 0;
        for (const StoredTrace& trace : Traces)
            longest = std::max(longest, trace.Samples);
        for (const StoredTrace& trace : Traces) {
            if (trace.Samples < longest) {
                Assumed.Add("The trace is shorter than others and filled up with zeros to " +
                                std::to_string(longest) + " samples.",
                            &trace - Traces.data() + 1);
            }
        }
        if (Told.Traces == 0 && traces_told == 0) Wrong("The file has no traces.");
        Take_Interval();
        Number_Traces();
        if (!Words.empty()) Told.Delay = Words.front().Delay;
        Told.Usable = Told.Traces > 0 && Length_Fits(longest);
        for (StoredTrace& trace : Traces) {
            trace.Header.Words.Set_Word(words::ns, Told.Samples);
            trace.Header.Words.Set_Word(words::dt, Rounded(Told.Interval));
        }
        Assumed.Tell(Told.Assumed, Told.Traces);
        Faults.Tell(Told.Faults, Told.Traces);
        Words.clear();
    }

    bool Length_Fits(std::int64_t longest) {
        Told.Samples = static_cast<int>(std::min<std::int64_t>(longest, most_samples));
        if (longest == 0) Wrong("The traces have no samples.");
        if (longest > most_samples) {
            Wrong("The traces have " + std::to_string(longest) + " samples, an SU file holds " +
                  std::to_string(most_samples) +
                  " at most: the file is left out. Record in shorter pieces, or bring it to SU elsewhere and "
                  "shorten it with the SU file utility.");
        }
        if (Told.Interval > longest_interval) {
            Wrong("SAMPLE_INTERVAL " + CStr(Told.Interval / microseconds) +
                  " s does not fit the word dt: the file is left out.");
        }
        return longest > 0 && longest <= most_samples && Told.Interval <= longest_interval;
    }

    void Take_Interval() {
        for (std::size_t i = 0; i < Words.size(); ++i) {
            const double interval = Interval_Of(Words[i]);
            const auto number = static_cast<std::int64_t>(i) + 1;
            if (Told.Interval == 0) Told.Interval = interval;
            if (interval == 0) {
                Faults.Add(Told.Interval == 0
                               ? "No SAMPLE_INTERVAL above 0: dt is 0."
                               : "No SAMPLE_INTERVAL above 0: that of the traces before is taken.",
                           number);
            } else if (interval != Told.Interval) {
                Faults.Add("The trace tells SAMPLE_INTERVAL " + CStr(interval / microseconds) +
                               " s; that of the first trace is taken.",
                           number);
            }
        }
        if (const double whole = Rounded(Told.Interval); whole != Told.Interval) {
            Told.Assumed.push_back("SAMPLE_INTERVAL " + CStr(Told.Interval) +
                                   " microseconds is no whole number: dt is " + CStr(whole) + ".");
        }
    }
    static double Interval_Of(const Seg2Trace& trace) {
        const double interval = trace.Interval.value_or(0) * microseconds;
        constexpr double rounding = 1e6;  // what binary fractions leave behind a decimal
        return interval > 0 ? std::max(std::round(interval * rounding) / rounding, 1 / rounding) : 0;
    }

    /// `fldr`, `tracf` and `tracl`. Channels that do not tell the traces apart are those of the file's order.
    void Number_Traces() {
        std::set<std::int64_t> channels;
        for (const Seg2Trace& trace : Words) {
            if (trace.Channel) channels.insert(*trace.Channel);
            if (trace.Shot && !Told.Shot) Told.Shot = trace.Shot;
        }
        const bool by_channel = channels.size() == Words.size();
        if (!by_channel && !Words.empty()) {
            Told.Assumed.push_back(
                channels.empty() ? "No CHANNEL_NUMBER: the traces are numbered as they stand."
                                 : "CHANNEL_NUMBER does not tell the traces apart: they are numbered as "
                                   "they stand.");
        }
        for (std::size_t i = 0; i < Words.size(); ++i) {
            const Seg2Trace& trace = Words[i];
            TraceHeader& header = Traces[i].Header.Words;
            const auto place = static_cast<std::int64_t>(i) + 1;
            const std::int64_t channel = by_channel ? *trace.Channel : place;
            header.Set_Word(words::tracf, static_cast<double>(channel));
            header.Set_Word(words::tracl, static_cast<double>(trace.Station.value_or(channel)));
            header.Set_Word(words::tracr, static_cast<double>(place));
            const auto shot = trace.Shot ? trace.Shot : Told.Shot;
            header.Set_Word(words::fldr, static_cast<double>(shot.value_or(0)));
            if (header.Word(words::ep) == 0)
                header.Set_Word(words::ep, static_cast<double>(shot.value_or(0)));
        }
    }

    ByteSource& Source;
    std::int64_t Length;
    ByteOrder Order = ByteOrder::Little;
    Seg2Ends Ends;
    std::int64_t StringsAt = 0;
    std::set<std::int64_t> Blocks;  ///< places of the trace descriptor blocks
    Seg2Strings OfFile;
    std::vector<StoredTrace> Traces;
    std::vector<Seg2Trace> Words;  ///< of the traces, until the file is looked at
    TraceRemarks Assumed;
    TraceRemarks Faults;
    std::string Bytes;
    std::vector<double> Decoded;
};

}  // namespace

std::unique_ptr<FieldReader> Open_Seg2_File(ByteSource& source) {
    return std::make_unique<Seg2Reader>(source);
}

}  // namespace tarnvik
