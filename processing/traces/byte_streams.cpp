#include "processing/traces/byte_streams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "core/fault.h"

namespace tarnvik {

namespace {

[[noreturn]] void Fail(const std::string& what) {
    throw Fault(what + ": " + std::generic_category().message(errno));
}

}  // namespace

FileSource::FileSource(int handle) : Handle(handle), Own(false) {
    Look();
}

FileSource::FileSource(const std::string& path)
    : Handle(open(path.c_str(), O_RDONLY | O_CLOEXEC)), Own(true) {
    if (Handle < 0) Fail("the input " + path + " cannot be opened");
    Look();
}

FileSource::~FileSource() {
    if (Own) close(Handle);
}

void FileSource::Look() {
    struct stat state {};
    if (fstat(Handle, &state) != 0 || !S_ISREG(state.st_mode)) return;
    const off_t here = lseek(Handle, 0, SEEK_CUR);
    if (here < 0) return;
    Start = here;
    Bytes = std::max<std::int64_t>(state.st_size - Start, 0);
    posix_fadvise(Handle, 0, 0, POSIX_FADV_SEQUENTIAL);
}

std::size_t FileSource::Read(char* target, std::size_t count) {
    ssize_t got = 0;
    do {
        got = read(Handle, target, count);
    } while (got < 0 && errno == EINTR);
    if (got < 0) Fail("the input cannot be read");
    return static_cast<std::size_t>(got);
}

void FileSource::Read_At(std::int64_t position, char* target, std::size_t count) {
    while (count > 0) {
        const ssize_t got = pread(Handle, target, count, Start + position);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) Fail("the input cannot be read");
        if (got == 0) throw Fault("the input became shorter while it was read");
        position += got;
        target += got;
        count -= static_cast<std::size_t>(got);
    }
}

void FileSink::Write(const char* source, std::size_t count) {
    while (count > 0) {
        const ssize_t put = write(Handle, source, count);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) Fail("the output cannot be written");
        source += put;
        count -= static_cast<std::size_t>(put);
    }
}

std::size_t MemorySource::Read(char* target, std::size_t count) {
    const std::size_t got = std::min(count, Bytes.size() - At);
    Bytes.copy(target, got, At);
    At += got;
    return got;
}

void MemorySource::Read_At(std::int64_t position, char* target, std::size_t count) {
    const auto from = static_cast<std::size_t>(position);
    if (position < 0 || from > Bytes.size() || count > Bytes.size() - from)
        throw Fault("the input has no such bytes");
    Bytes.copy(target, count, from);
}

void PieceSink::Write(const char* source, std::size_t count) {
    if (!Take(std::string_view(source, count))) throw Fault("the output cannot be written");
}

TemporaryFile::TemporaryFile() {
    std::error_code none;
    std::string name = (std::filesystem::temp_directory_path(none) / "tarnvik-traces-XXXXXX").string();
    Descriptor = mkostemp(name.data(), O_CLOEXEC);
    if (Descriptor < 0) Fail("no temporary file can be made, " + name);
    unlink(name.c_str());
}

TemporaryFile::~TemporaryFile() {
    close(Descriptor);
}

}  // namespace tarnvik
