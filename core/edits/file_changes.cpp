#include "core/edits/file_changes.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <map>

#include "core/files.h"
#include "core/positioned_file.h"

namespace tarnvik {

namespace {

bool Overlap(const ByteChanges& bytes) {
    std::map<std::int64_t, std::int64_t> taken;
    for (const ByteChanges::Run& run : bytes.All()) {
        const std::int64_t end = run.Position + static_cast<std::int64_t>(run.After.size());
        const auto next = taken.lower_bound(run.Position);
        if (next != taken.end() && next->first < end) return true;
        if (next != taken.begin() && std::prev(next)->second > run.Position) return true;
        taken.emplace_hint(next, run.Position, end);
    }
    return false;
}

/// Empty when every run finds in the file what it is to replace, or what it would write.
std::string Refusal_Of(const FileChange& change, PositionedFile& file, bool back) {
    if (!file.Is_Open()) return change.Path + ": " + file.Reason();
    // Runs over each other find what the one before them wrote; the file itself does not tell.
    const bool overlapping = Overlap(change.Bytes);
    std::string found;
    for (const ByteChanges::Run& run : change.Bytes.All()) {
        const std::string& old = back ? run.After : run.Before;
        const std::string& fresh = back ? run.Before : run.After;
        found.assign(old.size(), '\0');
        if (!file.Read(run.Position, found.data(), std::ssize(found)))
            return change.Path + ": " + file.Reason();
        if (found != old && found != fresh && !overlapping)
            return change.Path + " was changed by another program";
    }
    return {};
}

/// A row of bytes longer than any header word is samples. Those of several traces, with the words beside
/// them, belong together: a file where a kill left one half of them would not fit any state of the project.
bool Belong_Together(const FileChange& change) {
    constexpr std::size_t longest_words = 240;
    const auto& runs = change.Bytes.All();
    return std::count_if(runs.begin(), runs.end(),
                         [](const ByteChanges::Run& run) { return run.After.size() > longest_words; }) > 1;
}

/// The runs are put into the pieces of a new file, which then takes the place of the old one.
std::string Replace_All(const FileChange& change, PositionedFile& file, bool back) {
    constexpr std::int64_t piece_length = 4 << 20;
    return Replace_File_In_Pieces(change.Path, [&](const PieceWriter& write) -> std::string {
        std::string piece;
        for (std::int64_t start = 0; start < file.Length(); start += piece_length) {
            piece.resize(static_cast<std::size_t>(std::min(piece_length, file.Length() - start)));
            if (!file.Read(start, piece.data(), std::ssize(piece))) return file.Reason();
            const auto& runs = change.Bytes.All();
            for (std::size_t i = 0; i < runs.size(); ++i) {
                const ByteChanges::Run& run = back ? runs[runs.size() - 1 - i] : runs[i];
                const std::string& fresh = back ? run.Before : run.After;
                const std::int64_t from = std::max(run.Position, start);
                const std::int64_t to = std::min(run.Position + std::ssize(fresh), start + std::ssize(piece));
                if (from < to) {
                    piece.replace(static_cast<std::size_t>(from - start), static_cast<std::size_t>(to - from),
                                  fresh, static_cast<std::size_t>(from - run.Position),
                                  static_cast<std::size_t>(to - from));
                }
            }
            if (!write(piece)) return "not copied";
        }
        return {};
    });
}

bool Write_All(const FileChange& change, PositionedFile& file, bool back) {
    const auto& runs = change.Bytes.All();
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const ByteChanges::Run& run = back ? runs[runs.size() - 1 - i] : runs[i];
        const std::string& fresh = back ? run.Before : run.After;
        if (!file.Write(run.Position, fresh.data(), std::ssize(fresh))) return false;
    }
    return true;
}

}  // namespace

std::string Apply_To_Files(const std::vector<FileChange>& files, ByteChanges::Direction direction) {
    const bool back = direction == ByteChanges::Direction::Back;
    std::deque<PositionedFile> open;
    // First all is looked at, then all is written.
    for (const FileChange& change : files) {
        open.emplace_back(change.Path, PositionedFile::Access::Write);
        std::string refusal = Refusal_Of(change, open.back(), back);
        if (!refusal.empty()) return refusal;
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (Belong_Together(files[i])) {
            const std::string reason = Replace_All(files[i], open[i], back);
            if (!reason.empty()) return files[i].Path + ": " + reason;
        } else if (!Write_All(files[i], open[i], back)) {
            return files[i].Path + ": " + open[i].Reason();
        }
    }
    return {};
}

}  // namespace tarnvik
