#include "processing/header_check.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>

#include "core/text/number.h"
#include "processing/header_reader.h"
#include "records/su_check.h"

namespace tarnvik {

namespace {

constexpr std::size_t most_faults = 200;  ///< beyond which a list is not read any more

using Channels = std::vector<std::int32_t>;

/// What the check needs of one trace.
struct TraceLook {
    std::int32_t Record = 0;   ///< `fldr`
    std::int32_t Channel = 0;  ///< `tracf`
    bool Dead = false;
    bool Picked = false;
};

/// Traces that follow each other and make one record.
struct RecordLook {
    std::size_t First = 0;  ///< from 0
    std::size_t Last = 0;
};

std::string Count(std::size_t number) {
    return CStr(static_cast<double>(number));
}

std::string Traces_Text(const RecordLook& record) {
    return record.First == record.Last
               ? "trace " + Count(record.First + 1)
               : "traces " + Count(record.First + 1) + " to " + Count(record.Last + 1);
}

/// "3", "3 and 4", "3, 7 to 9" of numbers that rise.
std::string Ranges(const Channels& numbers) {
    std::vector<std::string> parts;
    for (std::size_t i = 0; i < numbers.size();) {
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1)
            ++last;
        const std::string from = CStr(numbers[i]);
        if (last == i) {
            parts.push_back(from);
        } else {
            parts.push_back(from + (last == i + 1 ? " and " : " to ") + CStr(numbers[last]));
        }
        i = last + 1;
    }
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i)
        text += (i == 0 ? "" : ", ") + parts[i];
    return text;
}

std::string Channels_Text(const Channels& channels, const std::string& what) {
    return channels.size() == 1 ? "channel " + Ranges(channels) + " is " + what
                                : "channels " + Ranges(channels) + " are " + what;
}

template <class Begins>
std::vector<RecordLook> Records_Of(const std::vector<TraceLook>& traces, const Begins& begins) {
    std::vector<RecordLook> records;
    for (std::size_t i = 0; i < traces.size(); ++i) {
        if (i == 0 || begins(traces[i - 1], traces[i])) records.push_back({i, i});
        records.back().Last = i;
    }
    return records;
}

/// The size that most records have, of several the largest.
std::size_t Usual_Size(const std::vector<RecordLook>& records) {
    std::map<std::size_t, std::size_t> sizes;
    for (const RecordLook& record : records)
        ++sizes[record.Last - record.First + 1];
    std::size_t usual = 0;
    for (const auto& [size, count] : sizes) {
        if (usual == 0 || count >= sizes[usual]) usual = size;
    }
    return usual;
}

/// How the channels of a record are wrong; empty when they are 1 to `size` in any order.
std::string Wrong_Channels(Channels channels, std::size_t size) {
    std::sort(channels.begin(), channels.end());
    Channels repeated;
    Channels missing;
    for (std::size_t i = 1; i < channels.size(); ++i) {
        if (channels[i] == channels[i - 1] && (repeated.empty() || repeated.back() != channels[i]))
            repeated.push_back(channels[i]);
    }
    const bool runs = repeated.empty() && channels.size() == size &&
                      channels.back() - channels.front() + 1 == static_cast<std::int64_t>(size);
    if (runs && channels.front() == 1) return {};
    if (runs) return "channels " + Ranges(channels) + " instead of 1 to " + Count(size);
    for (std::int32_t channel = 1; channel <= static_cast<std::int64_t>(size); ++channel) {
        if (!std::binary_search(channels.begin(), channels.end(), channel)) missing.push_back(channel);
    }
    Channels foreign;
    for (const std::int32_t channel : channels) {
        const bool inside = channel >= 1 && channel <= static_cast<std::int64_t>(size);
        if (!inside && (foreign.empty() || foreign.back() != channel)) foreign.push_back(channel);
    }
    std::string text;
    const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : "; ") + part; };
    if (!missing.empty()) add(Channels_Text(missing, "missing"));
    if (!repeated.empty()) add(Channels_Text(repeated, "repeated"));
    if (!foreign.empty()) add(Channels_Text(foreign, "beyond 1 to " + Count(size)));
    return text;
}

class Looking {
  public:
    Looking(std::vector<TraceLook> traces, std::vector<std::string>& faults)
        : Traces(std::move(traces)), Faults(faults) {}

    void Look() {
        if (Traces.empty()) return;
        Find_Records();
        Look_At_Channels();
        Look_At_Picks();
    }

  private:
    void Find_Records() {
        const auto other_number = [](const TraceLook& before, const TraceLook& now) {
            return now.Record != before.Record;
        };
        const auto channel_falls = [](const TraceLook& before, const TraceLook& now) {
            return now.Channel < before.Channel;
        };
        Records = Records_Of(Traces, other_number);
        std::vector<RecordLook> by_channel = Records_Of(Traces, channel_falls);
        const bool many = by_channel.size() > 1;
        if (Records.size() == 1 && many) {
            Faults.push_back("fldr is " + CStr(Traces.front().Record) +
                             " in all traces, though tracf begins anew " + Count(by_channel.size() - 1) +
                             " times: the records are not numbered.");
            Records = std::move(by_channel);
        } else if (Records.size() == Traces.size() && Traces.size() > 1 &&
                   by_channel.size() * 2 < Traces.size()) {
            Faults.emplace_back("fldr changes with every trace: it does not number the records.");
            Records = std::move(by_channel);
        } else {
            Look_At_Numbers();
        }
    }
    void Look_At_Numbers() {
        std::map<std::int32_t, RecordLook> met;
        for (const RecordLook& record : Records) {
            const std::int32_t number = Traces[record.First].Record;
            const auto [before, fresh] = met.try_emplace(number, record);
            if (!fresh) {
                Faults.push_back("fldr " + CStr(number) + " stands in " + Traces_Text(before->second) +
                                 " and again in " + Traces_Text(record) + ".");
            }
        }
    }
    std::string Name_Of(std::size_t place) const {
        return "Record " + Count(place + 1) + " (" + Traces_Text(Records[place]) + ")";
    }
    void Look_At_Channels() {
        const bool constant = std::all_of(Traces.begin(), Traces.end(), [this](const TraceLook& trace) {
            return trace.Channel == Traces.front().Channel;
        });
        if (constant && Traces.size() > 1) {
            Faults.push_back("tracf is " + CStr(Traces.front().Channel) +
                             " in all traces: the channels are not numbered.");
            return;
        }
        const std::size_t size = Usual_Size(Records);
        for (std::size_t place = 0; place < Records.size(); ++place) {
            Channels channels;
            for (std::size_t i = Records[place].First; i <= Records[place].Last; ++i)
                channels.push_back(Traces[i].Channel);
            const std::string wrong = Wrong_Channels(std::move(channels), size);
            if (!wrong.empty()) Faults.push_back(Name_Of(place) + ": " + wrong + ".");
        }
    }
    void Look_At_Picks() {
        const auto picked = [](const TraceLook& trace) { return trace.Picked; };
        if (std::none_of(Traces.begin(), Traces.end(), picked)) {
            Faults.emplace_back("No trace has a first-break pick.");
            return;
        }
        for (std::size_t place = 0; place < Records.size(); ++place) {
            const auto first = Traces.begin() + static_cast<std::ptrdiff_t>(Records[place].First);
            const auto end = Traces.begin() + static_cast<std::ptrdiff_t>(Records[place].Last) + 1;
            const bool alive = std::any_of(first, end, [](const TraceLook& trace) { return !trace.Dead; });
            if (alive && std::none_of(first, end, picked)) Faults.push_back(Name_Of(place) + ": no picks.");
        }
    }

    std::vector<TraceLook> Traces;
    std::vector<std::string>& Faults;
    std::vector<RecordLook> Records;
};

}  // namespace

std::vector<std::string> Check_Headers(const std::string& path) {
    const SuCheck file = Check_Su_File(path);
    std::vector<std::string> faults = file.Wrong;
    if (file.Refused()) return faults;
    HeaderReader headers(path);
    std::vector<TraceLook> traces;
    traces.reserve(static_cast<std::size_t>(headers.Nb_Traces()));
    std::vector<std::string> late;
    for (std::int64_t trace = 1; headers.Take(trace); ++trace) {
        const double pick = headers.Word(words::First_Breaks);
        const int kind = static_cast<int>(headers.Word(words::trid));
        traces.push_back({static_cast<std::int32_t>(headers.Word(words::fldr)),
                          static_cast<std::int32_t>(headers.Word(words::tracf)), kind == dead_trace,
                          pick != 0});
        const double end = headers.Word(words::delrt) + headers.Nb_Samples() * headers.Word(words::dt) / 1000;
        if (pick / 10 > end && late.size() <= most_faults) {
            late.push_back("Trace " + CStr(static_cast<double>(trace)) + ": the pick at " + CStr(pick / 10) +
                           " ms lies beyond the end of the trace at " + CStr(end) + " ms.");
        }
    }
    Looking(std::move(traces), faults).Look();
    faults.insert(faults.end(), late.begin(), late.end());
    if (faults.size() > most_faults) {
        const std::size_t more = faults.size() - most_faults;
        faults.resize(most_faults);
        faults.push_back("... and " + Count(more) + " more.");
    }
    return faults;
}

}  // namespace tarnvik
