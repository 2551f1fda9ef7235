#pragma once

#include <string>
#include <string_view>

#include "core/settings.h"

namespace tarnvik {

/// Language of the printed texts: E, F, S, G or I. It marks the menu and is handed to external print tools by
/// the settings file; the program's own texts stay English. Any other letter changes nothing.
void Set_Language(Settings& settings, char letter);

/// Raises the flag of the letter and leaves the others, as the reading of the settings does.
void Add_Language(Settings& settings, std::string_view letter);

/// Letter of the last flag that is true, in the order E, F, S, G, I; empty when none is.
std::string Language_Letter(const Settings& settings);

}  // namespace tarnvik
