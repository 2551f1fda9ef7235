#include "ui/profile_pane.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/commands.h"
#include "app/refusals.h"
#include "app/session.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/profile.h"
#include "output/profile_sketch.h"
#include "output/section.h"
#include "ui/painting/picture_file.h"
#include "ui/picture_gestures.h"
#include "ui/qt_display.h"

namespace tarnvik {

namespace {

constexpr double picture_width = 200;
constexpr double picture_height = 100;
constexpr double largest_zoom = 20;

/// The bars count enlarged units: at factor 4 a picture 200 wide runs from 0 to 800, and 200 of them are
/// seen.
void Set_Range(QScrollBar* bar, double extent, double zoom, double value) {
    const QSignalBlocker silent(bar);
    bar->setRange(0, static_cast<int>(std::lround(extent * zoom - extent)));
    bar->setPageStep(static_cast<int>(extent));
    bar->setSingleStep(static_cast<int>(extent / 10));
    bar->setValue(static_cast<int>(std::lround(value)));
    bar->setVisible(zoom != 1);
}

/// Nothing beyond the picture comes into sight.
void Keep_Inside(ProfileView& view) {
    view.Across = std::clamp(view.Across, 0.0, picture_width * view.ZoomX - picture_width);
    view.Up = std::clamp(view.Up, 0.0, picture_height * view.ZoomY - picture_height);
}

/// An elevation as a field shows it, and back; an empty field gives none.
std::string Elevation_Text(const std::optional<double>& elevation) {
    return elevation ? CStr(*elevation) : std::string();
}
std::optional<double> Elevation_In(const std::string& text) {
    if (Trim(text).empty()) return std::nullopt;
    return Val(text);
}

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
    // A bar that comes must not move what is under the pointer.
    for (QScrollBar* bar : {Across, Up}) {
        QSizePolicy policy = bar->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        bar->setSizePolicy(policy);
    }

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
    Wire_Gestures();
    connect(Dromo1, &PictureBox::Moved, this, [this](const PictureEvent& event) {
        Show_Profile_Readout(Program.Work, Program.Outside, event.X, event.Y);
    });
    connect(Across, &QScrollBar::valueChanged, this, [this](int value) {
        Program.Work.Profile.Across = value;
        Repaint();
    });
    connect(Up, &QScrollBar::valueChanged, this, [this](int value) {
        Program.Work.Profile.Up = value;
        Repaint();
    });
    Fields.Follow([this] { Follow_Window(); });
    Follow_Window();
}

QWidget* ProfilePane::Side() {
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
    auto* extremes = new QPushButton(tr("Compute mini and maximum elevation"));
    extremes->setObjectName("Command19");
    extremes->setToolTip(tr("Takes them from the shots on the line and the receivers, in tens"));
    grid->addWidget(extremes, grid->rowCount(), 0, 1, 2);
    Bind_Elevations(highest, lowest, height);
    auto* added =
        number("Text23", tr("Added to the first depth below the receivers at the next ABC computation"));
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(tr("Added to ABC depth")), row, 0);
    grid->addWidget(added, row, 1);
    Fields.Text(added, Program.Work.Fields.Text23);
    auto* source = new QLabel;
    source->setObjectName("DepthLabel");
    grid->addWidget(source, row + 1, 0, 1, 2);
    Fields.Follow([this, source] {
        const std::string_view label = Depth_Label(Program.Work.Section.Source);
        source->setText(QString::fromUtf8(label.data(), static_cast<qsizetype>(label.size())));
    });
    // Only where these depths are drawn.
    Fields.Shown(source, [this] {
        const DisplayMode mode = Program.Work.Profile.DrawnMode;
        return mode == DisplayMode::Profil2 || mode == DisplayMode::Profil3;
    });
    Fields.Command(extremes, [this] { Command19(Program.Work, Program.Outside); });
    Fields.Enabled(extremes, [this] { return Without_Project(Program).empty(); });

    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(4, 0, 4, 0);
    rows->addWidget(Sketch, 1);
    rows->addLayout(grid);
    rows->addStretch(1);
    side->setFixedWidth(side->sizeHint().width());
    return side;
}

void ProfilePane::Bind_Elevations(QLineEdit* highest, QLineEdit* lowest, QLineEdit* height) {
    Fields.Follow([this] {
        const ProfileView& view = Program.Work.Profile;
        if (Elevation_In(Text27) != view.GivenMaxElevation) Text27 = Elevation_Text(view.GivenMaxElevation);
        if (Elevation_In(Text33) != view.GivenMinElevation) Text33 = Elevation_Text(view.GivenMinElevation);
        const bool either = view.GivenMaxElevation || view.GivenMinElevation;
        Text32 = either ? CStr(view.GivenMaxElevation.value_or(0) - view.GivenMinElevation.value_or(0))
                        : std::string();
    });
    const auto typed = [this] {
        Give_Profile_Elevations(Program.Work, Program.Outside, {Elevation_In(Text27), Elevation_In(Text33)});
        Refresh();
    };
    Fields.Text(highest, Text27, typed);
    Fields.Text(lowest, Text33, typed);
    Fields.Result(height, Text32);
}

void ProfilePane::Refresh() {
    Fields.Refresh();
}

void ProfilePane::Draw_Sketch() {
    if (!isHidden()) Dessine_profile(Program.Work, Program.Outside);
}

void ProfilePane::Follow_Window() {
    const ProfileView& view = Program.Work.Profile;
    Set_Range(Across, picture_width, view.ZoomX, view.Across);
    Set_Range(Up, picture_height, view.ZoomY, view.Up);
}

void ProfilePane::Wire_Gestures() {
    auto* gestures = new PictureGestures(Dromo1);
    // The combined display is not enlarged.
    const auto whole = [this] { return Program.Work.Mode.On_Display() == DisplayMode::Both; };
    gestures->Enlarge = [this, whole](QPointF at, double more_x, double more_y) {
        if (whole()) return;
        ProfileView& view = Program.Work.Profile;
        const auto enlarge = [](double& zoom, double& scrolled, double place, double more) {
            constexpr double nearly_whole = 1.02;
            const double on_screen = place * zoom - scrolled;
            zoom = std::clamp(zoom * more, 1.0, largest_zoom);
            if (zoom < nearly_whole) zoom = 1;
            scrolled = place * zoom - on_screen;
        };
        enlarge(view.ZoomX, view.Across, at.x(), more_x);
        enlarge(view.ZoomY, view.Up, at.y(), more_y);
        Show_Window();
    };
    gestures->Pan = [this, whole](double across, double up) {
        if (whole()) return;
        ProfileView& view = Program.Work.Profile;
        const double before_x = view.Across;
        const double before_y = view.Up;
        view.Across += across * view.ZoomX;
        view.Up += up * view.ZoomY;
        Keep_Inside(view);
        if (view.Across != before_x || view.Up != before_y) Show_Window();
    };
    gestures->Show_All = [this] { Run_Command(Program, "WholePicture"); };
    gestures->Whole_Height = [this] { return Program.Work.Profile.ZoomY <= 1; };
}

void ProfilePane::Show_Window() {
    Program.Work.Profile.ExactWindow = true;
    Keep_Inside(Program.Work.Profile);
    Follow_Window();
    Repaint();
}

void ProfilePane::Repaint() {
    if (!isHidden()) Screen.Repaint_Page(Page::Profile);
}

}  // namespace tarnvik
