#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/project.h"

namespace tarnvik {

/// A place along the line as another program's file has it; the elevation may be missing.
struct ImportedPlace {
    double X = 0;
    std::optional<double> Z;
};

/// A shot with its first breaks: places of receivers along the line, and ms.
struct ImportedShot {
    struct Pick {
        double ReceiverX = 0;
        double Time = 0;
    };
    ImportedPlace Place;
    std::vector<Pick> Picks;
};

/// What a file of another program tells of a line.
struct ImportedLine {
    std::vector<ImportedShot> Shots;
    std::vector<ImportedPlace> Receivers;  ///< in any order; one place several times counts once
    std::vector<std::string> LeftOut;      ///< what is not taken, and why
    std::string Refusal;  ///< why the file is none, with the number of its line; otherwise empty
};

/// What came of an import beside the project.
struct ImportReport {
    std::string Refusal;
    int Picks = 0;
    int FirstEndShot = 1;
    int LastEndShot = 1;
    std::vector<std::string> LeftOut;
};

/// Makes a project of the line: receivers and shots sorted along it, elevations that are missing interpolated
/// from the neighbours (0 where none is known), times to 0.01 ms. The end shots are those nearest to the
/// receivers on either side, and all distances are shifted so that the first of them lies at 0; shots farther
/// out are offset shots. A refusal leaves the project as it was.
ImportReport Project_Of_Line(const ImportedLine& line, Project& project);

/// Takes a text file line by line: empty lines passed over, each line cut into fields.
class FieldLines {
  public:
    /// `separators` stand between fields beside blanks and tabs.
    FieldLines(std::string_view bytes, std::string_view separators) : Left(bytes), Separators(separators) {}

    /// The next line that holds anything; false at the end.
    bool Next();
    const std::vector<std::string>& Fields() const { return Cut; }
    int Count() const { return static_cast<int>(Cut.size()); }
    /// The number in a field, from 0; nothing when the field is missing or no finite number.
    std::optional<double> Number(int field) const;
    /// Words that tell which line is meant.
    std::string Place() const;

  private:
    std::string_view Left;
    std::string_view Separators;
    std::vector<std::string> Cut;
    int LineNumber = 0;
};

}  // namespace tarnvik
