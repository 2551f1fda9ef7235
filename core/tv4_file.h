#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Bytes of the TV5 file for those of an older TV4 file: receiver and shot rows x 10, all else as it stands.
/// The nine remark rows of the old form stay nine, one more than the TV5 reader takes, and there is no
/// distance correction: the older form knew none, and readers pass the ninth row over. Nothing when the
/// counts of its first line are no counts.
std::optional<std::string> Convert_TV4(std::string_view bytes);

/// Menu TV57: asks for the old and the new name and converts. The project in memory is not touched. True when
/// the new file was written.
bool TV4_To_TV5(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
