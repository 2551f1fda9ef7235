#include "processing/filters/filter_file.h"

#include <filesystem>
#include <system_error>

#include "core/files.h"

namespace tarnvik {

TraceResult Filter_File(const FilterRequest& request, const std::string& source, const std::string& target,
                        const FilterProgress& progress) {
    TraceResult result;
    std::error_code failed;
    if (std::filesystem::equivalent(source, target, failed)) {
        result.Failure = target + " is the file that is filtered; the result needs a name of its own";
        return result;
    }
    const std::string reason = Replace_File_In_Pieces(target, [&](const PieceWriter& write) {
        result = With_Failure_As_Text([&](TraceResult& inner) {
            FileSource input(source);
            PieceSink output(write);
            inner = Filter_Traces(request, input, output, progress);
        });
        return result.Failure;
    });
    if (result.Went_Well()) result.Failure = reason;
    return result;
}

}  // namespace tarnvik
