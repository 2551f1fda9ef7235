#include "ui/record_page.h"

#include <QGridLayout>
#include <QLabel>
#include <cmath>

#include "app/session.h"
#include "ui/magnifier_box.h"
#include "ui/notice_label.h"
#include "ui/painting/picture_file.h"
#include "ui/picking_menu.h"
#include "ui/qt_display.h"
#include "ui/record_controls.h"
#include "ui/record_keys.h"
#include "ui/trace_size_strip.h"

namespace tarnvik {

namespace {

RecordEvent On_Record(const PictureEvent& event) {
    constexpr int left_button = 1;
    constexpr int right_button = 2;
    return {event.X, event.Y, event.RightButton ? right_button : event.LeftButton ? left_button : 0};
}

}  // namespace

RecordPage::RecordPage(Session& session, QtDisplay& display) : Program(session) {
    Controls = new RecordControls(session);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->setSpacing(4);
    layout->addWidget(Controls);
    layout->addWidget(Pictures(display), 1);

    auto* reminder = new QLabel("Click Right mouse button to  cancel FBP");
    reminder->setObjectName("Label13");
    reminder->setToolTip("<qt>" + Pick_Legend() + "</qt>");
    auto* path = new NoticeLabel(false);
    path->setObjectName("Label16");
    path->setToolTip(tr("SU file of the record"));
    path->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* below = new QHBoxLayout;
    below->addWidget(reminder);
    below->addWidget(path, 1);
    layout->addLayout(below);
    Fields.Text(path, session.Work.Fields.Label16);

    Wire_Record();
    Magnifier = new MagnifierBox(session, display, Ecran);
    new RecordKeys(session, this, Ecran);
    Wire_Time_Scale();
    Resized.setSingleShot(true);
    Resized.setInterval(0);
    connect(&Resized, &QTimer::timeout, this, &RecordPage::Redraw);
    connect(Ecran, &PictureBox::Resized, this, [this] { Resized.start(); });
    connect(Echelle3, &PictureBox::Resized, this, [this] { Resized.start(); });
    Refresh();
}

void RecordPage::Redraw() {
    if (!Program.Work.Project.SuFile.empty()) Program.Outside.Show.Display_Record();
    Sizes->Refresh();
}

QWidget* RecordPage::Pictures(QtDisplay& display) {
    auto* pane = new QWidget;
    Ecran = new PictureBox;
    Echelle3 = new PictureBox;
    Ecran->setObjectName("Ecran");
    Echelle3->setObjectName("Echelle3");
    Ecran->setAccessibleName(tr("Field record"));
    Echelle3->setToolTip(tr("Drag here to show a part of the time"));
    const PageLayout page = Record_Layout();
    Ecran->Canvas().Set_Margins(page.Margins);
    Echelle3->Canvas().Set_Margins({.Right = page.StripYRoom});
    Echelle3->Canvas().Follow_Rows_Of(&Ecran->Canvas());
    Echelle3->setFixedWidth(static_cast<int>(std::lround(page.StripY * logicalDpiX() / 72.0)));
    Echelle3->setFocusPolicy(Qt::NoFocus);
    display.Register(Canvas::Ecran, Ecran);
    display.Register(Canvas::Echelle3, Echelle3);
    Sizes = new TraceSizeStrip(Program, *Ecran);

    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(Sizes, 0, 1);
    grid->addWidget(Echelle3, 1, 0);
    grid->addWidget(Ecran, 1, 1);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
    return pane;
}

void RecordPage::Wire_Record() {
    RecordPointer& mouse = Program.RecordMouse;
    const auto press = [&mouse](const PictureEvent& event) { mouse.Press(On_Record(event)); };
    connect(Ecran, &PictureBox::Pressed, this, press);
    // Two picks in quick succession are no double click.
    connect(Ecran, &PictureBox::Double_Clicked, this, press);
    connect(Ecran, &PictureBox::Moved, this,
            [&mouse](const PictureEvent& event) { mouse.Move(On_Record(event)); });
    connect(Ecran, &PictureBox::Released, this,
            [&mouse](const PictureEvent& event) { mouse.Release(On_Record(event)); });
    connect(Ecran, &PictureBox::Wheel_Turned, this, [this](double steps, Qt::KeyboardModifiers modifiers) {
        if (!modifiers.testFlag(Qt::ControlModifier) || steps == 0) return;
        Controls->Run(steps > 0 ? "Command15" : "Command10");
    });
}

void RecordPage::Wire_Time_Scale() {
    RecordZoom& zoom = Program.RecordArea;
    connect(Echelle3, &PictureBox::Pressed, this,
            [&zoom](const PictureEvent& event) { zoom.Scale_Press(event.Y); });
    connect(Echelle3, &PictureBox::Moved, this,
            [&zoom](const PictureEvent& event) { zoom.Scale_Move(event.Y); });
    connect(Echelle3, &PictureBox::Released, this,
            [&zoom](const PictureEvent& event) { zoom.Scale_Release(event.Y); });
}

void RecordPage::Refresh() {
    Fields.Refresh();
    Controls->Refresh();
    Sizes->Refresh();
    Magnifier->Follow();
}

/// The keys belong to the picture as soon as the page is in sight.
void RecordPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Ecran->setFocus();
}

}  // namespace tarnvik
