#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/file_routines.h"
#include "traveltime/hand_band.h"

namespace tarnvik {

/// Dialog "Velocity 2": velocity and intercept time of a line that the user draws along a branch by hand, and
/// their recording. The picture serves it in mode Vitesse2.
class SpeedF3 {
  public:
    SpeedF3(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::string Shot;       ///< Combo2
    std::string Layer;      ///< Combo1
    std::string Velocity;   ///< Text2
    std::string Intercept;  ///< Text4, ms

    /// Entries of the lists.
    std::vector<std::string> ShotEntries;
    std::vector<std::string> LayerEntries{"1", "2", "3", "4", "5"};

    void Load();   ///< the form opens
    void Close();  ///< the form closes
    /// A box got the focus: the picture serves this dialog again.
    void Enter();
    /// Another shot: the band's intercept is read there.
    void Shot_Changed();
    /// The band as it stands under the hand: its velocity and intercept are shown. A level one has none; the
    /// fields stay.
    void Take_Band(const HandBand& band);
    /// Nothing is drawn any more.
    void Drop_Band();
    bool Command1();  ///< "&Save"; true when the velocity stands in the project file
    /// Whether all is there that is to be recorded; finds the side. False after a message.
    bool Check();

  private:
    bool Refuse(const char* text);
    std::vector<Mark> Marks_Of_Band() const;
    void Show_Intercept();

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    std::optional<HandBand> Band;  ///< the one drawn last
    int LayerToSave = 0;
    std::int16_t VelocityToSave = 0;
};

}  // namespace tarnvik
