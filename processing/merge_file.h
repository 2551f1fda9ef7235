#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "processing/merge_su.h"

namespace tarnvik {

/// Tool merge_file: several SU files become one, which is shown before it is written.
class MergeFile {
  public:
    MergeFile(Ports& ports, std::string title);

    TextGrid Files;           ///< a row for each file from 1; row 0 holds the headings
    bool NumberAnew = true;   ///< records are numbered from FirstRecord on
    std::string FirstRecord;  ///< number of the first record
    int Length = 0;           ///< where sample counts differ: 0 cut to the shortest, 1 fill up to the longest
    std::string Out;          ///< file to write
    std::string Hint;         ///< what will become of it, or what stands in the way
    int Row = 0;              ///< chosen in Files, from 1; 0 none

    void Ask_For_Files();
    /// Further files behind those that stand there; one that stands there already is passed over.
    void Add(const std::vector<std::string>& paths);
    void Remove();  ///< the chosen row
    void Move_Up();
    void Move_Down();
    void Sort_By_Name();    ///< "shot2" before "shot10"
    void Sort_By_Record();  ///< by the number of their first record
    void Ask_For_Out();
    void Changed();  ///< numbering, length or the name of the output was typed
    bool Ready() const { return Plan.Refusal.empty(); }
    /// Writes the file and tells the outcome.
    void Merge(const TraceProgress& progress = {});

  private:
    MergeRequest Request() const;
    std::optional<std::int32_t> First_Number() const;
    void Move(int by);
    void Look();  ///< plan and table anew
    void Fill_Table();

    Ports& Outside;
    std::string Title;
    std::vector<std::string> Paths;
    MergePlan Plan;
    std::string Agreed;    ///< a file that may be replaced
    std::string Proposed;  ///< name of the output that was not typed
};

}  // namespace tarnvik
