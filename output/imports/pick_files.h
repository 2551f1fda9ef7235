#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "output/imports/imported_line.h"

namespace tarnvik {

/// Kinds of files with picks of other programs.
enum class PickFile { Plotrefa, Rayfract, Unified };

/// The kind by the content: headings of the Rayfract file or its semicolons, the "#" of the unified format,
/// otherwise PLOTREFA.
PickFile Kind_Of_Pick_File(std::string_view bytes);

/// A PLOTREFA file; `receivers` is the content of the file of receivers beside it (distance and elevation a
/// line), where there is one.
ImportedLine Read_Plotrefa(std::string_view bytes, const std::optional<std::string>& receivers);
/// A Rayfract file, whose stations are `length` apart.
ImportedLine Read_Rayfract(std::string_view bytes, double length);
/// A file of the unified data format: positions by "x z" (or "x y", or "x y z"), times by "s g t" in seconds,
/// the columns in any order among others. Data marked as not valid are left out.
ImportedLine Read_Unified(std::string_view bytes);

}  // namespace tarnvik
