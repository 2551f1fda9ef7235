#include "app/export_commands.h"

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "app/session.h"
#include "app/start.h"
#include "core/files.h"
#include "core/project_file.h"
#include "core/project_open.h"
#include "core/project_save.h"
#include "core/text/letters.h"
#include "output/exports/dxf_export.h"
#include "output/exports/picks_export.h"
#include "output/exports/plotrefa_export.h"
#include "output/exports/rayfract_export.h"
#include "output/exports/seisopt_export.h"
#include "output/exports/surfer_export.h"
#include "output/imports/import_picks.h"
#include "output/section_files.h"

namespace tarnvik {

namespace {

bool Is_In_Memory(const Session& session, const std::string& path) {
    const std::string& current = session.Work.Project.CurrentFile;
    std::error_code failed;
    return path == current || (std::filesystem::equivalent(path, current, failed) && !failed);
}

/// The line of a file that the user chooses; `aside` takes one that is not in memory.
Workspace* Choose_Line(Session& session, Workspace& aside) {
    Workspace& work = session.Work;
    const std::string path = session.Outside.Ask.Open_File(
        {"Tarnvik File selection", "File Tarnvik TV5 |*.TV5|", "*.TV5", work.Project.ProjectDir});
    if (path.empty()) return nullptr;
    if (Is_In_Memory(session, path)) return &work;
    const auto refuse = [&](const std::string& text) {
        session.Outside.Ask.Say(text, work.AppTitle, Icon::Critical);
        return nullptr;
    };
    if (UCase(Right(path, 4)) != ".TV5") return refuse("No TV5 file selected ");
    if (!Read_File(path)) return refuse("This file does not exist !");
    aside.AppTitle = work.AppTitle;
    aside.Settings = work.Settings;
    const ReadingReport report = Read_Project(aside, path);
    if (!report.Refusal.empty()) return refuse(No_Project_Text(path, report));
    if (!report.Missing.empty() &&
        session.Outside.Ask.Message(path + "\r\n" + report.Missing + "\r\nExport anyway ?", work.AppTitle,
                                    Icon::Warning, Buttons::YesNo) != Answer::Yes) {
        return nullptr;
    }
    return &aside;
}

using Export = ExportReport (*)(Ports&, const ExportSource&);

void Export_Chosen_Line(Session& session, Export run) {
    Workspace aside;
    run(session.Outside, {session.Work.AppTitle, [&] { return Choose_Line(session, aside); }, ""});
}

void Export_Line_In_Memory(Session& session, Export run) {
    run(session.Outside, {session.Work.AppTitle, [&session] { return &session.Work; }, ""});
}

/// Name of the project that a file becomes, agreed with the user; empty when he gave up.
std::string Name_Of_New_Project(Session& session, const std::string& file) {
    const std::string name = Name_Of(file);
    const std::string beside = Folder_Of(file) + name.substr(0, name.rfind('.')) + ".tv5";
    std::string path = session.Outside.Ask.Save_File(
        {"Select a new Tarnvik File Name", "Fichier Tarnvik *.TV5", beside, Folder_Of(file)});
    if (!path.empty() && LCase(Right(path, 4)) != ".tv5") path += ".tv5";
    return path;
}

}  // namespace

void Export_To_Plotrefa(Session& session) {
    Export_Chosen_Line(session, Export_Plotrefa);
}

void Export_To_SeisOpt2D(Session& session) {
    Export_Chosen_Line(session, Export_SeisOpt2D);
}

void Export_To_Rayfract(Session& session) {
    Export_Chosen_Line(session, Export_Rayfract);
}

void Export_To_Unified_Format(Session& session) {
    Export_Line_In_Memory(session, Export_Unified);
}

void Export_Picks_As_Csv(Session& session) {
    Export_Line_In_Memory(session, Export_Picks);
}

void Export_Profile_As_Dxf(Session& session) {
    Export_Line_In_Memory(session, Export_Dxf);
}

void Export_To_Surfer(Session& session) {
    Workspace& work = session.Work;
    SectionTexts section;
    if (work.Section.Grid) {
        section.Dat = Section_Dat(*work.Section.Grid, work.Project.LineLength);
        section.Grd = Section_Grd(*work.Section.Grid, work.Project.LineLength);
    }
    Export_Surfer(session.Outside, {work.AppTitle, [&work] { return &work; }, ""}, section);
}

void Import_Pick_File(Session& session) {
    if (!May_Leave_Project(session)) return;
    Prompts& ask = session.Outside.Ask;
    const std::string file = ask.Open_File({"Select a file of picks",
                                            "Picks of other programs|*.ASC;*.VS;*.SGT;*.DAT|All files|*.*|",
                                            "*.ASC", session.Work.Project.ProjectDir});
    if (file.empty()) return;
    Workspace aside;
    aside.AppTitle = session.Work.AppTitle;
    aside.Settings = session.Work.Settings;
    const ImportReport report = Import_Picks(aside, session.Outside, file);
    if (!report.Refusal.empty()) return;
    const std::string path = Name_Of_New_Project(session, file);
    if (path.empty()) return;
    aside.Project.CurrentFile = path;
    if (!Write_Project(aside, session.Outside)) return;
    if (!Load_And_Show(session, path)) return;
    Add_Recent_File(session.Work.Settings, path);
    ask.Say(path + "\r\n" + Import_Summary(session.Work.Project, report), session.Work.AppTitle,
            Icon::Information);
}

}  // namespace tarnvik
