#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/file_routines.h"
#include "traveltime/stretch_velocity.h"

namespace tarnvik {

/// Dialog "Velocity calculation": one velocity from a stretch of a shot's curve. Takes its values from the
/// picture in mode Vitesse.
class SpeedF {
  public:
    enum class ReceiverBox { From, To };

    SpeedF(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::string Shot;
    std::string FirstReceiver;
    std::string LastReceiver;
    std::string Layer = "1";
    bool Eliminate = false;                 ///< "Geophone to eliminate"
    std::array<std::string, 4> Eliminated;  ///< receivers left out of the fit while Eliminate is ticked
    bool ThroughShot = false;               ///< "Layer 1, start at shot point"
    bool AllShots = false;                  ///< "Display all shots"
    std::string Velocity;
    std::string Intercept;                        ///< ms
    std::string Correlation;                      ///< first four characters
    bool InterceptShown = true;                   ///< the intercept stands for layers 2 and deeper only
    bool SaveEnabled = true;                      ///< Command1
    ReceiverBox LastEntered = ReceiverBox::From;  ///< receiver box that a click on the picture fills

    /// Entries of the lists.
    std::vector<std::string> ShotEntries;
    std::vector<std::string> ReceiverEntries;
    std::vector<std::string> LayerEntries{"0", "1", "2", "3", "4", "5"};

    void Load();   ///< the form opens
    void Close();  ///< the form closes
    /// A receiver box got the focus: the picture serves this dialog again, whatever served itself of it
    /// meanwhile.
    void Enter_Receiver(ReceiverBox box);
    void Layer_Changed();
    void Shot_Changed();
    void ThroughShot_Clicked();  ///< ticked or unticked
    void AllShots_Clicked();
    /// A stretch was drawn on the picture: shot and receivers, computed at once.
    void Take_Stretch(int shot, int first, int last);
    /// After a save: the next layer is to be measured, nothing of the one before is shown as a result.
    void Next_Layer();
    void Command1();  ///< "&Save ": opens `confirm`
    void Command2();  ///< "Refresh"
    void Command5();  ///< "&Compute"

    /// `confirm` has written the result into the project file.
    void Recorded();
    /// True while a result stands that has not been recorded as it is shown.
    bool Not_Recorded() const { return !Velocity.empty() && Result_Shown() != RecordedResult; }

  private:
    void Show_Layer(const std::string& layer);
    void Clean_Picture();
    bool Compute();
    void Correct_Receivers(int& first, int& last);
    void Show_Side();
    bool Refuse(StretchRefusal refusal);
    void Show_Results(const StretchVelocity& result);
    std::string Result_Shown() const;

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    std::string RecordedResult;
    bool LineOfResult = false;  ///< the line fitted last is of the result shown, not recorded yet
};

}  // namespace tarnvik
