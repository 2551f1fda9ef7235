#pragma once

#include <span>

namespace tarnvik {

/// The samples of a trace moved by `count` places, later where it is positive, with zeros where none come
/// from. `moved` is as long as `samples`.
void Move_Samples(std::span<const float> samples, int count, std::span<float> moved);

/// True when some of the samples that such a move pushes out of the trace are not 0.
bool Pushes_Out_Signal(std::span<const float> samples, int count);

}  // namespace tarnvik
