#include "processing/header_reader.h"

#include <cstring>

#include "core/text/letters.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

template <class T>
double Value_At(const char* place) {
    T value{};
    std::memcpy(&value, place, sizeof value);
    return static_cast<double>(value);
}

}  // namespace

HeaderReader::HeaderReader(const std::string& path) : File(path, PositionedFile::Access::Read) {
    if (!Is_Open() || !File.Read(0, Header.data(), header_length)) return;
    Samples = static_cast<std::int32_t>(Word(words::ns));
    const std::int64_t length = Trace_Length(Samples);
    if (length > 0) Traces = (File.Length() - header_length) / length + 1;
}

bool HeaderReader::Take(std::int64_t trace) {
    return trace >= 1 && trace <= Traces &&
           File.Read(Trace_Position(trace, Samples), Header.data(), header_length);
}

double HeaderReader::Word(int word) const {
    const HeaderWord& row = Header_Word(word);
    const char* place = Header.data() + row.Offset;
    switch (row.Type) {
        case WordType::Int16:
            return Value_At<std::int16_t>(place);
        case WordType::Int32:
            return Value_At<std::int32_t>(place);
        case WordType::Float32:
            break;
    }
    return Value_At<float>(place);
}

int Word_Named(const std::string& name) {
    for (int word = 1; word <= header_words; ++word) {
        if (LCase(Header_Word(word).Name) == LCase(Trim(name))) return word;
    }
    return 0;
}

}  // namespace tarnvik
