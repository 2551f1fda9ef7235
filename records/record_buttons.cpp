#include "records/record_buttons.h"

#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

void Show_Gain(Workspace& workspace, Ports& ports, double gain) {
    workspace.Record.AmplitudeGain = gain;
    ports.Show.Display_Record();
    ports.Show.Show_Fields();
}

}  // namespace

void Reduce_Trace_Size(Workspace& workspace, Ports& ports) {
    double gain = workspace.Record.AmplitudeGain * 0.75;
    if (const auto tenths = CInt(gain * 10)) gain = *tenths / 10.0;
    Show_Gain(workspace, ports, gain <= 0 ? 0.001 : gain);
}

void Enlarge_Trace_Size(Workspace& workspace, Ports& ports) {
    Show_Gain(workspace, ports, workspace.Record.AmplitudeGain * 2);
}

void Turn_Display_Polarity(Workspace& workspace, Ports& ports) {
    std::int16_t& polarity = workspace.Record.DisplayPolarity;
    if (polarity == 1 || polarity == -1) {
        polarity = static_cast<std::int16_t>(-polarity);
    } else {
        ports.Ask.Say(CStr(polarity), workspace.AppTitle);
    }
    ports.Show.Display_Record();
}

void Open_Or_Close_AutoPik(Workspace& workspace, Ports& ports) {
    if (ports.Show.Is_Open(Dialog::AutoPik)) {
        workspace.Record.AutoPickMode = 0;
        ports.Show.Close_Dialog(Dialog::AutoPik);
    } else {
        workspace.Record.AutoPickMode = -1;
        ports.Show.Open_Dialog(Dialog::AutoPik, false);
    }
}

void Ask_Pick_Time_Shift(Workspace& workspace, Ports& ports) {
    const std::string typed =
        ports.Ask.Input("Time shift in ms for picking FBP Minus=Up", workspace.AppTitle, "0");
    if (Trim(typed).empty()) return;
    workspace.Record.PickTimeShift = Val(typed);
    workspace.Fields.Status = "Time shift = " + CStr(workspace.Record.PickTimeShift) + " ms";
    ports.Show.Show_Fields();
}

}  // namespace tarnvik
