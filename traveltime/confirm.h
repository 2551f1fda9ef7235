#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/file_routines.h"
#include "traveltime/speed_f.h"

namespace tarnvik {

/// Dialog `confirm`, "Record data": writes the last velocity of SpeedF into the project, on the side of the
/// shot that the stretch lies on, and saves the project file at once.
class Confirm {
  public:
    Confirm(Workspace& workspace, Ports& ports, SpeedF& speed, FileRoutines files = {});

    std::string Shot;
    std::string Layer;
    std::string Intercept;  ///< ms
    std::string Velocity;   ///< whole part
    std::string ProjectFile;

    void Load();      ///< the form opens
    void Command1();  ///< "OK Save"
    void Command2();  ///< "Cancel"

  private:
    int Side_Of_Recording();

    Workspace& Work;
    Ports& Outside;
    SpeedF& Speed;
    FileRoutines Files;
};

/// Side that a stretch between two receivers at `first` and `last` (any order) is recorded on: 1 A, 24 B, 36
/// both. A shot exactly at one end keeps `side`; an end shot and an offset shot are recorded on both.
int Recording_Side(int side, double shot_distance, double first, double last, double line_length);

/// Stores a velocity of layer 1 to 5 and, from layer 2 on, its intercept on a side of a shot. A velocity that
/// does not fit its place, or a place that does not exist, is left out.
void Record_Velocity(Project& project, int shot, int layer, int side, double velocity, double intercept);

}  // namespace tarnvik
