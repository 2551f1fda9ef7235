#include "core/edits/edits.h"

#include <algorithm>
#include <utility>

#include "core/edits/file_changes.h"
#include "core/edits/journal.h"
#include "core/edits/kept_files.h"
#include "core/workspace.h"

namespace tarnvik {

namespace {

constexpr std::size_t most_memory = 512U << 20U;      ///< bytes of history; the oldest edits go beyond it
constexpr std::size_t never_again = ~std::size_t{0};  ///< the saved state is no longer in the history

using Direction = ByteChanges::Direction;

}  // namespace

Edits::Edits() = default;
Edits::~Edits() {
    // Without a decision of the user the journal stays for the next start, and what it needs with it.
    if (Log) return;
    for (Edit& edit : History)
        Let_Go(edit);
}
Edits::Edits(Edits&&) noexcept = default;
Edits& Edits::operator=(Edits&&) noexcept = default;

void Edits::Start(const Project& project, bool saved) {
    Close();
    LastBlock = Project_Block(project);
    SavedBlock = saved ? LastBlock : std::string();
    SavedState = saved;
}

void Edits::Close() {
    // A program killed from here on finds in the journal what has not been given back yet.
    Give_Back_Files();
    for (Edit& edit : History)
        Let_Go(edit);
    History.clear();
    Position = 0;
    SavedAt = 0;
    Series.clear();
    Left.clear();
    Drop_Journal();
}

void Edits::Saved(const Project& project) {
    std::string block = Project_Block(project);
    if (Is_Open()) {
        // The edit on hand ends later; what it has changed so far stays its own.
        Series.clear();
        SavedBlock = std::move(block);
        SavedState = true;
        SavedAt = Position + 1;
        Drop_Journal();
        return;
    }
    if (Position > 0 && !LastBlock.empty()) {
        Edit& last = History[Position - 1];
        last.Block.Append(ByteChanges::Between(LastBlock, block));
    }
    Series.clear();
    LastBlock = std::move(block);
    SavedBlock = LastBlock;
    SavedState = true;
    SavedAt = Position;
    Drop_Journal();
}

std::string Edits::Undo_Name() const {
    return Position > 0 ? History[Position - 1].Name : std::string();
}

std::string Edits::Redo_Name() const {
    return Position < History.size() ? History[Position].Name : std::string();
}

void Edits::Begin(const Project& project, const std::string& name, const std::string& series) {
    if (Depth++ > 0) return;
    Note_Foreign_Changes();
    Take_In_Stray_Changes(project);
    Current = {};
    Current.Name = name;
    Current.ProjectFileBefore = project.CurrentFile;
    CurrentSeries = series;
}

/// What changed outside any scope has no name but must not be lost: undoing goes by what stood before.
void Edits::Take_In_Stray_Changes(const Project& project) {
    std::string block = Project_Block(project);
    if (LastBlock.empty()) {
        LastBlock = std::move(block);
        // Without a line there is nothing to save, whatever becomes of SU files.
        if (SavedState) SavedBlock = LastBlock;
        return;
    }
    if (block == LastBlock && Stray.Files.empty()) return;
    Edit stray = std::exchange(Stray, {});
    stray.Name = "Change";
    if (block != LastBlock) stray.Block = ByteChanges::Between(LastBlock, block);
    Add(std::move(stray), project, {});
}

void Edits::Note_File_Change(const std::string& path, std::int64_t position, std::string_view before,
                             std::string_view after) {
    if (before == after) return;
    if (Is_Open()) {
        // Bytes of a file that this edit itself has put there go with the whole of it.
        for (const FileSwap& swap : Current.Swaps) {
            if (swap.Path == path) return;
        }
    }
    (Is_Open() ? Current : Stray).Add_File_Change(path, position, before, after);
}

bool Edits::End(const Project& project) {
    if (Depth == 0 || --Depth > 0) return false;
    Edit edit = std::exchange(Current, {});
    edit.ProjectFileAfter = project.CurrentFile;
    if (edit.ProjectFileAfter == edit.ProjectFileBefore) {
        edit.ProjectFileBefore.clear();
        edit.ProjectFileAfter.clear();
    }
    const std::string block = Project_Block(project);
    if (block != LastBlock) edit.Block = ByteChanges::Between(LastBlock, block);
    std::erase_if(edit.Files, [](const FileChange& file) { return file.Bytes.Empty(); });
    if (edit.Block.Empty() && edit.Files.empty() && edit.Swaps.empty()) {
        ChangeNotice nothing;
        Tell(nothing);
        return false;
    }
    Add(std::move(edit), project, CurrentSeries);
    return true;
}

void Edits::Add(Edit edit, const Project& project, const std::string& series) {
    edit.Time = std::chrono::system_clock::now();
    ChangeNotice notice;
    notice.Name = edit.Name;
    TouchedParts touched = Touched_By(edit.Block, project);
    notice.Parts = touched.Parts;
    notice.Picks = std::move(touched.Picks);
    std::vector<FileChange> files = edit.Files;
    for (const FileChange& file : files)
        notice.Files.push_back(&file);
    for (FileSwap& swap : edit.Swaps) {
        swap.After = Stamp_Of(swap.Path);
        notice.Replaced.push_back(swap.Path);
    }
    Note_Left(edit);

    const bool joins = !series.empty() && series == Series && Position == History.size() && Position > 0 &&
                       edit.Swaps.empty() && History.back().Swaps.empty();
    if (Open_Journal(project)) Log->Write_Edit(edit, joins);
    for (const FileSwap& swap : edit.Swaps) {
        if (Kept) Kept->Keep(swap.Aside);
    }
    LastBlock = Project_Block(project);
    SavedState = !SavedBlock.empty() && Same_Filed_Content(SavedBlock, LastBlock);

    for (std::size_t i = Position; i < History.size(); ++i)
        Let_Go(History[i]);
    if (SavedAt > Position) SavedAt = never_again;
    History.resize(Position);
    if (joins) {
        History.back().Join(edit);
    } else {
        History.push_back(std::move(edit));
    }
    Series = series;
    Position = History.size();
    Forget_Oldest();
    Tell(notice);
}

/// Called while LastBlock is still that before the change, which is what a journal begins with. One that
/// could not be written on is kept until another one holds the same state.
bool Edits::Open_Journal(const Project& project) {
    // Without a line nothing can be lost: SU files are written at once.
    if (JournalFolder.empty() || (project.CurrentFile.empty() && project.NbShots == 0)) return false;
    if (!Log || !Log->Whole()) {
        auto begun = Journal::Begin(JournalFolder, project.CurrentFile, LastBlock);
        if (begun) {
            Drop_Journal();
            Log = std::move(begun);
        }
    }
    JournalFails = !Log || !Log->Whole();
    return !JournalFails;
}

bool Edits::Journal_Fails() const {
    return JournalFails || (Log && !Log->Whole());
}

void Edits::Forget_Oldest() {
    std::size_t memory = 0;
    std::size_t kept = 0;
    while (kept < History.size()) {
        memory += History[History.size() - 1 - kept].Footprint();
        if (memory > most_memory && kept > 0) break;
        ++kept;
    }
    const std::size_t gone = History.size() - kept;
    for (std::size_t i = 0; i < gone; ++i)
        Let_Go(History[i]);
    if (SavedAt != never_again) SavedAt -= std::min(SavedAt, gone);
    History.erase(History.begin(), History.begin() + static_cast<std::ptrdiff_t>(gone));
    Position -= std::min(Position, gone);
}

void Edits::Give_Up(Project& project) {
    if (Depth == 0 || --Depth > 0) return;
    Edit edit = std::exchange(Current, {});
    Take_Project_Block(LastBlock, project);
    for (FileSwap& swap : edit.Swaps)
        swap.After = Left[swap.Path] = Stamp_Of(swap.Path);
    Swap_Files(edit, Direction::Back);
    Let_Go(edit);
    Apply_To_Files(edit.Files, Direction::Back);
    Note_Left(edit);
    ChangeNotice nothing;
    Tell(nothing);
}

namespace {

/// The project goes by the name that it had before or after the edit, unless it has been given another one
/// since.
void Name_Project_File(Edit& edit, Project& project, bool back) {
    const std::string& from = back ? edit.ProjectFileAfter : edit.ProjectFileBefore;
    const std::string& to = back ? edit.ProjectFileBefore : edit.ProjectFileAfter;
    if (from == to) return;
    if (project.CurrentFile == from) {
        project.CurrentFile = to;
    } else {
        edit.ProjectFileBefore.clear();
        edit.ProjectFileAfter.clear();
    }
}

}  // namespace

std::string Edits::Step(Project& project, Direction direction, ChangeNotice& notice) {
    const bool back = direction == Direction::Back;
    Edit& edit = History[back ? Position - 1 : Position];
    std::string block = Project_Block(project);
    if (!edit.Block.Apply(block, direction)) return "the project has another size than the history knows";
    std::string reason = Swap_Files(edit, direction);
    if (!reason.empty()) return reason;
    reason = Apply_To_Files(edit.Files, direction);
    if (!reason.empty()) {
        Swap_Files(edit, back ? Direction::Forth : Direction::Back);
        return reason;
    }
    Note_Left(edit);
    // The parts are named by the block in which the change stands, before or after: that with more room.
    const TouchedParts before = Touched_By(edit.Block, project);
    Take_Project_Block(block, project);
    const TouchedParts after = Touched_By(edit.Block, project);
    notice.Parts.Add(before.Parts);
    notice.Parts.Add(after.Parts);
    notice.Picks.insert(notice.Picks.end(), after.Picks.begin(), after.Picks.end());
    for (const FileChange& file : edit.Files)
        notice.Files.push_back(&file);
    for (const FileSwap& swap : edit.Swaps)
        notice.Replaced.push_back(swap.Path);
    notice.Name = edit.Name;
    if (Open_Journal(project)) Log->Write_Step(back, edit);
    Position = back ? Position - 1 : Position + 1;
    Name_Project_File(edit, project, back);
    LastBlock = std::move(block);
    return {};
}

std::string Edits::Undo(Project& project) {
    return Can_Undo() ? Go_To(project, Position - 1) : std::string();
}

std::string Edits::Redo(Project& project) {
    return Can_Redo() ? Go_To(project, Position + 1) : std::string();
}

std::string Edits::Go_To(Project& project, std::size_t position) {
    if (Is_Open()) return "an edit is in work";
    Note_Foreign_Changes();
    Take_In_Stray_Changes(project);
    position = std::min(position, History.size());
    ChangeNotice notice;
    notice.Happened = position < Position ? ChangeNotice::Kind::Undone : ChangeNotice::Kind::Redone;
    Series.clear();
    std::string reason;
    while (reason.empty() && Position != position)
        reason = Step(project, position < Position ? Direction::Back : Direction::Forth, notice);
    std::sort(notice.Picks.begin(), notice.Picks.end());
    notice.Picks.erase(std::unique(notice.Picks.begin(), notice.Picks.end()), notice.Picks.end());
    SavedState = !SavedBlock.empty() && Same_Filed_Content(SavedBlock, LastBlock);
    Tell(notice);
    return reason;
}

void Edits::Tell(ChangeNotice& notice) {
    if (On_Change) On_Change(notice);
}

void Edits::Keep_Journals_In(const std::string& folder) {
    JournalFolder = folder;
    Log.reset();
    Kept = std::make_unique<KeptFiles>(folder);
}

void Edits::Drop_Journal() {
    if (Log) Log->Remove();
    Log.reset();
    JournalFails = false;
}

bool Edits::Restore(Project& project, const JournalContent& content) {
    // The files were written at once and stand as the journal tells; the project alone is brought back.
    std::string block = content.Last_Block();
    Project restored = project;
    if (!Take_Project_Block(content.Base, restored)) return false;
    const std::string former = Project_Block(project);
    Start(restored, false);
    if (!Take_Project_Block(block, project)) return false;
    JournalContent::Walked walked = content.Walk();
    History = std::move(walked.Edits);
    Position = walked.Done;
    Take_Over_Swaps(content);
    LastBlock = std::move(block);
    SavedBlock = former;
    SavedState = Same_Filed_Content(former, LastBlock);
    if (!JournalFolder.empty()) {
        Log = Journal::Begin(JournalFolder, project.CurrentFile, content.Base);
        for (const JournalContent::Record& record : content.Records) {
            if (Log) Log->Write_Record(record.What, record.Content);
        }
    }
    ChangeNotice notice;
    notice.Happened = ChangeNotice::Kind::Redone;
    notice.Parts.Add(ProjectPart::Counts);
    Tell(notice);
    return true;
}

EditScope::EditScope(Workspace& workspace, std::string name, std::string series) : Work(workspace) {
    Work.Edits.Begin(Work.Project, name, series);
}

EditScope::~EditScope() {
    End();
}

bool EditScope::End() {
    if (Ended) return false;
    Ended = true;
    return Work.Edits.End(Work.Project);
}

void EditScope::Give_Up() {
    if (Ended) return;
    Ended = true;
    Work.Edits.Give_Up(Work.Project);
}

}  // namespace tarnvik
