#include "setup/rechinfo.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/su_file.h"
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

const std::string from_headers = "from the headers: ";

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
    const bool of_headers = Shots_Are_Those_Of_Headers();
    const auto places = of_headers ? Headers.ShotPlaces : Even_Shot_Places(Val(LineLength), shots, Offsets);
    // A record has the elevation of its shot; of another number of shots nobody knows which is which.
    const bool elevations =
        shots > 0 && Headers_Count() && Headers.ShotElevations.size() == static_cast<std::size_t>(shots);
    for (int shot = 1; shot <= shots; ++shot) {
        const auto at = static_cast<std::size_t>(shot) - 1;
        ShotTable.Set_Text(shot, 0, (SeveralSpreads ? "Station " : "Shot ") + CStr(shot));
        ShotTable.Set_Text(shot, DistanceColumn, CStr(Filed_Place(places[at])));
        ShotTable.Set_Text(shot, ElevationColumn, CStr(elevations ? Headers.ShotElevations[at] : 0));
        ShotTable.At(shot, DistanceColumn).Align = TextGrid::Alignment::Right;
        ShotTable.At(shot, ElevationColumn).Align = TextGrid::Alignment::Right;
    }
    ShotTableNote = "Distances " + (of_headers ? from_headers + Headers.ShotWords : "evenly spread");
    if (elevations) ShotTableNote += "; elevations " + (from_headers + Headers.ElevationWords);
}

bool rechinfo::Stands_As_Offered(const std::string& field, const OfferedValue& offer) const {
    return Val(field) == Val(offer.Text) && !Trim(field).empty();
}

bool rechinfo::Spread_Is_That_Of_Headers() const {
    return Headers_Count() && Headers.Spacing && Stands_As_Offered(Spacing, OfferedSpacing) &&
           Stands_As_Offered(Geophones, OfferedGeophones);
}

bool rechinfo::Shots_Are_Those_Of_Headers() const {
    return Spread_Is_That_Of_Headers() && Offsets == Headers.Offsets && LineLength == DerivedLength &&
           Headers.ShotPlaces.size() == static_cast<std::size_t>(Shots_For_Table());
}

void rechinfo::Clear() {
    for (std::string* field : {&Spacing, &FirstDistance, &Shots, &ShotDepth})
        field->clear();
    Offsets = false;
    SeveralSpreads = false;
    FromHeaders = true;
}

void rechinfo::Make_Offers() {
    const auto offer = [this](const std::optional<double>& told, const std::string& words,
                              const std::string& otherwise) -> OfferedValue {
        if (Headers_Count() && told) return {CStr(*told), from_headers + words};
        return {otherwise, "default"};
    };
    OfferedSpacing = offer(Headers.Spacing, Headers.SpacingWords, CStr(Line->Project.GeoSpace));
    OfferedFirstDistance = offer(Headers.FirstDistance, Headers.FirstDistanceWords, "0");
    OfferedDepth = offer(Headers.ShotDepth, Headers.DepthWords, "0");
    const RecordedSpread recorded = Recorded_Spread(Su_Path(Line->Project)).value_or(RecordedSpread());
    OfferedGeophones = {CStr(int{recorded.Channels}), from_headers + "tracf"};
    OfferedShots = {CStr(recorded.Records), from_headers + "tracf"};
    if (recorded.Channels == 0 && Line->Record.ChannelsPerRecord > 0) {
        OfferedGeophones = {CStr(int{Line->Record.ChannelsPerRecord}), "as told when the file was loaded"};
        OfferedShots = {CStr(int{Line->Record.NbRecords}), "as told when the file was loaded"};
    }
    if (Headers_Count() && Headers.SpreadMoves) {
        OfferedGeophones = {CStr(static_cast<int>(Headers.ReceiverPlaces.size())),
                            from_headers + Headers.SpacingWords};
    }
}

void rechinfo::Take_Offers() {
    Spacing = OfferedSpacing.Text;
    FirstDistance = OfferedFirstDistance.Text;
    ShotDepth = OfferedDepth.Text;
    Geophones = OfferedGeophones.Text;
    Shots = OfferedShots.Text;
    Offsets = Headers_Count() && Headers.Offsets;
    LineLength.clear();
}

void rechinfo::Affichage(Workspace& line) {
    Line = &line;
    Cancelled = false;
    SuTraces file(Su_Path(Line->Project));
    const int channels =
        Line->Record.ChannelsPerRecord > 0
            ? int{Line->Record.ChannelsPerRecord}
            : int{Recorded_Spread(Su_Path(Line->Project)).value_or(RecordedSpread()).Channels};
    Headers = Geometry_Of_Headers(Read_Place_Words(file), channels);
    Remarks.clear();
    for (const std::string& remark : Headers.Remarks)
        Remarks += (Remarks.empty() ? "" : "\n") + remark;
    Make_Offers();
    if (Trim(Spacing).empty()) Spacing = OfferedSpacing.Text;
    if (Trim(FirstDistance).empty()) FirstDistance = OfferedFirstDistance.Text;
    if (Trim(ShotDepth).empty()) ShotDepth = OfferedDepth.Text;
    Geophones = OfferedGeophones.Text;
    if (Val(Shots) == 0) {
        if (SeveralSpreads) {
            Ask_Stations();
        } else {
            Shots = OfferedShots.Text;
        }
    }
    if (Spread_Is_That_Of_Headers()) Offsets = Headers.Offsets;
    LineLength = DerivedLength;
    Focus = Line->NoOffsetShots ? Field::Spacing : Field::FirstDistance;
    Offset_or_Not();
}

void rechinfo::Offset_or_Not() {
    if (LineLength == DerivedLength || Trim(LineLength).empty()) {
        const bool told = Spread_Is_That_Of_Headers() && Headers.LineLength;
        DerivedLength =
            CStr(told ? *Headers.LineLength : Val(Spacing) * std::max(Rounded(Val(Geophones)) - 1, 0.0));
        LineLength = DerivedLength;
    }
    FirstDistanceCaption =
        Offsets ? "Distance from Geophone1 to shot 2" : "Distance from Geophone1 to shot 1";
    Fill_Shot_Table();
    Write_Notes();
    dessine_squetch();
    Outside.Show.Show_Fields();
}

void rechinfo::Distance_Or_Depth_Changed() {
    Write_Notes();
    dessine_squetch();
    Outside.Show.Show_Fields();
}

void rechinfo::From_Headers_Changed() {
    Make_Offers();
    Take_Offers();
    Offset_or_Not();
}

void rechinfo::Write_Notes() {
    const auto note = [this](const std::string& field, const OfferedValue& offer) {
        return Stands_As_Offered(field, offer) ? offer.Origin : std::string("typed");
    };
    SpacingNote = note(Spacing, OfferedSpacing);
    FirstDistanceNote = note(FirstDistance, OfferedFirstDistance);
    GeophonesNote = note(Geophones, OfferedGeophones);
    ShotsNote = note(Shots, OfferedShots);
    ShotDepthNote = note(ShotDepth, OfferedDepth);
    const bool told = Spread_Is_That_Of_Headers() && Headers.LineLength;
    LineLengthNote = LineLength != DerivedLength ? "typed"
                     : told                      ? from_headers + Headers.ShotWords
                                                 : "default: spacing x (geophones - 1)";
    OffsetsNote = Shots_Are_Those_Of_Headers() ? from_headers + Headers.FirstDistanceWords : std::string();
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
    if (!Spread_Is_That_Of_Headers()) return spread;
    spread.ReceiverElevations = Headers.ReceiverElevations;
    if (!Headers.Even && Stands_As_Offered(FirstDistance, OfferedFirstDistance) &&
        static_cast<double>(Headers.ReceiverPlaces.size()) == spread.NbReceivers)
        spread.ReceiverPlaces = Headers.ReceiverPlaces;
    return spread;
}

void rechinfo::dessine_squetch() {
    const Spread spread = Read_Spread();
    const auto place_of = [&spread](int receiver) {
        return spread.ReceiverPlaces.empty() ? spread.FirstDistance + receiver * spread.Spacing
                                             : spread.ReceiverPlaces[static_cast<std::size_t>(receiver)];
    };
    const double last_receiver =
        spread.ReceiverPlaces.empty()
            ? spread.FirstDistance + spread.Spacing * std::max(spread.NbReceivers - 1, 0.0)
            : spread.ReceiverPlaces.back();
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
        const double x = place_of(receiver);
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
    // What was offered of the former file gives way, what was typed stays.
    for (const auto& [field, offer] :
         {std::pair{&Spacing, &OfferedSpacing}, std::pair{&FirstDistance, &OfferedFirstDistance},
          std::pair{&ShotDepth, &OfferedDepth}}) {
        if (Stands_As_Offered(*field, *offer) && offer->Origin.starts_with(from_headers)) field->clear();
    }
    Shots.clear();
    Affichage(*Line);
}

void rechinfo::Cancel() {
    Cancelled = true;
    Outside.Show.Close_Dialog(Dialog::rechinfo);
}

}  // namespace tarnvik
