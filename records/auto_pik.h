#pragma once

#include <functional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "records/automatic_picking.h"

namespace tarnvik {

class PickSetter;
class RecordFiles;

/// Dialog AutoPik: picks all first breaks of the record on screen, beside which it stays open, and does so
/// again at each change of a parameter; or those of all records. Picks made by hand stay unless
/// ReplaceHand asks for them too.
class AutoPik {
  public:
    AutoPik(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    std::string ReferenceTrace;       ///< output
    std::string ProcessedTrace;       ///< output: the last one
    std::string PickShift;            ///< ms added to every pick
    std::string Frequency = "50";     ///< of the first breaks, Hz; empty counts as 50
    std::string Sensitivity = "0.5";  ///< 0.0001 to 1
    std::string StartShift = "-2";    ///< start of the search from the last pick, ms, may be negative
    std::string Window = "10";        ///< its length, ms
    std::string FirstTime;            ///< time of the smallest pick, ms
    std::string HalfCycle;            ///< in samples, computed from Frequency
    std::string MinAmplitude;         ///< fraction of the trace's maximum; 0 not used
    bool ZeroAmplitude = false;       ///< the picking does not consult it
    bool Negative = false;            ///< search negative amplitude
    bool Absolute = false;            ///< amplitude + or -
    bool ReplaceHand = false;         ///< picks made by hand too
    ScrollBar SensitivityBar{500, 0, 1000};

    /// Called by the main form through the form: marks and clears the automatic picking mode.
    void Form_Load();
    void Form_Unload();

    /// Right click on the record: its X marks the reference trace, its Y the time of the smallest pick.
    /// Picks, once a window to search in is given.
    void Set_Start(double x, double y);

    void Sensitivity_Changed();  ///< by its scroll bar; picks
    void Frequency_Changed();    ///< shows the half cycle and picks
    /// Any other parameter changed: picks, once the smallest pick and a window to search in are given.
    void Parameter_Changed();
    void Info();
    void Reset();  ///< erases the picks of the traces shown, after a question
    void Save();   ///< writes the project file

    /// Picks traces FirstTrace to LastTrace of the record shown, stores the picks in the SU file and its
    /// twin, fills Buildgrid and ShotTimes with the picks of all shots from the file, and redraws curves and
    /// record. With a file that cannot be written the picks of this record go to table and curves alone, and
    /// the status field tells so.
    void Pick_auto();

    /// Told before each record how many are done, of how many; answers false to stop.
    using Progress = std::function<bool(int done, int all)>;
    /// Picks all records of the file as one edit. Each starts at the onset of the trace nearest to its shot,
    /// the one that was marked at its mark. Stopped on the way, everything is as it was before.
    void Pick_All(const Progress& progress = {});

  private:
    double Frequency_Or_50() const;
    void Show_Half_Cycle();
    AutomaticPickingParameters Read_Parameters(RecordFiles& files);
    bool Keeps(const PickSetter& setter, std::int64_t trace) const;
    void Run(PickSetter& setter, const AutomaticPickingParameters& with);
    void Store_Picks(PickSetter& setter, const AutomaticPicks& picks, int first);
    void Repair_Spikes(PickSetter& setter, int first, int last);
    void Unsaved_To_Times(PickSetter& setter, const AutomaticPicks& picks, int first);
    void Take_Start(const PickSetter& setter, AutomaticPickingParameters& with);
    void Tell_Kept();
    void Finish(PickSetter& setter);
    int Kept = 0;  ///< picks made by hand that the last run met
    Workspace& Work;
    Ports& Outside;
};

}  // namespace tarnvik
