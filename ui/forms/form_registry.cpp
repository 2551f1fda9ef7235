#include <map>

#include "ui/form.h"
#include "ui/forms/auto_pik_form.h"
#include "ui/forms/confirm_form.h"
#include "ui/forms/depth_form.h"
#include "ui/forms/grm_depth_form.h"
#include "ui/forms/grm_form.h"
#include "ui/forms/history_form.h"
#include "ui/forms/keys_form.h"
#include "ui/forms/new_profile_form.h"
#include "ui/forms/picture_export_form.h"
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

}  // namespace

MakeForm Form_Of(Dialog dialog) {
    // One line for each dialog that has a form; all else about it stands in its row.
    static const std::map<Dialog, MakeForm> forms = {
        {Dialog::frmSplash, Make<SplashForm>},
        {Dialog::AutoPik, Make<AutoPikForm>},
        {Dialog::SpeedF, Make<SpeedForm>},
        {Dialog::confirm, Make<ConfirmForm>},
        {Dialog::Fcalcul, Make<DepthForm>},
        {Dialog::GRM, Make<GrmForm>},
        {Dialog::GRM_depth, Make<GrmDepthForm>},
        {Dialog::rechinfo, Make<NewProfileForm>},
        {Dialog::History, Make<HistoryForm>},
        {Dialog::Zoom, Make<ZoomForm>},
        {Dialog::RulerF, Make<RulerForm>},
        {Dialog::Travel_Time_2, Make<SecondWindowForm>},
        {Dialog::PictureExport, Make<PictureExportForm>},
        {Dialog::Keys, Make<KeysForm>},
    };
    const auto found = forms.find(dialog);
    return found == forms.end() ? nullptr : found->second;
}

}  // namespace tarnvik
