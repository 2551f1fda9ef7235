#include "batch/record_copy.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

#include "records/su_file.h"

namespace tarnvik {

namespace {

namespace fs = std::filesystem;

/// Copies a stretch of a file to the same place of another one of the same length.
bool Copy_Stretch(PositionedFile& from, PositionedFile& to, std::int64_t position, std::int64_t count) {
    count = std::min(count, from.Length() - position);
    if (count <= 0) return true;
    std::vector<char> bytes(static_cast<std::size_t>(count));
    return from.Read(position, bytes.data(), count) && to.Write(position, bytes.data(), count);
}

}  // namespace

/// A file of its own by a pattern that ends in XXXXXX.
bool RecordCopy::Make(const std::string& pattern) {
    Name = pattern;
    const int handle = mkstemp(Name.data());
    if (handle < 0) {
        Why = std::strerror(errno);
        return false;
    }
    Temporary = true;
    close(handle);
    return true;
}

RecordCopy::RecordCopy(const std::string& records, const std::string& copy) : Kept(copy) {
    if (!Make(copy + "-XXXXXX")) return;
    std::error_code failed;
    fs::copy_file(records, Name, fs::copy_options::overwrite_existing, failed);
    // The copy of a file that was put away read-only is there to be written into.
    if (!failed) fs::permissions(Name, fs::perms::owner_write, fs::perm_options::add, failed);
    if (failed) Why = failed.message();
}

std::string RecordCopy::Keep() {
    std::error_code failed;
    fs::rename(Name, Kept, failed);
    if (failed) return failed.message();
    Temporary = false;
    return {};
}

RecordCopy::RecordCopy(const std::string& records, std::int64_t first_trace, std::int64_t last_trace) {
    if (!Make((fs::temp_directory_path() / "tarnvik-pick-XXXXXX").string())) return;
    const std::int64_t samples = SuTraces(records).Nb_Samples();
    PositionedFile from(records, PositionedFile::Access::Read);
    std::error_code failed;
    fs::resize_file(Name, static_cast<std::uintmax_t>(from.Length()), failed);
    if (failed) {
        Why = failed.message();
        return;
    }
    PositionedFile to(Name, PositionedFile::Access::Write);
    const std::int64_t begin = Trace_Position(first_trace, samples);
    const std::int64_t end = Trace_Position(last_trace + 1, samples);
    if (!Copy_Stretch(from, to, 0, header_length) || !Copy_Stretch(from, to, begin, end - begin))
        Why = from.Reason() + to.Reason();
}

RecordCopy::~RecordCopy() {
    std::error_code ignored;
    if (Temporary) fs::remove(Name, ignored);
}

}  // namespace tarnvik
