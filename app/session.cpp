#include "app/session.h"

#include <utility>

#include "app/view_commands.h"
#include "core/project_save.h"
#include "records/su_loading.h"

namespace tarnvik {

Session::Session(Ports outside, std::string settings_file)
    : Outside(outside),
      SettingsFile(std::move(settings_file)),
      Pointer(Work, Outside),
      ZoomDialog(Work, Outside),
      Ruler(Work, Outside),
      Speed(Work, Outside),
      Record(Work, Outside, Speed),
      SpeedMouse(Work, Outside, Speed),
      Depths(Work, Outside),
      DepthMouse(Work, Outside, Depths),
      RecordArea(Work, Outside),
      AutomaticPicking(Work, Outside),
      RecordMouse(Work, Outside, AutomaticPicking, RecordArea),
      TraceSizeMouse(Work, Outside),
      NewProfile(Work, Outside),
      PickTable(Work, Outside, GridEditor::Grid::Buildgrid),
      RemarkTable(Work, Outside, GridEditor::Grid::Remarks) {
    Pointer.Register("Vitesse", &SpeedMouse);
    Pointer.Register("Calcul", &DepthMouse);
    Hooks.ClearDisplay = [this] { Clear_Display(*this); };
    Hooks.OfferSuFile = [this] { Offer_SU_File(Work, Outside); };
    Hooks.LoadSuFile = [this] { Outside.Show.Display_Record(); };
    Pointer.Pick_In_Hand().Writer = this;
    Pointer.Pick_In_Hand().Save = [this] { Write_Project(Work, Outside); };
}

void Session::Write_Pick(int shot, int receiver, double time_ms) {
    if (Work.Project.SuFile.empty()) return;
    // Without a channel count the records are taken to hold the line's receivers, as the header commands do.
    const std::int64_t channels =
        Work.Record.ChannelsPerRecord > 0 ? Work.Record.ChannelsPerRecord : Work.Project.NbReceivers;
    const std::int64_t trace = (shot - 1) * channels + receiver;
    SuTraces file(Su_Path(Work.Project), SuTraces::Access::Write);
    if (file.Set_Pick(trace, time_ms) == Stored::No) {
        Work.Fields.Status = "Pick not in the field records: " + Work.Project.SuFile + ": " + file.Reason();
        Outside.Show.Show_Fields();
    }
    Outside.Show.Display_Record();
}

}  // namespace tarnvik
