#include "tool_main.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <exception>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "processing/traces/trace_tools.h"

namespace tarnvik {

namespace {

bool Same_File() {
    struct stat input {};
    struct stat output {};
    return fstat(STDIN_FILENO, &input) == 0 && fstat(STDOUT_FILENO, &output) == 0 && S_ISREG(input.st_mode) &&
           input.st_dev == output.st_dev && input.st_ino == output.st_ino;
}

TraceResult Failure(const std::string& text) {
    TraceResult result;
    result.Failure = text;
    return result;
}

TraceResult Run(const TraceTool& tool, const std::vector<std::string>& arguments) {
    if (isatty(STDIN_FILENO) != 0)
        return Failure("traces are read from standard input, which is a terminal\n" +
                       std::string(tool.Usage));
    if (isatty(STDOUT_FILENO) != 0) return Failure("traces are not written to a terminal");
    if (Same_File()) return Failure("input and output are the same file");
    FileSource source(STDIN_FILENO);
    FileSink sink(STDOUT_FILENO);
    TraceResult result = tool.Run(arguments, source, sink);
    // What a file system could not keep is told when the file is closed.
    if (result.Went_Well() && close(STDOUT_FILENO) != 0)
        return Failure("the output cannot be written: " + std::generic_category().message(errno));
    return result;
}

}  // namespace

int Tool_Main(std::string_view name, int argc, char** argv) {
    // A reader that went away is told as a write that failed.
    std::signal(SIGPIPE, SIG_IGN);
    const auto all = Trace_Tools();
    const auto tool =
        std::find_if(all.begin(), all.end(), [name](const TraceTool& one) { return one.Name == name; });
    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    if (arguments.size() == 1 && (arguments[0] == "--help" || arguments[0] == "-h")) {
        std::cout << tool->Usage;
        return std::cout.flush() ? 0 : 1;
    }
    TraceResult result;
    try {
        result = Run(*tool, arguments);
    } catch (const std::exception& fault) {
        result = Failure(fault.what());
    }
    for (const std::string& note : result.Notes)
        std::cerr << name << ": " << note << '\n';
    if (!result.Went_Well()) std::cerr << name << ": " << result.Failure << '\n';
    return result.Went_Well() ? 0 : 1;
}

}  // namespace tarnvik
