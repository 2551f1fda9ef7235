#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/edits/byte_stream.h"

namespace tarnvik {

/// What an edit made of a row of bytes, a file's or a project block's: the places that changed, in the order
/// of the changes, with what stood there before and after.
class ByteChanges {
  public:
    struct Run {
        std::int64_t Position = 0;  ///< from 0
        std::string Before;
        std::string After;
    };
    enum class Direction { Back, Forth };

    /// What turns `before` into `after`. Of rows of different length the part that differs is one run.
    static ByteChanges Between(std::string_view before, std::string_view after);

    /// Notes one more change. A change of the place that was changed last joins it, as along a drag.
    void Add(std::int64_t position, std::string_view before, std::string_view after);
    /// Notes the changes of another edit behind those of this one.
    void Append(const ByteChanges& later);

    /// Takes the changes back or does them again. False when the row is too short; it is then unchanged.
    bool Apply(std::string& bytes, Direction direction) const;

    /// The way back as changes of its own.
    ByteChanges Reversed() const;

    bool Empty() const { return Runs.empty(); }
    const std::vector<Run>& All() const { return Runs; }
    /// Bytes of memory, about.
    std::size_t Footprint() const;

    void Write(ByteWriter& writer) const;
    static ByteChanges Read(ByteReader& reader);

  private:
    std::vector<Run> Runs;
};

}  // namespace tarnvik
