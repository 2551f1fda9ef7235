#include "records/record_files.h"

#include <algorithm>

#include "core/fault.h"
#include "core/files.h"
#include "core/text/number.h"

namespace tarnvik {

RecordFiles::RecordFiles(Workspace& workspace) : Work(workspace) {
    const std::string path = Su_Path(Work.Project);
    File.emplace(path, &Work.Edits);
    if (!File->Is_Open()) {
        Opening = File->Reason();
        File.emplace(path, &Work.Edits, SuTraces::Access::Read);
    }
    if (File->Sample_Interval() > 0) Work.Record.SampleInterval = File->Sample_Interval();
    const std::string& twin = Work.Record.TwinSuFile;
    if (!twin.empty() && twin != path && File_Exists(twin)) Twin.emplace(twin, &Work.Edits);
}

int RecordFiles::Last_Trace() const {
    return std::max(File->Nb_Traces().value_or(0), 0);
}

bool RecordFiles::Note(std::int64_t trace, Stored stored, const std::string& path,
                       const std::string& reason) {
    if (stored == Stored::Yes) return true;
    if (Fault.empty()) {
        Fault = " not saved: trace " + CStr(static_cast<double>(trace)) + ", " + path + ", " +
                (stored == Stored::DoesNotFit ? "the value does not fit the header word" : reason);
    }
    return false;
}

template <class Write>
bool RecordFiles::Write_Both(std::int64_t trace, Write write) {
    if (Traces_Told.empty()) Traces_Told = " not saved: trace " + CStr(static_cast<double>(trace)) + ", ";
    bool saved = true;
    if (Opening.empty()) {
        const Stored stored = write(*File);
        saved = Note(trace, stored, Work.Project.SuFile, File->Reason());
    } else {
        saved = Note(trace, Stored::No, Work.Project.SuFile, Opening);
    }
    if (Twin) {
        const Stored stored = write(*Twin);
        saved = Note(trace, stored, Work.Record.TwinSuFile, Twin->Reason()) && saved;
    }
    return saved;
}

bool RecordFiles::Set_Word(std::int64_t trace, int word, double value) {
    return Write_Both(trace, [&](SuWriter& file) { return file.Set_Word(trace, word, value); });
}

bool RecordFiles::Set_Record_And_Channel(std::int64_t trace, std::int32_t record, std::int32_t channel) {
    return Write_Both(trace,
                      [&](SuWriter& file) { return file.Set_Record_And_Channel(trace, record, channel); });
}

bool RecordFiles::Set_Samples(std::int64_t trace, std::span<const float> samples) {
    if (!Opening.empty()) return Note(trace, Stored::No, Work.Project.SuFile, Opening);
    const Stored stored = File->Set_Samples(trace, samples);
    return Note(trace, stored, Work.Project.SuFile, File->Reason());
}

void RecordFiles::Tell_Faults(const std::string& subject) {
    std::string& status = Work.Fields.Status;
    if (Failed()) {
        status = subject + Fault;
    } else if (!Traces_Told.empty() && status.starts_with(subject + Traces_Told)) {
        status.clear();
    }
}

std::optional<int> Trace_At(const RecordView& record, double x) {
    if (record.RecordWidth <= 0) return std::nullopt;
    const auto trace = CLng(Int(x / trace_width));
    if (!trace || *trace < 1) return std::nullopt;
    return *trace;
}

double Sample_Ms(const RecordView& record) {
    if (record.SampleInterval == 0) throw Fault("no sample interval");
    return record.SampleInterval / 1000.0;
}

}  // namespace tarnvik
