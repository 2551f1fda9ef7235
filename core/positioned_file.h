#pragma once

#include <cstdint>
#include <string>

namespace tarnvik {

/// A regular file opened for one operation, read and written at 64-bit byte positions. It is never created
/// and never made longer: what would reach beyond its end is refused.
class PositionedFile {
  public:
    enum class Access { Read, Write };  ///< Write allows both

    PositionedFile(const std::string& path, Access access);
    ~PositionedFile();
    PositionedFile(const PositionedFile&) = delete;
    PositionedFile& operator=(const PositionedFile&) = delete;

    bool Is_Open() const { return Handle >= 0; }
    std::int64_t Length() const { return Bytes; }
    /// Why opening or the last refused read or write failed; empty while all went well.
    const std::string& Reason() const { return Why; }

    /// Bytes read from `position` into `target`: `count`, or fewer at the end of the file or on a failure.
    std::int64_t Read_Some(std::int64_t position, void* target, std::int64_t count);
    /// All or nothing: on a failure the target keeps what it held only if nothing could be read at all.
    bool Read(std::int64_t position, void* target, std::int64_t count);
    bool Write(std::int64_t position, const void* source, std::int64_t count);

  private:
    bool Inside(std::int64_t position, std::int64_t count);
    int Handle = -1;
    std::int64_t Bytes = 0;
    std::string Why;
};

}  // namespace tarnvik
