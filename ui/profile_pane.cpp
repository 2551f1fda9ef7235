#include "ui/profile_pane.h"

#include <QGridLayout>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/session.h"
#include "output/profile.h"
#include "output/profile_sketch.h"
#include "ui/painting/picture_file.h"
#include "ui/qt_display.h"

namespace tarnvik {

namespace {

constexpr double picture_width = 200;
constexpr double picture_height = 100;
constexpr double largest_zoom = 20;
constexpr double wheel_zoom = 1.25;

/// The bars count enlarged units: at factor 4 a picture 200 wide runs from 0 to 800, and 200 of them are
/// seen.
void Set_Range(QScrollBar* bar, double extent, double zoom, double middle) {
    const QSignalBlocker silent(bar);
    bar->setRange(0, static_cast<int>(std::lround(extent * zoom - extent)));
    bar->setPageStep(static_cast<int>(extent));
    bar->setSingleStep(static_cast<int>(extent / 10));
    bar->setValue(static_cast<int>(std::lround(middle * zoom - extent / 2)));
    bar->setVisible(zoom != 1);
}

/// The window of the enlarged profile in the place of the curves' own, for one painting.
class LentWindow {
  public:
    LentWindow(CurveView& view, double zoom_x, double zoom_y, int across, int up)
        : View(view),
          ZoomX(view.ZoomX),
          ZoomY(view.ZoomY),
          Across(view.HScroll1.Value),
          Up(view.VScroll1.Value) {
        Set(zoom_x, zoom_y, across, up);
    }
    ~LentWindow() { Set(ZoomX, ZoomY, Across, Up); }
    LentWindow(const LentWindow&) = delete;
    LentWindow& operator=(const LentWindow&) = delete;

  private:
    void Set(double zoom_x, double zoom_y, int across, int up) {
        View.ZoomX = zoom_x;
        View.ZoomY = zoom_y;
        View.HScroll1.Value = across;
        View.VScroll1.Value = up;
    }
    CurveView& View;
    double ZoomX, ZoomY;
    int Across, Up;
};

}  // namespace

ProfilePane::ProfilePane(Session& session, QtDisplay& display) : Program(session), Screen(display) {
    const PageLayout page = Profile_Layout();
    Dromo1 = new PictureBox;
    EchelleY1 = new PictureBox;
    Dromo1->setObjectName("Dromo1");
    EchelleY1->setObjectName("EchelleY1");
    Dromo1->setAccessibleName(tr("Seismic profile"));
    Dromo1->setMinimumSize(240, 120);
    Dromo1->Canvas().Set_Margins(page.Margins);
    EchelleY1->Canvas().Follow_Rows_Of(&Dromo1->Canvas());
    EchelleY1->setFixedWidth(static_cast<int>(std::lround(page.StripY * logicalDpiX() / 72.0)));
    EchelleY1->setFocusPolicy(Qt::NoFocus);
    Across = new QScrollBar(Qt::Horizontal);
    Across->setObjectName("ProfileAcross");
    Up = new QScrollBar(Qt::Vertical);
    Up->setObjectName("ProfileUp");
    Up->setInvertedAppearance(true);

    auto* pictures = new QGridLayout;
    pictures->setSpacing(0);
    pictures->addWidget(EchelleY1, 0, 0);
    pictures->addWidget(Dromo1, 0, 1);
    pictures->addWidget(Up, 0, 2);
    pictures->addWidget(Across, 1, 1);
    pictures->setColumnStretch(1, 1);
    pictures->setRowStretch(0, 1);
    auto* across = new QHBoxLayout(this);
    across->setContentsMargins(0, 0, 0, 0);
    across->addLayout(pictures, 1);
    across->addWidget(Side());
    Screen.Register(Canvas::Dromo1, Dromo1);
    Screen.Register(Canvas::EchelleY1, EchelleY1);
    Screen.Register(Canvas::Sketch, Sketch);

    Resized.setSingleShot(true);
    Resized.setInterval(0);
    connect(&Resized, &QTimer::timeout, this, [this] {
        Repaint();
        Draw_Sketch();
    });
    for (PictureBox* box : {Dromo1, EchelleY1, Sketch})
        connect(box, &PictureBox::Resized, this, [this] { Resized.start(); });
    connect(Dromo1, &PictureBox::Wheel_Turned, this, &ProfilePane::Wheel);
    connect(Dromo1, &PictureBox::Moved, this, [this](const PictureEvent& event) {
        Show_Profile_Readout(Program.Work, Program.Outside, event.X, event.Y);
    });
    for (QScrollBar* bar : {Across, Up})
        connect(bar, &QScrollBar::valueChanged, this, &ProfilePane::Repaint);
    Show_Whole_Line();
}

QWidget* ProfilePane::Side() {
    MainFields& fields = Program.Work.Fields;
    auto* side = new QWidget;
    Sketch = new PictureBox;
    Sketch->setObjectName("Sketch");
    Sketch->setToolTip(tr("The whole line: receivers and shots, offset shots included"));
    Sketch->setFocusPolicy(Qt::NoFocus);
    Sketch->setMinimumHeight(60);
    Sketch->setMaximumHeight(110);
    Sketch->Set_Size_Hint({200, 100});
    const auto number = [this](const char* name, const QString& tooltip) {
        auto* edit = new QLineEdit;
        edit->setObjectName(name);
        edit->setToolTip(tooltip);
        edit->setAlignment(Qt::AlignRight);
        edit->setFixedWidth(fontMetrics().horizontalAdvance("88888.8") + 16);
        return edit;
    };
    auto* highest = number("Text27", tr("Elevation of the highest point of the profile"));
    auto* lowest = number("Text33", tr("Elevation of the lowest point of the profile"));
    auto* height = number("Text32", tr("Difference of the two elevations"));
    auto* grid = new QGridLayout;
    grid->setColumnStretch(0, 1);
    const std::pair<QString, QLineEdit*> rows_of_fields[] = {{tr("Maximum profile elevation"), highest},
                                                             {tr("Minimum profile elevation"), lowest},
                                                             {tr("Profil total height (meters)"), height}};
    for (const auto& [caption, field] : rows_of_fields) {
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(caption), row, 0);
        grid->addWidget(field, row, 1);
    }
    Fields.Text(highest, fields.Text27);
    Fields.Text(lowest, fields.Text33);
    Fields.Result(height, fields.Text32);

    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(4, 0, 4, 0);
    rows->addWidget(Sketch, 1);
    rows->addLayout(grid);
    rows->addStretch(1);
    side->setFixedWidth(side->sizeHint().width());
    return side;
}

void ProfilePane::Refresh() {
    Fields.Refresh();
}

void ProfilePane::Draw_Sketch() {
    if (!isHidden()) Dessine_profile(Program.Work, Program.Outside);
}

void ProfilePane::Set_Window(double zoom_x, double zoom_y) {
    const double middle_x = (Across->value() + picture_width / 2) / ZoomX;
    const double middle_y = (Up->value() + picture_height / 2) / ZoomY;
    ZoomX = zoom_x;
    ZoomY = zoom_y;
    Set_Range(Across, picture_width, ZoomX, middle_x);
    Set_Range(Up, picture_height, ZoomY, middle_y);
}

void ProfilePane::Show_Whole_Line() {
    Set_Window(1, 1);
}

void ProfilePane::Wheel(double steps, Qt::KeyboardModifiers modifiers) {
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    if (!modifiers.testFlag(Qt::ControlModifier)) {
        QScrollBar* bar = shift || ZoomY == 1 ? Across : Up;
        const int direction = bar == Up ? 1 : -1;
        bar->setValue(bar->value() +
                      direction * static_cast<int>(std::lround(steps * bar->pageStep() / 8.0)));
        return;
    }
    // The combined display is not enlarged.
    if (Program.Work.Mode.On_Display() == DisplayMode::Both) return;
    const auto enlarged = [factor = std::pow(wheel_zoom, steps)](double zoom) {
        const double wanted = std::clamp(zoom * factor, 1.0, largest_zoom);
        return wanted < 1.05 ? 1.0 : wanted;
    };
    Set_Window(shift ? ZoomX : enlarged(ZoomX), shift ? enlarged(ZoomY) : ZoomY);
    Repaint();
}

void ProfilePane::Repaint() {
    if (isHidden()) return;
    const LentWindow window(Program.Work.Curves, ZoomX, ZoomY, Across->value(), Up->value());
    Screen.Repaint_Page(Page::Profile);
}

}  // namespace tarnvik
