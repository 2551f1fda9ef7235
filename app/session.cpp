#include "app/session.h"

#include <chrono>
#include <utility>

#include "app/dialog_commands.h"
#include "app/local_time.h"
#include "app/recovery.h"
#include "app/shot_choice.h"
#include "app/show_changes.h"
#include "core/files.h"
#include "core/project_save.h"
#include "depth/grm_storage.h"
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
      TrueSpeed(Work, Outside),
      TrueSpeedMouse(Work, TrueSpeed),
      HandSpeed(Work, Outside),
      HandSpeedMouse(Work, Outside, HandSpeed),
      RulerVelocities(Work, Outside),
      Dip(Work, Outside),
      Depths(Work, Outside),
      DepthMouse(Work, Outside, Depths),
      Quick(Work, Outside),
      QuickMouse(Quick),
      Phantom(Work, Outside),
      PhantomMouse(Work, Outside, Phantom),
      Theoretic(Work, Outside),
      TriggerFault(Work, Outside),
      TriggerMouse(Work, Outside, TriggerFault),
      Delay(Work, Outside),
      DelayMouse(Work, Outside, Delay),
      Abc(Work, Outside),
      GrmAnalysis(Work, Outside),
      GrmMouse(Work, Outside),
      GrmDepths(Work, Outside),
      Results(Work, Outside),
      Section(Work, Outside),
      Report(Work, Outside),
      RecordArea(Work, Outside),
      RecordWheel(Work, Outside),
      AutomaticPicking(Work, Outside),
      RecordMouse(Work, Outside, AutomaticPicking, RecordArea),
      PickKeys(Work, Outside),
      TraceSizeMouse(Work, Outside),
      HeaderEditor(Work, Outside),
      SuUtility(Work, Outside),
      TraceNumbers(Work, Outside),
      NewProfile(Work, Outside),
      PickTable(Work, Outside, GridEditor::Grid::Buildgrid),
      RemarkTable(Work, Outside, GridEditor::Grid::Remarks) {
    Pointer.Register(DisplayMode::Vitesse, &SpeedMouse);
    Pointer.Register(DisplayMode::Velocity, &TrueSpeedMouse);
    Pointer.Register(DisplayMode::Vitesse2, &HandSpeedMouse);
    Pointer.Register(DisplayMode::Calcul, &DepthMouse);
    Pointer.Register(DisplayMode::Quick, &QuickMouse);
    Pointer.Register(DisplayMode::Fantom, &PhantomMouse);
    Pointer.Register(Dialog::Erase_TT, &TriggerMouse);
    Pointer.Register(DisplayMode::Delay, &DelayMouse);
    Abc.Show_Profile = [this] { Show_Abc_Profile(*this); };
    Pointer.Register(DisplayMode::Grm, &GrmMouse);
    Pointer.Register(DisplayMode::GrmV, &GrmMouse);
    GrmDepths.OnComputed = [this] { Show_Grm_Profile(*this); };
    Results.Today = [] { return Local_Time_Text(std::chrono::system_clock::now(), "%Y-%m-%d"); };
    Pointer.On_Choose = [this](PickPlace place) { Choose_Shot(*this, place); };
    Work.Edits.On_Change = [this](const ChangeNotice& notice) { Show_Changes(*this, notice); };
    Hooks.OfferSuFile = [this] { Offer_SU_File(Work, Outside); };
    Hooks.ReadGrmFile = [this] { Take_Up_GRM_File(Work, Outside); };
    Hooks.LoadSuFile = [this] { Open_Records(Work, Outside); };
    Work.Resize = [this](const std::string& su_file) { return SuUtility.Make_Of(su_file); };
    Pointer.Pick_In_Hand().Save = [this] { Write_Project(Work, Outside); };
}

void Session::Keep_Journals() {
    JournalFolder = Journal_Folder(SettingsFile);
    Work.Edits.Keep_Journals_In(JournalFolder);
    Work.CompanionFolder = Folder_Of(SettingsFile) + "projects";
}

void Session::Offer_Conversion() {
    FieldFiles.Remember_In(SettingsFile);
    Work.Convert = [this](const std::string& path) { return FieldFiles.Make_Of({path}); };
}

void Session::Keep_Display_Choices() {
    Work.Choices.Keep_In(Display_Choices_File(SettingsFile));
}

}  // namespace tarnvik
