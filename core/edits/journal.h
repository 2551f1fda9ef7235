#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/edits/edit.h"

namespace tarnvik {

/// What a journal tells that a killed program left behind.
struct JournalContent {
    /// A Join is the next part of the edit before it, as along a drag.
    enum class Kind : char { Edit = 'E', Join = 'J', Undo = 'U', Redo = 'R' };
    struct Record {
        Kind What = Kind::Edit;
        /// The edit; of an undo or redo what the step changed, forward.
        tarnvik::Edit Content;
    };
    std::string File;         ///< the journal itself
    std::string ProjectFile;  ///< full path of the project; empty for a line that never got a name
    std::string Base;         ///< project block before the first record
    std::vector<Record> Records;

    /// The history that the records tell, and how many of its edits were done when the journal ended: those
    /// behind them had been taken back and could be done again. A step along an edit from before the journal
    /// began is itself an edit in it.
    struct Walked {
        std::vector<tarnvik::Edit> Edits;
        std::size_t Done = 0;
    };
    Walked Walk() const;
    /// Project block after the last record; empty for a journal that does not fit together.
    std::string Last_Block() const;
    /// Edits that stood at the end and change the project, the name of the last of them, and the time of the
    /// last record.
    std::size_t Edits_Of_Project() const;
    std::string Last_Name() const;
    std::chrono::system_clock::time_point Last_Time() const;
};

/// The edits since a project was opened or last saved, written behind each other as they are made, so that a
/// program that is killed loses nothing but the edit on hand. Each record is with the operating system when
/// its routine returns and on the disk shortly after, by a thread of its own.
///
/// A journal belongs to the running program as long as it is open: others pass it over.
class Journal {
  public:
    /// Begins the journal of a project in a folder, which is made where it is missing. Null where it cannot
    /// be written.
    static std::unique_ptr<Journal> Begin(const std::string& folder, const std::string& project_file,
                                          std::string_view base_block);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// `joins` when the edit has become a part of the one before it.
    void Write_Edit(const Edit& edit, bool joins);
    void Write_Step(bool back, const Edit& edit);
    void Write_Record(JournalContent::Kind kind, const Edit& content);
    /// False when a record could not be written, on a full disk for instance. What was written before is
    /// whole; nothing is written any more, for it would not fit behind it.
    bool Whole() const { return IsWhole; }
    /// Takes the file away.
    void Remove();

  private:
    class Flusher;
    Journal(std::string path, int handle);
    void Append(char kind, std::string_view payload);

    std::string Path;
    int Handle = -1;
    std::int64_t Length = 0;  ///< bytes written
    bool IsWhole = true;
    std::size_t Size = 0;  ///< edits that the records tell
    std::size_t Done = 0;  ///< of them
    bool InStep = true;    ///< every step so far went along edits of the journal
    std::unique_ptr<Flusher> OnDisk;
};

/// The journals of a folder that no running program holds and that tell of changes a project file may lack,
/// newest first. A record cut short at the end is left out. One that tells of no such change is removed.
std::vector<JournalContent> Journals_Left_Behind(const std::string& folder);

/// Content of one journal; its File is empty when it is none.
JournalContent Read_Journal(const std::string& path);

/// The work of a journal is declined: files that were replaced together with the project come back, and what
/// was kept of the others goes.
void Give_Up_Files(const JournalContent& content);

/// Takes a journal away that was read, when its work was brought back or declined.
void Remove_Journal(const JournalContent& content);

}  // namespace tarnvik
