#include "core/edits/locked_file.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#ifdef _WIN32
#include <io.h>
#else
#include <sys/file.h>
#include <unistd.h>
#endif

namespace tarnvik {

#ifdef _WIN32
int Open_New_Locked(const std::string& path) {
    return _open(path.c_str(), _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
}
bool Held_By_Another(const std::string&) {
    return false;
}
static std::int64_t Write_Some(int handle, const char* bytes, std::size_t count) {
    return _write(handle, bytes, static_cast<unsigned>(std::min<std::size_t>(count, 1U << 30U)));
}
void Cut_To(int handle, std::int64_t length) {
    _chsize_s(handle, length);
}
void Flush_Handle(int handle) {
    _commit(handle);
}
void Close_Handle(int handle) {
    _close(handle);
}
#else
int Open_New_Locked(const std::string& path) {
    const int handle = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0600);
    if (handle >= 0) flock(handle, LOCK_EX | LOCK_NB);
    return handle;
}
bool Held_By_Another(const std::string& path) {
    const int handle = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0) return true;
    const bool locked = flock(handle, LOCK_EX | LOCK_NB) != 0;
    close(handle);
    return locked;
}
static std::int64_t Write_Some(int handle, const char* bytes, std::size_t count) {
    return write(handle, bytes, count);
}
void Cut_To(int handle, std::int64_t length) {
    // Where even this fails the record cut short is known by its sum.
    [[maybe_unused]] const int failed = ftruncate(handle, length);
}
void Flush_Handle(int handle) {
    fdatasync(handle);
}
void Close_Handle(int handle) {
    close(handle);
}
#endif

bool Append_All(int handle, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::int64_t put = Write_Some(handle, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

}  // namespace tarnvik
