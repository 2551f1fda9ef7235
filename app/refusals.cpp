#include "app/refusals.h"

#include "app/session.h"

namespace tarnvik {

namespace {
constexpr const char* no_project = "There is no project in memory";
constexpr const char* no_records = "No field records are loaded";
}  // namespace

std::string Without_Project(const Session& session) {
    const Project& project = session.Work.Project;
    const bool has_line = project.NbShots > 0 && project.NbReceivers > 0 &&
                          project.ShotTimes.Has(project.NbShots, project.NbReceivers);
    return has_line ? "" : no_project;
}

std::string Without_Total_Time(const Session& session) {
    return Without_Project(session).empty() && session.Work.Project.TotalTime != 0
               ? ""
               : "First, you must determine Total time (=Reciprocal time) with Delay module";
}

std::string Without_Records(const Session& session) {
    return session.Work.Project.SuFile.empty() ? no_records : "";
}

std::string Without_Line_Or_Records(const Session& session) {
    const std::string refusal = Without_Project(session);
    return refusal.empty() ? Without_Records(session) : refusal;
}

std::string Without_Shown_Records(const Session& session) {
    return session.Work.Record.NbTraces < 1 ? no_records : Without_Records(session);
}

}  // namespace tarnvik
