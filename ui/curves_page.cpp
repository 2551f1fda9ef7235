#include "ui/curves_page.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "app/commands.h"
#include "app/session.h"
#include "app/shot_choice.h"
#include "core/text/number.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"
#include "traveltime/zoom.h"
#include "ui/painting/picture_file.h"
#include "ui/picture_gestures.h"
#include "ui/profile_pane.h"
#include "ui/qt_display.h"

namespace tarnvik {

namespace {

int Strip_Pixels(const QWidget* widget, double points) {
    return static_cast<int>(std::lround(points * widget->logicalDpiX() / 72.0));
}

QPixmap Colour_Swatch(Colour colour, double ratio) {
    QPixmap swatch(QSize(18, 10) * ratio);
    swatch.setDevicePixelRatio(ratio);
    swatch.fill(Qt::transparent);
    QPainter painter(&swatch);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(To_QColor(colour), 2));
    painter.drawLine(QPointF(1, 5), QPointF(17, 5));
    return swatch;
}

PointerEvent On_Curves(const PictureEvent& event) {
    return {event.X, event.Y, event.LeftButton, event.RightButton};
}

}  // namespace

ShotListModel::ShotListModel(Session& session, QObject* parent)
    : QAbstractListModel(parent), Program(session) {}

int ShotListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Shown;
}

QVariant ShotListModel::data(const QModelIndex& index, int role) const {
    const int shot = index.row() + 1;
    const Project& project = Program.Work.Project;
    if (!index.isValid() || !project.ShotDistance.Has(shot)) return {};
    const QString unit = Program.Work.Settings.Metric() ? " m" : " f";
    switch (role) {
        case Qt::DisplayRole:
            return QString("%1   %2").arg(shot).arg(
                       QString::fromStdString(CStr(project.ShotDistance(shot)))) +
                   unit;
        case Qt::CheckStateRole:
            return Shot_Displayed(Program.Work, shot) ? Qt::Checked : Qt::Unchecked;
        case Qt::DecorationRole:
            return index.row() < static_cast<int>(Colours.size())
                       ? Colour_Swatch(Colours[static_cast<std::size_t>(index.row())], 2)
                       : QPixmap();
        case Qt::ToolTipRole:
            return tr("Shot %1: tick to draw its curve").arg(shot);
        default:
            return {};
    }
}

bool ShotListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole) return false;
    const int shot = index.row() + 1;
    // The first shot that is unticked ends "Display all shot".
    Program.Work.Fields.Check11 = false;
    const bool wanted = value.toInt() == Qt::Checked;
    if (Shot_Displayed(Program.Work, shot) != wanted) {
        Toggle_Shot(Program.Work, Program.Outside, shot);
    } else {
        Program.Outside.Show.Show_Curves();
    }
    Refresh();
    return true;
}

Qt::ItemFlags ShotListModel::flags(const QModelIndex&) const {
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable;
}

void ShotListModel::Refresh() {
    const Project& project = Program.Work.Project;
    const int shots = std::max(0, std::min<int>(project.NbShots, project.ShotDistance.Last()));
    Colours.clear();
    Colour colour = 0;
    for (int shot = 1; shot <= shots; ++shot) {
        Shot_Colour(Program.Work, shot, colour);
        Colours.push_back(colour);
    }
    if (shots != Shown) {
        beginResetModel();
        Shown = shots;
        endResetModel();
    } else if (Shown > 0) {
        emit dataChanged(index(0), index(Shown - 1));
    }
}

CurvesPage::CurvesPage(Session& session, QtDisplay& display) : Program(session), Screen(display) {
    Panes = new QSplitter(Qt::Vertical);
    CurvesPane = Curves_Pane();
    Profile = new ProfilePane(session, display);
    Panes->addWidget(CurvesPane);
    Panes->addWidget(Profile);
    Panes->setStretchFactor(0, 1);
    Panes->setStretchFactor(1, 1);
    Panes->setChildrenCollapsible(false);
    Profile->hide();

    auto* across = new QSplitter(Qt::Horizontal);
    ShotsPane = Shots_Pane();
    across->addWidget(ShotsPane);
    across->addWidget(Panes);
    across->setStretchFactor(0, 0);
    across->setStretchFactor(1, 1);
    across->setSizes({1, 2000});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(across);

    Resized.setSingleShot(true);
    Resized.setInterval(0);
    connect(&Resized, &QTimer::timeout, this, &CurvesPage::Repaint);
    for (PictureBox* box : {Dromo, EchelleX, EchelleY}) {
        connect(box, &PictureBox::Resized, this, [this] { Resized.start(); });
    }
    Wire_Pointer();
    Refresh();
    Refresh_Shots();
}

QWidget* CurvesPage::Curves_Pane() {
    const PageLayout page = Curves_Layout();
    auto* pane = new QWidget;
    Dromo = new PictureBox;
    EchelleX = new PictureBox;
    EchelleY = new PictureBox;
    Dromo->setObjectName("Dromo");
    EchelleX->setObjectName("EchelleX");
    EchelleY->setObjectName("EchelleY");
    Dromo->setAccessibleName(tr("Travel-time curves"));
    Dromo->Canvas().Set_Margins(page.Margins);
    EchelleX->Canvas().Follow_Columns_Of(&Dromo->Canvas());
    EchelleY->Canvas().Follow_Rows_Of(&Dromo->Canvas());
    EchelleX->setFixedHeight(Strip_Pixels(this, page.StripX));
    EchelleY->setFixedWidth(Strip_Pixels(this, page.StripY));
    EchelleX->setFocusPolicy(Qt::NoFocus);
    EchelleY->setFocusPolicy(Qt::NoFocus);
    HScroll1 = new QScrollBar(Qt::Horizontal);
    VScroll1 = new QScrollBar(Qt::Vertical);
    HScroll1->setObjectName("HScroll1");
    VScroll1->setObjectName("VScroll1");
    // A bar that comes must not move what is under the pointer.
    for (QScrollBar* bar : {HScroll1, VScroll1}) {
        QSizePolicy policy = bar->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        bar->setSizePolicy(policy);
    }

    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(EchelleY, 0, 0);
    grid->addWidget(Dromo, 0, 1);
    grid->addWidget(VScroll1, 0, 2);
    grid->addWidget(EchelleX, 1, 1);
    grid->addWidget(HScroll1, 2, 1);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(1, 1);
    // The corner under the time scale and beside the distances is paper as well.
    pane->setAutoFillBackground(true);
    QPalette paper = pane->palette();
    paper.setColor(QPalette::Window, Qt::white);
    pane->setPalette(paper);
    for (PictureBox* box : {Dromo, EchelleX, EchelleY}) {
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }
    Screen.Register(Canvas::Dromo, Dromo);
    Screen.Register(Canvas::EchelleX, EchelleX);
    Screen.Register(Canvas::EchelleY, EchelleY);

    CurveView& view = Program.Work.Curves;
    Fields.Scroll(HScroll1, view.HScroll1,
                  [this, &view] { HScroll1_Change(Program.Work, Program.Outside, view.HScroll1.Value); });
    Fields.Scroll(VScroll1, view.VScroll1,
                  [this, &view] { VScroll1_Change(Program.Work, Program.Outside, view.VScroll1.Value); });
    Fields.Shown(HScroll1, [&view] { return Scroll_Bar_Shown(view.ZoomX); });
    Fields.Shown(VScroll1, [&view] { return Scroll_Bar_Shown(view.ZoomY); });
    Fields.Follow([this, &view] {
        for (QScrollBar* bar : {HScroll1, VScroll1}) {
            if (bar->palette() != palette()) bar->setPalette(palette());
        }
        HScroll1->setPageStep(std::max(1, static_cast<int>(curve_picture_width / std::max(view.ZoomX, 1.0))));
        VScroll1->setPageStep(
            std::max(1, static_cast<int>(curve_picture_height / std::max(view.ZoomY, 1.0))));
        // The bar goes up to later times unless time 0 is on top.
        VScroll1->setInvertedAppearance(!view.ZeroOnTop);
    });
    return pane;
}

QWidget* CurvesPage::Shots_Pane() {
    auto* pane = new QWidget;
    auto* all = new QCheckBox(tr("Display all shot"));
    all->setObjectName("Check11");
    all->setToolTip(tr("Draw the curves of all shots, also of those that are not ticked"));
    auto* list = new QListView;
    list->setObjectName("Grille_Shot");
    list->setUniformItemSizes(true);
    Shots = new ShotListModel(Program, list);
    list->setModel(Shots);
    connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& row) {
                if (!Following) Choose_Shot(Program, {row.row() + 1, 0});
            });
    List = list;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(all);
    QWidget* buttons = Shot_Buttons(list);
    layout->addWidget(buttons);
    layout->addWidget(list);
    pane->setMinimumWidth(
        std::max(fontMetrics().horizontalAdvance("Display all shot") + 40, buttons->sizeHint().width()));
    pane->setMaximumWidth(260);
    Fields.Tick(all, Program.Work.Fields.Check11, [this] { Program.Outside.Show.Show_Curves(); });
    return pane;
}

/// The commands on the list as a row of buttons, and as its menu.
QWidget* CurvesPage::Shot_Buttons(QListView* list) {
    auto* pane = new QWidget;
    auto* row = new QHBoxLayout(pane);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    list->setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const Command& command : Curves_Page_Commands()) {
        const auto from = [](std::string_view text) {
            return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        };
        auto* action = new QAction(from(command.Caption), this);
        action->setObjectName(from(command.Name));
        QString tip = from(command.Tooltip);
        if (!command.Shortcut.empty()) {
            const QKeySequence key(from(command.Shortcut), QKeySequence::PortableText);
            // Acts wherever the focus is, as long as the page is in sight.
            action->setShortcut(key);
            tip += " (" + key.toString(QKeySequence::NativeText) + ")";
        }
        action->setToolTip(tip);
        connect(action, &QAction::triggered, this, [this, &command] {
            Run_Command(Program, command.Name);
            Shots->Refresh();
        });
        Fields.Follow([this, action, &command] { action->setEnabled(Refusal_Of(command, Program).empty()); });
        addAction(action);
        list->addAction(action);
        // What belongs to the picture stands in the menu alone.
        if (command.Name == "WholePicture") continue;
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setFocusPolicy(Qt::NoFocus);
        row->addWidget(button);
    }
    return pane;
}

void CurvesPage::Wire_Pointer() {
    CurvePointer& pointer = Program.Pointer;
    connect(Dromo, &PictureBox::Pressed, this,
            [&pointer](const PictureEvent& event) { pointer.Press(On_Curves(event)); });
    connect(Dromo, &PictureBox::Moved, this,
            [&pointer](const PictureEvent& event) { pointer.Move(On_Curves(event)); });
    connect(Dromo, &PictureBox::Released, this,
            [&pointer](const PictureEvent& event) { pointer.Release(On_Curves(event)); });
    connect(Dromo, &PictureBox::Double_Clicked, this,
            [&pointer](const PictureEvent& event) { pointer.Double_Click(On_Curves(event)); });
    connect(Dromo, &PictureBox::Key_Pressed, this, [&pointer](int code) { pointer.Key(code); });
    Wire_Gestures();
}

/// Above the profile the curves stand whole: enlarged they would no longer stand over it.
bool CurvesPage::Can_Be_Enlarged() const {
    return Program.Work.Curves.FrameDrawn == 1;
}

void CurvesPage::Wire_Gestures() {
    auto* gestures = new PictureGestures(Dromo);
    CurveView& view = Program.Work.Curves;
    const auto show = [this] {
        Screen.Repaint_Page(Page::Curves);
        Program.Outside.Show.Show_Fields();
    };
    gestures->Enlarge = [this, show, &view](QPointF at, double more_x, double more_y) {
        if (!Can_Be_Enlarged()) return;
        Enlarge_At(view, at.x(), at.y(), more_x, more_y);
        show();
    };
    gestures->Pan = [this, show, &view](double across, double later) {
        const CurveWindow before = Visible_Window(view);
        if (!Can_Be_Enlarged()) return;
        Pan(view, across, later);
        if (!(Visible_Window(view) == before)) show();
    };
    gestures->Whole_Height = [&view] { return view.ZoomY <= 1; };
    gestures->Show_All = [this] { Run_Command(Program, "WholePicture"); };
    gestures->Left = [this] { Program.Pointer.Leave(); };
}

void CurvesPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // Beside the record and a tool window the curves need the room more than the list.
    constexpr int least_with_list = 400;
    ShotsPane->setVisible(width() >= least_with_list);
}

void CurvesPage::Repaint() {
    Screen.Repaint_Page(Page::Curves);
}

void CurvesPage::Arrange_Panes() {
    const Workspace& work = Program.Work;
    const bool profile = work.Curves.FrameDrawn == 2;
    Profile->setVisible(profile);
    CurvesPane->setVisible(!profile || work.Mode.On_Display() == DisplayMode::Both);
}

void CurvesPage::Refresh() {
    Arrange_Panes();
    Fields.Refresh();
    Profile->Refresh();
}

void CurvesPage::Refresh_Shots() {
    Shots->Refresh();
    const QModelIndex row = Shots->index(Program.Work.Grids.Grille_Shot.CurrentRow);
    const bool chosen = List->currentIndex().isValid() || row.row() > 0;
    if (row.isValid() && chosen && row != List->currentIndex()) {
        Following = true;
        List->setCurrentIndex(row);
        Following = false;
    }
    Profile->Draw_Sketch();
}

}  // namespace tarnvik
