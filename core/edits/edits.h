#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/edits/edit.h"

namespace tarnvik {

class Journal;
struct JournalContent;
class KeptFiles;
struct Workspace;

/// Told of every byte that is written into a file of the user.
class FileRecorder {
  public:
    virtual ~FileRecorder() = default;
    virtual void Note_File_Change(const std::string& path, std::int64_t position, std::string_view before,
                                  std::string_view after) = 0;
};

/// The one door through which the user's hand changes the project and its SU files: each change happens
/// inside an EditScope, is known before and after, stands in one history that can be walked in both
/// directions, and is in the journal when the scope ends.
class Edits : public FileRecorder {
  public:
    Edits();
    ~Edits() override;
    Edits(Edits&&) noexcept;
    Edits& operator=(Edits&&) noexcept;

    /// Another project is in memory: the history begins anew, and the journal of the former one goes, since
    /// the user has decided about its work. `saved` tells that the file holds it. What was kept for the undo
    /// goes, see Close.
    void Start(const Project& project, bool saved);
    /// The user has saved the project or given its changes up: the history ends, its journal and all files
    /// kept aside go. A file that was replaced together with the project in an edit that is given up comes
    /// back, since it would not fit the project file.
    void Close();
    /// The project has just been written to its file. What the save itself changed (TotalTime) belongs to the
    /// last edit, so that undoing to the start gives back the start.
    void Saved(const Project& project);
    /// False while the project in memory differs from its file, TotalTime aside.
    bool Is_Saved() const { return SavedState; }

    bool Can_Undo() const { return Position > 0 && !Is_Open(); }
    bool Can_Redo() const { return Position < History.size() && !Is_Open(); }
    /// Name of the edit that the next undo takes back, or the next redo does again; empty without one.
    std::string Undo_Name() const;
    std::string Redo_Name() const;
    /// Take back the last edit, do it again, or walk to where `position` edits are done. Answers why it could
    /// not be done, with project and files as they were before the step that failed; empty when it went well.
    std::string Undo(Project& project);
    std::string Redo(Project& project);
    std::string Go_To(Project& project, std::size_t position);
    const std::vector<Edit>& All() const { return History; }
    std::size_t Done() const { return Position; }

    /// True inside a scope.
    bool Is_Open() const { return Depth > 0; }
    void Note_File_Change(const std::string& path, std::int64_t position, std::string_view before,
                          std::string_view after) override;

    /// Puts a whole file in the place of one of the user's as a part of the edit on hand. `fresh` lies in the
    /// same folder under a name of Name_Aside and is on the disk already; `path` may be the name of a file
    /// that is not there yet. The former file is kept aside for the undo until the history ends. Answers why
    /// it could not be done, with both files as they were; empty when done.
    std::string Replace_Whole_File(const std::string& path, const std::string& fresh);
    /// Hidden files and folders (Name_Aside) that are made in passing, told before they are made and after
    /// they are gone: the next start takes away what a killed program left of them.
    void Note_Passing(const std::string& aside);
    void Passed(const std::string& aside);

    /// Told after each edit, undo and redo, and at the end of a scope that changed nothing.
    std::function<void(const ChangeNotice&)> On_Change;

    /// From now on each edit goes to a journal in this folder; with an empty name none does.
    void Keep_Journals_In(const std::string& folder);
    /// The user has saved the project or given his changes up: its journal goes.
    void Drop_Journal();
    /// True while the edits since the last save stand in a journal.
    bool Has_Journal() const { return Log != nullptr; }
    /// True when the last edit could not be written into a journal, on a full disk for instance.
    bool Journal_Fails() const;
    /// Takes over what a journal holds as edits of this history, and puts their last state into the project,
    /// which has been read from its file or is still empty. The SU files are not touched: they were written
    /// as the edits were made. False for a journal that does not fit together; nothing has changed then.
    bool Restore(Project& project, const JournalContent& content);

  private:
    friend class EditScope;
    void Begin(const Project& project, const std::string& name, const std::string& series);
    /// False when nothing had changed.
    bool End(const Project& project);
    void Give_Up(Project& project);
    void Take_In_Stray_Changes(const Project& project);
    bool Open_Journal(const Project& project);
    void Add(Edit edit, const Project& project, const std::string& series);
    std::string Step(Project& project, ByteChanges::Direction direction, ChangeNotice& notice);
    void Tell(ChangeNotice& notice);
    void Forget_Oldest();
    void Note_Foreign_Changes();
    void Note_Left(const Edit& edit);
    std::string Swap_Files(Edit& edit, ByteChanges::Direction direction);
    void Let_Go(Edit& edit);
    void Give_Back_Files();
    void Take_Over_Swaps(const JournalContent& content);

    std::vector<Edit> History;
    std::size_t Position = 0;  ///< edits done
    std::string Series;        ///< of the last edit; the next one of the same series joins it
    std::string LastBlock;     ///< of the project after the last edit
    std::string SavedBlock;    ///< of the project as its file holds it; empty when no file does
    bool SavedState = true;
    std::size_t SavedAt = 0;  ///< edits that were done at the last save
    /// Files replaced as a whole, as this program left them; undone only while they are.
    std::map<std::string, FileStamp> Left;
    int Depth = 0;
    Edit Current;  ///< in work
    std::string CurrentSeries;
    Edit Stray;  ///< files written outside any scope; taken in before the next one begins
    std::unique_ptr<Journal> Log;
    std::unique_ptr<KeptFiles> Kept;
    std::string JournalFolder;
    bool JournalFails = false;
};

/// One edit from its beginning to its end. Scopes inside another one belong to it. `series` joins edits that
/// follow each other into one: all events of a drag, all turns of a wheel; an empty one joins none.
class EditScope {
  public:
    EditScope(Workspace& workspace, std::string name, std::string series = {});
    ~EditScope();
    EditScope(const EditScope&) = delete;
    EditScope& operator=(const EditScope&) = delete;

    /// Ends the edit now, for instance before a message about it. False when nothing had changed.
    bool End();
    /// Puts everything back as it was at the beginning and ends; no edit is made. Inside another scope
    /// nothing happens: the outer one decides.
    void Give_Up();

  private:
    Workspace& Work;
    bool Ended = false;
};

}  // namespace tarnvik
