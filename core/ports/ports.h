#pragma once

#include "core/ports/display.h"
#include "core/ports/launcher.h"
#include "core/ports/prompts.h"

namespace tarnvik {

/// The outside world as the logic sees it.
struct Ports {
    Prompts& Ask;
    Display& Show;
    Launcher& Launch;
};

}  // namespace tarnvik
