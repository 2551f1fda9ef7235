#pragma once

#include "core/edits/edit.h"

namespace tarnvik {

class Session;

/// Shows what an edit, an undo or a redo has changed, and nothing else: the pictures, cells, fields and open
/// dialogs that stand for the parts, picks and files that the notice names. What was asked for during the
/// edit is done along with it, each drawing once.
void Show_Changes(Session& session, const ChangeNotice& notice);

}  // namespace tarnvik
