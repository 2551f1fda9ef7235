#include "ui/forms/picture_export_form.h"

#include "app/session.h"
#include "ui_picture_export_form.h"

namespace tarnvik {

namespace {

QString Name_Of_Page(Page page) {
    switch (page) {
        case Page::Curves:
            return QObject::tr("Travel times");
        case Page::Profile:
            return QObject::tr("Profile");
        case Page::Section:
            return PictureExportForm::tr("Coloured section");
        case Page::Record:
            break;
    }
    return QObject::tr("Field record");
}

}  // namespace

PictureExportForm::PictureExportForm(Session& session, QtDisplay&) {
    Ui::PictureExportForm controls;
    controls.setupUi(this);
    PictureExport& logic = session.SavePicture;
    for (const Page page : PictureExport::pages)
        controls.Picture->addItem(Name_Of_Page(page));
    for (const PictureSize& size : PictureExport::sizes)
        controls.Size->addItem(QString::fromUtf8(size.Name));
    const auto typed = [&logic] { logic.Typed(); };
    Fields.Choice(controls.Picture, logic.Choice, [&logic] { logic.Picture_Chosen(); });
    Fields.Choice(controls.Size, logic.Size, [&logic] { logic.Size_Chosen(); });
    Fields.Text(controls.PictureWidth, logic.Width, typed);
    Fields.Text(controls.PictureHeight, logic.Height, typed);
    Fields.Text(controls.Dpi, logic.Dpi, typed);
    Fields.Tick(controls.Millimetres, logic.Millimetres, [&logic] { logic.Unit_Changed(); });
    // The two exclude each other: setting one takes the other back, which is no choice of the user.
    QRadioButton* pixels = controls.Pixels;
    QRadioButton* millimetres = controls.Millimetres;
    Fields.Follow([pixels, millimetres, &logic] {
        const QSignalBlocker silent(millimetres);
        (logic.Millimetres ? millimetres : pixels)->setChecked(true);
    });
    Fields.Tick(controls.TitleBlock, logic.TitleBlock);
    Fields.Text(controls.Outcome, logic.Outcome);
    Fields.Enabled(controls.Save, [&logic] { return logic.Refusal().empty(); });
    Fields.Command(controls.Save, [&logic] { logic.Save(); });
    Fields.Command(controls.Cancel, [&logic] { logic.Cancel(); });
    // Room for the longest answer, so that the box does not change its size under the hand.
    controls.Outcome->setMinimumWidth(
        fontMetrics().horizontalAdvance("Width and height must be 64 to 20000 pixels, 200 million together"));
}

}  // namespace tarnvik
