#pragma once

#include <cstdint>
#include <string>

#include "core/positioned_file.h"
#include "records/trace_header.h"

namespace tarnvik {

/// The headers of an SU file one after the other, each read once and whole: for looks at many words of many
/// traces. Traces count from 1; where they lie follows from `ns` of the first one.
class HeaderReader {
  public:
    explicit HeaderReader(const std::string& path);

    bool Is_Open() const { return File.Is_Open(); }
    const std::string& Reason() const { return File.Reason(); }
    /// Traces whose header is in the file whole.
    std::int64_t Nb_Traces() const { return Traces; }
    std::int32_t Nb_Samples() const { return Samples; }

    /// Takes the header of a trace in hand. False beyond the end of the file.
    bool Take(std::int64_t trace);
    /// A word (1 to 90) of the header in hand.
    double Word(int word) const { return Header.Word(word); }

  private:
    PositionedFile File;
    std::int64_t Traces = 0;
    std::int32_t Samples = 0;
    TraceHeader Header;
};

/// Number of the word with this name (any case, as in the table of words); 0 for none.
int Word_Named(const std::string& name);

}  // namespace tarnvik
