#pragma once

#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/file_routines.h"
#include "traveltime/moving_curve.h"

namespace tarnvik {

/// Dialog "Shot Translation": the curve of one shot slides over that of another, until the branch of a
/// refractor lies on the same branch there. The intercept that the branch would have at a shot without a
/// direct arrival of its own is read by a click and recorded. Takes the picture in mode Fantom. No time of
/// the project changes.
class FantomF {
  public:
    static constexpr int range_low = -1000;  ///< of the scroll bar, tenths of a unit of the picture
    static constexpr int range_high = 1500;
    static constexpr int slope_left = 1;  ///< Option1: the branch rises from receiver 1, side A
    static constexpr int slope_right = 24;

    FantomF(Workspace& workspace, Ports& ports, FileRoutines files = {});

    std::string FixedShot;        ///< Combo1
    std::string MovingShot;       ///< Combo2
    std::string InterceptNumber;  ///< Combo3
    std::string InterceptTime;    ///< Text3, ms
    int Slope = 0;                ///< Option1, Option2; 0 while none is chosen
    ScrollBar VScroll1{0, range_low, range_high};
    std::string ShiftText;  ///< how far the curve is moved, ms
    /// Curves were coloured by velocity when the dialog opened: while it is open each has one colour.
    bool ColoursByVelocity = false;

    std::vector<std::string> ShotEntries;
    std::vector<std::string> NumberEntries{"1", "2", "3", "4"};

    void Load();   ///< the form opens
    void Close();  ///< the form closes
    /// Combo1 or Combo2: another pair stands unmoved.
    void Pair_Changed();
    void VScroll1_Changed();
    void Slope_Changed();  ///< Option1 or Option2
    /// A press on the picture serves this dialog again, whatever served itself of it meanwhile.
    void Take_Picture();
    /// Moves the curve by so many units of the picture, positive towards earlier times, within the range of
    /// the scroll bar. Shots that do not exist are told and corrected; the slope follows their places.
    void Slide_To(double shift);
    /// A press on the picture, at a height in its units: the time there.
    void Take_Time(double y);
    void Command2();  ///< "&Save "
    void Command6();  ///< "&CLS"

    /// Another count of shots is in memory.
    void Shots_Changed();

    const MovingCurve& Curve() const { return Moving; }
    /// The intercept was written to the project, and its file.
    bool Recorded() const { return HasRecorded; }

  private:
    int Correct_Shot(std::string& box);
    void Follow_Places();
    void Hide_Pair();
    void Draw_Fixed(Picture& picture) const;
    void Refuse(const std::string& text);
    bool Confirmed(int shot, int number, double intercept);

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    int Fixed = 0;  ///< shot drawn, 0 while the pair is not shown
    MovingCurve Moving;
    bool HasRecorded = false;
};

}  // namespace tarnvik
