// su-window, su-stack, su-resample and su-shift: SU files rewritten as a whole.

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "batch/su_rewrite.h"
#include "core/text/number.h"
#include "processing/rewrite_su.h"
#include "processing/shift_traces.h"
#include "processing/su_chain.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

std::string Reason_Of(const ChainEnd& end) {
    if (end.Missing) return "Unable to launch  " + end.Tool;
    return end.Stopped ? "stopped" : end.Failure;
}

ChainTools Tools_Of(BatchRun& run) {
    return {run.Program.Outside.Launch, run.Program.Work.Edits};
}

struct WindowOptions {
    std::string Extract;
    int DropRecord = 0;
    std::string Key;
    std::optional<double> Least;
    std::optional<double> Most;
    std::optional<double> Until;
};

std::string Plain(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.12g", value);
    return text;
}

std::string Window(BatchRun& run, const WindowOptions& options, const std::string& source,
                   const std::string& target) {
    Workspace& work = run.Program.Work;
    const ChainTools tools = Tools_Of(run);
    if (!options.Extract.empty()) {
        const TraceNumbers range = Trace_Numbers(options.Extract);
        const int count = Channels_Kept(source, range.First, range.Last);
        if (count < 1) return "No trace of " + source + " has a channel in this range";
        return Reason_Of(Extract_Channels(tools, source, target, range.First, range.Last, count));
    }
    if (options.DropRecord > 0) {
        if (options.DropRecord > work.Record.NbRecords)
            return "Record " + CStr(options.DropRecord) + ": this file holds records 1 to " +
                   CStr(int{work.Record.NbRecords});
        return Reason_Of(Drop_Shot(work, run.Program.Outside, options.DropRecord, source, target));
    }
    std::vector<std::string> arguments;
    if (!options.Key.empty()) {
        arguments = {"key=" + options.Key};
        if (options.Least) arguments.push_back("min=" + Plain(*options.Least));
        if (options.Most) arguments.push_back("max=" + Plain(*options.Most));
    }
    if (options.Until) arguments.push_back("tmax=" + Plain(*options.Until / 1000));
    return Reason_Of(Run_Tool(tools, "suwind", arguments, source, target));
}

std::string Stack(BatchRun& run, StackPlan plan, const std::string& source, const std::string& target) {
    const RecordView& view = run.Program.Work.Record;
    plan.Channels = view.ChannelsPerRecord;
    plan.Records = view.NbRecords;
    if (plan.First > plan.Last) std::swap(plan.First, plan.Last);
    if (plan.First < 1 || plan.Last > plan.Records) return "wrong shots number to stack";
    ChainFolder between(run.Program.Work.Edits, target);
    return Reason_Of(Stack_Records(Tools_Of(run), source, target, plan, between));
}

struct ShiftOptions {
    double Shift = 0;
    int Trace = 0;
    std::string Traces;
    bool All = false;
};

std::string Shift(BatchRun& run, const ShiftOptions& options, const std::string& source,
                  const std::string& target, SuReport& json) {
    const RecordView& view = run.Program.Work.Record;
    const auto samples = Samples_To_Shift(options.Shift, view.SampleInterval);
    if (!samples) return CStr(options.Shift) + " ms is no number of samples of this file";
    TraceNumbers range =
        options.All ? TraceNumbers{1, view.NbTraces} : TraceNumbers{options.Trace, options.Trace};
    if (!options.Traces.empty()) range = Trace_Numbers(options.Traces);
    if (range.Last > view.NbTraces) return "this file holds traces 1 to " + CStr(double(view.NbTraces));
    const TraceShift shift = Shift_Trace_Samples(source, target, range.First, range.Last, *samples);
    if (!shift.Failure.empty()) return shift.Failure;
    if (shift.PushedOut > 0)
        run.Prompts.Say(Pushed_Out_Text(shift), run.Program.Work.AppTitle, Icon::Warning);
    json["ShiftSamples"] = *samples;
    json["traces"] = shift.Traces;
    return {};
}

void Add_Window(CLI::App& app, Request& request) {
    CLI::App* command = Add_Su_Rewrite(app, request, "su-window", "a part of an SU file");
    auto options = std::make_shared<WindowOptions>();
    auto* extract = command->add_option("--extract", options->Extract, "channels to keep, FIRST:LAST");
    extract->check(First_To_Last());
    auto* drop = command->add_option("--drop-record", options->DropRecord, "record to leave out, from 1");
    drop->check(Number_Between(1, 32767));
    auto* key = command->add_option("--key", options->Key, "header word");
    auto* least = command->add_option("--min", options->Least, "its least value")->check(Any_Number());
    auto* most = command->add_option("--max", options->Most, "its largest value")->check(Any_Number());
    auto* until = command->add_option("--tmax", options->Until, "end of the traces, ms")->check(Any_Number());
    least->needs(key);
    most->needs(key);
    key->needs(least, most);
    extract->excludes(drop, key, until);
    drop->excludes(key, until);
    key->excludes(until);
    command->parse_complete_callback([options] {
        if (options->Extract.empty() && options->DropRecord < 1 && options->Key.empty() && !options->Until)
            throw CLI::RequiredError("--extract, --drop-record, --key or --tmax");
    });
    Runs_Su_Rewrite(command, request,
                    [options](BatchRun& run, const std::string& source, const std::string& target,
                              SuReport&) { return Window(run, *options, source, target); });
}

void Add_Stack(CLI::App& app, Request& request) {
    CLI::App* command = Add_Su_Rewrite(app, request, "su-stack", "neighbouring records added trace by trace");
    auto plan = std::make_shared<StackPlan>();
    auto channels = std::make_shared<int>(0);
    command->add_option("--first", plan->First, "first record, from 1")->required();
    command->add_option("--last", plan->Last, "last record")->required();
    command->add_option("--channels", *channels, "channels of a record; otherwise of the headers")
        ->check(Number_Between(1, 32767));
    Runs_Su_Rewrite(
        command, request,
        [plan](BatchRun& run, const std::string& source, const std::string& target, SuReport&) {
            return Stack(run, *plan, source, target);
        },
        channels);
}

void Add_Resample(CLI::App& app, Request& request) {
    struct ResampleOptions {
        int Samples = 0;
        double Interval = 0;
        double Start = 0;
    };
    CLI::App* command = Add_Su_Rewrite(app, request, "su-resample", "traces at another sample interval");
    auto options = std::make_shared<ResampleOptions>();
    command->add_option("--nt", options->Samples, "samples of a trace")
        ->required()
        ->check(Number_Between(1, 32767));
    command->add_option("--dt", options->Interval, "sample interval, microseconds")
        ->required()
        ->check(Number_Between(1, 32767));
    command->add_option("--tmin", options->Start, "time of the first sample, ms")->check(Any_Number());
    Runs_Su_Rewrite(
        command, request,
        [options](BatchRun& run, const std::string& source, const std::string& target, SuReport&) {
            return Reason_Of(
                Resample(Tools_Of(run), source, target, options->Samples, options->Interval, options->Start));
        });
}

void Add_Shift(CLI::App& app, Request& request) {
    CLI::App* command = Add_Su_Rewrite(app, request, "su-shift", "the samples of traces moved in time");
    auto options = std::make_shared<ShiftOptions>();
    command->add_option("--shift", options->Shift, "ms, later where it is positive")
        ->required()
        ->check(Any_Number());
    auto* which = command->add_option_group("traces");
    which->add_option("--trace", options->Trace, "trace of the file, from 1")->check(Number_Between(1, 2e9));
    which->add_option("--traces", options->Traces, "traces FIRST:LAST")->check(First_To_Last());
    which->add_flag("--all", options->All, "all traces");
    which->require_option(1);
    Runs_Su_Rewrite(command, request,
                    [options](BatchRun& run, const std::string& source, const std::string& target,
                              SuReport& json) { return Shift(run, *options, source, target, json); });
}

}  // namespace

void Add_Su_Chain(CLI::App& app, Request& request) {
    Add_Window(app, request);
    Add_Stack(app, request);
    Add_Resample(app, request);
    Add_Shift(app, request);
}

}  // namespace tarnvik
