#pragma once

#include <string>

namespace tarnvik {

class Session;

/// A line that is only looked at: project with pick origins, GRM values and grids, nothing shown and nothing
/// asked. `file` may be a copy; `name` is the project's own file, which records and companions belong to. A
/// file that lacks something is loaded. Answers why it is none, empty when it was loaded.
std::string Load_Line(Session& session, const std::string& file, const std::string& name);

}  // namespace tarnvik
