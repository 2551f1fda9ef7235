#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/file_routines.h"
#include "traveltime/regression.h"

namespace tarnvik {

/// Dialog "Velocity calculation": one velocity from a stretch of a shot's curve. Takes its values from the
/// picture in mode "Vitesse".
class SpeedF {
  public:
    enum class ReceiverBox { From, To };

    SpeedF(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::string Combo2;                           ///< shot
    std::string Combo3;                           ///< "from Receiver"
    std::string Combo4;                           ///< to receiver
    std::string Combo1 = "1";                     ///< layer
    bool Check1 = false;                          ///< "Geophone to eliminate"
    std::array<std::string, 4> Eliminated;        ///< Text8 to Text11, shown while Check1 is ticked
    bool Check2 = false;                          ///< "Layer 1, start at shot point"
    bool Check3 = false;                          ///< "Display all shots"
    std::string Text4;                            ///< velocity
    std::string Text5;                            ///< intercept time, ms
    std::string Text6;                            ///< correlation, first four characters
    bool InterceptShown = true;                   ///< Text5 stands for layers 2 and deeper only
    bool SaveEnabled = true;                      ///< Command1
    ReceiverBox LastEntered = ReceiverBox::From;  ///< receiver box that a click on the picture fills

    /// Entries of the lists Combo2, Combo3 and Combo4, and Combo1.
    std::vector<std::string> ShotEntries;
    std::vector<std::string> ReceiverEntries;
    std::vector<std::string> LayerEntries{"0", "1", "2", "3", "4", "5"};

    void Load();   ///< the form opens
    void Close();  ///< the form closes, by Command3 or otherwise
    /// A receiver box got the focus: the picture serves this dialog again, whatever served itself of it
    /// meanwhile.
    void Enter_Receiver(ReceiverBox box);
    void Combo1_Changed();  ///< layer
    void Combo2_Changed();  ///< shot
    void Check2_Clicked();  ///< ticked or unticked
    void Command1();        ///< "&Save ": opens `confirm`
    void Command2();        ///< "Refresh"
    void Command3();        ///< "&Quit"
    void Command5();        ///< "&Compute"

  private:
    void Show_Layer(const std::string& layer);
    bool Compute();
    void Correct_Receivers(int& first, int& last);
    void Show_Results(const StretchVelocity& result);

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
};

/// The picture in mode "Vitesse": a release fills the receiver box entered last.
class SpeedPointer : public CurvePointerHandler {
  public:
    SpeedPointer(Workspace& workspace, Ports& ports, SpeedF& dialog)
        : Work(workspace), Outside(ports), Form(dialog) {}
    void Release(const PointerEvent& event) override;

  private:
    Workspace& Work;
    Ports& Outside;
    SpeedF& Form;
};

}  // namespace tarnvik
