#include "app/record_choices.h"

#include <algorithm>
#include <string>

#include "records/first_display.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

/// What the choices belong to: the project, or its records while it has no file.
std::string Key_Of(const Project& project) {
    return project.CurrentFile.empty() ? Su_Path(project) : project.CurrentFile;
}

struct Named {
    const char* Name;
    bool RecordView::*Field;
};
constexpr Named switches[] = {
    {"record.clip", &RecordView::ClipAmplitude},
    {"record.equalise", &RecordView::EqualiseTraces},
    {"record.equalise_in_sight", &RecordView::EqualiseInSight},
    {"record.cross_hair", &RecordView::CrossHair},
};
struct NamedPicking {
    const char* Name;
    bool PickingView::*Field;
};
constexpr NamedPicking picking_switches[] = {
    {"picking.snap_every", &PickingView::SnapEvery},   {"picking.next_record", &PickingView::NextRecord},
    {"picking.neighbours", &PickingView::Neighbours},  {"picking.reciprocal", &PickingView::Reciprocal},
    {"picking.shot_before", &PickingView::ShotBefore},
};
constexpr const char* snap_name = "picking.snap_to";
constexpr const char* gain_name = "record.gain";
constexpr const char* style_name = "record.style";
constexpr const char* agc_name = "record.agc";
constexpr const char* polarity_name = "record.polarity";
constexpr int last_style = 3;

void Apply(const DisplayChoices& choices, const std::string& key, RecordView& view) {
    for (const Named& each : switches) {
        if (const auto value = choices.Number(key, each.Name)) view.*each.Field = *value != 0;
    }
    for (const NamedPicking& each : picking_switches) {
        if (const auto value = choices.Number(key, each.Name)) view.Picking.*each.Field = *value != 0;
    }
    if (const auto snap = choices.Number(key, snap_name)) {
        view.Picking.Feature =
            static_cast<SnapTo>(std::clamp(static_cast<int>(*snap), 0, static_cast<int>(SnapTo::Trough)));
    }
    if (const auto gain = choices.Number(key, gain_name); gain && *gain != 0) view.AmplitudeGain = *gain;
    if (const auto style = choices.Number(key, style_name))
        view.Style = static_cast<int>(std::clamp(*style, 0.0, double{last_style}));
    if (const auto agc = choices.Number(key, agc_name)) view.AgcWindow = std::max(0.0, *agc);
    if (const auto polarity = choices.Number(key, polarity_name))
        view.DisplayPolarity = *polarity < 0 ? -1 : 1;
}

}  // namespace

void Take_Up_Record_Choices(Workspace& workspace) {
    RecordView& view = workspace.Record;
    const std::string key = Key_Of(workspace.Project);
    if (!workspace.Choices.Are_Kept() || key.empty() || view.TakenUp == key) return;
    if (workspace.Choices.Number(key, gain_name)) {
        Apply(workspace.Choices, key, view);
    } else if (!Choose_First_Display(workspace, Su_Path(workspace.Project))) {
        return;
    }
    view.TakenUp = key;
    workspace.Choices.Save();
}

void Note_Record_Choices(Workspace& workspace) {
    const RecordView& view = workspace.Record;
    DisplayChoices& choices = workspace.Choices;
    // Records that could not be shown have no choices.
    if (!choices.Are_Kept() || view.TakenUp.empty() || view.TakenUp != Key_Of(workspace.Project)) return;
    for (const Named& each : switches)
        choices.Set_Number(view.TakenUp, each.Name, view.*each.Field ? 1 : 0);
    for (const NamedPicking& each : picking_switches)
        choices.Set_Number(view.TakenUp, each.Name, view.Picking.*each.Field ? 1 : 0);
    choices.Set_Number(view.TakenUp, snap_name, static_cast<double>(view.Picking.Feature));
    choices.Set_Number(view.TakenUp, gain_name, view.AmplitudeGain);
    choices.Set_Number(view.TakenUp, style_name, view.Style);
    choices.Set_Number(view.TakenUp, agc_name, view.AgcWindow);
    choices.Set_Number(view.TakenUp, polarity_name, view.DisplayPolarity);
}

}  // namespace tarnvik
