#pragma once

#include <string_view>

namespace tarnvik {

/// Order of names as people count: figures within them by their value ("shot2" before "shot10"), letters
/// without regard to case. Names that are the same so far stand in the order of their bytes.
bool Comes_Before(std::string_view one, std::string_view other);

}  // namespace tarnvik
