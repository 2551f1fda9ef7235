#pragma once

#include "core/ports/display.h"

namespace tarnvik {

class Session;

/// The part of the Display port that is the same with and without windows: a redraw that is asked for is done
/// by the session's routine. Attach comes before the first request.
class SessionDisplay : public Display {
  public:
    void Attach(Session& session) { Owner = &session; }

    void Show_Curves() override;
    void Display_Record() override;
    void Show_Profile() override;

  protected:
    Session* Owner = nullptr;
};

}  // namespace tarnvik
