#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "processing/instruments/conversion.h"

namespace tarnvik {

/// Dialog "Seismograph file conversion" (tools conversion and SEG2SU): files of instruments become one SU
/// file, after they and what was assumed about them have been seen. It stands in a window of its own, or
/// serves the program when such a file is chosen or dropped there.
class Conversion {
  public:
    explicit Conversion(Ports& ports) : Outside(ports) {}
    /// Choices of the last time come from there and go there; without a settings file they are those below.
    void Remember_In(std::string settings_file);

    enum Geometry { FromHeaders, FromTable, Typed };

    TextGrid Files;             ///< a row for each file from 1, in the order taken; row 0 holds the headings
    int Row = 0;                ///< chosen in Files, from 1; 0 none
    int Order = 0;              ///< FileOrder
    int PlacesFrom = 0;         ///< Geometry
    std::string Spacing;        ///< between the receivers, typed
    std::string FirstReceiver;  ///< place of the first one
    std::string Shots;          ///< places of the records' shots, separated by commas or blanks
    std::string Table;          ///< file with the places
    std::string Out;            ///< SU file to write
    std::string Details;        ///< what was read and assumed of the chosen file
    std::string Hint;           ///< what will become of all, or what stands in the way
    std::string Report;         ///< of the last conversion, a line each
    std::string Title = "Seismograph file conversion";

    void Ask_For_Files();
    /// Further files; one that stands there already is passed over.
    void Add(const std::vector<std::string>& paths);
    /// All files of instruments in the folder of the chosen file that have its format and ending.
    void Add_Whole_Folder();
    void Remove();  ///< the chosen row
    void Clear();
    void Ask_For_Table();
    void Ask_For_Out();
    void Changed();     ///< a choice or a field
    void Row_Chosen();  ///< Row changed
    /// The chosen file with its first traces; null when there is none.
    const FieldFile* Chosen() const;
    bool Ready() const { return Refusal.empty(); }

    /// Writes the SU file and tells the outcome.
    void Convert(const ConversionProgress& progress = {});
    /// Saves the report as a text file.
    void Save_Report();

    /// Shows the dialog modally for these files; it closes by itself when the SU file has been made. Answers
    /// that file, empty when there is none.
    std::string Make_Of(const std::vector<std::string>& files);

  private:
    ConversionRequest Request() const;
    std::string Why_Not() const;
    void Look();
    void Fill_Table();
    void Describe();
    void Propose_Out();
    void Remember() const;

    Ports& Outside;
    std::string SettingsFile;
    std::vector<FieldFile> Read;  ///< in the order taken
    std::string Refusal;
    std::string Agreed;    ///< a file that may be replaced
    std::string Proposed;  ///< name of the output that was not typed
    std::string Made;
    bool Serves = false;  ///< the program waits for the file
};

/// The list of numbers that a text is, separated by commas, semicolons or blanks; nothing where anything else
/// stands in it.
std::optional<std::vector<double>> Typed_Numbers(const std::string& text);

}  // namespace tarnvik
