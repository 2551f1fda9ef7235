#include "processing/rezize.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/rewrite_su.h"
#include "processing/su_names.h"
#include "processing/typed_number.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

constexpr int most_readable = 32767;     ///< samples of a record and microseconds that the display stands
constexpr double ordinary_record = 500;  ///< ms, long enough for a shallow line

std::string No_Number(const char* name, const std::string& text) {
    return std::string(name) + ": \"" + Trim(text) + "\" is no number";
}

}  // namespace

void rezize::Say(const std::string& text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
}

void rezize::Load() {
    SSTab1 = 0;
    Shown.clear();
    Scan = {};
    Text1 = Text2 = "";
    Show_Scan();
    Hint = "Choose an SU file";
    const std::string path = Wanted.empty() ? Su_Path(Work.Project) : Wanted;
    if (!path.empty()) Take_Up(path);
}

std::string rezize::Make_Of(const std::string& su_file) {
    Wanted = su_file;
    ServesLoading = true;
    Made.clear();
    Outside.Show.Open_Dialog(Dialog::rezize, true);
    Wanted.clear();
    ServesLoading = false;
    return Made;
}

void rezize::Command1() {
    const std::string folder = Text1.empty() ? Work.Project.ProjectDir : Folder_Of(Text1);
    const std::string path =
        Outside.Ask.Open_File({"SU File selection", "SU File |*.SU|All files|*.*|", "*.SU", folder});
    if (path.empty()) return;
    Text1 = path;
    Input_Typed();
}

void rezize::Input_Typed() {
    Text1 = Trim(Text1);
    if (Text1 == Shown) return;
    const std::string former = Shown;
    if (!Take_Up(Text1)) Text1 = former;
    Outside.Show.Show_Fields();
}

/// Looks at a file and shows it; one that is refused is told, and the former one stays.
bool rezize::Take_Up(const std::string& path) {
    SuScan scan = Scan_SU_File(path);
    if (!scan.Good()) {
        Hint = scan.Refusal;
        Say(scan.Refusal);
        return false;
    }
    Scan = std::move(scan);
    Text1 = Shown = path;
    Text2 = Derived_File(path, ".su", "_new.su");
    if (Text2 == path) Text2 += "_new.su";
    Show_Scan();
    return true;
}

void rezize::Show_Scan() {
    Hint.clear();
    OriginalTime = OriginalSamples = OriginalInterval = OriginalChannels = "";
    Text8 = Text14 = Text16 = Text9 = Text10 = "";
    if (Scan.Good()) {
        OriginalTime = CStr(Scan.Recording_Time());
        OriginalSamples = CStr(Scan.Samples);
        OriginalInterval = CStr(Scan.Interval / 1000.0);
        OriginalChannels = Scan.Records.empty() ? "" : CStr(Scan.Channels());
        Text8 = CStr(std::min(Scan.Recording_Time(), ordinary_record));
        Text14 = OriginalSamples;
        Text16 = OriginalInterval;
        Text9 = CStr(Scan.FirstChannel);
        Text10 = CStr(Scan.LastChannel);
        Hint = CStr(static_cast<double>(Scan.Traces)) + " traces, " +
               (Scan.Records.empty() ? "the channel word does not run: the records are not known"
                                     : CStr(static_cast<int>(Scan.Records.size())) + " records");
        if (Scan.LeftOver > 0) {
            Hint += "; " + CStr(static_cast<double>(Scan.LeftOver)) +
                    " bytes are left over behind the last whole trace";
        }
    }
    Show_Records();
}

void rezize::Show_Records() {
    constexpr const char* headings[] = {"", "Channels", "Time (ms)", "Samples"};
    const auto& records = Scan.Records;
    Records.Resize(static_cast<int>(records.size()) + 1, static_cast<int>(std::size(headings)));
    for (int column = 0; column < Records.Columns(); ++column)
        Records.Set_Text(0, column, headings[column]);
    for (int row = 1; row < Records.Rows(); ++row) {
        Records.Set_Text(row, 0, "Record n° " + CStr(row));
        Records.Set_Text(row, 1, CStr(records[static_cast<std::size_t>(row) - 1]));
        Records.Set_Text(row, 2, OriginalTime);
        Records.Set_Text(row, 3, OriginalSamples);
        for (int column = 1; column < Records.Columns(); ++column)
            Records.At(row, column).Align = TextGrid::Alignment::Right;
    }
}

void rezize::Command2() {
    const std::string path =
        Outside.Ask.Save_File({"SU File selection", "SU File |*.SU|All files|*.*|", Text2, Folder_Of(Text2)});
    if (path.empty()) return;
    Text2 = Agreed = path;  // the file dialog has asked whether a file of that name may go
    Outside.Show.Show_Fields();
}

// A record of n samples at d covers as much time as the original one.

void rezize::Samples_Typed() {
    const auto samples = Typed_Number(Text14);
    if (!samples || *samples < 1 || !Scan.Good()) return;
    const double interval = Rounded(Scan.Recording_Time() * 1000 / *samples);
    Text16 = CStr(std::max(interval, 1.0) / 1000);
}

void rezize::Interval_Typed() {
    const auto interval = Typed_Number(Text16);
    if (!interval || *interval <= 0 || !Scan.Good()) return;
    constexpr double as_good_as_whole = 1e-9;
    Text14 = CStr(std::max(1.0, Int(Scan.Recording_Time() / *interval + as_good_as_whole)));
}

std::string rezize::Output_Refusal() const {
    namespace fs = std::filesystem;
    std::error_code failed;
    if (Text2.empty()) return "Output file name missing";
    if (Same_File(Text1, Text2)) return "The output file must be another one than the input file";
    if (fs::is_directory(Text2, failed)) return Text2 + " is a folder";
    const std::string folder = Folder_Of(Text2);
    if (!folder.empty() && !fs::is_directory(folder, failed)) return folder + " does not exist !";
    return ServesLoading ? Path_Refusal(Text2) : std::string();
}

rezize::Plan rezize::Plan_Of_Page() const {
    switch (static_cast<Page>(SSTab1)) {
        case Page::Time:
            return Plan_Time();
        case Page::Samples:
            return Plan_Samples();
        default:
            return Plan_Channels();
    }
}

rezize::Plan rezize::Plan_Time() const {
    Plan plan;
    const auto time = Typed_Number(Text8);
    const double most = Scan.Recording_Time();
    const double first = std::max(0.0, Scan.Delay * 1000.0 / Scan.Interval);
    const double end = Scan.Delay * 1000.0 / Scan.Interval + Scan.Samples - 1;
    const double last = time ? Rounded(*time * 1000 / Scan.Interval) : 0;
    if (!time) {
        plan.Refusal = No_Number("New recording time", Text8);
    } else if (*time <= 0) {
        plan.Refusal = "The new recording time must be above 0 ms";
    } else if (last > end) {
        plan.Refusal = "The new recording time must be shorter than the original one, " + CStr(most) + " ms" +
                       (Scan.Delay == 0 ? "" : " from " + CStr(Scan.Delay) + " ms");
    } else if (last < first) {
        plan.Refusal = "The records begin at " + CStr(Scan.Delay) + " ms: nothing would be left";
    } else if (last >= most_readable) {
        plan.Refusal = "Records of " + CStr(last + 1) + " samples are too long, the most is " +
                       CStr(most_readable) + ": " + CStr((most_readable - 1) * Scan.Interval / 1000.0) +
                       " ms";
    } else {
        const std::string tmax = CStr(*time / 1000);
        plan.Tool = "suwind";
        plan.Arguments = {"tmin=0", "tmax=" + tmax};
        plan.Text = Time_Text(Outside.Launch.Program_Folder(), Text1, Text2, tmax);
        plan.Edit = "Recording time " + CStr(*time) + " ms";
        plan.Closing = "Time has been changed for file ";
    }
    return plan;
}

rezize::Plan rezize::Plan_Samples() const {
    Plan plan;
    const auto samples = Typed_Number(Text14);
    const auto interval = Typed_Number(Text16);
    const double interval_us = interval ? *interval * 1000 : 0;
    constexpr double as_good_as_whole = 1e-6;
    if (!samples) {
        plan.Refusal = No_Number("New number of samples/trace", Text14);
    } else if (*samples != Int(*samples) || *samples < 1 || *samples > most_readable) {
        plan.Refusal = "The new number of samples must be a whole number from 1 to " + CStr(most_readable);
    } else if (!interval) {
        plan.Refusal = No_Number("New sample interval", Text16);
    } else if (std::abs(interval_us - Rounded(interval_us)) > as_good_as_whole || Rounded(interval_us) < 1 ||
               Rounded(interval_us) > most_readable) {
        plan.Refusal = "The new sample interval must be a whole number of microseconds, 0.001 to " +
                       CStr(most_readable / 1000.0) + " ms";
    } else {
        const std::string seconds = CStr(Rounded(interval_us) / 1e6);
        plan.Tool = "suresamp";
        plan.Arguments = {"nt=" + CStr(*samples), "dt=" + seconds};
        plan.Text = Samples_Text(Outside.Launch.Program_Folder(), Text1, Text2, CStr(*samples), seconds);
        plan.Edit = CStr(*samples) + " samples";
        plan.Closing = "Trace length has been changed for file ";
    }
    return plan;
}

rezize::Plan rezize::Plan_Channels() const {
    Plan plan;
    const auto typed_first = Typed_Number(Text9);
    const auto typed_last = Typed_Number(Text10);
    const auto first = CLng(typed_first.value_or(0));
    const auto last = CLng(typed_last.value_or(0));
    if (!typed_first) {
        plan.Refusal = No_Number("First channel", Text9);
    } else if (!typed_last) {
        plan.Refusal = No_Number("Last channel", Text10);
    } else if (!first || !last || *first != *typed_first || *last != *typed_last) {
        plan.Refusal = "Channels are whole numbers";
    } else if (*first > *last) {
        plan.Refusal = "The first channel must not be above the last one";
    } else if (Traces_Of_Channels(Text1, Scan, *first, *last) == 0) {
        plan.Refusal = "No trace of " + Text1 + " has a channel from " + CStr(*first) + " to " + CStr(*last);
    } else {
        plan.Tool = "suwind";
        plan.Arguments = {"key=tracf", "min=" + CStr(*first), "max=" + CStr(*last)};
        plan.Text = Channels_Text(Outside.Launch.Program_Folder(), Text1, Text2, *first, *last);
        plan.Edit = "Channels " + CStr(*first) + " to " + CStr(*last);
        plan.Closing = "Channels have been changed for file ";
    }
    return plan;
}

void rezize::Command3() {
    Text1 = Trim(Text1);
    Text2 = Trim(Text2);
    Hint.clear();
    if (Text1.empty()) return Say("Input file name missing");
    if (Text1 != Shown && !Take_Up(Text1)) return;
    // Looked at once more: another program may have written it since.
    SuScan now = Scan_SU_File(Text1);
    if (!now.Good()) return Say(now.Refusal);
    Scan = std::move(now);
    if (!Text2.empty() && Name_Of(Text2).find('.') == std::string::npos) Text2 += ".su";
    Text2 = Known_Path(Work, Text2);
    if (const std::string refusal = Output_Refusal(); !refusal.empty()) return Say(refusal);
    const Plan plan = Plan_Of_Page();
    if (!plan.Refusal.empty()) return Say(plan.Refusal);
    if (Text2 != Agreed && File_Exists(Text2) &&
        !Outside.Ask.Ask_Yes(Text2 + " already exists, overwrite ?", Work.AppTitle, Icon::Warning)) {
        return;
    }
    Run(plan);
}

void rezize::Run(const Plan& plan) {
    const std::string output = Text2;
    if (!Note_In_Log(Text1, plan.Text)) Hint = Log_Of(Text1) + " cannot be written";
    FreshFile fresh(Work.Edits, output);
    const ChainEnd end =
        Run_Tool({Outside.Launch, Work.Edits}, plan.Tool, plan.Arguments, Text1, fresh.Name());
    if (!end.Well()) {
        if (end.Stopped) Hint = "Stopped: all files are as they were";
        Tell_Chain_End(Work, Outside, end, "Unable to shell application:");
        return;
    }
    EditScope edit(Work, Edit_Name_Of(Work, plan.Edit, output));
    if (const std::string reason = fresh.Put(); !reason.empty()) {
        edit.Give_Up();
        return Say(output + " cannot be written: " + reason);
    }
    edit.End();
    Made = output;
    Agreed.clear();
    if (Hint.empty()) Hint = output + " has been recorded";
    Say(plan.Closing + output, Icon::Information);
    if (ServesLoading) Outside.Show.Close_Dialog(Dialog::rezize);
}

}  // namespace tarnvik
