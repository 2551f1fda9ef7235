#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "core/workspace.h"
#include "core/xlsx_file.h"

namespace tarnvik {

/// Columns of the result table, from 1; column 0 holds the number of the shot and goes into no file.
std::vector<std::string> Result_Headings();

/// The results of a line: a row for each shot with its place, the velocities of up to five layers and the
/// thicknesses of up to four; 0 where there is none. Row 0 and column 0 are headings.
TextGrid Result_Table(const Project& project);

/// Headings and rows as text, fields separated by semicolons.
std::string Result_Csv(const TextGrid& table);
/// The same as a spreadsheet, its numbers as numbers.
XlsxSheet Result_Sheet(const TextGrid& table, const std::string& title);
/// Writes the table to a file, as a spreadsheet where it ends in ".xlsx", else as CSV. Answers the reason of
/// a failure, empty when it went well.
std::string Write_Results(const std::string& path, const TextGrid& table, const std::string& title);

/// Dialog "Seismic Profile": the results as a table, whose numbers can be corrected and supplemented before
/// they go out. The project does not change.
class resu {
  public:
    resu(Workspace& workspace, Ports& ports);

    TextGrid resultat_grid;
    std::string Date;  ///< "Date:" and the day
    std::string Hint;  ///< what there is to say about the table or about what was typed
    std::function<std::string()> Today;

    void Load();           ///< the form opens
    void Command2();       ///< "Save CSV"
    void Save_Workbook();  ///< "Save Excel"

    bool Editable(int row, int column) const;
    /// A number, a comma may stand for its point, or nothing. False, with a hint, for another text.
    bool Type(int row, int column, std::string_view text);

    /// The project has changed: the cells whose values changed are filled anew, what was typed into others
    /// stays.
    void Follow();

  private:
    void Save(const FileRequest& request, const std::string& ending);

    Workspace& Work;
    Ports& Outside;
    TextGrid Filled;  ///< as it came from the project
};

}  // namespace tarnvik
