#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "core/workspace.h"
#include "setup/header_geometry.h"
#include "setup/spread.h"

namespace tarnvik {

/// A value that the dialog of a new profile offers: its text, and where it comes from.
struct OfferedValue {
    std::string Text;
    std::string Origin;  ///< "from the headers: gx, scalco", or "default"
};

/// The dialog of a new profile's geometry: what is typed stands here as text and counts by its numeric value.
/// The trace headers go before the defaults where they tell something and FromHeaders is set. Open it with
/// Affichage; when it closes, Cancelled tells whether the user gave up, and Read_Spread what he entered.
class rechinfo {
  public:
    rechinfo(Workspace& workspace, Ports& ports) : Work(workspace), Line(&workspace), Outside(ports) {}

    std::string Spacing;               ///< between geophones
    std::string FirstDistance;         ///< between end shot 1 and geophone 1
    std::string Geophones;             ///< number of geophones
    std::string Shots;                 ///< number of shots, or of shot stations
    std::string ShotDepth;             ///< of all shots
    std::string LineLength;            ///< between the end shots
    bool Offsets = false;              ///< first and last shots are offset shots
    bool SeveralSpreads = false;       ///< profile with multi spreads
    std::string FirstDistanceCaption;  ///< follows Offsets
    std::string DistanceReadout;       ///< under the pointer on the sketch
    TextGrid ShotTable;                ///< one row a shot: name, distance to end shot, elevation
    bool FromHeaders = true;           ///< the geometry that the headers tell is offered
    // Where each of the values comes from.
    std::string SpacingNote;
    std::string FirstDistanceNote;
    std::string GeophonesNote;
    std::string ShotsNote;
    std::string ShotDepthNote;
    std::string LineLengthNote;
    std::string OffsetsNote;
    std::string ShotTableNote;
    std::string Remarks;  ///< what does not agree in the headers, a line each
    enum class Field { Spacing, FirstDistance };
    Field Focus = Field::Spacing;  ///< takes the focus when the dialog opens
    bool Cancelled = false;

    /// Takes up a line that names its SuFile, which lives until Leave_Line: shows what the headers
    /// tell, the receivers, shots, line length, evenly spread shots, and the sketch.
    void Affichage(Workspace& line);
    /// Forgets all entries, those of another line.
    void Clear();
    /// The line taken up goes; the one in memory is meant again.
    void Leave_Line() { Line = &Work; }
    /// Offsets, Spacing, Geophones, Shots or LineLength changed: spreads the shots anew. The line length
    /// follows spacing and geophones until the user types one of his own.
    void Offset_or_Not();
    /// FirstDistance or ShotDepth changed.
    void Distance_Or_Depth_Changed();
    /// FromHeaders changed: all values are those of the headers, or the defaults.
    void From_Headers_Changed();
    /// The headers tell something of the geometry.
    bool Headers_Tell() const { return !Headers.Empty(); }
    /// SeveralSpreads changed: a line of several spreads asks for the number of its shot stations.
    void Multi_Spread_Changed();
    /// Draws the spread on Profile2 from the fields and the table.
    void dessine_squetch();
    /// The pointer stands at world place `x` of the sketch.
    void Sketch_Mouse_Move(double x);

    void Ok();          ///< closes the dialog, or tells what is missing
    void Another_Su();  ///< chooses another SU file for the line
    void Cancel();      ///< ends the flow

    /// The values of all fields.
    Spread Read_Spread() const;

    static constexpr int DistanceColumn = 1;
    static constexpr int ElevationColumn = 2;

  private:
    int Shots_For_Table() const;
    void Fill_Shot_Table();
    void Ask_Stations();
    void Make_Offers();
    void Take_Offers();
    void Write_Notes();
    bool Headers_Count() const { return FromHeaders && Headers_Tell(); }
    bool Stands_As_Offered(const std::string& field, const OfferedValue& offer) const;
    bool Spread_Is_That_Of_Headers() const;
    bool Shots_Are_Those_Of_Headers() const;

    Workspace& Work;
    Workspace* Line;  ///< the line being set up
    Ports& Outside;
    HeaderGeometry Headers;  ///< of the line's file
    OfferedValue OfferedSpacing;
    OfferedValue OfferedFirstDistance;
    OfferedValue OfferedGeophones;
    OfferedValue OfferedShots;
    OfferedValue OfferedDepth;
    std::string DerivedLength;  ///< line length last put into LineLength by the dialog itself
};

}  // namespace tarnvik
