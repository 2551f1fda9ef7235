#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/grm_curves.h"

namespace tarnvik {

/// Dialog "GRM": the velocity function and the time-depth curves of the generalised reciprocal method for a
/// row of XY. The user reads from them the XY at which the function is smoothest; nothing chooses it for him.
class GRM {
  public:
    enum Choice : int { VelocityFunction = 1, TimeDepthCurves = 2, DepthComputation = 3 };

    GRM(Workspace& workspace, Ports& ports);

    std::string Minimum;            ///< Text1, least XY in receivers
    std::string Maximum;            ///< Text2, largest XY
    std::string ReferenceVelocity;  ///< of the refractor for all receivers; without one each pair has its own
    std::string TimeShift = "5";    ///< Text3, units of the picture from one curve to the next
    int GrmOption = VelocityFunction;
    bool GrmPrinting = false;  ///< the drawing asked for last went to the printer

    void Load();      ///< the form opens
    void Close();     ///< the form closes
    void Command1();  ///< "&Calcul"
    void Command2();  ///< "&Print"

    /// False after a message when no delay computation has left its translated times.
    bool Delay_Times_Known();
    /// The project changed: curves that stand are computed anew.
    void Follow();
    /// The picture shows the travel times again; the next computation brings the curves back.
    void Give_Up_Picture();

  private:
    void XY_Bounds(int& least, int& most);
    bool Compute();
    void Forget_Curves();
    DisplayMode Mode_Of_Option() const;
    void Say(const std::string& text, Icon icon = Icon::None);

    Workspace& Work;
    Ports& Outside;
    int Least = 0;  ///< bounds of the curves that stand
    int Most = 0;
};

}  // namespace tarnvik
