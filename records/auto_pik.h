#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "records/automatic_picking.h"

namespace tarnvik {

class PickSetter;
class RecordFiles;

/// Dialog AutoPik: picks all first breaks of the record on screen, beside which it stays open, and does so
/// again at each change of a parameter.
class AutoPik {
  public:
    AutoPik(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    std::string Text1;           ///< output: reference trace
    std::string Text2;           ///< output: trace processed last
    std::string Text3;           ///< picking shift, ms
    std::string Text51;          ///< frequency of the first breaks, Hz; empty counts as 50
    std::string Text52 = "0.5";  ///< sensitivity, 0.0001 to 1
    std::string Text53;          ///< start of the search from the last pick, ms, may be negative
    std::string Text54;          ///< window length, ms
    std::string Text55;          ///< time of the smallest pick, ms
    std::string Text56;          ///< half cycle in samples, computed from Text51
    std::string Text57;          ///< minimum amplitude, fraction of the trace's maximum; 0 not used
    bool Check1 = false;         ///< zero amplitude; the picking does not consult it
    bool Check2 = false;         ///< search negative amplitude
    bool Check3 = false;         ///< amplitude + or -
    ScrollBar HScroll4{500, 0, 1000};

    /// Called by the main form's Command5 through the form: marks and clears the automatic picking mode.
    void Form_Load();
    void Form_Unload();

    /// Right click on the record: its X marks the reference trace, its Y the time of the smallest pick.
    void Set_Start(double x, double y);

    void HScroll4_Change();  ///< sensitivity; picks
    void Text51_Change();    ///< frequency; shows the half cycle and picks
    /// Any other parameter changed: picks, once a window to search in is given.
    void Parameter_Changed();
    void Command1();  ///< Info
    void Command2();  ///< Reset FBP
    void Command3();  ///< Save: writes the project file

    /// Picks traces FirstTrace to LastTrace of the record shown, stores the picks in the SU file and its
    /// twin, fills Buildgrid and ShotTimes with the picks of all shots from the file, and redraws curves and
    /// record. With a file that cannot be written the picks of this record go to table and curves alone, and
    /// the status field tells so.
    void Pick_auto();

  private:
    double Frequency() const;
    void Show_Half_Cycle();
    AutomaticPickingParameters Read_Parameters(RecordFiles& files);
    void Store_Picks(RecordFiles& files, const AutomaticPicks& picks, int first);
    void Repair_Spikes(RecordFiles& files);
    void Unsaved_To_Times(PickSetter& setter, const AutomaticPicks& picks, int first);
    Workspace& Work;
    Ports& Outside;
};

}  // namespace tarnvik
