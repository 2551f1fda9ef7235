#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

class SuTraces;

/// A header word that is to be numbered anew: what each trace (from 1) gets.
struct NumberedWord {
    int Word = 0;
    std::function<std::int32_t(std::int32_t trace)> Value;
};

/// What a numbering of traces 1 to `traces` would change, a line for each word with the number of traces and
/// the first of them; empty when all words stand as they would be numbered.
std::string Words_That_Change(SuTraces& file, std::int32_t traces, std::span<const NumberedWord> numbering);

enum class Numbering { Renumber, Keep, GiveUp };
/// Tells the user which words of the file would change and lets him choose. No question where none changes:
/// then there is nothing to write.
Numbering Ask_For_Numbering(Workspace& workspace, Ports& ports, const std::string& su_file,
                            std::int32_t traces, std::span<const NumberedWord> numbering);

}  // namespace tarnvik
