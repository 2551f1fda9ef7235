#include <algorithm>
#include <cstdint>

#include "records/record_display.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

/// What changed of a file, as far as the record on screen shows it.
struct ShownChange {
    bool Record = false;    ///< more than picks
    bool Length = false;    ///< the number of samples or their interval
    bool Channels = false;  ///< the channel words of the first record
    std::int64_t FirstPick = 0;
    std::int64_t LastPick = -1;

    void Add_Pick(std::int64_t trace) {
        FirstPick = LastPick < FirstPick ? trace : std::min(FirstPick, trace);
        LastPick = std::max(LastPick, trace);
    }
};

bool Within(std::int64_t offset, std::int64_t length, int word, std::int64_t bytes) {
    const int start = Header_Word(word).Offset;
    return offset >= start && offset + length <= start + bytes;
}

ShownChange What_Changed(const RecordView& view, const ByteChanges& changes) {
    ShownChange shown;
    const std::int64_t length = Trace_Length(view.NbSamples);
    if (length <= 0) return shown;
    for (const ByteChanges::Run& run : changes.All()) {
        const auto bytes = static_cast<std::int64_t>(std::max(run.Before.size(), run.After.size()));
        const std::int64_t trace = run.Position / length + 1;
        const std::int64_t offset = run.Position % length;
        // A trace that died or lives again is noticed by the one that shows its pick.
        if (Within(offset, bytes, words::First_Breaks, 2) || Within(offset, bytes, words::trid, 2)) {
            shown.Add_Pick(trace);
            continue;
        }
        const int words_of_length = Header_Word(words::ns).Offset;
        if (run.Position < words_of_length + 4 && run.Position + bytes > words_of_length) shown.Length = true;
        const int channel_word = Header_Word(words::tracf).Offset;
        if (trace <= view.ChannelsPerRecord + 1 && offset < channel_word + 4 && offset + bytes > channel_word)
            shown.Channels = true;
        // Anything else counts in the traces shown and in the first one of their record, which has the
        // stations.
        const std::int64_t last = (run.Position + bytes - 1) / length + 1;
        const std::int64_t before = std::max<std::int64_t>(view.ChannelsPerRecord, 1);
        if (last > view.FirstTrace - before && trace <= view.LastTrace) shown.Record = true;
    }
    return shown;
}

/// The file tells other records than those that are shown. A channel word that does not run tells none.
bool Other_Records(const RecordView& view, const std::string& path) {
    SuTraces file(path);
    const std::int16_t channels = Channels_Per_Record(file, file.Nb_Traces().value_or(0));
    return channels > 0 && channels != view.ChannelsPerRecord;
}

}  // namespace

void Show_Change_On_Record(Workspace& workspace, Ports& ports, const ChangeNotice& notice,
                           const ShotColour& shot_colour) {
    if (notice.Parts.Has(ProjectPart::FieldRecords)) {
        Open_Records(workspace, ports);
        return;
    }
    const std::string own = Su_Path(workspace.Project);
    if (std::find(notice.Replaced.begin(), notice.Replaced.end(), own) != notice.Replaced.end()) {
        Reopen_Records(workspace, ports);
        return;
    }
    const RecordView& view = workspace.Record;
    if (view.RecordWidth <= 0) return;
    ShownChange changed;
    const std::string& path = own;
    for (const FileChange* file : notice.Files) {
        if (file->Path == path) changed = What_Changed(view, file->Bytes);
    }
    if (changed.Length || (changed.Channels && Other_Records(view, path))) {
        Open_Records(workspace, ports);
        return;
    }
    const bool spread = notice.Parts.Has(ProjectPart::Counts) || notice.Parts.Has(ProjectPart::Shots) ||
                        notice.Parts.Has(ProjectPart::Receivers);
    if (changed.Record || spread) {
        ports.Show.Display_Record();
    } else if (view.ShowTravelTimes && notice.Parts.Has(ProjectPart::Times)) {
        Show_Picks_On_Record(workspace, ports, view.FirstTrace, view.LastTrace, shot_colour);
    } else if (changed.FirstPick <= changed.LastPick) {
        Show_Picks_On_Record(workspace, ports, changed.FirstPick, changed.LastPick, shot_colour);
    } else if (notice.Parts.Has(ProjectPart::Origins)) {
        // Where a pick comes from shows in its colour.
        Show_Picks_On_Record(workspace, ports, view.FirstTrace, view.LastTrace, shot_colour);
    }
}

}  // namespace tarnvik
