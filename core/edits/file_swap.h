#pragma once

#include <cstdint>
#include <string>

#include "core/edits/byte_changes.h"
#include "core/edits/byte_stream.h"

namespace tarnvik {

/// What a file is known by without reading all of it: its length, the time of its last write, and a sum over
/// its head, its middle and its end.
struct FileStamp {
    bool Exists = false;
    std::int64_t Length = 0;
    std::int64_t Written = 0;  ///< ticks of the file clock
    std::uint32_t Parts = 0;
    bool operator==(const FileStamp&) const = default;

    void Write(ByteWriter& writer) const;
    static FileStamp Read(ByteReader& reader);
};

/// The stamp of the file at a path as it is now; one that does not exist where there is none.
FileStamp Stamp_Of(const std::string& path);

/// A file that took the place of another one as a whole, or of none. The one of the two that is not in force
/// lies aside in the same folder under a hidden name, so that each way is a rename.
struct FileSwap {
    std::string Path;   ///< the user's file
    std::string Aside;  ///< where the other one lies, when there is another one
    FileStamp Before;   ///< of the file before the edit
    FileStamp After;    ///< of the file after it
};

/// A hidden name beside a file that nothing bears yet, for what is to be taken away again. The user meets
/// it only after a kill.
std::string Name_Aside(const std::string& path);
/// True for such a name: nothing else is ever cleared away.
bool Is_Name_Aside(const std::string& path);

/// Puts a whole file, in the folder of the user's one, in its place. At any moment the user's name holds the
/// former file or the new one; the former then lies at `swap.Aside`. Fills in the stamps. A file that is
/// marked read-only is refused. Answers why it could not be done, with both as they were; empty when done.
std::string Put_In_Place(FileSwap& swap, const std::string& fresh);

/// Exchanges the two: back to the file before the edit, or forth to the one after it. `left` is what the
/// user's file must be; any other is not touched, since another program has written it. What goes aside
/// takes its stamp along. Answers why it could not be done, nothing being changed; empty when done.
std::string Exchange(FileSwap& swap, ByteChanges::Direction direction, const FileStamp& left);

/// After a kill in the middle of an exchange: gives what lies aside its own name again.
void Finish_Exchange(const FileSwap& swap);

/// Takes away what lies aside.
void Remove_Aside(const std::string& aside);

}  // namespace tarnvik
