#include "setup/extract_records.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "core/files.h"
#include "records/spread_layout.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

template <class T>
void Put(std::string& trace, int word, T value) {
    const auto offset = static_cast<std::size_t>(Header_Word(word).Offset);
    if (offset + sizeof value <= trace.size()) std::memcpy(trace.data() + offset, &value, sizeof value);
}

}  // namespace

std::string Extract_Records(const Workspace& workspace, int shot, const std::string& target) {
    const std::string path = Su_Path(workspace.Project);
    SuTraces records(path);
    if (!records.Is_Open()) return records.Reason();
    if (records.Samples_Word() < 0 || records.Length() < header_length) return path + " holds no trace";
    const SpreadLayout layout(workspace, records);
    const std::int64_t length = Trace_Length(records.Nb_Samples());
    PositionedFile source(path, PositionedFile::Access::Read);
    return Replace_File_In_Pieces(target, [&](const PieceWriter& write) -> std::string {
        std::string bytes;
        for (std::int64_t trace = 1; Trace_Position(trace, records.Nb_Samples()) < source.Length(); ++trace) {
            const std::int64_t position = Trace_Position(trace, records.Nb_Samples());
            // The last trace may have been cut short; what there is of it is kept.
            bytes.resize(static_cast<std::size_t>(std::min(length, source.Length() - position)));
            if (!source.Read(position, bytes.data(), static_cast<std::int64_t>(bytes.size())))
                return source.Reason();
            const int record = layout.Record_Of(trace);
            const int shot_of_trace = layout.Shot_Of(record);
            if (shot_of_trace == shot) continue;
            Put(bytes, words::trid, static_cast<std::int16_t>(live_trace));
            if (workspace.Record.SeveralSpreads && trace == layout.First_Trace(record)) {
                const int station = shot_of_trace > shot ? shot_of_trace - 1 : shot_of_trace;
                Put(bytes, words::ep, static_cast<std::int32_t>(station));
            }
            if (!write(bytes)) return {};
        }
        return {};
    });
}

}  // namespace tarnvik
