#include "ui/forms/zoom_form.h"

#include <QShortcut>

#include "app/session.h"
#include "core/text/number.h"
#include "ui_zoom_form.h"

namespace tarnvik {

namespace {

template <class Factors>
void Fill(QComboBox* list, const Factors& factors) {
    for (const std::string_view factor : factors)
        list->addItem(QString::fromUtf8(factor.data()));
}

}  // namespace

ZoomForm::ZoomForm(Session& session, QtDisplay&) {
    Ui::ZoomForm controls;
    controls.setupUi(this);
    Zoom& logic = session.ZoomDialog;
    logic.Combo1 = CStr(session.Work.Curves.ZoomX);
    logic.Combo2 = CStr(session.Work.Curves.ZoomY);
    Fill(controls.Combo1, Zoom::DistanceFactors);
    Fill(controls.Combo2, Zoom::TimeFactors);
    Fields.Text(controls.Combo1, logic.Combo1);
    Fields.Text(controls.Combo2, logic.Combo2);
    const auto done = [this, &logic] {
        logic.Command1();
        if (Close_Me) Close_Me();
    };
    Fields.Command(controls.Command1, done);
    auto* enter = new QShortcut(QKeySequence(Qt::Key_Return), this);
    enter->setContext(Qt::WidgetWithChildrenShortcut);
    connect(enter, &QShortcut::activated, this, done);
}

}  // namespace tarnvik
