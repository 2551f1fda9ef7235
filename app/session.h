#pragma once

#include <map>
#include <set>
#include <string>

#include "app/opening.h"
#include "app/picture_export.h"
#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/abc_grid_f.h"
#include "depth/delay_f.h"
#include "depth/delay_pointer.h"
#include "depth/dip.h"
#include "depth/fcalcul.h"
#include "depth/fcalcul_pointer.h"
#include "depth/grm.h"
#include "depth/grm_depth.h"
#include "depth/grm_pointer.h"
#include "depth/quick_interpret.h"
#include "depth/quick_pointer.h"
#include "depth/theoric_f.h"
#include "depth/velocity_line.h"
#include "output/coloured_section.h"
#include "output/section_report.h"
#include "output/tables/resu.h"
#include "processing/conversion_dialog.h"
#include "processing/header_editor.h"
#include "processing/rezize.h"
#include "processing/update_fldr.h"
#include "records/auto_pik.h"
#include "records/keyboard_picking.h"
#include "records/picking.h"
#include "records/record_scroll.h"
#include "records/record_zoom.h"
#include "records/size_grid_mouse.h"
#include "setup/elevations.h"
#include "setup/erase_pointer.h"
#include "setup/erase_tt.h"
#include "setup/grid_edit.h"
#include "setup/rechinfo.h"
#include "traveltime/confirm.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/fantom_f.h"
#include "traveltime/fantom_pointer.h"
#include "traveltime/move_pick.h"
#include "traveltime/ruler.h"
#include "traveltime/speed_f.h"
#include "traveltime/speed_f2.h"
#include "traveltime/speed_f2_pointer.h"
#include "traveltime/speed_f3.h"
#include "traveltime/speed_f3_pointer.h"
#include "traveltime/speed_pointer.h"
#include "traveltime/zoom.h"

namespace tarnvik {

/// The running program without its windows: the workspace, the ports to the outside, and every dialog's
/// logic, wired to each other. The window, tarnvik-batch and the tests each drive one.
class Session {
  public:
    /// `settings_file` is the full path of Tarnvik32.INI.
    Session(Ports outside, std::string settings_file);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// From now on each edit is written to a journal beside the settings, for the next start after a kill.
    void Keep_Journals();
    /// From now on a seismograph's file that is loaded is offered for conversion. Somebody must be there to
    /// be asked.
    void Offer_Conversion();
    /// From now on it is remembered beside the settings how each project is looked at, and records met for
    /// the first time are shown so that they can be read.
    void Keep_Display_Choices();

    Workspace Work;
    Ports Outside;
    std::string SettingsFile;
    std::string JournalFolder;  ///< empty while none are kept
    OpeningHooks Hooks;         ///< what opening a project asks of the floors above core/

    // Travel-time curves.
    CurvePointer Pointer;  ///< mouse and keys on the Dromo picture
    Zoom ZoomDialog;
    RulerF Ruler;
    SpeedF Speed;
    Confirm Record;  ///< dialog `confirm` of SpeedF
    SpeedPointer SpeedMouse;
    SpeedF2 TrueSpeed;
    SpeedF2Pointer TrueSpeedMouse;
    SpeedF3 HandSpeed;
    SpeedF3Pointer HandSpeedMouse;
    VelocityLine RulerVelocities;  ///< dialog vELINE
    DipComputation Dip;
    Fcalcul Depths;
    FcalculPointer DepthMouse;
    QuickInterpret Quick;
    QuickPointer QuickMouse;
    FantomF Phantom;
    FantomPointer PhantomMouse;
    TheoricF Theoretic;
    Erase_TT TriggerFault;  ///< correction of a shot's trigger
    ErasePointer TriggerMouse;
    DelayF Delay;
    DelayPointer DelayMouse;
    ABCGridF Abc;
    GRM GrmAnalysis;
    GrmPointer GrmMouse;
    GRM_depth GrmDepths;
    resu Results;  ///< table of velocities and thicknesses

    ColouredSection Section;
    SectionReport Report;  ///< the page that stands in its place while it is shown

    // Field records.
    RecordZoom RecordArea;
    RecordScroll RecordWheel;
    AutoPik AutomaticPicking;
    RecordPointer RecordMouse;
    KeyboardPicking PickKeys;
    SizeGridMouse TraceSizeMouse;
    Header HeaderEditor;  ///< words of the trace headers of any SU file
    rezize SuUtility;     ///< files of another size made of SU files
    Update_FLDR TraceNumbers;
    Conversion FieldFiles{Outside};  ///< files of seismographs to SU

    PictureExport SavePicture{*this};

    // Set-up of a line.
    rechinfo NewProfile;
    GridEditor PickTable;                                              ///< Buildgrid
    GridEditor RemarkTable;                                            ///< remark_grid
    ElevationUpdate Elevations = ElevationUpdate::ShotsFromReceivers;  ///< what Command3 computes
    bool ElevationsChosen = false;                                     ///< the user has chosen that once

    /// ShotsLeftOut of the line with so many shots: as shots are taken out and come back, so do their marks.
    std::map<int, std::set<int>> LeftOutByCount;
};

}  // namespace tarnvik
