#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "records/header_words.h"

namespace tarnvik {

/// A header word as the trace tools read and write it: by its type in the table of words, except that the
/// counts `ns` and `dt` have no sign here, so that records of up to 65535 samples can be cut to a length that
/// fits.
class TraceWord {
  public:
    /// Word 1 to 90; any other number is a Fault.
    explicit TraceWord(int number);
    /// By its name in the table, in any case, with or without its blanks ("First breaks", "firstbreaks");
    /// `d1` is word 72.
    static std::optional<TraceWord> Named(std::string_view name);

    int Number() const { return Word; }
    std::string Name() const { return Header_Word(Word).Name; }

    double Value(const char* header) const;
    /// The value as the word would hold it: whole numbers nearest, halves to even. Nothing when it does not
    /// fit.
    std::optional<double> Held(double value) const;
    /// Writes the value; false when it does not fit, and the word keeps what it held.
    bool Set(char* header, double value) const;
    /// The same, but a value that does not fit is a Fault that names the trace (from 1), the word and the
    /// value.
    void Set_Or_Fault(char* header, double value, long long trace) const;

    bool operator==(const TraceWord& other) const = default;

  private:
    bool Is_Count() const { return Word == words::ns || Word == words::dt; }
    int Word;
    int Offset;
    WordType Type;
};

}  // namespace tarnvik
