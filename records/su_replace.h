#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "core/edits/edits.h"
#include "records/header_words.h"

namespace tarnvik {

/// One trace of an SU file in memory, to be changed.
struct TraceInHand {
    std::array<char, header_length> Header{};
    std::vector<float> Samples;

    /// A 16-bit header word.
    void Set_Word(int word, std::int16_t value);
};

/// Changes traces of an SU file so that at any moment the file on the disk holds all of them either as they
/// were or as they become: the whole file is written anew beside it, flushed and renamed over it, so that a
/// kill or a full disk cannot tear samples from their header. `traces` count from 1; `change` gets each of
/// them with its number. When the new file stands, the recorder is told of the bytes that differ.
///
/// Answers why it could not be done, the file being as it was; empty when it went well. A file that is marked
/// read-only, and one that does not hold all the traces whole, is refused.
std::string Replace_Traces(const std::string& path, FileRecorder* recorder, std::vector<std::int64_t> traces,
                           const std::function<void(std::int64_t trace, TraceInHand&)>& change);

}  // namespace tarnvik
