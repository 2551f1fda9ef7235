#include "core/workspace.h"

namespace tarnvik {

namespace {
constexpr double picture_width = 96;
}

std::string_view Depth_Label(SectionSource source) {
    switch (source) {
        case SectionSource::Abc:
            return "Grid using ABC data";
        case SectionSource::Grm:
            return "Grid using GRM data";
        case SectionSource::Shots:
            break;
    }
    return "Grid using Shot point";
}

void Clear_Selection(CurveView& curves) {
    curves.DragStartX = 0;
    curves.DragStartY = 0;
    curves.DragEndX = 0;
    curves.DragEndY = 0;
}

void Scale_Time_Grid(Workspace& workspace) {
    workspace.Curves.MaxTime = Latest_Pick(workspace.Project);
    workspace.Curves.TimeFactor = Time_Factor(workspace.Curves.MaxTime);
}

double Position_Ecran(const Project& project, int receiver) {
    return project.ReceiverData(ReceiverDistance, receiver) * Divide(picture_width, project.LineLength);
}

double Shot_Position_Ecran(const Project& project, int shot) {
    return project.ShotDistance(shot) * Divide(picture_width, project.LineLength);
}

}  // namespace tarnvik
