#include "records/polarity_reversal.h"

#include <algorithm>
#include <span>
#include <vector>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/record_files.h"
#include "records/set_pick.h"

namespace tarnvik {

namespace {

void Reverse_Trace(RecordFiles& files, std::vector<float>& samples, std::int64_t trace) {
    // Only a trace that is there as a whole is written back.
    if (trace < 1 || files.Traces().Samples(trace, samples) < std::ssize(samples)) return;
    for (float& sample : samples)
        sample = -sample;
    files.Set_Samples(trace, samples);
}

}  // namespace

void Reverse_Polarity(Workspace& workspace, Ports& ports, int trace) {
    const std::string answer = Trim(ports.Ask.Input(
        "Reverse polarity for all shots  (=0) or select a shot, press X to cancel", workspace.AppTitle, "0"));
    if (answer.empty() || UCase(answer) == "X") return;
    RecordFiles files(workspace);
    const SpreadLayout spread(workspace, files.Traces());
    EditScope edit(workspace,
                   answer == "0" ? "Polarity of all shots" : Trace_Edit_Name("Polarity of", spread, trace));
    std::vector<float> samples(static_cast<std::size_t>(std::max(files.Traces().Nb_Samples(), 0)));
    if (answer == "0") {
        const std::int64_t channel = trace - spread.First_Trace(spread.Record_Of(trace));
        for (int record = 1; record <= spread.Records(); ++record)
            Reverse_Trace(files, samples, spread.First_Trace(record) + channel);
    } else {
        Reverse_Trace(files, samples, trace);
    }
    if (!files.Is_Open()) files.Set_Samples(trace, samples);
    files.Tell_Faults("Polarity");
    edit.End();
    ports.Show.Show_Fields();
}

}  // namespace tarnvik
