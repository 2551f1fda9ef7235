#include "processing/merge_su.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "core/files.h"
#include "core/text/number.h"
#include "processing/su_names.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_writer.h"
#include "records/su_file.h"
#include "records/trace_header.h"

namespace tarnvik {

namespace {

/// Tells where a record begins, trace by trace.
class RecordBounds {
  public:
    explicit RecordBounds(bool channels_run) : ChannelsRun(channels_run) {}

    bool Begins(const TraceHeader& header) {
        const double channel = header.Word(words::tracf);
        const double record = header.Word(words::fldr);
        const bool begins = First || (ChannelsRun ? channel <= Channel : record != Record);
        First = false;
        Channel = channel;
        Record = record;
        return begins;
    }

  private:
    bool ChannelsRun;
    bool First = true;
    double Channel = 0;
    double Record = 0;
};

/// The beginning of a file, without the bytes behind its last whole trace.
class WholeTraces : public ByteSource {
  public:
    explicit WholeTraces(const MergePart& part)
        : File(part.Path), Bytes(part.Scan.Traces * Trace_Length(part.Scan.Samples)) {}

    std::size_t Read(char* target, std::size_t count) override {
        const auto left = static_cast<std::size_t>(Bytes - At);
        const std::size_t got = left == 0 ? 0 : File.Read(target, std::min(count, left));
        At += static_cast<std::int64_t>(got);
        return got;
    }
    std::optional<std::int64_t> Length() const override { return Bytes; }
    void Read_At(std::int64_t position, char* target, std::size_t count) override {
        File.Read_At(position, target, count);
    }

  private:
    FileSource File;
    std::int64_t Bytes;
    std::int64_t At = 0;
};

/// Records of a file whose channel word does not run.
std::int64_t Records_By_Number(SuTraces& file, std::int64_t traces) {
    RecordBounds bounds(false);
    std::int64_t records = 0;
    TraceHeader header;
    for (std::int64_t trace = 1; trace <= traces && file.Read_Header(trace, header); ++trace)
        records += bounds.Begins(header) ? 1 : 0;
    return records;
}

MergePart Look_At(const std::string& path) {
    MergePart part{path, Scan_SU_File(path)};
    if (!part.Scan.Good()) {
        if (part.Scan.Refusal.empty()) part.Scan.Refusal = "it holds no trace";
        return part;
    }
    SuTraces file(path);
    part.FirstRecord = static_cast<std::int32_t>(file.Word_Or_Zero(1, words::fldr));
    part.LastRecord = static_cast<std::int32_t>(file.Word_Or_Zero(part.Scan.Traces, words::fldr));
    part.Records = part.Scan.Records.empty() ? Records_By_Number(file, part.Scan.Traces)
                                             : static_cast<std::int64_t>(part.Scan.Records.size());
    return part;
}

std::string Interval_Text(const SuScan& scan) {
    return CStr(scan.Interval / 1000.0) + " ms";
}

/// What differs between the files although they can be merged.
void Note_Differences(MergePlan& plan, const MergeRequest& request) {
    const SuScan& first = plan.Parts.front().Scan;
    bool lengths = false;
    bool delays = false;
    bool channels = false;
    for (const MergePart& part : plan.Parts) {
        lengths |= part.Scan.Samples != first.Samples;
        delays |= part.Scan.Delay != first.Delay;
        channels |= part.Scan.Channels() != first.Channels();
        if (part.Scan.LeftOver > 0) {
            plan.Notes.push_back(Name_Of(part.Path) + ": " + CStr(static_cast<double>(part.Scan.LeftOver)) +
                                 " bytes behind the last whole trace are left out");
        }
        if (part.Scan.Records.empty())
            plan.Notes.push_back(Name_Of(part.Path) +
                                 ": its channel numbers do not run, its records are told by fldr");
    }
    if (lengths) {
        const bool cut = request.Samples == MergeRequest::Length::Shortest;
        plan.Notes.push_back("The files have different sample counts: all traces are " +
                             std::string(cut ? "cut to " : "filled up with zeros to ") + CStr(plan.Samples) +
                             " samples");
    }
    if (delays)
        plan.Notes.push_back("The recordings begin at different times after the shot (delrt), which is kept");
    if (channels) plan.Notes.push_back("The records of the files have different numbers of channels");
    if (request.NumberAnew) return;
    std::set<std::int32_t> numbers;
    for (const MergePart& part : plan.Parts) {
        if (numbers.contains(part.FirstRecord) || numbers.contains(part.LastRecord)) {
            plan.Notes.push_back("Record numbers of " + Name_Of(part.Path) +
                                 " stand in a file before it too");
        }
        // The numbers between first and last are not looked at: a gap there tells nothing.
        numbers.insert({part.FirstRecord, part.LastRecord});
    }
}

std::string Refusal_Of(const MergePlan& plan, const MergeRequest& request) {
    if (plan.Parts.empty()) return "No files are chosen";
    std::string all;
    for (const MergePart& part : plan.Parts) {
        if (part.Scan.Refusal.empty()) continue;
        if (!all.empty()) all += "\r\n";
        const bool named = part.Scan.Refusal.find(part.Path) != std::string::npos;
        all += (named ? "" : part.Path + ": ") + part.Scan.Refusal;
    }
    if (!all.empty()) return all;
    const MergePart& first = plan.Parts.front();
    for (const MergePart& part : plan.Parts) {
        if (part.Scan.Interval != first.Scan.Interval) {
            return Name_Of(first.Path) + " is sampled at " + Interval_Text(first.Scan) + ", " +
                   Name_Of(part.Path) + " at " + Interval_Text(part.Scan) +
                   ": bring them to one interval first, with \"SU file utility\"";
        }
    }
    const std::int64_t records = plan.Parts.back().NewLast;
    if (request.NumberAnew && records != static_cast<std::int32_t>(records))
        return "The record numbers would not fit their word";
    return {};
}

/// Writes one file's traces; false when the user stopped.
bool Append(const MergePart& part, const MergePlan& plan, const MergeRequest& request, TraceWriter& writer,
            TraceResult& result, const TraceProgress& progress) {
    WholeTraces source(part);
    TraceReader reader(source);
    RecordBounds bounds(!part.Scan.Records.empty());
    std::int32_t record = part.NewFirst - 1;
    const auto wanted = static_cast<std::size_t>(plan.Samples);
    while (true) {
        const TraceBlock block = reader.Next_Block();
        if (block.Count() == 0) return true;
        const auto have = block.Values(0).size();
        for (std::size_t i = 0; i < block.Count(); ++i) {
            TraceHeader header;
            std::memcpy(header.Bytes.data(), block.Header(i), header.Bytes.size());
            if (bounds.Begins(header)) ++record;
            if (request.NumberAnew) header.Set_Word(words::fldr, record);
            // Beyond 32767 the word counts without its sign.
            if (have != wanted) header.Set_Word(words::ns, static_cast<std::int16_t>(plan.Samples));
            std::memcpy(block.Header(i), header.Bytes.data(), header.Bytes.size());
            if (have == wanted) continue;
            const auto kept = std::min(have, wanted);
            writer.Put(block.Header(i), 0, block.Values(i).first(kept), wanted - kept);
        }
        if (have == wanted) writer.Put(block, 0, block.Count());
        result.Read += static_cast<std::int64_t>(block.Count());
        if (progress && !progress(result.Read, plan.Traces)) return false;
    }
}

}  // namespace

MergePlan Plan_Merge(const MergeRequest& request) {
    MergePlan plan;
    std::int64_t next = request.FirstRecord;
    for (const std::string& path : request.Files) {
        MergePart& part = plan.Parts.emplace_back(Look_At(path));
        if (!part.Scan.Refusal.empty()) continue;
        part.NewFirst = request.NumberAnew ? static_cast<std::int32_t>(next) : part.FirstRecord;
        next += part.Records;
        part.NewLast = request.NumberAnew ? static_cast<std::int32_t>(next - 1) : part.LastRecord;
        plan.Traces += part.Scan.Traces;
        const bool first = plan.Samples == 0;
        const bool shortest = request.Samples == MergeRequest::Length::Shortest;
        if (first || (part.Scan.Samples < plan.Samples) == shortest) plan.Samples = part.Scan.Samples;
    }
    plan.Refusal = Refusal_Of(plan, request);
    if (plan.Refusal.empty()) Note_Differences(plan, request);
    return plan;
}

TraceResult Merge_SU_Files(const MergeRequest& request, const TraceProgress& progress) {
    const MergePlan plan = Plan_Merge(request);
    TraceResult result;
    result.Notes = plan.Notes;
    result.Failure = plan.Refusal;
    if (!result.Went_Well()) return result;
    for (const MergePart& part : plan.Parts) {
        if (Same_File(part.Path, request.Out)) {
            result.Failure = request.Out + " is one of the files that are merged";
            return result;
        }
    }
    result.Failure = Replace_File_In_Pieces(request.Out, [&](const PieceWriter& write) -> std::string {
        try {
            PieceSink sink(write);
            TraceWriter writer(sink);
            for (const MergePart& part : plan.Parts) {
                try {
                    if (!Append(part, plan, request, writer, result, progress)) return "Stopped";
                } catch (const Fault& fault) {
                    return part.Path + ": " + fault.what();
                }
            }
            writer.Finish();
            result.Written = writer.Traces_Written();
            return {};
        } catch (const Fault& fault) {
            return fault.what();
        }
    });
    return result;
}

}  // namespace tarnvik
