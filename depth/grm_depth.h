#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Dialog "GRM  Depth computation": depths of three layers below every receiver with the XY that the user
/// chose. He gives velocities and the first thickness on a grid, at least below the first and the last
/// receiver; below the others they are interpolated.
class GRM_depth {
  public:
    /// Columns of GRM_Grid, those up to Bedrock also rows of GrmData.
    enum Column : int {
        Offset1 = 1,
        Offset2 = 2,
        Time = 3,
        V1 = 4,
        V2 = 5,
        V3 = 6,
        Z1 = 7,
        Z2 = 8,
        Bedrock = 9,
        Elevation = 10,
        Vref = 11,
    };

    GRM_depth(Workspace& workspace, Ports& ports);

    TextGrid GRM_Grid;              ///< row 0 headings, row r receiver r
    std::string TotalTime;          ///< Text3, ms
    std::string XYDistance;         ///< Text2, receivers
    std::string ReferenceVelocity;  ///< of the refractor for all receivers; without one each pair has its own
    std::string Hint;               ///< what there is to say about the cell
    bool GrmReady = false;          ///< the interpolation succeeded
    std::function<void()> OnComputed;  ///< draws the profile with the GRM depths

    void Load();                ///< the form opens
    void Close();               ///< the form closes
    void Command1();            ///< "&SAVE"
    void Command2();            ///< "&CALCUL"
    void Command3();            ///< "&INFO"
    void Command5();            ///< "&LoadGRM"
    void Clear_Interpolated();  ///< empties what the interpolation filled

    /// What is typed into a cell; false for a cell that takes nothing and for a text that is no number. A 0
    /// empties the cell.
    bool Type(int row, int column, const std::string& text);
    bool Editable(int row, int column) const;
    /// The user has gone to a cell.
    void Enter_Cell(int column);
    static bool Is_Computed(int column);
    /// True for a cell that an interpolation filled.
    bool Is_Interpolated(int row, int column) const;

    /// The project changed, by an undo or by another dialog: the cells that it changed follow.
    void Follow();

  private:
    bool Has_Line() const;
    void Fill();
    void Show_Value(int row, int column);
    void Put(int row, int column, const std::string& text);
    void Note_Data();
    int Take_XY();
    void Compute();
    void Compute_Times(int half);
    void Interpolate_Grid();
    void Compute_Grid(int row);
    void Grid_To_Data();
    void Say(const std::string& text, Icon icon = Icon::None);

    Workspace& Work;
    Ports& Outside;
    std::set<std::pair<int, int>> Interpolated;  ///< (row, column)
    // What the grid was filled from.
    std::string FilledFile;
    Array2<double> FilledData;
    double FilledTotalTime = 0;
};

}  // namespace tarnvik
