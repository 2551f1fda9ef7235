#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/droite_tmoins.h"
#include "traveltime/file_routines.h"

namespace tarnvik {

/// Dialog "True Velocity Calculation": the velocity of a refractor from two reversed shots, whatever its dip,
/// and its recording for a range of shots. Takes its receivers from the picture in mode Velocity.
class SpeedF2 {
  public:
    enum class ReceiverBox { First, Last };

    SpeedF2(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::string FirstShot;
    std::string LastShot;
    std::string FirstReceiver;
    std::string LastReceiver;
    bool Eliminate = false;                 ///< "Receivers to eliminate"
    std::array<std::string, 5> Eliminated;  ///< receivers left out of the fit while Eliminate is ticked
    std::string Velocity;
    std::string Correlation;
    std::string Layer = "2";                       ///< Combo5
    std::string RecordFrom;                        ///< Text7, first shot that the velocity is recorded for
    std::string RecordTo;                          ///< Text8, the last one
    ReceiverBox LastEntered = ReceiverBox::First;  ///< receiver box that a click on the picture fills

    /// Entries of the lists.
    std::vector<std::string> ShotEntries;
    std::vector<std::string> ReceiverEntries;
    std::vector<std::string> LayerEntries{"1", "2", "3", "4", "5"};

    void Load();   ///< the form opens
    void Close();  ///< the form closes
    /// A receiver box got the focus: the picture serves this dialog again.
    void Enter_Receiver(ReceiverBox box);
    /// A click on the picture: the receiver goes into the box entered last.
    void Take_Receiver(int receiver);
    bool Command2();  ///< "&Compute"; true when there is a velocity
    bool Command3();  ///< "&Save"; true when the velocity stands in the project file

    /// The line computed last; no points while there is none.
    const DifferenceLine& Line() const { return Fitted; }

  private:
    bool Refuse(const char* text, Icon icon);
    bool Shots_And_Receivers_Fit(const DifferenceQuestion& question);
    bool Compute(const DifferenceQuestion& question);
    void Draw_On(Picture& picture) const;
    bool Save(int layer, double velocity, int first, int last);

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    DifferenceLine Fitted;
};

/// The shots between two (either order) that stand on the line: those before it are stepped over at the
/// front, those behind it at the back. `first` is above `last` when none is left.
void Step_Over_Offset_Shots(const Project& project, int& first, int& last);

}  // namespace tarnvik
