#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarnvik {

class Session;

/// Edit menu. An undo or redo that cannot be done (a file was changed by another program) is told.
void Undo_Edit(Session& session);
void Redo_Edit(Session& session);
void Show_History(Session& session);

/// Captions with the name of the edit.
std::string Undo_Caption(const Session& session);
std::string Redo_Caption(const Session& session);
/// Why there is nothing to take back or to do again; empty when there is.
std::string Undo_Refusal(const Session& session);
std::string Redo_Refusal(const Session& session);

/// Dialog::History: the edits of the project in memory, to walk along in both directions.
class HistoryList {
  public:
    explicit HistoryList(Session& session) : Owner(session) {}

    struct Row {
        std::string Name;
        std::string Time;  ///< of the day, empty in the first row
        bool Done = true;  ///< false for an edit that was taken back
    };
    /// The first row is the state before all edits.
    std::vector<Row> Rows() const;
    /// The row of the last edit done.
    std::size_t Current() const;
    /// Walks to where the edits up to this row are done.
    void Go_To(std::size_t row);

  private:
    Session& Owner;
};

}  // namespace tarnvik
