#include "processing/update_fldr.h"

#include <algorithm>
#include <limits>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/header_pass.h"
#include "processing/su_names.h"
#include "processing/typed_number.h"
#include "records/record_choice.h"
#include "records/su_check.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

constexpr std::int32_t most_channels = 32767;  ///< that the display can count

std::string Counted(std::int64_t number) {
    return CStr(static_cast<double>(number));
}

}  // namespace

void Update_FLDR::Say(const std::string& text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
}

void Update_FLDR::Load() {
    Text1 = Su_Path(Work.Project);
    Text3 = Shown = Hint = "";
    Text4 = "1";
    Input_Typed();
}

void Update_FLDR::Command1() {
    const std::string path =
        Outside.Ask.Open_File({"Tarnvik File selection", "SU FIle SU |*.SU|", "*.SU",
                               Text1.empty() ? Work.Project.ProjectDir : Folder_Of(Text1)});
    if (path.empty()) return;
    Text1 = path;
    Input_Typed();
}

void Update_FLDR::Input_Typed() {
    Text1 = Known_Path(Work, Trim(Text1));
    if (Text1 == Shown) return;
    Shown = Text1;
    SuTraces file(Text1);
    const std::int32_t traces = std::max(file.Nb_Traces().value_or(0), 0);
    // What the user told of the records on screen counts more than the words that are to be mended.
    int channels = Text1 == Su_Path(Work.Project) ? Work.Record.ChannelsPerRecord : 0;
    if (channels < 1 && traces > 0) channels = Channels_Per_Record(file, traces);
    Text3 = channels > 0 ? CStr(channels) : std::string();
    Hint = traces > 0 ? Counted(traces) + " traces" : std::string();
    Outside.Show.Show_Fields();
}

/// Tells why the file cannot be numbered; false when it can.
bool Update_FLDR::File_Refused() {
    std::string why;
    if (Text1.empty()) {
        why = "File name missing";
    } else if (!File_Exists(Text1)) {
        why = Text1 + " does not exists";
    } else if (const SuCheck check = Check_Su_File(Text1); check.Refused()) {
        why = check.Message(Text1);
    } else {
        NbTraces = std::max(SuTraces(Text1).Nb_Traces().value_or(0), 0);
        if (NbTraces < 1) why = Text1 + " holds no trace";
    }
    if (!why.empty()) Say(why);
    return !why.empty();
}

bool Update_FLDR::Records_Refused(std::int64_t channels, std::int32_t& first_record) {
    std::string why;
    const auto first = Typed_Number(Text4);
    const std::int64_t records = (NbTraces - 1) / channels + 1;
    const double most = std::numeric_limits<std::int32_t>::max() - static_cast<double>(records) + 1;
    if (!first) {
        why = "First field record number: \"" + Trim(Text4) + "\" is no number";
    } else if (*first != Int(*first) || *first < 1 || *first > most) {
        why = "The first field record number must be a whole number from 1 to " + CStr(most);
    } else {
        first_record = CLng(*first).value_or(1);
        return false;
    }
    Say(why);
    return true;
}

void Update_FLDR::Command3(const TraceProgress& progress) {
    Hint.clear();
    Text1 = Known_Path(Work, Trim(Text1));
    if (File_Refused()) return;
    const std::string about =
        "This module will update the trace sequence number and Field record number of your original SU file.";
    if (Outside.Ask.Message(about, Work.AppTitle, Icon::Information, Buttons::OkCancel) != Answer::Ok) return;
    const std::string typed =
        Outside.Ask.Input("Enter the number of channels per record (0=exit)", Work.AppTitle, Trim(Text3));
    if (typed.empty()) return;
    const auto channels = Typed_Number(typed);
    if (channels && *channels == 0) return;
    const auto most = static_cast<double>(std::min<std::int64_t>(most_channels, NbTraces));
    if (!channels || *channels != Int(*channels) || *channels < 1 || *channels > most) {
        return Say("The number of channels per record must be a whole number from 1 to " + CStr(most) +
                   ", \"" + Trim(typed) + "\" is none. The headers are as they were.");
    }
    Text3 = CStr(*channels);
    std::int32_t first_record = 1;
    if (Records_Refused(static_cast<std::int64_t>(*channels), first_record)) return;
    Renumber(static_cast<std::int32_t>(*channels), first_record, progress);
}

void Update_FLDR::Renumber(std::int32_t channels, std::int32_t first_record, const TraceProgress& progress) {
    SuWriter file(Text1, &Work.Edits);
    if (!file.Is_Open()) return Say(Text1 + ": " + file.Reason());
    EditScope edit(Work, Edit_Name_Of(Work, "Trace and record numbers", Text1));
    const ChangeOfHeader number = [&](std::int64_t trace, TraceHeader& header) {
        const auto channel = static_cast<double>(Channel_Of_Trace(trace, channels));
        header.Set_Word(words::tracl, channel);
        header.Set_Word(words::tracf, channel);
        header.Set_Word(words::fldr, first_record + static_cast<double>(Record_Of_Trace(trace, channels)));
        return HeaderStep::Changed;
    };
    const HeaderPass pass = Change_Headers(file, 1, NbTraces, number, false, progress);
    if (!pass.Went_Well()) edit.Give_Up();
    edit.End();
    // The box of the progress goes away before anything is told.
    if (!pass.Went_Well() && !pass.Stopped && progress) progress(NbTraces, NbTraces);
    if (pass.Stopped) {
        Hint = "Stopped: the headers are as they were";
        Outside.Show.Show_Fields();
        return;
    }
    if (!pass.Went_Well()) {
        return Say("Trace " + Counted(pass.Trace) + ": " + pass.Reason + ". The headers are as they were.");
    }
    Channels_Are(channels);
    Say("Number of channel per shot has been updated", Icon::Information);
}

/// Where the words of the headers do not tell (records of four channels), the records on screen are counted
/// as the user has said.
void Update_FLDR::Channels_Are(std::int32_t channels) {
    RecordView& view = Work.Record;
    if (Text1 != Su_Path(Work.Project) || view.NbTraces < 1 || view.ChannelsPerRecord == channels) return;
    view.ChannelsPerRecord = static_cast<std::int16_t>(channels);
    Store_If_It_Fits(view.NbRecords, static_cast<double>(view.NbTraces) / channels);
    Select_Record(Work, 1);
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

void Update_FLDR::Command4() {
    Say("HOW MODIFY TRACE NUMBER AND FIELD RECORD NUMBER\r\n"
        "If your recorder does not write the trace number and shot number correctly\r\n"
        "or at all into the trace header, you must correct this problem using this module,\r\n"
        "Just input the trace number per record and the first record number",
        Icon::Information);
}

}  // namespace tarnvik
