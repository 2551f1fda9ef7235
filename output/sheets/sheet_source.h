#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/sheet.h"

namespace tarnvik {

/// What makes sheets of paper: they are looked at, printed and saved.
class SheetSource {
  public:
    virtual ~SheetSource() = default;
    virtual const std::vector<Sheet>& Sheets() const = 0;
    /// Why there is nothing to be drawn; empty while there is.
    virtual std::string Refusal() const = 0;
    /// Told and asked before sheets are printed or saved; false when they shall not be.
    virtual bool May_Draw() = 0;
    /// Offered for a file of them, without an ending, and its folder.
    virtual std::string File_Name() const = 0;
    virtual std::string Folder() const = 0;
    /// Files that the sheets are drawn from: none of them is written to.
    virtual std::vector<std::string> Sources() const = 0;
};

/// The files that so many sheets go to: a ".pdf" holds all of them; of other kinds one sheet has the name
/// itself and several have "name_01.png", "name_02.png" ... with as many digits as the last number needs.
std::vector<std::string> Sheet_Files(const std::string& path, std::size_t count);

/// Writes the sheets to the files; answers the reason of a failure.
using SheetWriter =
    std::function<std::string(const std::vector<Sheet>& sheets, const std::vector<std::string>& files)>;

/// Asks for the file and writes the sheets. Numbered files that are there already are asked about at once.
/// `ending` is the kind of the last time and the one chosen. True when they were written.
bool Save_Sheets(Ports& ports, const std::string& title, SheetSource& source, std::string& ending,
                 const SheetWriter& write);

}  // namespace tarnvik
