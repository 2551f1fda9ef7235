#include "app/edit_commands.h"

#include "app/local_time.h"
#include "app/session.h"

namespace tarnvik {

namespace {

void Tell_Failure(Session& session, const std::string& subject, const std::string& reason) {
    if (reason.empty()) return;
    session.Outside.Ask.Say(subject + ": " + reason, session.Work.AppTitle, Icon::Critical);
}

}  // namespace

void Undo_Edit(Session& session) {
    Workspace& work = session.Work;
    const std::string name = work.Edits.Undo_Name();
    Tell_Failure(session, "\"" + name + "\" cannot be taken back", work.Edits.Undo(work.Project));
}

void Redo_Edit(Session& session) {
    Workspace& work = session.Work;
    const std::string name = work.Edits.Redo_Name();
    Tell_Failure(session, "\"" + name + "\" cannot be done again", work.Edits.Redo(work.Project));
}

void Show_History(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::History, false);
}

std::string Undo_Caption(const Session& session) {
    const std::string name = session.Work.Edits.Undo_Name();
    return name.empty() ? "&Undo" : "&Undo: " + name;
}

std::string Redo_Caption(const Session& session) {
    const std::string name = session.Work.Edits.Redo_Name();
    return name.empty() ? "&Redo" : "&Redo: " + name;
}

std::string Undo_Refusal(const Session& session) {
    return session.Work.Edits.Can_Undo() ? "" : "There is nothing to take back";
}

std::string Redo_Refusal(const Session& session) {
    return session.Work.Edits.Can_Redo() ? "" : "There is nothing to do again";
}

std::vector<HistoryList::Row> HistoryList::Rows() const {
    const Edits& edits = Owner.Work.Edits;
    std::vector<Row> rows = {{"Beginning", {}, true}};
    for (const Edit& edit : edits.All())
        rows.push_back({edit.Name, Local_Time_Text(edit.Time, "%H:%M:%S"), rows.size() <= edits.Done()});
    return rows;
}

std::size_t HistoryList::Current() const {
    return Owner.Work.Edits.Done();
}

void HistoryList::Go_To(std::size_t row) {
    Workspace& work = Owner.Work;
    Tell_Failure(Owner, "The history cannot be walked further", work.Edits.Go_To(work.Project, row));
}

}  // namespace tarnvik
