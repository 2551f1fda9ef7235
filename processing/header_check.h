#pragma once

#include <string>
#include <vector>

namespace tarnvik {

/// What is wrong with the headers of an SU file, a sentence each, records first to last; empty when all is
/// well. Looked at: kind, byte order and size of the file; `ns` and `dt` of all traces; repeated and missing
/// channels and numbers of records; records without picks and picks beyond the end of their trace.
///
/// A record is what has one `fldr`; where that word does not run, a record begins where `tracf` falls.
std::vector<std::string> Check_Headers(const std::string& path);

}  // namespace tarnvik
