#include "core/positioned_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace tarnvik {

namespace {

#ifdef _WIN32
using FileState = struct _stat64;
int Open(const std::string& path, bool writing) {
    return _open(path.c_str(), (writing ? _O_RDWR : _O_RDONLY) | _O_BINARY);
}
int State(int handle, FileState& state) {
    return _fstat64(handle, &state);
}
bool Is_Regular(const FileState& state) {
    return (state.st_mode & _S_IFREG) != 0;
}
void Close(int handle) {
    _close(handle);
}
std::int64_t Read_At(int handle, void* target, std::int64_t count, std::int64_t position) {
    if (_lseeki64(handle, position, SEEK_SET) < 0) return -1;
    return _read(handle, target, static_cast<unsigned>(std::min<std::int64_t>(count, 1 << 30)));
}
std::int64_t Write_At(int handle, const void* source, std::int64_t count, std::int64_t position) {
    if (_lseeki64(handle, position, SEEK_SET) < 0) return -1;
    return _write(handle, source, static_cast<unsigned>(std::min<std::int64_t>(count, 1 << 30)));
}
#else
using FileState = struct stat;
int Open(const std::string& path, bool writing) {
    // Without O_NONBLOCK a named pipe would hold the program until somebody writes into it.
    return open(path.c_str(), (writing ? O_RDWR : O_RDONLY) | O_CLOEXEC | O_NONBLOCK);
}
int State(int handle, FileState& state) {
    return fstat(handle, &state);
}
bool Is_Regular(const FileState& state) {
    return S_ISREG(state.st_mode);
}
void Close(int handle) {
    close(handle);
}
std::int64_t Read_At(int handle, void* target, std::int64_t count, std::int64_t position) {
    return pread(handle, target, static_cast<std::size_t>(count), static_cast<off_t>(position));
}
std::int64_t Write_At(int handle, const void* source, std::int64_t count, std::int64_t position) {
    return pwrite(handle, source, static_cast<std::size_t>(count), static_cast<off_t>(position));
}
static_assert(sizeof(off_t) == 8, "positions beyond 2 GB need 64 bits");
#endif

}  // namespace

PositionedFile::PositionedFile(const std::string& path, Access access) {
    if (path.empty()) {
        Why = "no file";
        return;
    }
    Handle = Open(path, access == Access::Write);
    if (Handle < 0) {
        Why = std::strerror(errno);
        return;
    }
    FileState state{};
    if (State(Handle, state) == 0 && Is_Regular(state)) {
        Bytes = static_cast<std::int64_t>(state.st_size);
        return;
    }
    Why = "not a file";
    Close(Handle);
    Handle = -1;
}

PositionedFile::~PositionedFile() {
    if (Handle >= 0) Close(Handle);
}

bool PositionedFile::Inside(std::int64_t position, std::int64_t count) {
    if (Handle < 0) return false;
    if (position >= 0 && count >= 0 && count <= Bytes && position <= Bytes - count) return true;
    Why = "beyond the end of the file";
    return false;
}

std::int64_t PositionedFile::Read_Some(std::int64_t position, void* target, std::int64_t count) {
    if (Handle < 0 || position < 0 || position >= Bytes) return 0;
    auto* bytes = static_cast<char*>(target);
    std::int64_t done = 0;
    while (done < count) {
        const std::int64_t got = Read_At(Handle, bytes + done, count - done, position + done);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) Why = std::strerror(errno);
        if (got <= 0) break;
        done += got;
    }
    return done;
}

bool PositionedFile::Read(std::int64_t position, void* target, std::int64_t count) {
    return Inside(position, count) && Read_Some(position, target, count) == count;
}

bool PositionedFile::Write(std::int64_t position, const void* source, std::int64_t count) {
    if (!Inside(position, count)) return false;
    const auto* bytes = static_cast<const char*>(source);
    std::int64_t done = 0;
    while (done < count) {
        const std::int64_t put = Write_At(Handle, bytes + done, count - done, position + done);
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) {
            Why = std::strerror(errno);
            return false;
        }
        done += put;
    }
    return true;
}

}  // namespace tarnvik
