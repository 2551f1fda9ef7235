#include <map>

#include "app/session.h"
#include "ui/form.h"
#include "ui/forms/abc_grid_form.h"
#include "ui/forms/auto_pik_form.h"
#include "ui/forms/confirm_form.h"
#include "ui/forms/conversion_form.h"
#include "ui/forms/delay_form.h"
#include "ui/forms/depth_form.h"
#include "ui/forms/dip_form.h"
#include "ui/forms/erase_form.h"
#include "ui/forms/fantom_form.h"
#include "ui/forms/grm_depth_form.h"
#include "ui/forms/grm_form.h"
#include "ui/forms/hand_velocity_form.h"
#include "ui/forms/header_form.h"
#include "ui/forms/history_form.h"
#include "ui/forms/keys_form.h"
#include "ui/forms/new_profile_form.h"
#include "ui/forms/picture_export_form.h"
#include "ui/forms/quick_form.h"
#include "ui/forms/resu_form.h"
#include "ui/forms/rezize_form.h"
#include "ui/forms/ruler_form.h"
#include "ui/forms/second_window_form.h"
#include "ui/forms/speed_form.h"
#include "ui/forms/splash_form.h"
#include "ui/forms/theoric_form.h"
#include "ui/forms/true_velocity_form.h"
#include "ui/forms/update_fldr_form.h"
#include "ui/forms/velocity_line_form.h"
#include "ui/forms/zoom_form.h"

namespace tarnvik {

namespace {

template <class FormType>
std::unique_ptr<Form> Make(Session& session, QtDisplay& display) {
    return std::make_unique<FormType>(session, display);
}

std::unique_ptr<Form> Make_Conversion(Session& session, QtDisplay&) {
    return std::make_unique<ConversionForm>(session.FieldFiles);
}

}  // namespace

MakeForm Form_Of(Dialog dialog) {
    // One line for each dialog that has a form; all else about it stands in its row.
    static const std::map<Dialog, MakeForm> forms = {
        {Dialog::frmSplash, Make<SplashForm>},
        {Dialog::AutoPik, Make<AutoPikForm>},
        {Dialog::SpeedF, Make<SpeedForm>},
        {Dialog::SpeedF2, Make<TrueVelocityForm>},
        {Dialog::SpeedF3, Make<HandVelocityForm>},
        {Dialog::vELINE, Make<VelocityLineForm>},
        {Dialog::dip, Make<DipForm>},
        {Dialog::confirm, Make<ConfirmForm>},
        {Dialog::Fcalcul, Make<DepthForm>},
        {Dialog::quick_interpret, Make<QuickForm>},
        {Dialog::FantomF, Make<FantomForm>},
        {Dialog::Theoric_F, Make<TheoricForm>},
        {Dialog::Erase_TT, Make<EraseForm>},
        {Dialog::DelayF, Make<DelayForm>},
        {Dialog::ABCGridF, Make<AbcGridForm>},
        {Dialog::GRM, Make<GrmForm>},
        {Dialog::GRM_depth, Make<GrmDepthForm>},
        {Dialog::resu, Make<ResuForm>},
        {Dialog::rechinfo, Make<NewProfileForm>},
        {Dialog::Conversion, Make_Conversion},
        {Dialog::Header, Make<HeaderForm>},
        {Dialog::rezize, Make<RezizeForm>},
        {Dialog::Update_FLDR, Make<UpdateFldrForm>},
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
