// record, new and pick: the commands that start from field records.

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "app/pages.h"
#include "batch/commands.h"
#include "batch/option_checks.h"
#include "batch/record_copy.h"
#include "core/files.h"
#include "core/text/number.h"
#include "records/record_choice.h"
#include "records/record_display.h"
#include "records/su_loading.h"
#include "setup/spread.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

/// Takes an SU file into the session and puts the display at one of its records. False after a message.
bool Open_Record(BatchRun& run, const std::string& su_file, int record) {
    Workspace& work = run.Program.Work;
    if (!File_Exists(su_file)) return run.Refuse(su_file + ": This file does not exist !");
    // As typed, not as a project would name it: from the folder that the command runs in.
    work.Project.SuFile = std::filesystem::absolute(su_file).string();
    Start_With_SU_File(work, work.Project.SuFile);
    if (!Scan_Channels(work, su_file) || work.Record.ChannelsPerRecord < 1 || work.Record.NbRecords < 1) {
        return run.Refuse(su_file + ": no records found in this file");
    }
    if (record < 1 || record > work.Record.NbRecords) {
        return run.Refuse("Record " + CStr(record) + ": this file holds records 1 to " +
                          CStr(int{work.Record.NbRecords}));
    }
    Select_Record(work, record);
    return true;
}

/// Draws the record that was opened. False after a message.
bool Show_Record(BatchRun& run) {
    run.Display.Display_Record();
    const Workspace& work = run.Program.Work;
    if (work.Record.RecordWidth > 0) return true;
    return run.Refuse(work.Project.SuFile + ": this file is too short to be shown");
}

struct RecordOptions {
    int Record = 1;
    std::string Style = "area";
    double Gain = 1;
    bool Clip = false;
    bool Equalize = false;
    std::string Samples;
    std::string Size = "1600x900";
};

ExitStatus Draw_Record(const CommonOptions& common, const RecordOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    if (!Parse_Size(options.Size, run.Display)) return WrongUsage;
    Workspace& work = run.Program.Work;
    if (!Open_Record(run, common.ProjectFile, options.Record) || !run.May_Write(common.Out))
        return run.Finish(Refused);
    RecordView& view = work.Record;
    view.Style = options.Style == "wiggle"  ? WiggleOnly
                 : options.Style == "color" ? TwoColours
                                            : VariableArea;
    view.ClipAmplitude = options.Clip;
    view.EqualiseTraces = options.Equalize;
    view.AmplitudeGain = options.Gain;
    if (!options.Samples.empty()) {
        const double first = Val(options.Samples);
        const double last = Val(options.Samples.substr(options.Samples.find(':') + 1));
        if (last > work.Record.NbSamples) {
            std::cerr << "--samples: FIRST:LAST within 1 and " << work.Record.NbSamples << "\n";
            return WrongUsage;
        }
        Store_If_It_Fits(work.Record.FirstSample, first);
        Store_If_It_Fits(work.Record.LastSample, last);
    }
    if (!Show_Record(run)) return run.Finish(Refused);
    return Write_Page(run, Page::Record, common.Out);
}

/// Name of the records as the project keeps it: as it was typed where the project is found from the same
/// folder, otherwise in full, so that the project opens from everywhere.
std::string Kept_Name(const std::string& records, const std::string& project) {
    if (Folder_Of(records).empty() && Folder_Of(project).empty()) return records;
    return std::filesystem::absolute(records).lexically_normal().string();
}

ExitStatus New(const CommonOptions& common, NewProjectRequest request, const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    const std::string records = Kept_Name(common.ProjectFile, common.Out);
    if (!run.May_Write(common.Out)) return run.Finish(Refused);
    request.SuFile = common.ProjectFile;
    request.ProjectFile = common.Out;
    std::string refusal = Path_Refusal(records);
    if (refusal.empty()) refusal = Build_New_Project(work, request);
    if (!refusal.empty()) {
        run.Refuse(refusal);
        return run.Finish(Refused);
    }
    work.Project.SuFile = records;
    if (!run.Store(common.Out)) return run.Finish(Refused);
    if (!common.Json) {
        std::cout << common.Out << ": " << work.Project.NbShots << " shots, " << work.Project.NbReceivers
                  << " receivers, line length " << CStr(work.Project.LineLength) << "\n";
    }
    return run.Finish(Done);
}

struct PickOptions {
    int Record = 1;
    std::string ProjectFile;
    int ReferenceTrace = 1;
    double Start = 0;
    std::optional<double> Frequency;
    double Window = 0;
    double SearchFrom = 0;
    double MinAmplitude = 0;
    bool Negative = false;
    bool Absolute = false;
    double Shift = 0;
};

/// Trace of the file that the option means: the channel in the record, or the trace's number in the file, as
/// the display counts. Nothing when it is none of the record's.
std::optional<int> Trace_Of_Record(const RecordView& view, const PickOptions& options) {
    const int before = (options.Record - 1) * view.ChannelsPerRecord;
    const int number = options.ReferenceTrace;
    if (number > before && number <= before + view.ChannelsPerRecord) return number;
    if (number >= 1 && number <= view.ChannelsPerRecord) return before + number;
    return std::nullopt;
}

/// Fills the dialog as a user does who presses the right button on the reference trace.
void Fill_In(AutoPik& dialog, Workspace& work, const PickOptions& options, int reference) {
    dialog.Form_Load();
    dialog.Frequency = options.Frequency ? CStr(*options.Frequency) : "";
    dialog.StartShift = CStr(options.SearchFrom);
    dialog.Window = CStr(options.Window);
    dialog.MinAmplitude = CStr(options.MinAmplitude);
    dialog.PickShift = CStr(options.Shift);
    dialog.Negative = options.Negative;
    dialog.Absolute = options.Absolute;
    dialog.ReplaceHand = true;
    // The middle of the reference trace on the record picture.
    work.Record.DownX = reference * trace_width + trace_width / 2;
    dialog.FirstTime = CStr(options.Start);
}

/// Picks the record that is open. False after a message.
bool Pick_Record(BatchRun& run, const PickOptions& options, int reference) {
    if (!Show_Record(run)) return false;
    Workspace& work = run.Program.Work;
    AutoPik& dialog = run.Program.AutomaticPicking;
    Fill_In(dialog, work, options, reference);
    work.Fields.Status.clear();
    dialog.Pick_auto();
    // What could not be picked or written stands in the status field.
    return work.Fields.Status.empty() || run.Refuse(work.Fields.Status);
}

/// The picks of the record in its file, ms.
std::vector<double> Picks_Of_Record(const Workspace& work) {
    std::vector<double> picks;
    SuTraces file(work.Project.SuFile);
    for (std::int32_t trace = work.Record.FirstTrace; trace <= work.Record.LastTrace; ++trace)
        picks.push_back(file.Pick_Ms(trace));
    return picks;
}

/// Opens what is to be picked, picks it and keeps the picks where they are asked for.
ExitStatus Pick_And_Store(BatchRun& run, const CommonOptions& common, const PickOptions& options,
                          std::vector<double>& picks) {
    Workspace& work = run.Program.Work;
    if (!options.ProjectFile.empty() && !run.Load()) return Refused;
    if (!run.May_Write(common.Out, {common.ProjectFile})) return Refused;
    // The project keeps its own name of the records, which may be told from its folder.
    const std::string project_records = work.Project.SuFile;
    if (!Open_Record(run, common.ProjectFile, options.Record)) return Refused;
    const auto reference = Trace_Of_Record(work.Record, options);
    if (!reference) {
        std::cerr << "--reference-trace: 1 to " << work.Record.ChannelsPerRecord << "\n";
        return WrongUsage;
    }
    // Nothing is written unless it is asked for: without --save the picks are made in a copy.
    std::optional<RecordCopy> copy;
    if (!common.Save) {
        const std::int64_t last = std::int64_t{options.Record} * work.Record.ChannelsPerRecord;
        if (common.Out.empty()) {
            copy.emplace(common.ProjectFile, last - work.Record.ChannelsPerRecord + 1, last);
        } else {
            copy.emplace(common.ProjectFile, common.Out);
        }
        const std::string place = common.Out.empty() ? copy->Path() : common.Out;
        if (!copy->Reason().empty()) {
            run.Refuse(place + " cannot be written: " + copy->Reason());
            return Refused;
        }
        work.Project.SuFile = copy->Path();
        work.Record.TwinSuFile.clear();
    }
    // The file of this run is no edit of the project; as one it would be opened anew and shown from its
    // start.
    work.Edits.Start(work.Project, true);
    if (!Pick_Record(run, options, *reference)) return Refused;
    picks = Picks_Of_Record(work);
    if (copy && !common.Out.empty()) {
        const std::string reason = copy->Keep();
        if (!reason.empty()) {
            run.Refuse(common.Out + " cannot be written: " + reason);
            return Refused;
        }
    }
    // The project takes the picks too, when it is to be kept.
    if (common.Save && !options.ProjectFile.empty()) {
        if (!project_records.empty()) work.Project.SuFile = project_records;
        if (!run.Store("")) return Refused;
    }
    return run.Status();
}

ExitStatus Pick(const CommonOptions& common, const PickOptions& options, const std::string& folder) {
    CommonOptions project_options = common;
    project_options.ProjectFile = options.ProjectFile;
    BatchRun run(project_options, folder);
    std::vector<double> picks;
    const ExitStatus status = Pick_And_Store(run, common, options, picks);
    if (status == WrongUsage) return status;
    if (common.Json) {
        const Json json = {{"picks", picks}, {"message", run.Prompts.Texts()}};
        std::cout << json.dump(1, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
    } else {
        for (const double pick : picks)
            std::cout << CStr(pick) << "\n";
    }
    return status;
}

}  // namespace

void Add_Record(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("record", "one field record with its picks as a picture");
    auto options = std::make_shared<RecordOptions>();
    command->add_option("FILE", request.Common.ProjectFile, "field records (.su)")->required();
    command->add_option("--record", options->Record, "record, from 1")->required();
    command->add_option("--out", request.Common.Out, "picture file (.png, .jpg, .svg, .pdf or .wmf)")
        ->required()
        ->check(Picture_Name());
    command->add_option("--style", options->Style, "area, wiggle or color")
        ->check(CLI::IsMember({"area", "wiggle", "color"}));
    command->add_option("--gain", options->Gain, "gain")->check(Number_Between(0.001, 1e6));
    command->add_flag("--clip", options->Clip, "limit every amplitude to its trace");
    command->add_flag("--equalize", options->Equalize, "scale each trace by its own maximum");
    command->add_option("--samples", options->Samples, "FIRST:LAST")->check(First_And_Last());
    command->add_option("--size", options->Size, "WIDTHxHEIGHT in pixels");
    Add_Answers(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Draw_Record(common, *options, folder);
        };
    });
}

void Add_New(CLI::App& app, Request& request) {
    struct NewOptions {
        NewProjectRequest Geometry;
        std::string ShotDistances;
    };
    CLI::App* command = app.add_subcommand("new", "a new project from field records");
    auto options = std::make_shared<NewOptions>();
    NewProjectRequest& geometry = options->Geometry;
    command->add_option("FILE", request.Common.ProjectFile, "field records (.su)")->required();
    command->add_option("--spacing", geometry.Spacing, "distance between receivers")
        ->required()
        ->check(Number_Above_0());
    command->add_option("--first-distance", geometry.FirstDistance, "from end shot 1 to receiver 1")
        ->check(Any_Number());
    command->add_option("--shot-depth", geometry.ShotDepth, "depth of all shots below ground")
        ->check(Any_Number());
    command->add_option("--shots", geometry.Shots, "number of shots; otherwise of the headers");
    command->add_option("--receivers", geometry.Receivers, "number of receivers; otherwise of the headers");
    command->add_option("--line-length", geometry.LineLength, "length between the end shots")
        ->check(Number_Above_0());
    command->add_option("--shot-distances", options->ShotDistances, "all shots, separated by commas")
        ->check(List_Of_Numbers());
    command->add_flag("--offsets", geometry.Offsets, "first and last shot are offset shots");
    command->add_option("--out", request.Common.Out, "project to write (.tv5)")
        ->required()
        ->check(Name_Ending_In({".tv5"}));
    Add_Answers(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            options->Geometry.ShotDistances = Numbers(options->ShotDistances);
            return New(common, options->Geometry, folder);
        };
    });
}

void Add_Pick(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("pick", "automatic picking of one record");
    auto options = std::make_shared<PickOptions>();
    command->add_option("FILE", request.Common.ProjectFile, "field records (.su)")->required();
    command->add_option("--record", options->Record, "record, from 1")->required();
    command->add_option("--project", options->ProjectFile, "project that the picks belong to (.tv5)")
        ->check(Name_Ending_In({".tv5"}));
    command
        ->add_option("--reference-trace", options->ReferenceTrace,
                     "trace to start from: its channel in the record, from 1, or its number in the file")
        ->required();
    command->add_option("--start", options->Start, "time of the smallest pick, ms")
        ->required()
        ->check(Any_Number());
    command->add_option("--frequency", options->Frequency, "frequency of the first breaks, Hz")
        ->check(Number_Above_0());
    command->add_option("--window", options->Window, "window length, ms")->check(Number_Between(0, 1e6));
    command->add_option("--search-from", options->SearchFrom, "start of the search from the last pick, ms")
        ->check(Any_Number());
    command->add_option("--min-amplitude", options->MinAmplitude, "fraction of the trace's maximum")
        ->check(Number_Between(0, 1));
    command->add_flag("--negative", options->Negative, "search negative amplitudes");
    command->add_flag("--absolute", options->Absolute, "search amplitudes of either sign");
    command->add_option("--shift", options->Shift, "added to every pick, ms")->check(Any_Number());
    CLI::Option* save =
        command->add_flag("--save", request.Common.Save, "write the picks into the SU file and the project");
    command->add_option("--out", request.Common.Out, "write the picks into a copy of the SU file (.su)")
        ->check(Name_Ending_In({".su"}))
        ->excludes(save);
    Add_Answers(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Pick(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
