#include "processing/instruments/field_reader.h"

#include <algorithm>

#include "core/fault.h"
#include "processing/instruments/byte_order.h"
#include "processing/instruments/segy_layout.h"

namespace tarnvik {

namespace {

/// The marker at the head, and counts that an SU file which happens to begin so does not have.
bool Looks_Like_Seg2(ByteSource& source) {
    constexpr std::uint16_t marker = 0x3A55;
    const std::string head = Bytes_Of_Source(source, 0, 8);
    if (head.size() < 8) return false;
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
        if (U16_At(head.data(), order) != marker) continue;
        const int revision = U16_At(head.data() + 2, order);
        const int pointers = U16_At(head.data() + 4, order);
        const int traces = U16_At(head.data() + 6, order);
        return revision != 0 || (traces > 0 && pointers >= 4 * traces);
    }
    return false;
}

/// A file that nothing can be taken from.
class NoReader : public FieldReader {
  public:
    explicit NoReader(const std::string& fault) { Told.Faults.push_back(fault); }
    FieldHeader Header(std::int64_t) override { throw Fault("the file holds no traces"); }
    void Samples(std::int64_t, std::vector<float>&) override { throw Fault("the file holds no traces"); }
};

class NamedReader : public FieldReader {
  public:
    NamedReader(std::unique_ptr<FieldReader> reader, const std::string& path) : Inner(std::move(reader)) {
        Told = Inner->File();
        Told.File = path;
    }
    FieldHeader Header(std::int64_t trace) override { return Inner->Header(trace); }
    void Samples(std::int64_t trace, std::vector<float>& samples) override { Inner->Samples(trace, samples); }
    std::vector<std::string> Late_Faults() const override { return Inner->Late_Faults(); }

  private:
    std::unique_ptr<FieldReader> Inner;
};

std::unique_ptr<FieldReader> Reader_Of(ByteSource& source) {
    const auto length = source.Length();
    if (!length) return std::make_unique<NoReader>("This is no regular file.");
    if (*length == 0) return std::make_unique<NoReader>("The file is empty.");
    if (Looks_Like_Seg2(source)) return Open_Seg2_File(source);
    if (Looks_Like_Segy(source)) return Open_Segy_File(source);
    auto su = Open_Su_File(source);
    if (su->File().Format.empty() && May_Be_Segy_Without_Text(source)) return Open_Segy_File(source);
    return su;
}

}  // namespace

std::unique_ptr<FieldReader> Open_Field_File(ByteSource& source, const std::string& path) {
    try {
        return std::make_unique<NamedReader>(Reader_Of(source), path);
    } catch (const Fault& fault) {
        return std::make_unique<NamedReader>(std::make_unique<NoReader>(fault.what()), path);
    }
}

std::string Bytes_Of_Source(ByteSource& source, std::int64_t position, std::int64_t count) {
    const std::int64_t length = source.Length().value_or(0);
    if (position < 0 || position >= length || count <= 0) return {};
    std::string bytes(static_cast<std::size_t>(std::min(count, length - position)), '\0');
    source.Read_At(position, bytes.data(), bytes.size());
    return bytes;
}

}  // namespace tarnvik
