#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/quick_limits.h"
#include "depth/quick_walk.h"
#include "traveltime/file_routines.h"

namespace tarnvik {

/// Dialog "Quick interpretation": a first model of one shot. Its curve is cut at limits that the hand drags
/// on the picture, each piece gives a velocity and an intercept time, and the thicknesses follow by intercept
/// times. Has the picture in mode Quick.
class QuickInterpret {
  public:
    /// Columns of Grid1; row k is layer k, its intercept times are those of the top of layer k.
    enum Column { VelocityLeft = 1, InterceptLeft, VelocityRight, InterceptRight, Thickness, Depth };
    /// Option1 to Option3.
    enum Side { Left, Right, Both };

    QuickInterpret(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::string Shot;           ///< Combo1
    std::string LayerCount;     ///< Combo2
    std::string ShotDepth;      ///< Text1
    std::string FirstGeophone;  ///< Text2 and Text3: filled when the dialog opens and never read, the fit
    std::string LastGeophone;   ///< always takes the whole line
    int SideChoice = Both;
    TextGrid Grid1;
    QuickLimits Limits{};
    /// All that the status label was told since the last computation began, oldest first.
    std::vector<std::string> Labels;

    /// Entries of the lists.
    std::vector<std::string> ShotEntries;
    std::vector<std::string> LayerEntries{"1", "2", "3", "4"};

    void Load();   ///< the form opens
    void Close();  ///< the form closes

    void Shot_Changed();    ///< Combo1
    void Layers_Changed();  ///< Combo2
    void Side_Changed();    ///< Option1 to Option3
    void Cells_Changed();   ///< a velocity or an intercept was typed: the depths follow
    void Command1();        ///< "OK, SAVE"
    void Command2();        ///< "Compute with grid values"
    void Command3();        ///< help
    /// Picks were changed elsewhere.
    void Picks_Changed();
    /// Shots, receivers or their places were changed elsewhere.
    void Line_Changed();

    /// Start or restart for the shot and the number of layers chosen.
    void Depart_Quick();
    /// The limits given take the place of those that stand; the curve is fitted between them.
    void Take_Limits(const QuickLimits& limits);
    /// Fits every layer between the limits; columns 1 to 4, then the depths.
    void Quick_Regression();
    /// Thicknesses and depths from the velocities and intercept times in the grid; empty where they do not
    /// allow any.
    void Quick_Depth();

    /// The limit under a press is caught; false when there is none.
    bool Catch_Limit(double x);
    /// The limit caught follows the hand: what its release would give is shown, and nothing is kept yet.
    void Drag_Limit(double x);
    /// The limit stays where it is let go. Without a limit caught nothing happens.
    void Release_Limit(double x);
    bool Limit_Caught() const { return Held.has_value(); }

    /// Number of the shot chosen; 0 for one that does not exist.
    int Shot_Number() const;
    int Layers() const;  ///< 1 to 4

  private:
    void Take_Picture();
    void Affiche_Grid();
    void Choose_Side();
    void Show_Curve();
    bool Walk(const QuickLimits& limits);
    void Compute_Depths();
    void Put(int row, int column, const std::string& text);
    void Put_Value(int row, int column, double value, bool own);
    void Show_Labels();
    std::string Value_Without_Room() const;
    std::vector<Mark> Marks() const;

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    QuickWalk Fitted;               ///< what is shown on the picture
    QuickLimits Shown{};            ///< limits on the picture: while one is dragged not those that stand
    TextGrid GridOfWalk;            ///< as the last fit has filled it
    std::optional<HeldLimit> Held;  ///< while the button is held
    double HandX = 0;
};

}  // namespace tarnvik
