#include "ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QUrl>
#include <utility>

#include "app/file_commands.h"
#include "app/pages.h"
#include "app/session.h"
#include "app/start.h"
#include "traveltime/zoom.h"
#include "ui/command_bars.h"
#include "ui/curves_page.h"
#include "ui/icon_family.h"
#include "ui/notice_label.h"
#include "ui/qt_display.h"
#include "ui/record_page.h"
#include "ui/section_page.h"
#include "ui/tables_page.h"
#include "ui/window_colours.h"

namespace tarnvik {

namespace {

// A user who drags the window's edge sees the pictures follow at once; what belongs to the change as a whole
// comes when the edge has been let go.
constexpr int resize_pause_ms = 150;

// Widths of a page below which its tools would be cut, alone and beside another.
constexpr int least_width = 480;
constexpr int least_beside = 320;

constexpr const char* home_tab = "HomeTab";  ///< of a tool window that belongs to one picture

QString From(const std::string& text) {
    return QString::fromStdString(text);
}

/// Width that the form of a tool window needs, with room for a scroll bar.
int Width_Of_Content(const QDockWidget& dock) {
    const auto* scroll = qobject_cast<const QScrollArea*>(dock.widget());
    if (scroll == nullptr || scroll->widget() == nullptr) return dock.sizeHint().width();
    return scroll->widget()->minimumSizeHint().width() +
           dock.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void Set_Family(QWidget& control, const QString& family) {
    if (family.isEmpty() || control.font().family() == family) return;
    QFont font = control.font();
    font.setFamily(family);
    control.setFont(font);
}

}  // namespace

MainWindow::MainWindow(Session& session, QtDisplay& display, const QString& layout_file)
    : Program(session), Screen(display), Places(layout_file, QSettings::IniFormat) {
    setObjectName("TarnForm");
    setWindowIcon(QIcon(":/icons/tarnvik.svg"));
    setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowTabbedDocks |
                   QMainWindow::AllowNestedDocks);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);

    SSTab1 = new QTabWidget;
    SSTab1->setObjectName("SSTab1");
    SSTab1->setDocumentMode(true);
    Records = new RecordPage(session, display);
    Tables = new TablesPage(session);
    Curves = new CurvesPage(session, display);
    Section = new SectionPage(session, display);
    SSTab1->addTab(Records, Family_Icon("record"), tr("Field record"));
    SSTab1->addTab(Tables, Family_Icon("table"), tr("Tables"));
    SSTab1->addTab(Curves, Family_Icon("dromo"), tr("Travel times and profile"));
    SSTab1->addTab(Section, Family_Icon("drawing"), tr("Section"));
    // A tool window beside a wide page takes its room from the page and not from the screen.
    SSTab1->setMinimumSize(least_width, 320);
    Panes = new QSplitter;
    Panes->setObjectName("Panes");
    Panes->setChildrenCollapsible(false);
    Panes->addWidget(SSTab1);
    setCentralWidget(Panes);
    setAcceptDrops(true);
    session.Work.Fields.SideBySide = Places.value("Window/SideBySide").toBool();
    session.Work.Fields.DarkWindows = Places.value("Window/Dark").toBool();

    Bars = new CommandBars(session, *this);
    Build_Status_Bar();

    // At a first start most of the screen is the pictures'.
    const QSize room = screen()->availableSize();
    resize(QSize(1280, 800).expandedTo(room * 9 / 10).boundedTo(room));
    restoreGeometry(Places.value("Window/Geometry").toByteArray());
    // With its title bar the window would reach below a small screen, and the status bar with it.
    const int title_bar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    if (height() + title_bar > screen()->availableSize().height())
        setWindowState(windowState() | Qt::WindowMaximized);
    ResizeDone.setSingleShot(true);
    ResizeDone.setInterval(resize_pause_ms);
    connect(&ResizeDone, &QTimer::timeout, this, &MainWindow::Layout_Changed);
    Screen.Set_Window(this);
    Refresh_Fields();
}

MainWindow::~MainWindow() {
    Screen.Set_Window(nullptr);
}

void MainWindow::Build_Status_Bar() {
    MainFields& fields = Program.Work.Fields;
    auto* read_out = new QLabel;
    read_out->setObjectName("Text1");
    read_out->setMinimumWidth(fontMetrics().horizontalAdvance("8888 ms  Coord= 8888.88 m  Geo= 888"));
    read_out->setToolTip(tr("What lies under the pointer"));
    auto* record_read_out = new QLabel;
    record_read_out->setObjectName("RecordReadout");
    record_read_out->setMinimumWidth(read_out->minimumWidth());
    record_read_out->setToolTip(read_out->toolTip());
    auto* status = new NoticeLabel(true);
    status->setObjectName("Status");
    auto* profile = new QLabel;
    profile->setObjectName("ProfileReadout");
    profile->setToolTip(tr("Distance and elevation under the pointer of the profile"));
    ZoomRange = new QLabel;
    ZoomRange->setToolTip(tr("Range in sight"));
    ProjectName = new QLabel;
    Units = new QLabel;
    Units->setToolTip(tr("Length unit of the project"));
    // In a box of their own: a message of the bar hides the box, whatever comes and goes in it meanwhile.
    auto* read_outs = new QWidget;
    auto* row = new QHBoxLayout(read_outs);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(read_out);
    row->addWidget(record_read_out);
    statusBar()->addWidget(read_outs);
    statusBar()->addWidget(status, 1);
    statusBar()->addPermanentWidget(profile);
    Fields.Text(profile, fields.ProfileReadout);
    Unsaved = new QLabel(tr("not saved"));
    Unsaved->setObjectName("Unsaved");
    Unsaved->setStyleSheet("color: white; background: #c0392b; border-radius: 3px; padding: 1px 6px");
    Unsaved->setToolTip(tr("The project differs from its file (Ctrl+S saves it)"));
    for (QLabel* label : {ZoomRange, Unsaved, ProjectName, Units})
        statusBar()->addPermanentWidget(label);
    Fields.Shown(Unsaved, [this] { return !Program.Work.Edits.Is_Saved(); });

    Fields.Text(read_out, fields.Text1);
    Fields.Text(record_read_out, fields.RecordReadout);
    Fields.Shown(profile, [this] { return Program.Work.Curves.FrameDrawn == 2; });
    Fields.Text(status, fields.Status);
    const auto on_record = [this] { return SSTab1->currentWidget() == Records; };
    Fields.Shown(record_read_out, on_record);
    Fields.Shown(read_out, [this, on_record] { return !on_record() || Program.Work.Fields.SideBySide; });
    connect(SSTab1, &QTabWidget::currentChanged, this, [this] {
        Arrange_Docks();
        Fields.Refresh();
    });
    Fields.Follow([this] {
        Arrange_Pages();
        if (std::exchange(Dark, Program.Work.Fields.DarkWindows) != Dark) Show_Dark_Windows(Dark);
    });
    Fields.Follow([this] {
        const Workspace& work = Program.Work;
        setWindowTitle(From(work.Fields.Caption.empty() ? work.AppTitle : work.Fields.Caption));
        SSTab1->setTabToolTip(0, From(work.Fields.FirstTabCaption));
        const QString family = From(work.Settings.FontName);
        for (QTableView* grid : findChildren<QTableView*>())
            Set_Family(*grid, family);
        QStringList range;
        for (const std::string& text : {Distance_Range_Text(work), Time_Range_Text(work)}) {
            if (!text.empty()) range << From(text);
        }
        ZoomRange->setText(range.join("   "));
        ZoomRange->setVisible(!range.isEmpty());
        const QString name = From(work.Project.ProjectName);
        ProjectName->setText(name.isEmpty() ? tr("no project") : name);
        ProjectName->setToolTip(From(work.Project.CurrentFile));
        Units->setText(work.Settings.Metric() ? tr("meters") : tr("feet"));
    });
}

void MainWindow::Refresh_Fields() {
    Fields.Refresh();
    Bars->Refresh();
    Records->Refresh();
    Tables->Refresh_Fields();
    Curves->Refresh();
    Section->Refresh();
}

void MainWindow::Refresh_Grids() {
    Tables->Refresh();
    Records->Refresh();
    Curves->Refresh_Shots();
}

void MainWindow::Refresh_Cell(int row, int column) {
    Tables->Refresh_Cell(row, column);
}

void MainWindow::Select_Tab(Tab tab) {
    if (tab == Tab::Curves && SSTab1->indexOf(Curves) < 0) return;  // in sight already
    SSTab1->setCurrentWidget(Page_Of(tab));
}

QWidget* MainWindow::Page_Of(Tab tab) const {
    switch (tab) {
        case Tab::Tables:
            return Tables;
        case Tab::Curves:
            return Curves;
        case Tab::Section:
            return Section;
        case Tab::Record:
            break;
    }
    return Records;
}

bool MainWindow::In_Sight(Tab tab) const {
    if (tab == Tab::Curves && SSTab1->indexOf(Curves) < 0) return true;
    return SSTab1->currentWidget() == Page_Of(tab);
}

/// The curves stand in their tab, or beside the tabs when the user wants them beside the record.
void MainWindow::Arrange_Pages() {
    const bool beside = Program.Work.Fields.SideBySide;
    const int tab = SSTab1->indexOf(Curves);
    if (beside == (tab < 0)) return;
    if (beside) {
        if (SSTab1->currentIndex() == tab) SSTab1->setCurrentWidget(Records);
        SSTab1->removeTab(tab);
        SSTab1->setMinimumWidth(least_beside);
        Curves->setMinimumWidth(least_beside);
        Panes->addWidget(Curves);
        Panes->setSizes({Panes->width() / 2, Panes->width() / 2});
        Curves->show();
    } else {
        SSTab1->setMinimumWidth(least_width);
        SSTab1->insertTab(static_cast<int>(Tab::Curves), Curves, Family_Icon("dromo"),
                          tr("Travel times and profile"));
    }
    Arrange_Docks();
}

/// A tool window is in sight with the picture that it works on.
void MainWindow::Arrange_Docks() {
    for (QDockWidget* dock : findChildren<QDockWidget*>()) {
        const QVariant home = dock->property(home_tab);
        if (home.isValid()) dock->setVisible(In_Sight(static_cast<Tab>(home.toInt())));
    }
}

Tab MainWindow::Tab_In_Sight() const {
    for (const Tab tab : {Tab::Tables, Tab::Curves, Tab::Section}) {
        if (SSTab1->currentWidget() == Page_Of(tab)) return tab;
    }
    return Tab::Record;
}

void MainWindow::Place_Dock(QDockWidget* dock, std::optional<Tab> home) {
    if (home) {
        dock->setProperty(home_tab, static_cast<int>(*home));
        if (!In_Sight(*home)) Select_Tab(*home);
    }
    addDockWidget(Qt::RightDockWidgetArea, dock);
    Places.beginGroup("Tool windows/" + dock->objectName());
    const bool known = Places.contains("Area");
    const auto area = static_cast<Qt::DockWidgetArea>(Places.value("Area").toInt());
    const bool floating = Places.value("Floating").toBool();
    const QRect place = Places.value("Place").toRect();
    const int width = Places.value("Width").toInt();
    Places.endGroup();
    if (known && dock->isAreaAllowed(area)) addDockWidget(area, dock);
    // Two tool windows above each other would ask for more height than a screen has: they share one place,
    // with tabs.
    for (QDockWidget* other : findChildren<QDockWidget*>()) {
        const bool same_place = other != dock && other->isVisible() && !other->isFloating() &&
                                dockWidgetArea(other) == dockWidgetArea(dock);
        if (same_place) tabifyDockWidget(other, dock);
    }
    dock->show();
    dock->raise();
    if (floating && place.isValid()) {
        dock->setFloating(true);
        const QRect desk = screen()->availableVirtualGeometry();
        dock->setGeometry(desk.intersects(place) ? place : QRect(desk.center(), place.size()));
    } else if (width > 0) {
        resizeDocks({dock}, {width}, Qt::Horizontal);
    } else if (!known) {
        resizeDocks({dock}, {Width_Of_Content(*dock)}, Qt::Horizontal);
    }
}

void MainWindow::Remember_Dock(QDockWidget* dock) {
    Places.beginGroup("Tool windows/" + dock->objectName());
    Places.setValue("Area", static_cast<int>(dockWidgetArea(dock)));
    Places.setValue("Floating", dock->isFloating());
    if (dock->isFloating()) Places.setValue("Place", dock->geometry());
    if (!dock->isFloating()) Places.setValue("Width", dock->width());
    Places.endGroup();
}

void MainWindow::Place_Window(QWidget* window) {
    const QByteArray place = Places.value("Windows/" + window->objectName()).toByteArray();
    if (window->restoreGeometry(place)) return;
    window->adjustSize();
    window->move(frameGeometry().center() - window->rect().center());
}

void MainWindow::Remember_Window(QWidget* window) {
    Places.setValue("Windows/" + window->objectName(), window->saveGeometry());
}

void MainWindow::closeEvent(QCloseEvent* event) {
    Places.setValue("Window/Geometry", saveGeometry());
    Places.setValue("Window/SideBySide", Program.Work.Fields.SideBySide);
    Places.setValue("Window/Dark", Program.Work.Fields.DarkWindows);
    if (!Screen.Ended()) {
        // Both questions come every time, as users know them.
        if (!Unload_Form(Program)) {
            event->ignore();
            return;
        }
        End_Session(Program);
    }
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QList<QUrl> files = event->mimeData()->urls();
    if (files.isEmpty()) return;
    event->acceptProposedAction();
    std::vector<std::string> paths;
    for (const QUrl& file : files)
        paths.push_back(file.toLocalFile().toStdString());
    // The program that the file comes from waits for the end of the drop; questions come after it.
    QTimer::singleShot(0, this, [this, paths] { Open_Dropped_Files(Program, paths); });
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    ResizeDone.start();
}

void MainWindow::Layout_Changed() {
    if (Page_Can_Be_Drawn(Program, Page::Curves)) Resize_Form(Program);
}

}  // namespace tarnvik
