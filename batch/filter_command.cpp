// su-filter: filters, gain and polarity of the traces of an SU file.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "batch/su_rewrite.h"
#include "processing/filters/filter_file.h"

namespace tarnvik {

namespace {

struct FilterOptions {
    FilterChoice Choice;
    std::string Corners;
    std::optional<double> Hum;
    int Harmonics = 0;
    std::string Traces;

    FilterRequest Request() const {
        FilterRequest request{Choice, {}, {}};
        if (!Corners.empty()) {
            const std::vector<double> corners = Numbers(Corners);
            request.Choice.Band = BandPass{corners[0], corners[1], corners[2], corners[3]};
        }
        if (Hum) request.Choice.Hum = HumChoice{*Hum, Harmonics};
        if (!Traces.empty()) {
            const TraceNumbers traces = Trace_Numbers(Traces);
            request.Traces = {traces.First, traces.Last};
        }
        return request;
    }
};

std::string Filter(BatchRun& run, const FilterOptions& options, const std::string& source,
                   const std::string& target, SuReport& report) {
    const FilterRequest request = options.Request();
    const TraceResult result = Filter_File(request, source, target);
    if (!result.Went_Well()) return result.Failure;
    for (const std::string& note : result.Notes)
        run.Prompts.Say(note, run.Program.Work.AppTitle, Icon::Warning);
    report["traces"] = std::min(request.Traces.Last, result.Read) - request.Traces.First + 1;
    return {};
}

}  // namespace

void Add_Filter(CLI::App& app, Request& request) {
    CLI::App* command = Add_Su_Rewrite(
        app, request, "su-filter",
        "filters of traces, in this order: mean, drift, notch, band pass, mute, AGC, balance, polarity");
    auto options = std::make_shared<FilterOptions>();
    FilterChoice& choice = options->Choice;
    command
        ->add_option("--band-pass", options->Corners,
                     "F1,F2,F3,F4 in Hz: rises from F1 to F2, falls from F3 to F4")
        ->check(So_Many_Numbers(4));
    auto* notch =
        command->add_option("--notch", options->Hum, "hum of the power net, Hz")->check(Number_Above_0());
    command->add_option("--harmonics", options->Harmonics, "multiples above it that go too; 0 unless told")
        ->check(Number_Between(0, most_harmonics))
        ->needs(notch);
    command->add_option("--agc", choice.Agc, "length of the window of the gain, ms")->check(Number_Above_0());
    command->add_flag("--balance", choice.Balance, "root mean square of each trace 1");
    command->add_flag("--reverse", choice.Reverse, "turns the polarity");
    command->add_flag("--remove-mean", choice.RemoveMean, "mean of each trace 0");
    command->add_flag("--remove-drift", choice.RemoveDrift, "takes the straight line off that fits best");
    command->add_option("--mute", choice.Mute, "zero up to this time after time zero, ms")
        ->check(Any_Number());
    command->add_option("--traces", options->Traces, "traces FIRST:LAST of the file; others stay as they are")
        ->check(First_To_Last());
    Runs_Su_Rewrite(command, request,
                    [options](BatchRun& run, const std::string& source, const std::string& target,
                              SuReport& report) { return Filter(run, *options, source, target, report); });
}

}  // namespace tarnvik
