#pragma once

namespace tarnvik {

class Session;

/// Commands that rewrite field records as a whole.
void Extract_From_Records(Session& session);  ///< menu extrax
void Resize_Records(Session& session);        ///< menu Resize
void Show_Su_Utility(Session& session);       ///< opens rezize, modal
void Show_Trace_Numbers(Session& session);    ///< opens Update_FLDR
void Stack_Neighbours(Session& session);      ///< Command1
/// Combo6: moves the samples of traces by a time in ms.
void Shift_Traces_By(Session& session, double shift_ms);

}  // namespace tarnvik
