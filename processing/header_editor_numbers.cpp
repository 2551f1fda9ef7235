// A word changed along a range of traces, and words numbered anew on all traces.

#include <algorithm>
#include <array>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/header_editor.h"
#include "processing/su_names.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

// Numbers that users know the errors by.
constexpr int overflow = 6;
constexpr int type_mismatch = 13;
constexpr int device_error = 57;
constexpr int end_of_file = 62;
constexpr int access_error = 75;

std::string Trace_Text(std::int64_t trace) {
    return "Trace " + CStr(static_cast<double>(trace));
}

bool Begins_A_Number(const std::string& text) {
    const std::string typed = Trim(text);
    return !typed.empty() && std::string_view("0123456789+-.&").find(typed.front()) != std::string_view::npos;
}

}  // namespace

void Header::Tell_Error(int number, const std::string& what) {
    Say("Something wrong happens, Error n°" + CStr(number) + "\r\ncheck the header !\r\n\r\n" + what,
        Icon::Critical);
}

/// Tells how a pass failed or that it was stopped; all is as it was then. False when it was neither.
bool Header::Tell_Failed(const HeaderPass& pass, int word) {
    if (pass.Went_Well()) return false;
    if (pass.Stopped) {
        Hint = "Stopped: the headers are as they were";
        Outside.Show.Show_Fields();
    } else if (pass.End == HeaderStep::DoesNotFit) {
        Tell_Error(overflow, Trace_Text(pass.Trace) + ": the value does not fit " + Header_Word(word).Name +
                                 ", only " + Room_Of(word) + ". The headers are as they were.");
    } else {
        Tell_Error(device_error, Trace_Text(pass.Trace) + ": " +
                                     (pass.Reason.empty() ? "cannot be read" : pass.Reason) +
                                     ". The headers are as they were.");
    }
    return true;
}

TraceProgress Header::Told(const TraceProgress& progress, const char* before, const char* between) {
    return [this, progress, before, between](std::int64_t done, std::int64_t all) {
        Status = before + CStr(static_cast<double>(done));
        if (*between != '\0') Status += between + CStr(static_cast<double>(all));
        return !progress || progress(done, all);
    };
}

/// One edit over traces `first` to `last` of `path`; given up when it does not come to its end. True when it
/// did.
bool Header::Run(const Pass& work, const TraceProgress& progress) {
    SuWriter file(work.Path, &Work.Edits);
    if (!file.Is_Open()) {
        Tell_Error(access_error, work.Path + ": " + file.Reason());
        return false;
    }
    EditScope edit(Work, Edit_Name_Of(Work, work.Name, work.Path));
    const HeaderPass pass =
        Change_Headers(file, work.First, work.Last, work.Change, work.LookFirst, progress);
    if (!pass.Went_Well()) edit.Give_Up();
    edit.End();
    if (!pass.Went_Well() && !pass.Stopped && progress) progress(work.Last, work.Last);
    Status.clear();
    if (work.Path == Texth1) Read_Again();
    return !Tell_Failed(pass, work.Word);
}

// Single word

void Header::Choose_Values() {
    const std::string path = Outside.Ask.Open_File(
        {"File of values", "Text file |*.TXT|All files|*.*|", "*.TXT", Folder_Of(Texth1)});
    if (path.empty()) return;
    Text5 = path;
    Outside.Show.Show_Fields();
}

/// The traces to change, cut to those of the file; true when they make no range.
bool Header::Range_Refused(std::int64_t& first, std::int64_t& last) {
    first = CLng(Val(Text2)).value_or(0);
    last = CLng(Val(Text3)).value_or(0);
    if (first == last) {
        Say("Same trace...");
        return true;
    }
    const bool descending = first > last;
    if (!descending) {
        first = std::max<std::int64_t>(first, 1);
        last = std::min(last, NbTraces);
    }
    if (descending || first > last) {
        Say("First trace must be < Last trace..");
        return true;
    }
    Text2 = CStr(static_cast<double>(first));
    Text3 = CStr(static_cast<double>(last));
    return false;
}

/// The numbers of the way chosen; true when one of them is missing.
bool Header::Way_Refused(HeaderChange& change) {
    const auto number = [this](const char* name, const std::string& text, double& value) {
        if (!Begins_A_Number(text)) {
            Say(std::string(name) + ": \"" + One_Line(text) + "\" is no number");
            return false;
        }
        value = Val(text);
        return true;
    };
    switch (change.Way) {
        case ChangeWay::Constant:
            return !number("Value to write", Text4, change.Value);
        case ChangeWay::Multiply:
            return !number("Factor", Text9, change.Value);
        case ChangeWay::Increment:
            return !number("Start", Text7, change.Value) || !number("Increment", Text10, change.Step);
        case ChangeWay::ValueByReceiver: {
            const auto lines = CLng(Val(Text8));
            if (lines && *lines >= 0 && Begins_A_Number(Text8)) {
                change.LinesAShot = *lines;
                return false;
            }
            Say("The step from shot to shot is a number of lines");
            return true;
        }
        default:
            return false;
    }
}

/// The values of the file, where the way takes them from one; true when they do not do.
bool Header::Values_Refused(HeaderChange& change) {
    if (!change.Line_Of(change.FirstTrace)) return false;
    const auto text = Read_File(Text5);
    if (!text) {
        Say(Text5 + " does not exist !");
        return true;
    }
    ListedValues listed = Values_Of_Lines(*text);
    if (listed.WrongLine) {
        Tell_Error(type_mismatch,
                   Text5 + ": line " + CStr(static_cast<double>(*listed.WrongLine)) + " is no number");
        return true;
    }
    if (listed.Values.empty()) {
        Say(Text5 + " is empty !");
        return true;
    }
    const std::int64_t needed = change.Lines_Needed();
    if (std::ssize(listed.Values) < needed) {
        Tell_Error(end_of_file, Text5 + " has " + CStr(static_cast<double>(listed.Values.size())) +
                                    " lines, " + CStr(static_cast<double>(needed)) + " are needed");
        return true;
    }
    change.FileValues = std::move(listed.Values);
    return false;
}

void Header::Command1(const TraceProgress& progress) {
    if (File_Refused(" does not exist !", " is empty !")) return;
    HeaderChange change;
    change.Way = static_cast<ChangeWay>(Way);
    if (Range_Refused(change.FirstTrace, change.LastTrace)) return;
    const bool by_record = change.Way == ChangeWay::Channels || change.Way == ChangeWay::ValueByShot ||
                           change.Way == ChangeWay::ValueByReceiver;
    change.Channels = by_record ? CLng(Val(Text6)).value_or(0) : 1;
    if (change.Channels < 1) return Say("Number of channel required");
    if (change.Way == ChangeWay::ValueByTrace && Text5.empty()) return Say("No file selected ");
    if (Combo1 < 0) return Say("You must select a word to change");
    if (change.Line_Of(change.FirstTrace) && Text5.empty()) return Say("You must select a data file");
    if (Way_Refused(change) || Values_Refused(change)) return;

    const int word = Combo1 + 1;
    Pass pass;
    pass.Name = std::string("Header word ") + Header_Word(word).Name + " of traces " + Text2 + " to " + Text3;
    pass.Path = Texth1;
    pass.First = change.FirstTrace;
    pass.Last = change.LastTrace;
    pass.Word = word;
    pass.LookFirst = true;
    pass.Change = [&change, word](std::int64_t trace, TraceHeader& header) {
        const bool fits = header.Set_Word(word, change.New_Value(trace, header.Word(word)));
        return fits ? HeaderStep::Changed : HeaderStep::DoesNotFit;
    };
    if (Run(pass, Told(progress, "Trace ", "/"))) Say("OK, Header has been updated in " + Texth1);
}

// Important words

/// Tells why the file shown cannot be changed, in these words; false when it can.
bool Header::File_Refused(const char* missing, const char* empty) {
    Hint.clear();
    if (Texth1.empty()) {
        Say("File name missing");
        return true;
    }
    if (!File_Exists(Texth1)) {
        Say(Texth1 + missing);
        return true;
    }
    NbTraces = std::max(SuTraces(Texth1).Nb_Traces().value_or(0), 0);
    if (NbTraces > 0) return false;
    Say(Texth1 + empty);
    return true;
}

/// Channels of a record, as the user told or by the headers; 0 when neither does.
int Header::Channels_Of_File() const {
    if (ChannelsPerRecord > 0) return ChannelsPerRecord;
    SuTraces file(Texth1);
    return Channels_Per_Record(file, static_cast<std::int32_t>(NbTraces));
}

bool Header::Number_All(const std::string& name, const std::function<void(std::int64_t, TraceHeader&)>& set,
                        const TraceProgress& progress) {
    Pass pass;
    pass.Name = name;
    pass.Path = Texth1;
    pass.Last = NbTraces;
    pass.Change = [&set](std::int64_t trace, TraceHeader& header) {
        set(trace, header);
        return HeaderStep::Changed;
    };
    return Run(pass, Told(progress, "Processing trace ", " of "));
}

void Header::Check10(const TraceProgress& progress) {
    if (File_Refused(" does not exists", " is empty !")) return;
    if (!Outside.Ask.Ask_Yes(
            "Would you update header values with trace numbers 1 to " + CStr(static_cast<double>(NbTraces)),
            Work.AppTitle)) {
        return;
    }
    const bool done = Number_All(
        "Trace numbers",
        [](std::int64_t trace, TraceHeader& header) {
            for (const int word : {words::tracl, words::tracr, words::tracf})
                header.Set_Word(word, static_cast<double>(trace));
        },
        progress);
    if (done) Say("The trace number has been updated");
}

void Header::Check8(const TraceProgress& progress) {
    if (File_Refused(" does not exists", " is empty !")) return;
    const std::string about =
        "This module will update the trace sequence number within original field record.";
    if (Outside.Ask.Message(about, Work.AppTitle, Icon::Information, Buttons::OkCancel) != Answer::Ok) return;
    const int former = Channels_Of_File();
    const std::string typed = Outside.Ask.Input("Enter the number of channels per record", Work.AppTitle,
                                                former > 0 ? CStr(former) : std::string());
    if (typed.empty()) return;
    const std::int32_t channels = CLng(Val(typed)).value_or(0);
    if (channels < 1) return Say("Number of channel required");
    if (!Outside.Ask.Ask_Yes("Would you update header values with channel numbers", Work.AppTitle)) return;
    const bool done = Number_All(
        "Channel numbers",
        [channels](std::int64_t trace, TraceHeader& header) {
            for (const int word : {words::tracl, words::tracr, words::tracf})
                header.Set_Word(word, static_cast<double>(Channel_Of_Trace(trace, channels)));
        },
        progress);
    if (!done) return;
    ChannelsPerRecord = channels;
    Say("Number of channel per shot has been updated");
}

void Header::Check9(const TraceProgress& progress) {
    if (File_Refused(" does not exists", " is empty !")) return;
    const int channels = Channels_Of_File();
    if (channels < 1) return Say("Number of channel required");
    const std::string about =
        "This module will update field number record. One record has " + CStr(channels) + " traces.";
    if (Outside.Ask.Message(about, Work.AppTitle, Icon::Information, Buttons::OkCancel) != Answer::Ok) return;
    const std::string typed = Outside.Ask.Input("Enter the first field number", Work.AppTitle, "1");
    if (typed.empty()) return;
    const double first = Rounded(Val(typed));
    if (!Begins_A_Number(typed) || !Bytes_Of_Word(words::fldr, first) ||
        !Bytes_Of_Word(words::fldr, first + static_cast<double>(Record_Of_Trace(NbTraces, channels)))) {
        return Tell_Error(overflow,
                          "\"" + One_Line(typed) + "\" does not fit fldr, only " + Room_Of(words::fldr));
    }
    if (!Outside.Ask.Ask_Yes("Would you update the FLDR, first number is " + CStr(first), Work.AppTitle))
        return;
    const bool done = Number_All(
        "Field record numbers",
        [first, channels](std::int64_t trace, TraceHeader& header) {
            header.Set_Word(words::fldr, first + static_cast<double>(Record_Of_Trace(trace, channels)));
        },
        progress);
    if (done) Say("Record field number has been updated");
}

void Header::Update_Velocities(const TraceProgress& progress) {
    if (File_Refused(" does not exists", " is empty !")) return;
    if (!Outside.Ask.Ask_Yes("Would you update header word WEVEL and SWEVEL of " + Texth1, Work.AppTitle))
        return;
    struct Asked {
        int Word;
        const char* Prompt;
        const char* Initial;
        double Value = 0;
    };
    std::array<Asked, 2> velocities = {
        Asked{words::wevel, "Enter the Weathering velocity (m/s or ft/s)", "1000"},
        Asked{words::swevel, "Enter the Sub Weathering velocity (m/s or ft/s)", "2000"}};
    for (Asked& asked : velocities) {
        const std::string typed = Outside.Ask.Input(asked.Prompt, Work.AppTitle, asked.Initial);
        if (typed.empty()) return;
        asked.Value = Val(typed);
        if (!Begins_A_Number(typed) || !Bytes_Of_Word(asked.Word, asked.Value)) {
            return Tell_Error(overflow, "\"" + One_Line(typed) + "\" does not fit " +
                                            Header_Word(asked.Word).Name + ", only " + Room_Of(asked.Word));
        }
    }
    const bool done = Number_All(
        "WEVEL and SWEVEL",
        [&velocities](std::int64_t, TraceHeader& header) {
            for (const Asked& asked : velocities)
                header.Set_Word(asked.Word, asked.Value);
        },
        progress);
    if (done) Say("Header updated with WEVEL and SWEVEL in " + Texth1);
}

}  // namespace tarnvik
