#include "ui/record_page.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "app/session.h"
#include "records/record_readout.h"
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

QScrollBar* Bar(Qt::Orientation orientation, const char* name, const QString& tooltip) {
    auto* bar = new QScrollBar(orientation);
    bar->setObjectName(name);
    bar->setToolTip(tooltip);
    QSizePolicy policy = bar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    bar->setSizePolicy(policy);
    bar->hide();
    return bar;
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
    Wire_Scrolling();
    Magnifier = new MagnifierBox(session, display, Ecran);
    new RecordKeys(session, this, Ecran);
    Wire_Time_Scale();
    Resized.setSingleShot(true);
    Resized.setInterval(0);
    connect(&Resized, &QTimer::timeout, this, &RecordPage::Redraw);
    connect(Ecran, &PictureBox::Resized, this, [this] { Resized.start(); });
    connect(Echelle3, &PictureBox::Resized, this, [this] { Resized.start(); });
    connect(Above, &PictureBox::Resized, this, [this] { Resized.start(); });
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
    Above = new PictureBox;
    Above->setObjectName("RecordHeader");
    const double points = 72.0 / logicalDpiX();
    Above->Canvas().Set_Margins({.Left = Echelle3->minimumWidth() * points, .Right = page.Margins.Right});
    Above->setFixedHeight(static_cast<int>(std::lround(page.Header / points)));
    Above->setFocusPolicy(Qt::NoFocus);
    display.Register(Canvas::RecordHeader, Above);
    Down = Bar(Qt::Vertical, "RecordDown", tr("Time shown"));
    Across = Bar(Qt::Horizontal, "RecordAcross", tr("Traces shown"));

    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    auto* sizes = new QLabel(tr("Size"));
    sizes->setToolTip(tr("Size factors of the traces: left click doubles, right click halves"));
    sizes->setFont(Sizes->font());
    grid->addWidget(sizes, 0, 0);
    grid->addWidget(Sizes, 0, 1);
    grid->addWidget(Above, 1, 0, 1, 2);
    grid->addWidget(Echelle3, 2, 0);
    grid->addWidget(Ecran, 2, 1);
    grid->addWidget(Down, 2, 2);
    grid->addWidget(Across, 3, 1);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);
    return pane;
}

void RecordPage::Wire_Record() {
    RecordPointer& mouse = Program.RecordMouse;
    const auto press = [&mouse](const PictureEvent& event) {
        if (!event.MiddleButton) mouse.Press(On_Record(event));
    };
    connect(Ecran, &PictureBox::Pressed, this, press);
    // Two picks in quick succession are no double click.
    connect(Ecran, &PictureBox::Double_Clicked, this, press);
    connect(Ecran, &PictureBox::Moved, this,
            [&mouse](const PictureEvent& event) { mouse.Move(On_Record(event)); });
    connect(Ecran, &PictureBox::Released, this, [&mouse](const PictureEvent& event) {
        if (!event.MiddleButton) mouse.Release(On_Record(event));
    });
    connect(Ecran, &PictureBox::Left, this, [this] { Hide_Cross_Hair(Program.Outside); });
}

/// The wheel alone goes through the time, with Ctrl it enlarges the time and with Shift the traces at the
/// pointer, with Alt it turns the gain; the record follows the middle button.
void RecordPage::Wire_Scrolling() {
    RecordScroll& scroll = Program.RecordWheel;
    const auto turned = [&scroll](double steps, Qt::KeyboardModifiers modifiers, const PictureEvent& at) {
        if (modifiers.testFlag(Qt::ControlModifier)) {
            scroll.Enlarge_Time(at.Y, steps);
        } else if (modifiers.testFlag(Qt::ShiftModifier)) {
            scroll.Enlarge_Traces(at.X, steps);
        } else if (modifiers.testFlag(Qt::AltModifier)) {
            scroll.Turn_Gain(steps);
        } else {
            scroll.Pan(steps);
        }
    };
    connect(Ecran, &PictureBox::Wheel_Turned, this, turned);
    connect(Echelle3, &PictureBox::Wheel_Turned, this,
            [turned](double steps, Qt::KeyboardModifiers modifiers, const PictureEvent& at) {
                // Beside the record there are no traces to enlarge.
                turned(steps, modifiers & ~Qt::ShiftModifier, at);
            });
    connect(Ecran, &PictureBox::Pressed, this, [this, &scroll](const PictureEvent& event) {
        if (!event.MiddleButton) return;
        scroll.Grab(event.Across, event.Down);
        Ecran->setCursor(Qt::ClosedHandCursor);
    });
    connect(Ecran, &PictureBox::Moved, this, [&scroll](const PictureEvent& event) {
        if (event.MiddleButton) scroll.Drag_To(event.Across, event.Down);
    });
    connect(Ecran, &PictureBox::Released, this, [this, &scroll](const PictureEvent& event) {
        if (!event.MiddleButton || !scroll.Is_Held()) return;
        scroll.Let_Go();
        Ecran->setCursor(Qt::CrossCursor);
    });
    connect(Down, &QScrollBar::valueChanged, this, [this, &scroll](int first) {
        if (!Following) scroll.Go_To_Sample(first);
    });
    connect(Across, &QScrollBar::valueChanged, this, [this, &scroll](int first) {
        if (!Following) scroll.Go_To_Trace(first);
    });
}

/// The bars stand beside and below what is enlarged; their room stays, so that the record keeps its size.
void RecordPage::Refresh_Bars() {
    Following = true;
    const bool shown = Program.Work.Record.RecordWidth > 0;
    const auto follow = [shown](QScrollBar* bar, const Stretch& part, const Stretch& whole) {
        bar->setRange(whole.First, std::max(whole.First, whole.End - part.Length()));
        bar->setPageStep(std::max(1, part.Length()));
        bar->setSingleStep(std::max(1, part.Length() / 10));
        bar->setValue(part.First);
        bar->setVisible(shown && bar->maximum() > bar->minimum());
    };
    const RecordScroll& scroll = Program.RecordWheel;
    follow(Down, scroll.Samples(), scroll.All_Samples());
    follow(Across, scroll.Traces(), scroll.All_Traces());
    Following = false;
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
    Refresh_Bars();
    Magnifier->Follow();
}

/// The keys belong to the picture as soon as the page is in sight.
void RecordPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Ecran->setFocus();
}

}  // namespace tarnvik
