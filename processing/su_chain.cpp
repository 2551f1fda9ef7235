#include "processing/su_chain.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "core/files.h"
#include "core/text/number.h"
#include "records/su_file.h"
#include "records/trace_header.h"

namespace tarnvik {

namespace {

ToolCommand Command(const ChainTools& tools, const std::string& tool, std::vector<std::string> arguments,
                    std::string from, std::string to) {
    return {tools.Launch.Program_Folder() + "/" + tool, std::move(arguments), std::move(from), std::move(to)};
}

ChainEnd Run(const ChainTools& tools, const std::vector<ToolCommand>& commands, const std::string& folder) {
    const ToolResult result = tools.Launch.Run_In_Order(commands, folder, {});
    ChainEnd end;
    end.Stopped = result.Cancelled;
    end.Missing = result.Missing;
    end.Failure = result.Failure;
    if (!result.Went_Well() && result.Done < commands.size()) end.Tool = commands[result.Done].Program;
    return end;
}

ChainEnd Failed(std::string reason) {
    ChainEnd end;
    end.Failure = std::move(reason);
    return end;
}

/// The tools' output is with the operating system; it goes to the disk before it bears the user's name.
ChainEnd Flushed(ChainEnd end, const std::string& target) {
    if (end.Well()) end.Failure = Flush_File(target);
    return end;
}

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}

/// Puts a word into the bytes of a trace, as far as they reach.
void Put(std::string& trace, int word, double value) {
    const auto bytes = Bytes_Of_Word(word, value);
    const auto offset = static_cast<std::size_t>(Header_Word(word).Offset);
    if (bytes && offset + bytes->size() <= trace.size()) trace.replace(offset, bytes->size(), *bytes);
}

std::int16_t Identification(const std::string& trace) {
    const HeaderWord& word = Header_Word(words::trid);
    return static_cast<std::int16_t>(Word_From_Bytes(trace.data() + word.Offset, word.Type));
}

/// Joins whole files, in the order given.
std::string Join(const std::vector<std::string>& parts, const std::string& target) {
    return Replace_File_In_Pieces(target, [&parts](const PieceWriter& write) -> std::string {
        constexpr std::int64_t piece_length = 4 << 20;
        std::string piece;
        for (const std::string& part : parts) {
            PositionedFile file(part, PositionedFile::Access::Read);
            if (!file.Is_Open()) return part + ": " + file.Reason();
            for (std::int64_t at = 0; at < file.Length(); at += piece_length) {
                piece.resize(static_cast<std::size_t>(std::min(piece_length, file.Length() - at)));
                if (!file.Read(at, piece.data(), std::ssize(piece))) return part + ": " + file.Reason();
                if (!write(piece)) return {};
            }
        }
        return {};
    });
}

/// The traces of a file one after the other; `each` answers false to stop.
std::string For_Each_Trace(const std::string& path,
                           const std::function<bool(std::int64_t trace, std::string& bytes)>& each) {
    SuTraces head(path);
    if (!head.Is_Open()) return path + ": " + head.Reason();
    if (head.Samples_Word() < 0 || head.Length() < header_length) return path + " holds no trace";
    const std::int64_t length = Trace_Length(head.Nb_Samples());
    PositionedFile file(path, PositionedFile::Access::Read);
    std::string bytes;
    std::int64_t trace = 1;
    for (std::int64_t at = 0; at < file.Length(); at += length, ++trace) {
        bytes.resize(static_cast<std::size_t>(std::min(length, file.Length() - at)));
        if (!file.Read(at, bytes.data(), std::ssize(bytes))) return path + ": " + file.Reason();
        if (!each(trace, bytes)) break;
    }
    return {};
}

/// What is to be given back to the traces that were kept.
struct KeptTraces {
    std::vector<std::int16_t> Identifications;
    std::vector<std::optional<std::int32_t>> Stations;
    std::string Fragment;  ///< last trace of a file that was cut short, as it is to be kept
};

/// A copy of the whole traces in which those that go are dead and all others live.
std::string Write_Marked(const std::string& source, const std::string& marked, const DropPlan& plan,
                         KeptTraces& kept) {
    const std::int64_t length = Trace_Length(SuTraces(source).Nb_Samples());
    return Replace_File_In_Pieces(marked, [&](const PieceWriter& write) {
        return For_Each_Trace(source, [&](std::int64_t trace, std::string& bytes) {
            const bool goes = plan.Drops(trace);
            if (std::ssize(bytes) < length) {
                if (!goes) kept.Fragment = bytes;
                return true;
            }
            if (!goes) {
                kept.Identifications.push_back(Identification(bytes));
                kept.Stations.push_back(plan.Station ? plan.Station(trace) : std::nullopt);
            }
            Put(bytes, words::trid, goes ? dead_trace : live_trace);
            return write(bytes);
        });
    });
}

std::string Write_Restored(const std::string& windowed, const std::string& target, const KeptTraces& kept) {
    const auto count = static_cast<std::int64_t>(kept.Identifications.size());
    const std::optional<std::int32_t> found = count == 0 ? 0 : SuTraces(windowed).Nb_Traces();
    if (found != count) {
        return "suwind has kept " + CStr(static_cast<double>(found.value_or(0))) + " traces instead of " +
               CStr(static_cast<double>(count));
    }
    return Replace_File_In_Pieces(target, [&](const PieceWriter& write) -> std::string {
        std::string reason;
        if (count > 0) {
            reason = For_Each_Trace(windowed, [&](std::int64_t trace, std::string& bytes) {
                const auto place = static_cast<std::size_t>(trace) - 1;
                if (place >= kept.Identifications.size()) return false;
                Put(bytes, words::trid, kept.Identifications[place]);
                if (kept.Stations[place]) Put(bytes, words::ep, *kept.Stations[place]);
                return write(bytes);
            });
        }
        if (reason.empty() && !kept.Fragment.empty()) write(kept.Fragment);
        return reason;
    });
}

}  // namespace

ChainEnd Run_Tool(const ChainTools& tools, const std::string& tool, std::vector<std::string> arguments,
                  const std::string& source, const std::string& target) {
    return Flushed(
        Run(tools, {Command(tools, tool, std::move(arguments), source, target)}, Folder_Of(target)), target);
}

ChainEnd Extract_Channels(const ChainTools& tools, const std::string& source, const std::string& target,
                          int first, int last, int count) {
    const ChainFolder work(tools.Edits, target);
    if (!work.Reason().empty()) return Failed(work.Reason());
    const std::string between = work / "tmp.su";
    return Flushed(
        Run(tools,
            {Command(tools, "suwind", {"key=tracf", "min=" + CStr(first), "max=" + CStr(last)}, source,
                     between),
             Command(tools, "sushw", {"key=tracf", "a=1", "b=1", "j=" + CStr(count)}, between, target)},
            Folder_Of(target)),
        target);
}

int Channels_Kept(const std::string& source, int first, int last) {
    SuTraces file(source);
    const std::int32_t traces = file.Nb_Traces().value_or(0);
    int most = 0;
    int kept = 0;
    double before = 0;
    for (std::int32_t trace = 1; trace <= traces; ++trace) {
        const auto channel = file.Word(trace, words::tracf);
        if (!channel) break;
        if (*channel <= before) kept = 0;
        before = *channel;
        if (*channel >= first && *channel <= last) most = std::max(most, ++kept);
    }
    return most;
}

ChainEnd Resample(const ChainTools& tools, const std::string& source, const std::string& target, int samples,
                  double interval_us, double start_ms) {
    return Run_Tool(
        tools, "suresamp",
        {"dt=" + Number(interval_us / 1e6), "tmin=" + Number(start_ms / 1000), "nt=" + CStr(samples)}, source,
        target);
}

ChainEnd Stack_Records(const ChainTools& tools, const std::string& source, const std::string& target,
                       const StackPlan& plan, ChainFolder& work) {
    if (!work.Reason().empty()) return Failed(work.Reason());
    const auto temporary = [&work](int number) { return work / ("tmp" + CStr(number) + ".su"); };
    const std::vector<std::string> number_records = {"key=fldr", "a=1", "b=0", "c=1",
                                                     "j=" + CStr(plan.Channels)};
    const auto window = [&](int to, int least, int most) {
        return Command(tools, "suwind", {"key=fldr", "min=" + CStr(least), "max=" + CStr(most)}, temporary(0),
                       temporary(to));
    };
    const bool before = plan.First > 1;
    const bool behind = plan.Last < plan.Records;
    std::vector<ToolCommand> commands = {Command(tools, "sushw", number_records, source, temporary(0))};
    if (before) commands.push_back(window(1, 1, plan.First - 1));
    commands.push_back(window(2, plan.First, plan.Last));
    if (behind) commands.push_back(window(3, plan.Last + 1, plan.Records));
    commands.push_back(Command(tools, "susort", {"tracf"}, temporary(2), temporary(4)));
    commands.push_back(Command(tools, "sustack", {"key=tracf"}, temporary(4), temporary(5)));
    commands.push_back(
        Command(tools, "sushw", {"key=fldr", "a=" + CStr(plan.First)}, temporary(5), temporary(6)));
    ChainEnd end = Run(tools, commands, Folder_Of(target));
    if (!end.Well()) return end;
    std::vector<std::string> parts;
    if (before) parts.push_back(temporary(1));
    parts.push_back(temporary(6));
    if (behind) parts.push_back(temporary(3));
    end.Failure = Join(parts, temporary(7));
    if (!end.Well()) return end;
    return Run_Tool(tools, "sushw", number_records, temporary(7), target);
}

ChainEnd Drop_Traces(const ChainTools& tools, const std::string& source, const std::string& target,
                     const DropPlan& plan) {
    const ChainFolder work(tools.Edits, target);
    if (!work.Reason().empty()) return Failed(work.Reason());
    KeptTraces kept;
    std::string reason = Write_Marked(source, work / "tmp.su", plan, kept);
    if (!reason.empty()) return Failed(std::move(reason));
    ChainEnd end =
        Run_Tool(tools, "suwind", {"key=trid", "min=1", "max=1"}, work / "tmp.su", work / "out.su");
    if (end.Well()) end.Failure = Write_Restored(work / "out.su", target, kept);
    return end;
}

}  // namespace tarnvik
