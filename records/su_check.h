#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tarnvik {

/// Bytes of a file from a position on: `count`, or fewer at its end.
using BytesAt = std::function<std::string(std::int64_t position, std::int64_t count)>;

/// What an SU file is by its bytes.
struct SuCheck {
    enum class Kind {
        Su,         ///< little-endian traces, as they are read here
        BigEndian,  ///< traces of the other byte order
        SegY,
        Seg2,
        Text,
        Unusable,  ///< traces cannot be found in it
    };
    Kind Is = Kind::Su;
    std::vector<std::string> Wrong;    ///< what is wrong, a sentence each
    std::vector<std::string> Assumed;  ///< how it is read all the same; empty where it is refused

    /// Nothing to be told.
    bool Good() const { return Is == Kind::Su && Wrong.empty(); }
    bool Refused() const { return Is != Kind::Su; }
    /// All of it in one text that begins with the file's name; empty for a good file.
    std::string Message(const std::string& path) const;
};

/// Looks whether a file of `length` bytes is what its name says: kind, byte order, size, `ns` and `dt` of all
/// traces. Reads headers alone.
SuCheck Check_Su(const BytesAt& bytes, std::int64_t length);
/// The same of a file on the disk. One that cannot be opened is unusable.
SuCheck Check_Su_File(const std::string& path);

/// The traces of a big-endian file as a little-endian one: all header words and samples turned round. A
/// fragment behind the last whole trace is turned as far as its words go.
std::string Turned_Round(std::string bytes);

}  // namespace tarnvik
