#include "ui/section_page.h"

#include <QAction>
#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <optional>

#include "app/commands.h"
#include "app/refusals.h"
#include "app/session.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/profile.h"
#include "output/section.h"
#include "ui/notice_label.h"
#include "ui/painting/picture_file.h"
#include "ui/picture_gestures.h"
#include "ui/qt_display.h"

namespace tarnvik {

namespace {

constexpr double key_zoom = 1.25;
constexpr double key_share = 0.1;  ///< of the part in sight that an arrow key pans

std::string Elevation_Text(const std::optional<double>& elevation) {
    return elevation ? CStr(*elevation) : std::string();
}
std::optional<double> Elevation_In(const std::string& text) {
    if (Trim(text).empty()) return std::nullopt;
    return Val(text);
}

QString From(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

SectionPage::SectionPage(Session& session, QtDisplay& display) : Program(session), Screen(display) {
    auto* across = new QHBoxLayout(this);
    across->setContentsMargins(4, 4, 4, 4);
    across->addWidget(Pictures(), 1);
    across->addWidget(Options());

    Resized.setSingleShot(true);
    Resized.setInterval(0);
    connect(&Resized, &QTimer::timeout, this, [this] { Screen.Repaint_Page(Page::Section); });
    for (PictureBox* box : {Section, SectionX, SectionZ, SectionCut})
        connect(box, &PictureBox::Resized, this, [this] { Resized.start(); });
    Wire_Pointer();
    Wire_Gestures();
    // The letter acts on the whole page; while a field has the focus it is typed.
    auto* whole = new QAction(tr("Whole section"), this);
    whole->setObjectName("WholeSection");
    whole->setShortcut(Qt::Key_R);
    whole->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(whole, &QAction::triggered, this, [this] { Program.Section.Show_All(); });
    addAction(whole);
    Refresh();
}

QWidget* SectionPage::Pictures() {
    const PageLayout page = Section_Layout();
    Section = new PictureBox;
    SectionX = new PictureBox;
    SectionZ = new PictureBox;
    SectionCut = new PictureBox;
    Section->setObjectName("Section");
    SectionX->setObjectName("SectionX");
    SectionZ->setObjectName("SectionZ");
    SectionCut->setObjectName("SectionCut");
    Section->setAccessibleName(tr("Coloured section"));
    SectionCut->setAccessibleName(tr("Velocity against depth at the pointer"));
    SectionCut->setToolTip(tr("Velocity against elevation at the pointer"));
    Section->setMinimumSize(240, 160);
    Section->Canvas().Set_Margins(page.Margins);
    SectionX->Canvas().Follow_Columns_Of(&Section->Canvas());
    SectionZ->Canvas().Follow_Rows_Of(&Section->Canvas());
    SectionCut->Canvas().Follow_Rows_Of(&Section->Canvas());
    SectionCut->Canvas().Set_Margins({.Left = 4, .Top = page.Margins.Top, .Right = 4});
    const auto pixels = [this](double points) {
        return static_cast<int>(std::lround(points * logicalDpiX() / 72.0));
    };
    constexpr double cut_width = 80;
    SectionX->setFixedHeight(pixels(page.StripX));
    SectionZ->setFixedWidth(pixels(page.StripY));
    SectionCut->setFixedWidth(pixels(cut_width));
    for (PictureBox* box : {SectionX, SectionZ, SectionCut})
        box->setFocusPolicy(Qt::NoFocus);
    for (PictureBox* box : {Section, SectionX, SectionZ, SectionCut})
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    Screen.Register(Canvas::Section, Section);
    Screen.Register(Canvas::SectionX, SectionX);
    Screen.Register(Canvas::SectionZ, SectionZ);
    Screen.Register(Canvas::SectionCut, SectionCut);

    auto* pane = new QWidget;
    // The corners beside the scales are paper as well.
    pane->setAutoFillBackground(true);
    QPalette paper = pane->palette();
    paper.setColor(QPalette::Window, Qt::white);
    pane->setPalette(paper);
    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(SectionZ, 0, 0);
    grid->addWidget(Section, 0, 1);
    grid->addWidget(SectionCut, 0, 2);
    grid->addWidget(SectionX, 1, 1);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return pane;
}

QLineEdit* SectionPage::Number(const char* name, const QString& tooltip) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setToolTip(tooltip);
    edit->setAlignment(Qt::AlignRight);
    edit->setFixedWidth(fontMetrics().horizontalAdvance("88888.8") + 16);
    return edit;
}

void SectionPage::Tick(QBoxLayout* rows, const char* name, const QString& caption, const QString& tooltip,
                       bool& field, FieldBinder::Reaction changed) {
    auto* tick = new QCheckBox(caption);
    tick->setObjectName(name);
    tick->setToolTip(tooltip);
    Fields.Tick(tick, field, std::move(changed));
    rows->addWidget(tick);
}

QComboBox* SectionPage::List(const char* name, const QStringList& entries, const QString& tooltip, int& field,
                             FieldBinder::Reaction changed) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    list->addItems(entries);
    list->setToolTip(tooltip);
    Fields.Choice(list, field, std::move(changed));
    return list;
}

QWidget* SectionPage::Options() {
    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(4, 0, 4, 0);
    Fields.Follow([this] { Program.Section.Follow(); });
    Making(rows);
    Look(rows);
    rows->addStretch(1);
    // On a small screen the options scroll; the picture keeps its height.
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(side);
    scroll->setFixedWidth(side->sizeHint().width() + 16);
    return scroll;
}

void SectionPage::Making(QBoxLayout* rows) {
    ColouredSection& logic = Program.Section;
    SectionView& view = Program.Work.Section;
    const auto remake = [&logic] { logic.Option_Changed(); };
    auto* group = new QGroupBox(tr("Computation"));
    auto* within = new QVBoxLayout(group);
    auto* label = new QLabel(tr("Type of computation to be used to draw the profile"));
    label->setObjectName("Label20");
    label->setWordWrap(true);
    within->addWidget(label);
    QStringList sources;
    for (const SectionSource source : {SectionSource::Shots, SectionSource::Abc, SectionSource::Grm})
        sources << From(Depth_Label(source));
    within->addWidget(List("Combo3", sources, tr("Depths that the next section is made of"), logic.Combo3,
                           [&logic] { logic.Source_Chosen(); }));
    within->addWidget(List("Combo4", {"  Bezier Curve", "  Linear"},
                           tr("Interfaces between the places whose depths are known"), logic.Combo4, remake));
    within->addWidget(List("Combo5", {tr("normal display"), tr("high quality"), tr("highest quality")},
                           tr("select here the display quality, hq take times..."), logic.Combo5, remake));
    auto* grid = new QGridLayout;
    grid->setColumnStretch(0, 1);
    auto* factor =
        Number("SmoothingFactor", tr("Places that a running mean of the interfaces takes; 1 for none"));
    grid->addWidget(new QLabel(tr("Smoothing factor")), 0, 0);
    grid->addWidget(factor, 0, 1);
    Fields.Finished_Number(factor, view.SmoothingFactor, [&view, remake] {
        constexpr int most_places = 999;
        view.SmoothingFactor = std::clamp(view.SmoothingFactor, 1, most_places);
        remake();
    });
    Elevations(grid);
    within->addLayout(grid);
    Tick(within, "Check12", tr("Smoothing"), tr("Click here to smooth the bedrock (3 values average)"),
         view.Smoothing, remake);
    Tick(within, "slope", tr("Slope correction"),
         tr("If checked, the depth will be corrected using shot elevation (migration)"), view.SlopeCorrection,
         remake);
    auto* make = new QPushButton(tr("Colored section"));
    make->setObjectName("Command13");
    make->setToolTip(tr("Saves the project and computes the section between the elevations above"));
    Fields.Command(make, [this] { Run_Command(Program, "Command13"); });
    Fields.Enabled(make, [this] { return Without_Project(Program).empty(); });
    within->addWidget(make);
    auto* helps = new QHBoxLayout;
    for (const auto& [name, caption] :
         {std::pair("Command8", tr("Help")), std::pair("Text34", tr("Grid help"))}) {
        auto* button = new QPushButton(caption);
        button->setObjectName(name);
        helps->addWidget(button);
        const bool first = button->objectName() == "Command8";
        Fields.Command(button, [&logic, first] { first ? logic.Command8() : logic.Text34(); });
    }
    within->addLayout(helps);
    rows->addWidget(group);
}

void SectionPage::Elevations(QGridLayout* grid) {
    auto* highest = Number("SectionHighest", tr("Elevation of the top; empty for one that fits"));
    auto* lowest = Number("SectionLowest", tr("Elevation of the bottom; empty for one that fits"));
    grid->addWidget(new QLabel(tr("Maximum elevation")), 1, 0);
    grid->addWidget(highest, 1, 1);
    grid->addWidget(new QLabel(tr("Minimum elevation")), 2, 0);
    grid->addWidget(lowest, 2, 1);
    Fields.Follow([this] {
        const ProfileView& profile = Program.Work.Profile;
        if (Elevation_In(Highest) != profile.GivenMaxElevation)
            Highest = Elevation_Text(profile.GivenMaxElevation);
        if (Elevation_In(Lowest) != profile.GivenMinElevation)
            Lowest = Elevation_Text(profile.GivenMinElevation);
    });
    const auto typed = [this] {
        Give_Profile_Elevations(Program.Work, Program.Outside, {Elevation_In(Highest), Elevation_In(Lowest)});
    };
    Fields.Text(highest, Highest, typed);
    Fields.Text(lowest, Lowest, typed);
}

void SectionPage::Look(QBoxLayout* rows) {
    ColouredSection& logic = Program.Section;
    SectionView& view = Program.Work.Section;
    const auto repaint = [&logic] { logic.Look_Changed(); };
    auto* group = new QGroupBox(tr("Display"));
    auto* within = new QVBoxLayout(group);
    Tick(within, "Check13", tr("Display shot location"), tr("Shot number will be drawn on the plot"),
         view.ShowShots, repaint);
    Tick(within, "Check14", tr("Display geophones"), tr("Geophones will be drawn on the plot"),
         view.ShowGeophones, repaint);
    Tick(within, "Check15", tr("Color scale"), tr("Uncheck to remove velocity legend"), view.ShowScale,
         repaint);
    auto* grid = new QGridLayout;
    grid->setColumnStretch(0, 1);
    auto* velocity = Number("Text28", tr("Enter here the maximum velocity for color scale"));
    auto* letters = Number("Text31", tr("Label font size will be scaled by your value"));
    grid->addWidget(new QLabel(tr("Maximum velocity")), 0, 0);
    grid->addWidget(velocity, 0, 1);
    grid->addWidget(new QLabel(tr("Label font scale")), 1, 0);
    grid->addWidget(letters, 1, 1);
    within->addLayout(grid);
    const SectionView usual;
    Fields.Finished_Number(velocity, view.MaxVelocity, [&view, usual, repaint] {
        if (!(view.MaxVelocity > 0)) view.MaxVelocity = usual.MaxVelocity;
        repaint();
    });
    Fields.Finished_Number(letters, view.LabelScale, [&view, usual, repaint] {
        if (!(view.LabelScale > 0)) view.LabelScale = usual.LabelScale;
        repaint();
    });
    within->addWidget(
        List("SectionColours",
             {tr("Colours of the file"), tr("Even (viridis)"), tr("Safe for colour-blind eyes (cividis)")},
             tr("Colours of the velocities"), logic.ColourChoice, repaint));
    auto* file = new QHBoxLayout;
    auto* path = new QLineEdit;
    path->setObjectName("Text19");
    path->setToolTip(tr("Colour scale file: levels (.lvl) or colour map (.clr)"));
    Fields.Finished_Text(path, Program.Work.Fields.Text19, [&logic] { logic.Text19_Typed(); });
    auto* choose = new QPushButton("...");
    choose->setObjectName("Command14");
    choose->setToolTip(tr("Select a LVL color scale"));
    choose->setFixedWidth(choose->fontMetrics().horizontalAdvance("...") + 24);
    Fields.Command(choose, [&logic] { logic.Command14(); });
    file->addWidget(path, 1);
    file->addWidget(choose);
    within->addLayout(file);
    auto* note = new NoticeLabel(false);
    note->setObjectName("ScaleNote");
    Fields.Text(note, logic.ScaleNote);
    within->addWidget(note);
    rows->addWidget(group);
}

void SectionPage::Wire_Pointer() {
    ColouredSection& logic = Program.Section;
    connect(Section, &PictureBox::Pressed, this, [this, &logic](const PictureEvent& event) {
        if (!event.LeftButton) return;
        const bool frame = QApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
        logic.Press(event.X, event.Y, frame);
        Dragging = !frame;
        DragAcross = event.Across;
        DragDown = event.Down;
    });
    connect(Section, &PictureBox::Moved, this, [this, &logic](const PictureEvent& event) {
        if (Dragging && event.LeftButton) {
            const Frame frame = Section->Canvas().Current_Frame();
            const double across = frame.To_World_X(DragAcross) - frame.To_World_X(event.Across);
            const double up = frame.To_World_Y(DragDown) - frame.To_World_Y(event.Down);
            DragAcross = event.Across;
            DragDown = event.Down;
            logic.Pan(across, up);
            return;
        }
        logic.Move(event.X, event.Y);
    });
    connect(Section, &PictureBox::Released, this, [this, &logic](const PictureEvent& event) {
        Dragging = false;
        logic.Release(event.X, event.Y);
    });
}

void SectionPage::Wire_Gestures() {
    ColouredSection& logic = Program.Section;
    auto* gestures = new PictureGestures(Section);
    gestures->Enlarge = [&logic](QPointF at, double more_x, double more_y) {
        logic.Enlarge(at.x(), at.y(), more_x, more_y);
    };
    gestures->Pan = [&logic](double across, double up) { logic.Pan(across, up); };
    gestures->Show_All = [&logic] { logic.Show_All(); };
    gestures->Left = [&logic] { logic.Leave(); };
    Section->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(Section, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        QMenu menu(this);
        for (const char* name : {"SectionWmf_M", "SectionJpg_M", "SectionClipboard_M"}) {
            const Command& command = *Find_Command(name);
            QAction* action = menu.addAction(From(command.Caption));
            action->setEnabled(Refusal_Of(command, Program).empty());
            connect(action, &QAction::triggered, this, [this, name] { Run_Command(Program, name); });
        }
        menu.exec(Section->mapToGlobal(at));
    });
    connect(Section, &PictureBox::Key_Pressed, this, [this, &logic](int key) {
        const Frame frame = Section->Canvas().Current_Frame();
        const double across = (frame.Right - frame.Left) * key_share;
        const double up = (frame.Top - frame.Bottom) * key_share;
        const double x = (frame.Left + frame.Right) / 2;
        const double y = (frame.Top + frame.Bottom) / 2;
        switch (key) {
            case 37:
                logic.Pan(-across, 0);
                break;
            case 38:
                logic.Pan(0, up);
                break;
            case 39:
                logic.Pan(across, 0);
                break;
            case 40:
                logic.Pan(0, -up);
                break;
            case 107:
                logic.Enlarge(x, y, key_zoom, key_zoom);
                break;
            case 109:
                logic.Enlarge(x, y, 1 / key_zoom, 1 / key_zoom);
                break;
            default:
                break;
        }
    });
}

void SectionPage::Refresh() {
    Fields.Refresh();
}

}  // namespace tarnvik
