#pragma once

#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "output/tables/csv_group.h"

namespace tarnvik {

/// Tool add_csv: the result tables of several lines become one, after their columns have been checked.
class AddCsv {
  public:
    AddCsv(Ports& ports, std::string title);

    TextGrid Files;            ///< a row for each file from 1; row 0 holds the headings
    TextGrid Preview;          ///< the first rows of the group; row 0 holds the headings
    bool LineColumn = true;    ///< a last column with the name of the line
    bool FillMissing = false;  ///< a column that a file lacks stays empty there
    std::string Out;           ///< file to write
    std::string Hint;          ///< what will become of it, or what stands in the way
    int Row = 0;               ///< chosen in Files, from 1; 0 none

    void Ask_For_Files();
    /// Further files behind those that stand there; one that stands there already is passed over.
    void Add(const std::vector<std::string>& paths);
    void Remove();  ///< the chosen row
    void Move_Up();
    void Move_Down();
    void Sort_By_Name();
    void Ask_For_Out();
    void Changed();  ///< a choice or the name of the output
    bool Ready() const { return Group.Refusal.empty(); }
    void Write();

  private:
    void Move(int by);
    void Look();
    void Fill_Tables();

    Ports& Outside;
    std::string Title;
    std::vector<CsvTable> Tables;
    CsvGroup Group;
    std::string Agreed;    ///< a file that may be replaced
    std::string Proposed;  ///< name of the output that was not typed
};

}  // namespace tarnvik
