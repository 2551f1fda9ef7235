#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "core/workspace.h"
#include "depth/abc_depths.h"
#include "depth/abc_interpolation.h"
#include "traveltime/file_routines.h"

namespace tarnvik {

/// Dialog "ABC Grid": depths of up to four layers below every receiver from its delay, with intercept times
/// and velocities that are interpolated between the shots or typed on the grid.
class ABCGridF {
  public:
    /// What AbcOption holds.
    static constexpr std::int16_t grid_values = 0;      ///< Option1, the values on the grid
    static constexpr std::int16_t interpolation = 999;  ///< Option2, values between the shots

    ABCGridF(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::int16_t AbcOption = interpolation;
    std::string Layers;  ///< Text2, number of layers
    std::string Title;   ///< of the form: the line whose delays it works on
    TextGrid ABCGrid;    ///< a row a value, a column a receiver
    TextGrid ABCGrid2;   ///< a column a shot; shown, not for typing
    double LargestRock = 0;
    bool Computed = false;  ///< the last computation went through

    /// Shows the profile with the depths computed; set by whoever can draw it.
    std::function<void()> Show_Profile;

    void Load();   ///< the form opens
    void Close();  ///< the form closes
    void Option_Changed();
    void CalculBt();
    void SaveBt();    ///< "&Save"
    void Command1();  ///< info
    /// The project has changed beside the dialog: the grids are filled anew.
    void Project_Went_Back();

    /// A value that the user may correct with "Grid Values".
    bool Editable(int row, int column) const;
    /// False, after a message, for a cell that holds no such value and for a number that no project can hold.
    bool Type(int row, int column, const std::string& text);
    /// A double click on a cell that cannot be changed is told so.
    void Double_Clicked(int row, int column);
    void Shot_Grid_Touched();  ///< any try to edit the lower grid

  private:
    void Fill_Grids();
    void Fill_Receivers();
    void Fill_Shots();
    void Read_Grid_Values(AbcReceivers& receivers) const;
    bool Interpolate(int layers, AbcReceivers& receivers);
    void Say(const std::string& text, Icon icon = Icon::None);
    void Refuse_And_Close(const std::string& text);

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    AbcShots Shots;  ///< keeps what a computation with fewer layers does not store
};

}  // namespace tarnvik
