#include "ui/record_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>
#include <QTransposeProxyModel>
#include <algorithm>
#include <cmath>

#include "app/session.h"
#include "records/record_display.h"
#include "ui/icon_family.h"
#include "ui/painting/picture_file.h"
#include "ui/qt_display.h"
#include "ui/text_grid_model.h"

namespace tarnvik {

RecordPage::RecordPage(Session& session, QtDisplay& display) : Program(session), Screen(display) {
    auto* groups = new QHBoxLayout;
    groups->addWidget(Range_Group());
    groups->addWidget(Display_Group());
    groups->addWidget(Stations_Group());
    groups->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(groups);
    layout->addWidget(Pictures(), 1);

    auto* below = new QHBoxLayout;
    auto* path = new QLabel;
    path->setObjectName("Label16");
    path->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* read_out = new QLabel;
    read_out->setObjectName("RecordReadout");
    below->addWidget(read_out);
    below->addStretch(1);
    below->addWidget(path);
    layout->addLayout(below);
    Fields.Text(path, session.Work.Fields.Label16);
    Fields.Text(read_out, session.Work.Fields.RecordReadout);

    Resized.setSingleShot(true);
    Resized.setInterval(0);
    connect(&Resized, &QTimer::timeout, this, &RecordPage::Redraw);
    connect(Ecran, &PictureBox::Resized, this, [this] { Resized.start(); });
    connect(Echelle3, &PictureBox::Resized, this, [this] { Resized.start(); });
    Refresh();
}

void RecordPage::Redraw() {
    if (!Program.Work.Project.SuFile.empty()) Program.Outside.Show.Display_Record();
}

QLineEdit* RecordPage::Number_Field(const char* name, const QString& tooltip, std::string& field) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setToolTip(tooltip);
    edit->setMaximumWidth(fontMetrics().horizontalAdvance("888888.8"));
    edit->setAlignment(Qt::AlignRight);
    Fields.Text(edit, field);
    return edit;
}

QCheckBox* RecordPage::Tick(const char* name, const QString& caption, const QString& tooltip, bool& field,
                            bool redraw) {
    auto* tick = new QCheckBox(caption);
    tick->setObjectName(name);
    tick->setToolTip(tooltip);
    Fields.Tick(tick, field, redraw ? FieldBinder::Reaction([this] { Redraw(); }) : FieldBinder::Reaction());
    return tick;
}

QWidget* RecordPage::Range_Group() {
    MainFields& fields = Program.Work.Fields;
    auto* group = new QGroupBox(tr("Record"));
    auto* grid = new QGridLayout(group);
    auto* first = Number_Field("Text9", tr("First trace shown"), fields.Text9);
    auto* last = Number_Field("Text10", tr("Last trace shown"), fields.Text10);
    const auto typed = [this] {
        Take_Typed_Range(Program.Work);
        Redraw();
    };
    Fields.Finished_Text(first, fields.Text9, typed);
    Fields.Finished_Text(last, fields.Text10, typed);
    auto* identity = new QLabel;
    identity->setObjectName("Text12");
    identity->setToolTip(tr("Record and field record number"));
    identity->setMinimumWidth(fontMetrics().horizontalAdvance("88 / FLDR 8888"));
    Fields.Text(identity, fields.Text12);
    HScroll2 = new QScrollBar(Qt::Horizontal);
    HScroll2->setObjectName("HScroll2");
    HScroll2->setToolTip(tr("Record number"));
    Fields.Scroll(HScroll2, fields.HScroll2, [this, &fields] {
        Select_Record(Program.Work, fields.HScroll2.Value);
        Redraw();
    });
    grid->addWidget(new QLabel(tr("Traces")), 0, 0);
    grid->addWidget(first, 0, 1);
    grid->addWidget(new QLabel(tr("to")), 0, 2);
    grid->addWidget(last, 0, 3);
    grid->addWidget(identity, 1, 0, 1, 2);
    grid->addWidget(HScroll2, 1, 2, 1, 2);
    return group;
}

QWidget* RecordPage::Display_Group() {
    MainFields& fields = Program.Work.Fields;
    auto* group = new QGroupBox(tr("Display"));
    auto* grid = new QGridLayout(group);
    auto* style = new QComboBox;
    style->setObjectName("Combo1");
    style->addItems({"Variable area", "Wiggle only", "Color"});
    Fields.Choice(style, fields.Combo1, [this] { Redraw(); });
    auto* gain = Number_Field("Text11", tr("Gain of the amplitudes"), fields.Text11);
    Fields.Finished_Text(gain, fields.Text11, [this] { Redraw(); });
    auto* curve = Number_Field("Text21", tr("Enter the TT Number to display on Records"), fields.Text21);
    Fields.Finished_Text(curve, fields.Text21, [this] { Redraw(); });
    grid->addWidget(style, 0, 0, 1, 2);
    grid->addWidget(new QLabel(tr("Gain")), 1, 0);
    grid->addWidget(gain, 1, 1);
    grid->addWidget(Tick("clip", "Clip amplitude", "Amplitude will be limited", fields.clip, true), 0, 2);
    grid->addWidget(Tick("Check3", "Trace egalisation", "Trace size egalization", fields.Check3, true), 1, 2);
    grid->addWidget(Tick("Check7", "Overdraw records",
                         "You can display 2 files together, just srcoll on next shot", fields.Check7, true),
                    0, 3);
    grid->addWidget(Tick("Check6", "Display TT on record", "Check here to display TT on Field records",
                         fields.Check6, true),
                    1, 3);
    grid->addWidget(new QLabel(tr("Curve")), 0, 4);
    grid->addWidget(curve, 0, 5);
    return group;
}

QWidget* RecordPage::Stations_Group() {
    MainFields& fields = Program.Work.Fields;
    auto* group = new QGroupBox(tr("Stations"));
    auto* grid = new QGridLayout(group);
    grid->addWidget(new QLabel(tr("Shot")), 0, 0);
    grid->addWidget(Number_Field("Text13", tr("Station of the shot"), fields.Text13), 0, 1);
    grid->addWidget(new QLabel(tr("Geophone")), 1, 0);
    grid->addWidget(Number_Field("Text18", tr("Station of the first geophone shown"), fields.Text18), 1, 1);
    grid->addWidget(Tick("Check8", "Recording direction inverted", "", fields.Check8, false), 0, 2);
    grid->addWidget(Tick("Check2", "Multi spead profile", "Click hre if you have many spread conseccutively",
                         fields.Check2, false),
                    1, 2);
    return group;
}

QWidget* RecordPage::Pictures() {
    auto* pane = new QWidget;
    Ecran = new PictureBox;
    Echelle3 = new PictureBox;
    Ecran->setObjectName("Ecran");
    Echelle3->setObjectName("Echelle3");
    Ecran->setAccessibleName(tr("Field record"));
    const PageLayout page = Record_Layout();
    Ecran->Canvas().Set_Margins(page.Margins);
    Echelle3->Canvas().Follow_Rows_Of(&Ecran->Canvas());
    Echelle3->setFixedWidth(static_cast<int>(std::lround(page.StripY * logicalDpiX() / 72.0)));
    Echelle3->setFocusPolicy(Qt::NoFocus);
    Screen.Register(Canvas::Ecran, Ecran);
    Screen.Register(Canvas::Echelle3, Echelle3);

    // The factors stand above their traces: the logic's column is shown as a row.
    size_grid = new QTableView;
    size_grid->setObjectName("size_grid");
    size_grid->setToolTip(tr("Size factor of each trace"));
    auto* model = new TextGridModel(Program.Work.Grids.size_grid, size_grid);
    model->OnEdited = [this](int, int) { Redraw(); };
    auto* turned = new QTransposeProxyModel(size_grid);
    turned->setSourceModel(model);
    size_grid->setModel(turned);
    size_grid->horizontalHeader()->hide();
    size_grid->verticalHeader()->hide();
    size_grid->horizontalHeader()->setMinimumSectionSize(4);
    size_grid->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    size_grid->setFixedHeight(fontMetrics().height() + 6);
    size_grid->setFrameShape(QFrame::NoFrame);
    size_grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    size_grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    size_grid->setTextElideMode(Qt::ElideNone);
    Fields.Follow([this, model] {
        model->Refresh();
        Fit_Sizes();
    });

    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(size_grid, 0, 1);
    grid->addWidget(Echelle3, 1, 0);
    grid->addWidget(Ecran, 1, 1);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
    return pane;
}

void RecordPage::Fit_Sizes() {
    const int traces = size_grid->model()->columnCount();
    size_grid->setVisible(traces > 0);
    const double width = Ecran->width();
    for (int trace = 0; trace < traces; ++trace) {
        const int left = static_cast<int>(std::lround(width * trace / traces));
        const int right = static_cast<int>(std::lround(width * (trace + 1) / traces));
        size_grid->setColumnWidth(trace, right - left);
    }
}

void RecordPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    QTimer::singleShot(0, this, [this] { Fit_Sizes(); });
}

void RecordPage::Refresh() {
    Fields.Refresh();
}

}  // namespace tarnvik
