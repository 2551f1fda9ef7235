#include "ui/section_page.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>

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
#include "ui/report_options.h"

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

template <class Act>
void SectionPage::With_Shown(Act act) {
    if (Program.Report.Shown()) {
        act(Program.Report);
    } else {
        act(Program.Section);
    }
}

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
    connect(whole, &QAction::triggered, this, [this] { With_Shown([](auto& shown) { shown.Show_All(); }); });
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
    Section->setAccessibleName(tr("Section"));
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
    rows->addWidget(Switch());
    auto* coloured = new QWidget;
    auto* of_coloured = new QVBoxLayout(coloured);
    of_coloured->setContentsMargins(0, 0, 0, 0);
    Fields.Follow([this] { Program.Section.Follow(); });
    Making(of_coloured);
    Look(of_coloured);
    rows->addWidget(coloured);
    QWidget* report = Report_Options(Program, Fields);
    rows->addWidget(report);
    rows->addStretch(1);
    const int widest = std::max(coloured->sizeHint().width(), report->sizeHint().width());
    const auto is_report = [this] { return Program.Report.Shown(); };
    Fields.Shown(report, is_report);
    for (QWidget* of_section : {coloured, static_cast<QWidget*>(SectionX), static_cast<QWidget*>(SectionZ),
                                static_cast<QWidget*>(SectionCut)})
        Fields.Shown(of_section, [is_report] { return !is_report(); });
    Fields.Follow([this, is_report] {
        Section->Canvas().Set_Margins((is_report() ? Report_Layout() : Section_Layout()).Margins);
    });
    // On a small screen the options scroll; the picture keeps its height.
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(side);
    scroll->setFixedWidth(widest + 24);
    return scroll;
}

/// What stands on the tab: two buttons beside each other, one of them down.
QWidget* SectionPage::Switch() {
    auto* both = new QWidget;
    auto* across = new QHBoxLayout(both);
    across->setContentsMargins(0, 0, 0, 0);
    across->setSpacing(0);
    auto* group = new QButtonGroup(both);
    const std::tuple<const char*, QString, QString> buttons[] = {
        {"ShowColoured", tr("Coloured section"), tr("Velocities on a grid, in colours")},
        {"ShowReport", tr("Report page"),
         tr("Interfaces with velocities, true scale and title block, for reports")}};
    int id = 0;
    for (const auto& [name, caption, tooltip] : buttons) {
        auto* button = new QPushButton(caption);
        button->setObjectName(name);
        button->setToolTip(tooltip);
        button->setCheckable(true);
        group->addButton(button, id++);
        across->addWidget(button);
    }
    Fields.Choice(group, Program.Report.ShownChoice, [this] { Program.Report.Shown_Chosen(); });
    return both;
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
    connect(Section, &PictureBox::Pressed, this, [this](const PictureEvent& event) {
        if (!event.LeftButton) return;
        const bool frame = QApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
        With_Shown([&](auto& shown) { shown.Press(event.X, event.Y, frame); });
        Dragging = !frame;
        DragAcross = event.Across;
        DragDown = event.Down;
    });
    connect(Section, &PictureBox::Moved, this, [this](const PictureEvent& event) {
        if (Dragging && event.LeftButton) {
            const Frame frame = Section->Canvas().Current_Frame();
            const double across = frame.To_World_X(DragAcross) - frame.To_World_X(event.Across);
            const double up = frame.To_World_Y(DragDown) - frame.To_World_Y(event.Down);
            DragAcross = event.Across;
            DragDown = event.Down;
            With_Shown([&](auto& shown) { shown.Pan(across, up); });
            return;
        }
        With_Shown([&](auto& shown) { shown.Move(event.X, event.Y); });
    });
    connect(Section, &PictureBox::Released, this, [this](const PictureEvent& event) {
        Dragging = false;
        With_Shown([&](auto& shown) { shown.Release(event.X, event.Y); });
    });
}

void SectionPage::Wire_Gestures() {
    const auto enlarge = [this](double x, double y, double more_x, double more_y) {
        With_Shown([&](auto& shown) { shown.Enlarge(x, y, more_x, more_y); });
    };
    const auto pan = [this](double across, double upward) {
        With_Shown([&](auto& shown) { shown.Pan(across, upward); });
    };
    auto* gestures = new PictureGestures(Section);
    gestures->Enlarge = [enlarge](QPointF at, double more_x, double more_y) {
        enlarge(at.x(), at.y(), more_x, more_y);
    };
    gestures->Pan = pan;
    gestures->Show_All = [this] { With_Shown([](auto& shown) { shown.Show_All(); }); };
    gestures->Left = [this] { With_Shown([](auto& shown) { shown.Leave(); }); };
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
    connect(Section, &PictureBox::Key_Pressed, this, [this, enlarge, pan](int key) {
        const Frame frame = Section->Canvas().Current_Frame();
        const double across = (frame.Right - frame.Left) * key_share;
        const double up = (frame.Top - frame.Bottom) * key_share;
        const double x = (frame.Left + frame.Right) / 2;
        const double y = (frame.Top + frame.Bottom) / 2;
        switch (key) {
            case 37:
                pan(-across, 0);
                break;
            case 38:
                pan(0, up);
                break;
            case 39:
                pan(across, 0);
                break;
            case 40:
                pan(0, -up);
                break;
            case 107:
                enlarge(x, y, key_zoom, key_zoom);
                break;
            case 109:
                enlarge(x, y, 1 / key_zoom, 1 / key_zoom);
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
