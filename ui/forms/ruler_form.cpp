#include "ui/forms/ruler_form.h"

#include <QVBoxLayout>

#include "app/session.h"
#include "ui/painting/picture_file.h"
#include "ui/qt_display.h"

namespace tarnvik {

RulerForm::RulerForm(Session& session, QtDisplay& display) : Program(session) {
    regle = new PictureBox;
    regle->setObjectName("regle");
    regle->setToolTip(tr("Time scale of the curves: float the window to lay it against a curve"));
    regle->setMinimumWidth(static_cast<int>(Curves_Layout().StripY * logicalDpiX() / 72));
    regle->Set_Size_Hint({80, 480});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(regle);
    display.Register(Canvas::Regle, regle);
    connect(regle, &PictureBox::Resized, this, [this] { Refresh(); });
}

void RulerForm::Refresh() {
    Program.Ruler.ruler_dromo();
}

}  // namespace tarnvik
