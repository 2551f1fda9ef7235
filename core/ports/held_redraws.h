#pragma once

#include "core/ports/display.h"

namespace tarnvik {

/// While one lives, redraws are only remembered; at its end each of them is done once.
class HeldRedraws {
  public:
    explicit HeldRedraws(Display& display) : Screen(display) { Screen.Hold_Redraws(); }
    ~HeldRedraws() { Screen.Release_Redraws(); }
    HeldRedraws(const HeldRedraws&) = delete;
    HeldRedraws& operator=(const HeldRedraws&) = delete;

  private:
    Display& Screen;
};

}  // namespace tarnvik
