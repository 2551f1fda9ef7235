#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnvik {

/// True when something lies at the path. An empty path is nothing.
bool File_Exists(const std::string& path);

/// Whole content of a file; nothing when it cannot be read.
std::optional<std::string> Read_File(const std::string& path);

/// Replaces a file by new content: written beside it, flushed to the disk, renamed over it, so that a full
/// disk or a crash leaves the old file whole. Answers the reason of a failure, empty when it went well.
std::string Replace_File(const std::string& path, std::string_view content);

/// The same for a content too large for the memory: `produce` hands it over piece by piece, stops when a
/// piece is refused, and answers why it could not go on; empty when all was handed over.
using PieceWriter = std::function<bool(std::string_view piece)>;
std::string Replace_File_In_Pieces(const std::string& path,
                                   const std::function<std::string(const PieceWriter& write)>& produce);

/// Brings a file that another program has written to the disk. Answers the reason of a failure.
std::string Flush_File(const std::string& path);
/// Brings the name of a file to the disk, after it was renamed.
void Flush_Folder_Of(const std::string& path);

/// Copies a file over another in the same safe way. Answers the reason of a failure, empty when it went well.
std::string Copy_File(const std::string& from, const std::string& to);

/// Folder of a path with its separator behind it (empty when there is none) and the name behind it. "\" and
/// "/" both separate.
std::string Folder_Of(std::string_view path);
std::string Name_Of(std::string_view path);

/// Name derived from a path: `ending` (any case) at the end of the file's name becomes `replacement`; its
/// folder and all other letters stay, and all of them where the name ends otherwise. When no such file
/// exists, a file of the same folder whose name differs only by case is taken instead.
std::string Derived_File(const std::string& path, std::string_view ending, std::string_view replacement);

}  // namespace tarnvik
