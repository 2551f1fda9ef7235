#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnvik {

/// Bytes that traces are read from: a file, a pipe, the memory. What cannot be read is a Fault.
class ByteSource {
  public:
    virtual ~ByteSource() = default;
    /// Reads 1 to `count` bytes, as many as are there; 0 at the end.
    virtual std::size_t Read(char* target, std::size_t count) = 0;
    /// Bytes of the whole source, where that is known without reading it (not for a pipe). Such a source can
    /// also be read at any place.
    virtual std::optional<std::int64_t> Length() const = 0;
    /// Reads `count` bytes from a place counted from the source's beginning, wherever Read stands. Fewer are
    /// a Fault, also a source without a known length.
    virtual void Read_At(std::int64_t position, char* target, std::size_t count) = 0;
};

/// Where traces go. What cannot be written is a Fault.
class ByteSink {
  public:
    virtual ~ByteSink() = default;
    virtual void Write(const char* source, std::size_t count) = 0;
};

/// An open file, pipe or socket, from where it stands; or a file by its path.
class FileSource : public ByteSource {
  public:
    explicit FileSource(int handle);
    explicit FileSource(const std::string& path);
    ~FileSource() override;
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    std::size_t Read(char* target, std::size_t count) override;
    std::optional<std::int64_t> Length() const override { return Bytes; }
    void Read_At(std::int64_t position, char* target, std::size_t count) override;

  private:
    void Look();
    int Handle;
    bool Own;                           ///< opened here, so closed here
    std::int64_t Start = 0;             ///< where the handle stood
    std::optional<std::int64_t> Bytes;  ///< from there to the end
};

/// An open file, pipe or socket.
class FileSink : public ByteSink {
  public:
    explicit FileSink(int handle) : Handle(handle) {}
    void Write(const char* source, std::size_t count) override;

  private:
    int Handle;
};

/// Bytes in memory, which must outlive the source.
class MemorySource : public ByteSource {
  public:
    explicit MemorySource(std::string_view bytes) : Bytes(bytes) {}
    std::size_t Read(char* target, std::size_t count) override;
    std::optional<std::int64_t> Length() const override { return static_cast<std::int64_t>(Bytes.size()); }
    void Read_At(std::int64_t position, char* target, std::size_t count) override;

  private:
    std::string_view Bytes;
    std::size_t At = 0;
};

class MemorySink : public ByteSink {
  public:
    void Write(const char* source, std::size_t count) override { Bytes.append(source, count); }
    std::string Bytes;
};

/// Hands what is written to a routine that refuses it by answering false, as Replace_File_In_Pieces gives
/// one.
class PieceSink : public ByteSink {
  public:
    using Taker = std::function<bool(std::string_view piece)>;
    explicit PieceSink(Taker taker) : Take(std::move(taker)) {}
    void Write(const char* source, std::size_t count) override;

  private:
    Taker Take;
};

/// A file without a name in the folder for temporary files, which goes with the handle.
class TemporaryFile {
  public:
    TemporaryFile();
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    int Handle() const { return Descriptor; }

  private:
    int Descriptor = -1;
};

}  // namespace tarnvik
