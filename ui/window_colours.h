#pragma once

namespace tarnvik {

/// Colours of all windows: dark ones, or those that the desktop gives. Pictures stay white like the paper
/// that they are printed on.
void Show_Dark_Windows(bool dark);

}  // namespace tarnvik
