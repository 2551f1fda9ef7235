#include <map>

#include "ui/form.h"
#include "ui/forms/auto_pik_form.h"
#include "ui/forms/confirm_form.h"
#include "ui/forms/depth_form.h"
#include "ui/forms/new_profile_form.h"
#include "ui/forms/ruler_form.h"
#include "ui/forms/second_window_form.h"
#include "ui/forms/speed_form.h"
#include "ui/forms/splash_form.h"
#include "ui/forms/zoom_form.h"

namespace tarnvik {

namespace {

template <class FormType>
std::unique_ptr<Form> Make(Session& session, QtDisplay& display) {
    return std::make_unique<FormType>(session, display);
}

const std::map<Dialog, FormKind>& Registry() {
    // One line for each dialog that has a form.
    static const std::map<Dialog, FormKind> registry = {
        {Dialog::frmSplash, {"Tarnvik", FormPlace::Box, Make<SplashForm>}},
        {Dialog::AutoPik, {"Automatic picking", FormPlace::Dock, Make<AutoPikForm>}},
        {Dialog::SpeedF, {"Velocity calculation", FormPlace::Dock, Make<SpeedForm>}},
        {Dialog::confirm, {"Record data", FormPlace::Box, Make<ConfirmForm>}},
        {Dialog::Fcalcul, {"Depth Computation", FormPlace::Dock, Make<DepthForm>}},
        {Dialog::rechinfo, {"New profile", FormPlace::Box, Make<NewProfileForm>}},
        {Dialog::Zoom, {"Enlargement factors", FormPlace::Dock, Make<ZoomForm>}},
        {Dialog::RulerF, {"Ruler", FormPlace::Dock, Make<RulerForm>}},
        {Dialog::Travel_Time_2, {"Travel times", FormPlace::Window, Make<SecondWindowForm>}},
    };
    return registry;
}

}  // namespace

const FormKind* Form_Of(Dialog dialog) {
    const auto found = Registry().find(dialog);
    return found == Registry().end() ? nullptr : &found->second;
}

std::vector<Dialog> Dialogs_With_Form() {
    std::vector<Dialog> dialogs;
    for (const auto& [dialog, kind] : Registry())
        dialogs.push_back(dialog);
    return dialogs;
}

}  // namespace tarnvik
