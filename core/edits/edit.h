#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/edits/byte_changes.h"
#include "core/edits/file_swap.h"
#include "core/edits/project_block.h"

namespace tarnvik {

/// Bytes of one file as an edit changed them.
struct FileChange {
    std::string Path;
    ByteChanges Bytes;
};

/// One action of the user that changed the project or an SU file, with what stood there before and after.
struct Edit {
    std::string Name;  ///< as the user reads it: "Pick shot 3, receiver 7"
    std::chrono::system_clock::time_point Time;
    ByteChanges Block;  ///< in the project block
    std::vector<FileChange> Files;
    std::vector<FileSwap> Swaps;  ///< files that were replaced as a whole; none of them is among Files
    /// CurrentFile of the project when the edit gave it another name; both empty otherwise. The journal needs
    /// no such names.
    std::string ProjectFileBefore;
    std::string ProjectFileAfter;

    /// Notes bytes that were changed in a file.
    void Add_File_Change(const std::string& path, std::int64_t position, std::string_view before,
                         std::string_view after);
    /// Takes in the one that follows, as along a drag: both are one step from then on.
    void Join(const Edit& later);

    std::size_t Footprint() const;
    void Write(ByteWriter& writer) const;
    static Edit Read(ByteReader& reader);
};

/// What happened to the project, for whoever shows it.
struct ChangeNotice {
    enum class Kind { Made, Undone, Redone };
    Kind Happened = Kind::Made;
    std::string Name;                      ///< of the edit, of several the last
    ProjectParts Parts;                    ///< of the project
    std::vector<PickPlace> Picks;          ///< times that changed, each once
    std::vector<const FileChange*> Files;  ///< changes of files, which live as long as the notice is told
    std::vector<std::string> Replaced;     ///< paths of files that are others now as a whole
    bool Nothing() const { return Parts.Empty() && Files.empty() && Replaced.empty(); }
};

}  // namespace tarnvik
