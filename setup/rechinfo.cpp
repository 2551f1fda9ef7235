#include "setup/rechinfo.h"

#include <algorithm>
#include <cmath>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/su_loading.h"
#include "setup/geometry.h"

namespace tarnvik {

namespace {

/// Rows shown of a count that a user may have mistyped; more shots are refused later on, in words.
constexpr int most_rows = 1000;
constexpr int most_marks = 2000;  ///< receivers drawn on the sketch

// The sketch: the line lies across the middle, shots above it, receivers below.
constexpr double sketch_top = 100;
constexpr double line_height = 45;
constexpr double receiver_mark = 6;
constexpr double shot_height = 60;
constexpr double number_height = 71;
constexpr double offset_word_height = 83;
constexpr double reference_height = 30;
constexpr double number_room = 0.03;    ///< of the width; numbers of shots that are closer are left out
constexpr double sketch_margin = 0.08;  ///< of the width, at either side

}  // namespace

int rechinfo::Shots_For_Table() const {
    return static_cast<int>(std::clamp(Rounded(Val(Shots)), 0.0, static_cast<double>(most_rows)));
}

void rechinfo::Fill_Shot_Table() {
    const int shots = Shots_For_Table();
    ShotTable = TextGrid(shots + 1, 3);
    ShotTable.Set_Text(0, 0, "Shot");
    ShotTable.Set_Text(0, DistanceColumn, "Shot dist to End Shot");
    ShotTable.Set_Text(0, ElevationColumn, "Shot elevation");
    const auto places = Even_Shot_Places(Val(LineLength), shots, Offsets);
    for (int shot = 1; shot <= shots; ++shot) {
        ShotTable.Set_Text(shot, 0, (SeveralSpreads ? "Station " : "Shot ") + CStr(shot));
        ShotTable.Set_Text(shot, DistanceColumn,
                           CStr(Filed_Place(places[static_cast<std::size_t>(shot) - 1])));
        ShotTable.Set_Text(shot, ElevationColumn, "0");
        ShotTable.At(shot, DistanceColumn).Align = TextGrid::Alignment::Right;
        ShotTable.At(shot, ElevationColumn).Align = TextGrid::Alignment::Right;
    }
}

void rechinfo::Clear() {
    for (std::string* field : {&Spacing, &FirstDistance, &Shots, &ShotDepth})
        field->clear();
    Offsets = false;
    SeveralSpreads = false;
}

void rechinfo::Affichage(Workspace& line) {
    Line = &line;
    Cancelled = false;
    const RecordedSpread recorded = Recorded_Spread(Su_Path(Line->Project)).value_or(RecordedSpread());
    if (Trim(Spacing).empty()) Spacing = CStr(Line->Project.GeoSpace);
    if (Trim(FirstDistance).empty()) FirstDistance = "0";
    if (Trim(ShotDepth).empty()) ShotDepth = "0";
    Geophones = CStr(int{recorded.Channels});
    if (Val(Shots) == 0) {
        if (SeveralSpreads) {
            Ask_Stations();
        } else {
            Shots = CStr(recorded.Records);
        }
    }
    LineLength = DerivedLength;
    Focus = Line->NoOffsetShots ? Field::Spacing : Field::FirstDistance;
    Offset_or_Not();
}

void rechinfo::Offset_or_Not() {
    if (LineLength == DerivedLength || Trim(LineLength).empty()) {
        DerivedLength = CStr(Val(Spacing) * std::max(Rounded(Val(Geophones)) - 1, 0.0));
        LineLength = DerivedLength;
    }
    FirstDistanceCaption =
        Offsets ? "Distance from Geophone1 to shot 2" : "Distance from Geophone1 to shot 1";
    Fill_Shot_Table();
    dessine_squetch();
    Outside.Show.Show_Fields();
}

void rechinfo::Ask_Stations() {
    const std::string typed =
        Outside.Ask.Input("Enter number of shot location (stations)", Line->AppTitle, Shots);
    if (Val(typed) > 0) Shots = CStr(Rounded(Val(typed)));
}

void rechinfo::Multi_Spread_Changed() {
    if (SeveralSpreads) Ask_Stations();
    Offset_or_Not();
}

Spread rechinfo::Read_Spread() const {
    Spread spread;
    spread.Spacing = Val(Spacing);
    spread.FirstDistance = Val(FirstDistance);
    spread.NbReceivers = Rounded(Val(Geophones));
    spread.NbShots = Rounded(Val(Shots));
    spread.ShotDepth = Val(ShotDepth);
    spread.LineLength = Val(LineLength);
    for (int row = 1; row < ShotTable.Rows(); ++row) {
        spread.ShotPlaces.push_back(ShotTable.Value(row, DistanceColumn));
        spread.ShotElevations.push_back(ShotTable.Value(row, ElevationColumn));
    }
    return spread;
}

void rechinfo::dessine_squetch() {
    const Spread spread = Read_Spread();
    const double last_receiver =
        spread.FirstDistance + spread.Spacing * std::max(spread.NbReceivers - 1, 0.0);
    double left = std::min({0.0, spread.FirstDistance, last_receiver});
    double right = std::max({spread.LineLength, spread.FirstDistance, last_receiver, left + 1});
    for (const double place : spread.ShotPlaces) {
        left = std::min(left, place);
        right = std::max(right, place);
    }
    const double margin = (right - left) * sketch_margin;
    const double width = right - left;

    Picture& picture = Outside.Show.Canvas_Of(Canvas::Profile2);
    picture.Clear();
    picture.Scale(left - margin, sketch_top, right + margin, 0);
    picture.Line(left, line_height, right, line_height, colours::Black);
    for (int receiver = 0; receiver < std::min(spread.NbReceivers, double{most_marks}); ++receiver) {
        const double x = spread.FirstDistance + receiver * spread.Spacing;
        picture.Line(x, line_height, x, line_height - receiver_mark, colours::Blue);
    }
    const double half_bar = width / 400;
    picture.Box(-half_bar, line_height, half_bar, reference_height, colours::Green, true);
    picture.Print_At(0, reference_height, "Reference Distance", colours::Green);
    double numbered = left - width;
    for (std::size_t i = 0; i < spread.ShotPlaces.size(); ++i) {
        const double x = spread.ShotPlaces[i];
        picture.Line(x, line_height, x, shot_height, colours::Red);
        if (std::abs(x - numbered) >= number_room * width) {
            picture.Print_At(x, number_height, "S" + CStr(static_cast<int>(i) + 1), colours::Red);
            numbered = x;
        }
        if (x < 0 || x > spread.LineLength) picture.Print_At(x, offset_word_height, "Offset", colours::Red);
    }
}

void rechinfo::Sketch_Mouse_Move(double x) {
    DistanceReadout = "Distance:" + CStr(Int(10 * x) / 10);
    Outside.Show.Show_Fields();
}

void rechinfo::Ok() {
    // Without these the curves could not be drawn later on.
    if (!(Val(Spacing) > 0) || !(Val(LineLength) > 0) || !(Val(Geophones) >= 1) || !(Val(Shots) >= 1)) {
        Outside.Ask.Say(
            "Geophone spacing, line length, number of geophones and number of shots must be above 0",
            Line->AppTitle, Icon::Warning);
        return;
    }
    Cancelled = false;
    Outside.Show.Close_Dialog(Dialog::rechinfo);
}

void rechinfo::Another_Su() {
    if (!Load_SU_File(*Line, Outside)) return;
    Shots.clear();
    Affichage(*Line);
}

void rechinfo::Cancel() {
    Cancelled = true;
    Outside.Show.Close_Dialog(Dialog::rechinfo);
}

}  // namespace tarnvik
