#include "ui/curves_page.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "app/session.h"
#include "core/text/number.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"
#include "traveltime/zoom.h"
#include "ui/painting/picture_file.h"
#include "ui/profile_pane.h"
#include "ui/qt_display.h"

namespace tarnvik {

namespace {

constexpr double largest_zoom = 20;
constexpr double wheel_zoom = 1.25;

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
        Couleur_Tir(project, shot, colour);
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
    across->addWidget(Shots_Pane());
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
    const QPalette usual = palette();
    HScroll1->setPalette(usual);
    VScroll1->setPalette(usual);
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
    connect(
        list->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& row) { Select_Shot_Row(Program.Work, Program.Outside, row.row() + 1); });
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(all);
    layout->addWidget(list);
    pane->setMinimumWidth(fontMetrics().horizontalAdvance("Display all shot") + 40);
    pane->setMaximumWidth(260);
    Fields.Tick(all, Program.Work.Fields.Check11, [this] { Program.Outside.Show.Show_Curves(); });
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
    connect(Dromo, &PictureBox::Wheel_Turned, this, &CurvesPage::Wheel);
}

void CurvesPage::Wheel(double steps, Qt::KeyboardModifiers modifiers) {
    CurveView& view = Program.Work.Curves;
    if (modifiers.testFlag(Qt::ControlModifier)) {
        // Above the profile the curves stand whole; drawn enlarged they would take its place.
        if (view.FrameDrawn == 2) return;
        const bool in_time = modifiers.testFlag(Qt::ShiftModifier);
        const double factor = std::pow(wheel_zoom, steps);
        const auto enlarged = [factor](double zoom) {
            const double wanted = std::clamp(zoom * factor, 1.0, largest_zoom);
            return wanted < 1.05 ? 1.0 : wanted;
        };
        const CurveWindow window = Visible_Window(view);
        const double middle = in_time ? (window.Yv + window.Yw) / 2 : (window.X1 + window.X2) / 2;
        Set_Zoom(view, in_time ? view.ZoomX : enlarged(view.ZoomX),
                 in_time ? enlarged(view.ZoomY) : view.ZoomY);
        const double half =
            in_time ? curve_picture_height / view.ZoomY / 2 : curve_picture_width / view.ZoomX / 2;
        const ScrollBar& bar = in_time ? view.VScroll1 : view.HScroll1;
        const int value = std::clamp(static_cast<int>(std::lround(middle - half)), bar.Min, bar.Max);
        if (in_time) {
            VScroll1_Change(Program.Work, Program.Outside, value);
        } else {
            HScroll1_Change(Program.Work, Program.Outside, value);
        }
        Program.Outside.Show.Show_Fields();
        return;
    }
    QScrollBar* bar =
        modifiers.testFlag(Qt::ShiftModifier) || !Scroll_Bar_Shown(view.ZoomY) ? HScroll1 : VScroll1;
    const int direction = bar == VScroll1 && !view.ZeroOnTop ? 1 : -1;
    bar->setValue(bar->value() + direction * static_cast<int>(std::lround(steps * bar->pageStep() / 8.0)));
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
    Profile->Draw_Sketch();
}

}  // namespace tarnvik
