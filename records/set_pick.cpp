#include "records/set_pick.h"

#include <cmath>

#include "core/ports/picture.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {
constexpr const char* stored_format = "##00.00";
constexpr const char* cell_format = "###0.00";
constexpr double word_rounding = 0.051;  ///< ms that a header word may take from a time
}  // namespace

PickSetter::PickSetter(Workspace& workspace, std::optional<PickOrigin> origin)
    : Work(workspace), Origin(origin), Records(workspace), Spread(workspace, Records.Traces()) {}

void PickSetter::Set_Time(PickPlace place, double ms, PickDigits digits) {
    const double time = digits == PickDigits::All ? ms : Val(Format(ms, stored_format));
    if (place.Shot < 1 || place.Receiver < 1 || !Work.Project.ShotTimes.Has(place.Shot, place.Receiver))
        return;
    Work.Project.ShotTimes(place.Shot, place.Receiver) = static_cast<float>(time);
    if (Work.Project.PickOrigins.Has(place.Shot, place.Receiver)) {
        PickOrigin& origin = Work.Project.PickOrigins(place.Shot, place.Receiver);
        if (!(time > 0)) {
            origin = PickOrigin::Hand;
        } else if (Origin) {
            origin = *Origin;
        }
    }
    TextGrid& table = Work.Grids.Buildgrid;
    if (!table.Has(place.Receiver, place.Shot)) return;
    Show_Time(table.At(place.Receiver, place.Shot), static_cast<float>(time));
}

bool PickSetter::By_Hand(PickPlace place) const {
    const Project& project = Work.Project;
    return place.Shot >= 1 && place.Receiver >= 1 && project.ShotTimes.Has(place.Shot, place.Receiver) &&
           project.ShotTimes(place.Shot, place.Receiver) > 0 &&
           project.PickOrigins.Has(place.Shot, place.Receiver) &&
           project.PickOrigins(place.Shot, place.Receiver) != PickOrigin::Automatic;
}

void PickSetter::Take_Word(PickPlace place, double word) {
    const Project& project = Work.Project;
    if (!project.PickOrigins.Has(place.Shot, place.Receiver)) return;
    const PickOrigin former = project.PickOrigins(place.Shot, place.Receiver);
    const bool same = std::abs(project.ShotTimes(place.Shot, place.Receiver) - word / 10) < word_rounding;
    Set_Time(place, word / 10);
    if (same) Work.Project.PickOrigins(place.Shot, place.Receiver) = former;
}

bool PickSetter::Set_Trace(std::int64_t trace, double ms, PickDigits digits) {
    const bool saved = Records.Set_Word(trace, words::First_Breaks, ms * 10);
    const auto place = Spread.Place_Of(trace);
    if (!place) return saved;
    const bool known =
        place->Shot >= 1 && place->Receiver >= 1 && Work.Project.ShotTimes.Has(place->Shot, place->Receiver);
    if (known) {
        Set_Time(*place, ms, digits);
    } else if (Work.Project.NbShots > 0) {
        Work.Fields.Status = "Pick in the SU file only: the project has no receiver " +
                             CStr(place->Receiver) + " of shot " + CStr(place->Shot);
    }
    return saved;
}

bool PickSetter::Set_Place(PickPlace place, double ms, PickDigits digits) {
    Set_Time(place, ms, digits);
    if (Work.Project.SuFile.empty()) return true;
    if (const auto trace = Spread.Trace_Of(place))
        return Records.Set_Word(*trace, words::First_Breaks, ms * 10);
    Work.Fields.Status =
        "Pick not in the field records: " + Work.Project.SuFile + ": " +
        (Records.Is_Open() ? "no trace of shot " + CStr(place.Shot) + ", receiver " + CStr(place.Receiver)
                           : Records.Traces().Reason());
    return false;
}

void Set_Pick(Workspace& workspace, PickPlace place, double ms, PickDigits digits, PickOrigin origin) {
    const EditScope edit(workspace, Pick_Name(place));
    PickSetter picks(workspace, origin);
    picks.Set_Place(place, ms, digits);
    picks.Tell_Faults("Pick");
}

void Show_Time(TextGrid::Cell& cell, float time) {
    cell.Text = Format(time, cell_format);
    cell.Align = TextGrid::Alignment::Right;
    cell.ForeColour.reset();
    if (time < 0) cell.ForeColour = colours::Red;
}

std::string Pick_Name(PickPlace place) {
    return "Pick shot " + CStr(place.Shot) + ", receiver " + CStr(place.Receiver);
}

std::string Trace_Edit_Name(const std::string& what, const SpreadLayout& spread, std::int64_t trace) {
    const auto place = spread.Place_Of(trace);
    if (!place) return what + " trace " + CStr(static_cast<double>(trace));
    return what + " shot " + CStr(place->Shot) + ", receiver " + CStr(place->Receiver);
}

void Take_Header_Picks(PickSetter& picks, bool keep_hand) {
    SuTraces& file = picks.Files().Traces();
    const std::int64_t traces = picks.Files().Last_Trace();
    for (std::int64_t trace = 1; trace <= traces; ++trace) {
        const auto word = file.Word(trace, words::First_Breaks);
        if (!word) return;  // the file ends here
        const auto place = picks.Layout().Place_Of(trace);
        if (place && !(keep_hand && picks.By_Hand(*place))) picks.Take_Word(*place, *word);
    }
}

}  // namespace tarnvik
