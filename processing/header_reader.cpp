#include "processing/header_reader.h"

#include "core/text/letters.h"
#include "records/su_file.h"

namespace tarnvik {

HeaderReader::HeaderReader(const std::string& path) : File(path, PositionedFile::Access::Read) {
    if (!Is_Open() || !File.Read(0, Header.Bytes.data(), header_length)) return;
    Samples = static_cast<std::int32_t>(Word(words::ns));
    const std::int64_t length = Trace_Length(Samples);
    if (length > 0) Traces = (File.Length() - header_length) / length + 1;
}

bool HeaderReader::Take(std::int64_t trace) {
    return trace >= 1 && trace <= Traces &&
           File.Read(Trace_Position(trace, Samples), Header.Bytes.data(), header_length);
}

int Word_Named(const std::string& name) {
    for (int word = 1; word <= header_words; ++word) {
        if (LCase(Header_Word(word).Name) == LCase(Trim(name))) return word;
    }
    return 0;
}

}  // namespace tarnvik
