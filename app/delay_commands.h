#pragma once

namespace tarnvik {

class Session;

/// Opens DelayF over the curves.
void Show_Delay_Dialog(Session& session);
/// Opens ABCGridF; a line without intercept times is told so instead.
void Show_Abc_Dialog(Session& session);
/// Opens ABCGridF with the values on its grid, to correct them.
void Edit_Delays(Session& session);
/// The delays of the receivers as a curve over those that stand, or no longer.
void Toggle_Delay_Curve(Session& session);
/// All curves, and the delays with them.
void Show_Curves_And_Delay(Session& session);

}  // namespace tarnvik
