#include "app/show_changes.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "app/pages.h"
#include "app/session.h"
#include "core/ports/held_redraws.h"
#include "core/text/number.h"
#include "depth/grm_picture.h"
#include "records/record_display.h"
#include "setup/build_grid.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

bool Has_Any(const ProjectParts& parts, std::initializer_list<ProjectPart> any) {
    return std::any_of(any.begin(), any.end(), [&parts](ProjectPart part) { return parts.Has(part); });
}

bool Picks_Alone(const ChangeNotice& notice) {
    return !notice.Picks.empty() && !Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::Receivers,
                                                            ProjectPart::Shots, ProjectPart::Line});
}

/// Fields of the main form that show values of the project.
void Follow_Project(Workspace& work) {
    const Project& project = work.Project;
    work.Fields.Text25 = CStr(project.TotalTime);
    work.Fields.Label16 = project.SuFile;
}

/// A shot that comes back with an undo, or goes with a redo, takes its mark along.
void Bring_Back_Left_Out_Shots(Session& session) {
    Workspace& work = session.Work;
    session.LeftOutByCount[work.Grids.Grille_Shot.Rows()] = work.Curves.ShotsLeftOut;
    Fill_Shot_Grid(work);  // forgets the marks of another count of shots
    const auto kept = session.LeftOutByCount.find(work.Project.NbShots);
    if (kept != session.LeftOutByCount.end()) work.Curves.ShotsLeftOut = kept->second;
}

void Show_Table(Session& session, const ChangeNotice& notice) {
    Workspace& work = session.Work;
    if (Picks_Alone(notice)) {
        for (const PickPlace& pick : notice.Picks) {
            Fill_Grid_Cell(work, pick);
            session.Outside.Show.Show_Cell(pick.Receiver, pick.Shot);
        }
    } else if (Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::Times, ProjectPart::Receivers,
                                      ProjectPart::Shots, ProjectPart::Line})) {
        Fill_Grid(work);
        session.Outside.Show.Show_Grids();
    }
    if (notice.Parts.Has(ProjectPart::Remarks)) session.Outside.Show.Show_Grids();
}

void Show_Pictures(Session& session, const ChangeNotice& notice) {
    Workspace& work = session.Work;
    Display& show = session.Outside.Show;
    const bool curves =
        Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::Times, ProjectPart::Receivers,
                               ProjectPart::Shots, ProjectPart::Line});
    if (work.Curves.FrameDrawn == 2) {
        // Curves beside the profile are painted: a drawing would take the profile away.
        if (curves) show.Repaint_Page(Page::Curves);
        if (!notice.Parts.Empty()) show.Repaint_Page(Page::Profile);
    } else if (!curves) {
        return;
    } else if (work.Curves.FrameDrawn == 0 || notice.Parts.Has(ProjectPart::Counts)) {
        show.Show_Curves();
    } else if (Picks_Alone(notice)) {
        Refresh_Curves(work, session.Outside, notice.Picks);
    } else {
        show.Repaint_Page(Page::Curves);
    }
}

/// GRM curves and grid that stand, of times and distances that have changed.
void Follow_In_Grm(Session& session, const ChangeNotice& notice) {
    if (!Has_Any(notice.Parts,
                 {ProjectPart::Counts, ProjectPart::Receivers, ProjectPart::Grm, ProjectPart::TotalTime})) {
        return;
    }
    session.GrmDepths.Follow();
    session.GrmAnalysis.Follow();
    if (Grm_Picture_Stands(session.Work) && session.Work.Curves.FrameDrawn == 1)
        session.Outside.Show.Repaint_Page(Page::Curves);
}

/// A section that stands, coloured or on the page of a report, of depths, velocities and places that have
/// changed.
void Follow_In_Section(Session& session, const ChangeNotice& notice) {
    if (Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::Receivers, ProjectPart::Shots,
                               ProjectPart::Line, ProjectPart::Velocities, ProjectPart::Refractors,
                               ProjectPart::Thicknesses, ProjectPart::Grm})) {
        session.Report.Line_Changed();
    }
    if (Has_Any(notice.Parts,
                {ProjectPart::Counts, ProjectPart::Receivers, ProjectPart::Shots, ProjectPart::Line,
                 ProjectPart::Velocities, ProjectPart::Refractors, ProjectPart::Thicknesses})) {
        session.Section.Line_Changed();
    } else if (notice.Parts.Has(ProjectPart::Remarks) && session.Work.Section.Grid) {
        session.Outside.Show.Repaint_Page(Page::Section);
    }
}

/// Dialogs whose fields show values of the project. One that made the edit itself shows it already.
void Show_In_Dialogs(Session& session, const ChangeNotice& notice) {
    if (notice.Parts.Has(ProjectPart::Counts) && session.Outside.Show.Is_Open(Dialog::FantomF))
        session.Phantom.Shots_Changed();
    if (notice.Happened == ChangeNotice::Kind::Made) return;
    if (Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::Line, ProjectPart::Shots,
                               ProjectPart::Velocities, ProjectPart::Refractors, ProjectPart::Thicknesses}) &&
        session.Outside.Show.Is_Open(Dialog::Fcalcul)) {
        session.Depths.Display_Shot(session.Depths.HScroll1.Value);
    }
    if (Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::Line, ProjectPart::Times,
                               ProjectPart::Receivers, ProjectPart::Shots, ProjectPart::TotalTime}) &&
        session.Outside.Show.Is_Open(Dialog::DelayF)) {
        session.Delay.Project_Went_Back();
    }
    if (Has_Any(notice.Parts,
                {ProjectPart::Counts, ProjectPart::Receivers, ProjectPart::Shots, ProjectPart::Refractors}) &&
        session.Outside.Show.Is_Open(Dialog::ABCGridF)) {
        session.Abc.Project_Went_Back();
    }
}

/// The quick interpretation fits the curve anew as soon as it changes, whoever has changed it.
void Follow_In_Quick_Interpretation(Session& session, const ChangeNotice& notice) {
    if (!session.Outside.Show.Is_Open(Dialog::quick_interpret)) return;
    if (Has_Any(notice.Parts,
                {ProjectPart::Counts, ProjectPart::Receivers, ProjectPart::Shots, ProjectPart::Line})) {
        session.Quick.Line_Changed();
    } else if (notice.Parts.Has(ProjectPart::Times)) {
        session.Quick.Picks_Changed();
    }
}

/// The table of results, whoever has changed them.
void Follow_In_Results(Session& session, const ChangeNotice& notice) {
    if (Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::Shots, ProjectPart::Velocities,
                               ProjectPart::Thicknesses}) &&
        session.Outside.Show.Is_Open(Dialog::resu)) {
        session.Results.Follow();
    }
}

/// The header editor, of whatever file it shows.
void Follow_In_Header_Editor(Session& session, const ChangeNotice& notice) {
    if (session.Outside.Show.Is_Open(Dialog::Header)) session.HeaderEditor.Follow(notice);
}

}  // namespace

void Show_Changes(Session& session, const ChangeNotice& notice) {
    const HeldRedraws held(session.Outside.Show);
    if (notice.Nothing()) return;
    Workspace& work = session.Work;
    if (notice.Parts.Has(ProjectPart::Counts)) {
        const int shots = std::max<int>(1, work.Project.NbShots);
        work.Velocity.CurrentShot =
            static_cast<std::int16_t>(std::clamp<int>(work.Velocity.CurrentShot, 1, shots));
    }
    if (notice.Parts.Has(ProjectPart::Counts)) Bring_Back_Left_Out_Shots(session);
    if (Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::Times})) Scale_Time_Grid(work);
    if (Has_Any(notice.Parts, {ProjectPart::Counts, ProjectPart::TotalTime, ProjectPart::FieldRecords})) {
        Follow_Project(work);
    }
    Show_Table(session, notice);
    Show_Change_On_Record(work, session.Outside, notice, Curve_Colours(work));
    session.PickKeys.Follow();
    Show_Pictures(session, notice);
    Follow_In_Grm(session, notice);
    Follow_In_Section(session, notice);
    Show_In_Dialogs(session, notice);
    Follow_In_Quick_Interpretation(session, notice);
    Follow_In_Results(session, notice);
    Follow_In_Header_Editor(session, notice);
    if (work.Edits.Journal_Fails()) {
        work.Fields.Status = "The last changes cannot be brought back after a crash: no room in " +
                             session.JournalFolder + ". Save the project.";
    }
    session.Outside.Show.Show_Fields();
}

}  // namespace tarnvik
