// The part of Edits that replaces files as a whole.

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/edits/edits.h"
#include "core/edits/file_changes.h"
#include "core/edits/journal.h"
#include "core/edits/kept_files.h"

namespace tarnvik {

namespace {

using Direction = ByteChanges::Direction;

/// A stamp that no file has.
FileStamp Nothing_Like_It() {
    FileStamp stamp;
    stamp.Exists = true;
    stamp.Length = -1;
    return stamp;
}

}  // namespace

std::string Edits::Replace_Whole_File(const std::string& path, const std::string& fresh) {
    if (!Is_Open()) return "no edit is open";
    FileSwap swap;
    swap.Path = path;
    swap.Aside = Name_Aside(path);
    if (Kept) Kept->Begin(path, swap.Aside, Stamp_Of(fresh));
    std::string reason = Put_In_Place(swap, fresh);
    const auto earlier = std::find_if(Current.Swaps.begin(), Current.Swaps.end(),
                                      [&path](const FileSwap& made) { return made.Path == path; });
    const bool again = earlier != Current.Swaps.end();
    if (!reason.empty() || again) {
        // What stood there before the edit is kept already; what the edit itself put there is not wanted.
        Remove_Aside(swap.Aside);
        if (Kept) Kept->Forget(swap.Aside);
        if (!reason.empty()) return reason;
    }
    Left[path] = swap.After;
    if (again) {
        earlier->After = swap.After;
        return {};
    }
    // Bytes that the edit changed before are taken back in the file that is kept.
    const auto changed = std::find_if(Current.Files.begin(), Current.Files.end(),
                                      [&path](const FileChange& file) { return file.Path == path; });
    if (changed != Current.Files.end()) {
        Apply_To_Files({FileChange{swap.Aside, changed->Bytes}}, Direction::Back);
        Current.Files.erase(changed);
        swap.Before = Stamp_Of(swap.Aside);
    }
    Current.Swaps.push_back(std::move(swap));
    return {};
}

void Edits::Note_Passing(const std::string& aside) {
    if (Kept) Kept->Begin_Passing(aside);
}

void Edits::Passed(const std::string& aside) {
    if (Kept) Kept->Forget(aside);
}

/// Called before this program writes again: what another one has written into a replaced file since must not
/// be taken for its own work.
void Edits::Note_Foreign_Changes() {
    for (auto& [path, stamp] : Left) {
        const auto own = std::find_if(Stray.Files.begin(), Stray.Files.end(),
                                      [&path = path](const FileChange& file) { return file.Path == path; });
        if (own == Stray.Files.end() && Stamp_Of(path) != stamp) stamp = Nothing_Like_It();
    }
}

void Edits::Note_Left(const Edit& edit) {
    for (const FileSwap& swap : edit.Swaps) {
        const auto found = Left.find(swap.Path);
        if (found != Left.end() && found->second != Nothing_Like_It()) found->second = Stamp_Of(swap.Path);
    }
    for (const FileChange& file : edit.Files) {
        const auto found = Left.find(file.Path);
        if (found != Left.end() && found->second != Nothing_Like_It()) found->second = Stamp_Of(file.Path);
    }
}

/// All files of an edit or none.
std::string Edits::Swap_Files(Edit& edit, Direction direction) {
    const bool back = direction == Direction::Back;
    const std::size_t count = edit.Swaps.size();
    for (std::size_t i = 0; i < count; ++i) {
        FileSwap& swap = edit.Swaps[back ? count - 1 - i : i];
        const std::string reason = Exchange(swap, direction, Left[swap.Path]);
        if (reason.empty()) {
            Left[swap.Path] = back ? swap.Before : swap.After;
            continue;
        }
        while (i-- > 0) {
            FileSwap& done = edit.Swaps[back ? count - 1 - i : i];
            Exchange(done, back ? Direction::Forth : Direction::Back, Left[done.Path]);
            Left[done.Path] = back ? done.After : done.Before;
        }
        return reason;
    }
    return {};
}

void Edits::Let_Go(Edit& edit) {
    for (const FileSwap& swap : edit.Swaps) {
        Remove_Aside(swap.Aside);
        if (Kept) Kept->Forget(swap.Aside);
    }
    edit.Swaps.clear();
}

void Edits::Give_Back_Files() {
    if (SavedState) return;
    while (Position > SavedAt) {
        Edit& edit = History[--Position];
        if (!edit.Block.Empty()) Swap_Files(edit, Direction::Back);
    }
    while (Position < std::min(SavedAt, History.size()) && SavedAt <= History.size()) {
        Edit& edit = History[Position++];
        if (!edit.Block.Empty()) Swap_Files(edit, Direction::Forth);
    }
}

/// The files of edits that a journal brought back, as a kill left them.
void Edits::Take_Over_Swaps(const JournalContent& content) {
    for (std::size_t i = 0; i < History.size(); ++i) {
        Edit& edit = History[i];
        for (FileSwap& swap : edit.Swaps) {
            if (Kept) Kept->Begin_Passing(swap.Aside);
            Finish_Exchange(swap);
            const bool done = i < Position;
            FileStamp found = Stamp_Of(swap.Path);
            // The kill came between the exchange and the journal.
            const bool next = i + 1 == Position || i == Position;
            if (next && found == (done ? swap.Before : swap.After) && swap.Before != swap.After) {
                Exchange(swap, done ? Direction::Forth : Direction::Back, found);
                found = Stamp_Of(swap.Path);
            }
            if (!done && Left.contains(swap.Path)) continue;
            const FileStamp& expected = done ? swap.After : swap.Before;
            const bool written = std::any_of(
                content.Records.begin(), content.Records.end(), [&](const JournalContent::Record& record) {
                    const auto& files = record.Content.Files;
                    return std::any_of(files.begin(), files.end(),
                                       [&](const FileChange& file) { return file.Path == swap.Path; });
                });
            const bool ours = found == expected || (written && found.Length == expected.Length);
            Left[swap.Path] = ours ? found : Nothing_Like_It();
        }
    }
}

void Give_Up_Files(const JournalContent& content) {
    JournalContent::Walked walked = content.Walk();
    for (std::size_t i = walked.Edits.size(); i-- > 0;) {
        for (FileSwap& swap : walked.Edits[i].Swaps) {
            Finish_Exchange(swap);
            const FileStamp found = Stamp_Of(swap.Path);
            // What is back already has nothing aside that could come.
            if (!walked.Edits[i].Block.Empty() && found.Length == swap.After.Length && found != swap.Before) {
                Exchange(swap, Direction::Back, found);
            }
            Remove_Aside(swap.Aside);
        }
    }
}

}  // namespace tarnvik
