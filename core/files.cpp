#include "core/files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "core/text/letters.h"

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tarnvik {

namespace fs = std::filesystem;

namespace {

bool Flush_To_Disk(std::FILE* file) {
    if (std::fflush(file) != 0) return false;
#ifdef _WIN32
    return _commit(_fileno(file)) == 0;
#else
    return fsync(fileno(file)) == 0;
#endif
}

/// The rename itself is only safe once the folder that holds the name is on the disk too.
void Flush_Folder(const fs::path& folder) {
#ifndef _WIN32
    const int handle = open(folder.empty() ? "." : folder.c_str(), O_RDONLY);
    if (handle < 0) return;
    fsync(handle);
    close(handle);
#else
    (void)folder;
#endif
}

std::string Reason() {
    return std::strerror(errno);
}

}  // namespace

bool File_Exists(const std::string& path) {
    std::error_code ignored;
    return !path.empty() && fs::exists(fs::path(path), ignored);
}

std::optional<std::string> Read_File(const std::string& path) {
    std::error_code failed;
    if (!fs::is_regular_file(fs::path(path), failed)) return std::nullopt;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return std::nullopt;
    std::string content((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    if (stream.bad()) return std::nullopt;
    return content;
}

std::string Replace_File(const std::string& path, std::string_view content) {
    return Replace_File_In_Pieces(path, [&](const PieceWriter& write) {
        write(content);
        return std::string();
    });
}

std::string Replace_File_In_Pieces(const std::string& path,
                                   const std::function<std::string(const PieceWriter& write)>& produce) {
    std::error_code failed;
    // A link is followed, so that the file it stands for is replaced and not the link.
    fs::path target(path);
    const bool link = fs::is_symlink(target, failed);
    failed.clear();  // a file that is not there yet is no fault
    if (link) target = fs::canonical(target, failed);
    if (failed) return failed.message();
    const fs::path beside = target.string() + ".new";
    std::FILE* file = std::fopen(beside.string().c_str(), "wb");
    if (file == nullptr) return Reason();
    std::string refusal;
    std::string reason = produce([&](std::string_view piece) {
        if (std::fwrite(piece.data(), 1, piece.size(), file) == piece.size()) return true;
        refusal = Reason();
        return false;
    });
    if (!refusal.empty()) reason = refusal;
    if (reason.empty() && !Flush_To_Disk(file)) reason = Reason();
    if (std::fclose(file) != 0 && reason.empty()) reason = Reason();
    if (reason.empty()) {
        const auto state = fs::status(target, failed);
        if (fs::exists(state)) fs::permissions(beside, state.permissions(), failed);
        fs::rename(beside, target, failed);
        if (failed) reason = failed.message();
    }
    if (!reason.empty()) {
        fs::remove(beside, failed);
        return reason;
    }
    Flush_Folder(target.parent_path());
    return {};
}

std::string Flush_File(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "r+b");
    if (file == nullptr) return Reason();
    std::string reason = Flush_To_Disk(file) ? std::string() : Reason();
    if (std::fclose(file) != 0 && reason.empty()) reason = Reason();
    return reason;
}

void Flush_Folder_Of(const std::string& path) {
    Flush_Folder(fs::path(path).parent_path());
}

std::string Copy_File(const std::string& from, const std::string& to) {
    constexpr std::size_t piece_length = 4 << 20;
    std::ifstream source(from, std::ios::binary);
    std::error_code failed;
    if (!fs::is_regular_file(fs::path(from), failed) || !source) return from + " cannot be read";
    return Replace_File_In_Pieces(to, [&](const PieceWriter& write) -> std::string {
        std::string piece;
        do {
            piece.resize(piece_length);
            source.read(piece.data(), static_cast<std::streamsize>(piece.size()));
            piece.resize(static_cast<std::size_t>(source.gcount()));
            if (source.bad()) return from + " cannot be read";
        } while (!piece.empty() && write(piece));
        return {};
    });
}

std::string Folder_Of(std::string_view path) {
    const auto separator = path.find_last_of("/\\");
    return separator == std::string_view::npos ? std::string() : std::string(path.substr(0, separator + 1));
}

std::string Name_Of(std::string_view path) {
    const auto separator = path.find_last_of("/\\");
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string Derived_File(const std::string& path, std::string_view ending, std::string_view replacement) {
    std::string derived = path;
    if (LCase(Right(path, ending.size())) == LCase(ending))
        derived.replace(path.size() - ending.size(), ending.size(), replacement);
    if (File_Exists(derived)) return derived;
    const std::string wanted = LCase(Name_Of(derived));
    const std::string folder = Folder_Of(derived);
    std::error_code failed;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : fs::path(folder), failed);
    for (; !failed && entry != fs::directory_iterator(); entry.increment(failed)) {
        const std::string name = entry->path().filename().string();
        if (LCase(name) == wanted) return folder + name;
    }
    return derived;
}

}  // namespace tarnvik
