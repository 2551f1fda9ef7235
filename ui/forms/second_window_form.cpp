#include "ui/forms/second_window_form.h"

#include <QVBoxLayout>

#include "app/session.h"
#include "traveltime/curve_drawing.h"
#include "ui/painting/picture_file.h"
#include "ui/qt_display.h"

namespace tarnvik {

SecondWindowForm::SecondWindowForm(Session& session, QtDisplay& display) : Program(session) {
    auto* dromo2 = new PictureBox;
    dromo2->setObjectName("Dromo2");
    dromo2->Canvas().Set_Margins(Curves_Layout().Margins);
    dromo2->Set_Size_Hint({720, 460});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(dromo2);
    display.Register(Canvas::Dromo2, dromo2);
    Resized.setSingleShot(true);
    Resized.setInterval(0);
    connect(dromo2, &PictureBox::Resized, this, [this] { Resized.start(); });
    connect(&Resized, &QTimer::timeout, this, [this, dromo2] {
        if (Program.Work.Project.ShotTimes.Last_Row() < 1) return;
        Draw_Curves_On(Program.Work, {dromo2->Canvas()});
    });
}

void SecondWindowForm::Closed() {
    Program.Work.Curves.DoubleView = 0;
}

}  // namespace tarnvik
