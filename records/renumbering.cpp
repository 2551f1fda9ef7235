#include "records/renumbering.h"

#include "core/text/number.h"
#include "records/su_file.h"

namespace tarnvik {

std::string Words_That_Change(SuTraces& file, std::int32_t traces, std::span<const NumberedWord> numbering) {
    std::string text;
    for (const NumberedWord& numbered : numbering) {
        int changing = 0;
        std::string first;
        for (std::int32_t trace = 1; trace <= traces; ++trace) {
            const auto stands = file.Word(trace, numbered.Word);
            if (!stands) break;
            const std::int32_t becomes = numbered.Value(trace);
            if (*stands == becomes) continue;
            if (changing++ == 0)
                first = "trace " + CStr(trace) + ": " + CStr(*stands) + " becomes " + CStr(becomes);
        }
        if (changing == 0) continue;
        const HeaderWord& word = Header_Word(numbered.Word);
        text += std::string("\r\n") + word.Name + " (" + word.Label + ")\r\n    on " + CStr(changing) +
                " of " + CStr(traces) + " traces, " + first;
    }
    return text;
}

Numbering Ask_For_Numbering(Workspace& workspace, Ports& ports, const std::string& su_file,
                            std::int32_t traces, std::span<const NumberedWord> numbering) {
    SuTraces file(su_file);
    const std::string changes = Words_That_Change(file, traces, numbering);
    if (changes.empty()) return Numbering::Keep;
    const Answer answer = ports.Ask.Message(
        "The traces of " + su_file + " are numbered anew. These words of the headers change:" + changes +
            "\r\n\r\nKeep leaves the headers as they are.",
        workspace.AppTitle, Icon::Question, Buttons::RenumberKeepCancel);
    if (answer == Answer::Yes) return Numbering::Renumber;
    return answer == Answer::No ? Numbering::Keep : Numbering::GiveUp;
}

}  // namespace tarnvik
