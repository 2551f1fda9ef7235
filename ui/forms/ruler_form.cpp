#include "ui/forms/ruler_form.h"

#include <QButtonGroup>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/session.h"
#include "ui/painting/picture_file.h"
#include "ui/qt_display.h"

namespace tarnvik {

RulerForm::RulerForm(Session& session, QtDisplay& display)
    : Program(session), Curves(display.Box_Of(Canvas::Dromo)), Record(display.Box_Of(Canvas::Ecran)) {
    regle = new PictureBox;
    regle->setObjectName("regle");
    regle->setToolTip(tr("Time scale: float the window to lay it against a curve or a trace"));
    regle->setMinimumWidth(static_cast<int>(Curves_Layout().StripY * logicalDpiX() / 72));
    regle->Set_Size_Hint({80, 480});
    auto* choice = new QButtonGroup(this);
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& text, RulerF::Kind kind) {
        auto* button = new QToolButton;
        button->setObjectName(name);
        button->setText(text);
        button->setCheckable(true);
        button->setAutoRaise(true);
        choice->addButton(button, kind);
        buttons->addWidget(button);
    };
    add("ruler_dromo", tr("Curves"), RulerF::OfCurves);
    add("ruler_record", tr("Record"), RulerF::OfRecord);
    Fields.Choice(choice, session.Ruler.Against, [this] { Refresh(); });
    // The strip comes first: it begins where the picture beside it does.
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(regle, 1);
    layout->addLayout(buttons);
    display.Register(Canvas::Regle, regle);
    for (PictureBox* box : {regle, Curves.data(), Record.data()}) {
        if (box != nullptr) connect(box, &PictureBox::Resized, this, [this] { Refresh(); });
    }
}

void RulerForm::Refresh() {
    Fields.Refresh();
    const QPointer<PictureBox>& beside = Program.Ruler.Against == RulerF::OfRecord ? Record : Curves;
    // In a dock nobody can lay the strip against the picture: its rows stand beside those of the picture.
    const auto* dock = qobject_cast<const QDockWidget*>(parentWidget());
    const bool fixed =
        dock != nullptr && !dock->isFloating() && regle->isVisible() && beside && beside->isVisible();
    const int down = fixed ? beside->mapToGlobal(QPoint()).y() - regle->mapToGlobal(QPoint()).y() : 0;
    regle->Canvas().Follow_Rows_Of(beside ? &beside->Canvas() : nullptr, down * devicePixelRatioF());
    Program.Ruler.Draw();
}

}  // namespace tarnvik
