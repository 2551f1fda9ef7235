#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "setup/trigger_plan.h"
#include "traveltime/file_routines.h"
#include "traveltime/moving_curve.h"

namespace tarnvik {

/// Dialog "Time Time  break correction": a whole travel-time curve is moved up or down against a fault of the
/// trigger, and saved into picks, headers and samples. It shares the picture with the normal state, mode
/// "DROMO".
class Erase_TT {
  public:
    Erase_TT(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::string Shot;           ///< Combo1
    std::string Shift = "0";    ///< Text1, ms taken from the times; a positive one lowers them
    bool OnlySelected = false;  ///< Check1, "Display only selected TT"
    std::vector<std::string> ShotEntries;

    void Load();                            ///< the form opens
    void Close();                           ///< the form closes; a shift that was not saved is asked for
    void Command1() { Step(-slow_step); }   ///< "Slow up moving"
    void Command2() { Step(slow_step); }    ///< "Slow Down Moving"
    void Command5() { Step(-quick_step); }  ///< "Quick Up Moving"
    void Command6() { Step(quick_step); }   ///< "Quick Down  Moving"
    void Command3();                        ///< "OK  Save !"
    void Command4();                        ///< "Help"
    void Shot_Changed();
    void Check1_Clicked();

    /// Shows the curve where the shift carries it.
    void Move_TT();
    /// Makes the shift permanent: picks, header words and samples of the shot, and the project file. False
    /// when nothing was recorded.
    bool Save_TT_Translation();

    /// One step as the eye sees it, whichever end of the picture time 0 is at.
    void Step_On_Screen(bool up, bool quick);
    /// The hand has carried the curve to this shift, ms.
    void Take_Shift(double ms);
    /// Another shot, chosen on the picture or in a list.
    void Choose(int shot);

    /// The user leaves the project: a shift that was not saved is asked for, and given up or saved.
    void Offer_To_Save();
    /// The program ends without a question.
    void Drop_Shift() { Unsaved = false; }

    /// The curve in work, as it stands over the others; shot 0 while the dialog has none.
    MovingCurve Curve() const;
    /// What the shift does to the samples of the records, in words; empty while nothing is moved or no
    /// records are known.
    std::string Samples_Text() const;
    bool Save_Enabled() const;

    std::int16_t FixedShot = 0;   ///< last shot moved
    double TranslationShift = 0;  ///< ms that its curve is shown moved by

  private:
    static constexpr double slow_step = 0.25;
    static constexpr double quick_step = 2;

    void Step(double ms);
    void Show_Alone();
    bool Belongs_To_Project() const;
    bool Asked_Again(const TriggerPlan& plan);
    void Record(const TriggerPlan& plan);
    void Tell_Recorded(const TriggerPlan& plan);

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    bool IsOpen = false;
    bool Unsaved = false;      ///< a shift is shown that is not recorded
    std::string ProjectShown;  ///< file of the project that the shift is meant for
};

}  // namespace tarnvik
