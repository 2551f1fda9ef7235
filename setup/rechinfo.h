#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "core/workspace.h"
#include "setup/spread.h"

namespace tarnvik {

/// The dialog of a new profile's geometry. Open it with Affichage; when it closes, Cancelled tells whether
/// the user gave up, and Read_Spread what he entered.
class rechinfo {
  public:
    rechinfo(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    std::string Text1;            ///< geophone spacing
    std::string Text2;            ///< distance between end shot 1 and geophone 1
    std::string Text3;            ///< number of geophones
    std::string Text4;            ///< number of shots, or of shot stations
    std::string Text5;            ///< depth of the shots
    std::string Text6;            ///< line length between the end shots
    bool Check1 = false;          ///< first and last shots are offset shots
    bool Check2 = false;          ///< profile with multi spreads
    std::string Text2Caption;     ///< follows Check1
    std::string DistanceReadout;  ///< under the pointer on the sketch
    std::string FocusControl;     ///< field that takes the focus when the dialog opens
    TextGrid DataGrid;            ///< one row a shot: name, distance to end shot, elevation
    bool Cancelled = false;

    /// Shows what the headers of SuFile tell: receivers, shots, line length, evenly spread shots, the sketch.
    void Affichage();
    /// Check1, Text1, Text3, Text4 or Text6 changed: spreads the shots anew. The line length follows spacing
    /// and geophones until the user types one of his own.
    void Offset_or_Not();
    /// Check2 changed: a line of several spreads asks for the number of its shot stations.
    void Multi_Spread_Changed();
    /// Draws the spread on Profile2 from the fields and the grid.
    void dessine_squetch();
    /// The pointer stands at world place `x` of the sketch.
    void Sketch_Mouse_Move(double x);

    void Command1();  ///< OK: closes the dialog, or tells what is missing
    void Command2();  ///< Sketch
    void Command3();  ///< Another SU
    void Command4();  ///< Cancel: ends the flow

    /// The values of all fields.
    Spread Read_Spread() const;

    static constexpr int DistanceColumn = 1;
    static constexpr int ElevationColumn = 2;

  private:
    int Shots_For_Grid() const;
    void Fill_Data_Grid();
    void Ask_Stations();

    Workspace& Work;
    Ports& Outside;
    std::string DerivedLength;  ///< line length last put into Text6 by the dialog itself
};

}  // namespace tarnvik
