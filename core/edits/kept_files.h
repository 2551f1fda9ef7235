#pragma once

#include <string>

#include "core/edits/file_swap.h"

namespace tarnvik {

/// List on the disk of the hidden files that this program has beside those of the user: former files that
/// can come back by an undo, and files in work. Each is listed before it is made, so that the next program
/// finds what a killed one left and puts it right. The list belongs to the running program by a lock.
class KeptFiles {
  public:
    /// Lists in this folder, which is made where it is missing, from the first entry on; with an empty name
    /// nothing is listed.
    explicit KeptFiles(std::string folder) : Folder(std::move(folder)) {}
    ~KeptFiles();
    KeptFiles(const KeptFiles&) = delete;
    KeptFiles& operator=(const KeptFiles&) = delete;

    /// A file with the stamp `after` is about to take the place of `path`, whose former content goes aside. A
    /// program that is killed before Keep has made no edit of it: the former file is put back.
    void Begin(const std::string& path, const std::string& aside, const FileStamp& after);
    /// The edit stands: what lies aside is kept as long as a journal names it.
    void Keep(const std::string& aside);
    /// A file or folder that is only made in passing.
    void Begin_Passing(const std::string& aside);
    /// It is gone.
    void Forget(const std::string& aside);

  private:
    void Append(char kind, const std::string& aside, const std::string& path, const FileStamp& after);
    std::string Folder;
    std::string List;
    int Handle = -1;
    int Listed = 0;
};

/// Looks through the lists that killed programs left in this folder: a file that was being replaced comes
/// back, and hidden files that no journal names any more go.
void Clear_Kept_Files(const std::string& folder);

}  // namespace tarnvik
