// Headers, or one word of them, copied from one file to another.

#include <algorithm>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/header_editor.h"
#include "processing/su_names.h"

namespace tarnvik {

namespace {

/// "line.su" becomes "line_val.txt".
std::string Values_File(const std::string& input) {
    constexpr std::string_view ending = ".su";
    const bool named_su = LCase(Right(input, ending.size())) == ending;
    return std::string(Left(input, input.size() - (named_su ? ending.size() : 0))) + "_val.txt";
}

}  // namespace

std::string Copy_Label(int word) {
    // The list of the copy names the words of the first breaks and velocities in its own way.
    switch (word) {
        case 81:
            return "81  Refraction Velocity 1";
        case 82:
            return "82  Thickness layer 1";
        case 83:
            return "83  Refraction Velocity 2";
        case 84:
            return "84  Thickness layer 1";
        case 85:
            return "85  Refraction Velocity 3";
        case 86:
            return "86  First break pick ms*10";
        case 87:
            return "87 Thickness layer 3";
        case 88:
            return "88 Velocity layer 4";
        case 89:
            return "89 Shot Station";
        case 90:
            return "90 Group Station";
        default:
            return Listed_Label(word);
    }
}

void Header::Choose_Input() {
    const std::string path = Chosen(Textc1);
    if (!path.empty()) Textc1 = path;
    Outside.Show.Show_Fields();
}

void Header::Choose_Output() {
    const std::string path = Chosen(Textc2.empty() ? Textc1 : Textc2);
    if (!path.empty()) Textc2 = path;
    Outside.Show.Show_Fields();
}

void Header::Commandc1(const TraceProgress& progress) {
    if (WholeHeader) {
        Copy_All_Header(Textc1, Textc2, progress);
    } else {
        Copy_one_word(Comboc1 + 1, progress);
    }
}

/// Traces to copy; 0 when the files do not do, which is told.
std::int64_t Header::Traces_To_Copy(const CopyFiles& files, const char* same_file, const char* other_count) {
    Hint.clear();
    for (const std::string& path : {files.Input, files.Output}) {
        if (path.empty()) return Say("File name missing"), 0;
        if (!File_Exists(path)) return Say(path + " does not exists !"), 0;
        if (const std::string refusal = Foreign(path); !refusal.empty())
            return Say(refusal, Icon::Critical), 0;
    }
    const auto traces = [](const std::string& path) { return SuTraces(path).Nb_Traces().value_or(0); };
    const std::int64_t from = traces(files.Input);
    const std::int64_t to = traces(files.Output);
    if (from < 1) return Say(files.Input + " is empty !"), 0;
    if (to < 1) return Say("Output file is empty !"), 0;
    if (Same_File(files.Input, files.Output)) return Say(same_file), 0;
    if (from != to) return Say(other_count), 0;
    return from;
}

/// Each header of the output gets from that of the input what `copy` takes over; each file is walked by the
/// length of its own traces.
bool Header::Copy(const std::string& name, const CopyFiles& files, std::int64_t traces,
                  const std::function<void(TraceHeader& to, const TraceHeader& from)>& copy,
                  const TraceProgress& progress) {
    SuTraces input(files.Input);
    TraceHeader source;
    Pass pass;
    pass.Name = name;
    pass.Path = Known_Path(Work, files.Output);
    pass.Last = traces;
    pass.Change = [&](std::int64_t trace, TraceHeader& header) {
        if (!input.Read_Header(trace, source)) return HeaderStep::Failed;
        copy(header, source);
        return HeaderStep::Changed;
    };
    return Run(pass, progress);
}

void Header::Copy_All_Header(const std::string& input, const std::string& output,
                             const TraceProgress& progress) {
    const CopyFiles files{Trim(input), Trim(output)};
    const std::int64_t traces = Traces_To_Copy(files, "Impossible, same file....",
                                               "The two files must have the same trace number...");
    if (traces < 1) return;
    // A file whose traces have another length would no longer be found with the `ns` of the input.
    const bool same_length = SuTraces(files.Input).Nb_Samples() == SuTraces(files.Output).Nb_Samples();
    const bool done = Copy(
        "Headers from " + Name_Of(files.Input), files, traces,
        [same_length](TraceHeader& to, const TraceHeader& from) {
            const TraceHeader former = to;
            to = from;
            if (!same_length) to.Copy_Word(former, words::ns);
        },
        Told(progress, "Working on trace n° ", ""));
    if (!done) return;
    Say("The Copy_Header has been copied from " + files.Input + " to " + files.Output +
        (same_length ? "" : "\r\n\r\nThe files differ in the number of samples: ns stays in the output."));
}

void Header::Copy_one_word(int word, const TraceProgress& progress) {
    const CopyFiles files{Trim(Textc1), Trim(Textc2)};
    const std::int64_t traces =
        Traces_To_Copy(files, "Impossible, same file", "Your files don't have the same trace number");
    if (traces < 1) return;
    if (word < 1) return Say("You must select a word to change");
    const std::string values_file = Values_File(files.Input);
    if (Checkc1 && File_Exists(values_file) &&
        !Outside.Ask.Ask_Yes(values_file + " already exists, overwrite ?", Work.AppTitle, Icon::Warning)) {
        return;
    }
    std::string values;
    const bool done = Copy(
        std::string("Header word ") + Header_Word(word).Name + " from " + Name_Of(files.Input), files, traces,
        [this, word, &values](TraceHeader& to, const TraceHeader& from) {
            to.Copy_Word(from, word);
            if (Checkc1) values += from.Text(word) + "\r\n";
        },
        Told(progress, "Working Trace: ", "/"));
    if (!done) return;
    if (Checkc1) {
        const std::string reason = Replace_File(values_file, values);
        if (reason.empty()) {
            Say(values_file + " has been recorded");
        } else {
            Say(values_file + " cannot be written: " + reason, Icon::Critical);
        }
    }
    Say("Finished");
}

}  // namespace tarnvik
