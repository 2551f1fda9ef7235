#include "traveltime/file_routines.h"

#include "core/fault.h"
#include "core/project_open.h"
#include "core/project_save.h"

namespace tarnvik {

FileRoutines::FileRoutines()
    : SaveProject([](Workspace& workspace, Ports& ports) { return Write_Project(workspace, ports); }),
      LoadProject([](Workspace& workspace, Ports&) {
          Read_Project(workspace, workspace.Project.CurrentFile);
          return true;
      }) {}

bool Project_Holds_Times(Workspace& workspace, Ports& ports, const FileRoutine& load_project) {
    double sum = 0;
    try {
        const Project& project = workspace.Project;
        for (int shot = 1; shot <= project.NbShots; ++shot) {
            for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
                sum += project.ShotTimes(shot, receiver);
        }
    } catch (const Fault&) {
        ports.Ask.Say("No file loaded or bad file...", workspace.AppTitle);
        return false;
    }
    if (!(sum > 0) && load_project) load_project(workspace, ports);
    return true;
}

}  // namespace tarnvik
