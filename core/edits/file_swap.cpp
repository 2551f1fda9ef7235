#include "core/edits/file_swap.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <system_error>

#include "core/check_sum.h"
#include "core/files.h"
#include "core/positioned_file.h"

namespace tarnvik {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view mark_aside = ".tarnvik-";
constexpr std::string_view in_passing = "~";  ///< behind the name aside while two files change places

using Direction = ByteChanges::Direction;

/// A link is followed, so that the file it stands for changes and not the link.
fs::path Target(const std::string& path) {
    std::error_code failed;
    const fs::path target(path);
    if (!fs::is_symlink(target, failed)) return target;
    const fs::path real = fs::canonical(target, failed);
    return failed ? target : real;
}

std::string Refusal_Of(const fs::path& path) {
    std::error_code failed;
    const auto rights = fs::status(path, failed).permissions();
    if ((rights & fs::perms::owner_write) == fs::perms::none) return "the file is marked read-only";
    const PositionedFile file(path.string(), PositionedFile::Access::Write);
    return file.Is_Open() ? std::string() : file.Reason();
}

/// A second name for a file where the disk knows such; otherwise a copy with the same time.
std::string Second_Name(const fs::path& from, const fs::path& to) {
    std::error_code failed;
    fs::create_hard_link(from, to, failed);
    if (!failed) return {};
    failed.clear();
    fs::copy_file(from, to, failed);
    if (!failed) fs::last_write_time(to, fs::last_write_time(from), failed);
    if (!failed) return {};
    std::error_code ignored;
    fs::remove(to, ignored);
    return failed.message();
}

std::string Rename(const fs::path& from, const fs::path& to) {
    std::error_code failed;
    fs::rename(from, to, failed);
    return failed ? failed.message() : std::string();
}

std::string In_Passing(const std::string& aside) {
    return aside + std::string(in_passing);
}

}  // namespace

void FileStamp::Write(ByteWriter& writer) const {
    writer.Value(Exists);
    writer.Value(Length);
    writer.Value(Written);
    writer.Value(Parts);
}

FileStamp FileStamp::Read(ByteReader& reader) {
    FileStamp stamp;
    stamp.Exists = reader.Value<bool>();
    stamp.Length = reader.Value<std::int64_t>();
    stamp.Written = reader.Value<std::int64_t>();
    stamp.Parts = reader.Value<std::uint32_t>();
    return stamp;
}

FileStamp Stamp_Of(const std::string& path) {
    constexpr std::int64_t part = 16 << 10;
    FileStamp stamp;
    PositionedFile file(path, PositionedFile::Access::Read);
    if (!file.Is_Open()) return stamp;
    std::error_code failed;
    stamp.Exists = true;
    stamp.Length = file.Length();
    stamp.Written = fs::last_write_time(path, failed).time_since_epoch().count();
    std::string looked_at;
    for (const std::int64_t start : {std::int64_t{0}, file.Length() / 2, file.Length() - part}) {
        std::string bytes(static_cast<std::size_t>(part), '\0');
        bytes.resize(static_cast<std::size_t>(
            file.Read_Some(std::max<std::int64_t>(start, 0), bytes.data(), std::ssize(bytes))));
        looked_at += bytes;
    }
    stamp.Parts = Check_Sum(looked_at);
    return stamp;
}

std::string Name_Aside(const std::string& path) {
    const fs::path target = Target(path);
    std::random_device chance;
    for (;;) {
        const std::string name = "." + target.filename().string() + std::string(mark_aside) +
                                 std::to_string(chance() % 1'000'000'000U);
        const std::string aside = (target.parent_path() / name).string();
        if (!File_Exists(aside)) return aside;
    }
}

bool Is_Name_Aside(const std::string& path) {
    const std::string name = Name_Of(path);
    return name.starts_with('.') && name.find(mark_aside) != std::string::npos;
}

std::string Put_In_Place(FileSwap& swap, const std::string& fresh) {
    const fs::path target = Target(swap.Path);
    swap.Before = Stamp_Of(swap.Path);
    std::error_code failed;
    if (swap.Before.Exists) {
        if (std::string refusal = Refusal_Of(target); !refusal.empty()) return refusal;
        fs::permissions(fresh, fs::status(target, failed).permissions(), failed);
        if (std::string reason = Second_Name(target, swap.Aside); !reason.empty()) return reason;
    } else if (fs::exists(target, failed)) {
        return "not a file";
    }
    std::string reason = Rename(fresh, target);
    if (!reason.empty()) {
        if (swap.Before.Exists) fs::remove(swap.Aside, failed);
        return reason;
    }
    Flush_Folder_Of(target.string());
    swap.After = Stamp_Of(swap.Path);
    return {};
}

std::string Exchange(FileSwap& swap, Direction direction, const FileStamp& left) {
    const bool back = direction == Direction::Back;
    FileStamp& goes = back ? swap.After : swap.Before;
    const FileStamp& comes = back ? swap.Before : swap.After;
    const fs::path target = Target(swap.Path);
    const FileStamp found = Stamp_Of(swap.Path);
    if (found != left) {
        return swap.Path + (left.Exists && !found.Exists ? " is no longer there"
                            : !left.Exists               ? " has been written by another program"
                                                         : " was changed by another program");
    }
    if (comes.Exists) {
        const FileStamp kept = Stamp_Of(swap.Aside);
        if (!kept.Exists) return "the former " + swap.Path + " is no longer kept";
        if (kept != comes) return "the former " + swap.Path + " was changed by another program";
    }
    const std::string passing = In_Passing(swap.Aside);
    std::error_code failed;
    if (found.Exists) {
        if (std::string refusal = Refusal_Of(target); !refusal.empty()) return swap.Path + ": " + refusal;
        if (!comes.Exists) {
            std::string reason = Rename(target, swap.Aside);
            if (!reason.empty()) return swap.Path + ": " + reason;
            goes = found;
            return {};
        }
        if (std::string reason = Second_Name(target, passing); !reason.empty())
            return swap.Path + ": " + reason;
    }
    if (comes.Exists) {
        std::string reason = Rename(swap.Aside, target);
        if (!reason.empty()) {
            if (found.Exists) fs::remove(passing, failed);
            return swap.Path + ": " + reason;
        }
    }
    if (found.Exists) Rename(passing, swap.Aside);
    Flush_Folder_Of(target.string());
    goes = found;
    return {};
}

void Finish_Exchange(const FileSwap& swap) {
    const std::string passing = In_Passing(swap.Aside);
    if (!File_Exists(passing)) return;
    std::error_code failed;
    if (File_Exists(swap.Aside)) {
        fs::remove(passing, failed);  // the exchange had only begun
    } else {
        fs::rename(passing, swap.Aside, failed);
    }
}

void Remove_Aside(const std::string& aside) {
    std::error_code failed;
    if (!Is_Name_Aside(aside)) return;
    fs::remove_all(aside, failed);
    fs::remove(In_Passing(aside), failed);
}

}  // namespace tarnvik
