#pragma once

#include <string_view>

namespace tarnvik {

/// Runs the trace tool of this name from standard input to standard output. Exit status 0, or 1 with one line
/// on standard error. Traces are never written to a terminal.
int Tool_Main(std::string_view name, int argc, char** argv);

}  // namespace tarnvik
