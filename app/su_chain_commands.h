#pragma once

namespace tarnvik {

class Session;

/// Commands that rewrite field records as a whole.
void Extract_From_Records(Session& session);  ///< menu extrax
void Resize_Records(Session& session);    ///< menu Resize
/// Opens rezize, modal.
void Show_Su_Utility(Session& session);
/// Opens Update_FLDR.
void Show_Trace_Numbers(Session& session);
void Stack_Neighbours(Session& session);  ///< Command1
/// Combo6: moves the samples of traces by a time in ms.
void Shift_Traces_By(Session& session, double shift_ms);

}  // namespace tarnvik
