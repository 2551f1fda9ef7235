#include "ui/forms/rezize_form.h"

#include <QHeaderView>
#include <QTableView>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/text_grid_model.h"
#include "ui_rezize_form.h"

namespace tarnvik {

namespace {

constexpr int rows_in_sight = 7;

}  // namespace

RezizeForm::RezizeForm(Session& session, QtDisplay&) : Logic(session.SuUtility) {
    Ui::RezizeForm controls;
    controls.setupUi(this);
    controls.gridPlace->addWidget(Make_List());
    Input = controls.Text1;
    Logic.Load();

    Fields.Finished_Text(controls.Text1, Logic.Text1, [this] { Logic.Input_Typed(); });
    Fields.Text(controls.Text2, Logic.Text2);
    for (QLineEdit* path : {controls.Text1, controls.Text2})
        path->setMinimumWidth(fontMetrics().averageCharWidth() * 70);
    for (const auto& [label, text] : {std::pair(controls.OriginalTime, &Logic.OriginalTime),
                                      {controls.OriginalSamples, &Logic.OriginalSamples},
                                      {controls.OriginalInterval, &Logic.OriginalInterval}}) {
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Fields.Text(label, *text);
    }
    Fields.Text(controls.Text8, Logic.Text8);
    Fields.Text(controls.Text14, Logic.Text14, [this] {
        Logic.Samples_Typed();
        Form::Refresh();
    });
    Fields.Text(controls.Text16, Logic.Text16, [this] {
        Logic.Interval_Typed();
        Form::Refresh();
    });
    Fields.Text(controls.Text9, Logic.Text9);
    Fields.Text(controls.Text10, Logic.Text10);
    const int width = fontMetrics().horizontalAdvance("8888888888") + 16;
    for (QLineEdit* number :
         {controls.Text8, controls.Text14, controls.Text16, controls.Text9, controls.Text10})
        number->setFixedWidth(width);
    for (QGridLayout* grid : {controls.timeGrid, controls.samplesGrid, controls.channelsGrid})
        grid->setColumnStretch(3, 1);
    connect(controls.SSTab1, &QTabWidget::currentChanged, this, [this](int page) { Logic.SSTab1 = page; });
    Fields.Follow([this, pages = controls.SSTab1] { pages->setCurrentIndex(Logic.SSTab1); });
    Fields.Text(controls.Hint, Logic.Hint);
    controls.Hint->setMinimumHeight(fontMetrics().height());

    Fields.Command(controls.Command1, [this] { Logic.Command1(); });
    Fields.Command(controls.Command2, [this] { Logic.Command2(); });
    Fields.Command(controls.Command3, [this] { Logic.Command3(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    for (QPushButton* button : {controls.Command1, controls.Command2, controls.Command3, controls.Quit})
        button->setAutoDefault(false);
    controls.Command3->setDefault(true);
    On_Enter(this, [this] { Return_Pressed(); });
    On_Escape(this, [this] { Close_Me(); });
}

QTableView* RezizeForm::Make_List() {
    auto* list = new QTableView;
    list->setObjectName("RecordList");
    list->setAccessibleName(tr("Records of the input file, with channels, time and samples"));
    Records = new TextGridModel(Logic.Records, list);
    Records->Editable = false;
    list->setModel(Records);
    // Row and column 0 stand in the headings.
    const auto hide_headings = [list] {
        list->setRowHidden(0, true);
        list->setColumnHidden(0, true);
    };
    hide_headings();
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setTabKeyNavigation(false);
    list->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    list->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    list->verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("Record n° 8888") + 16);
    list->setMinimumWidth(fontMetrics().horizontalAdvance("Record n° 8888 Channels Time (ms) Samples") + 110);
    list->setMinimumHeight((rows_in_sight + 1) * list->verticalHeader()->defaultSectionSize());
    connect(Records, &QAbstractItemModel::modelReset, list, hide_headings);
    return list;
}

/// Return in the input field takes the file up, elsewhere it makes the new one.
void RezizeForm::Return_Pressed() {
    if (Input->hasFocus() && Input->isModified()) {
        Input->setModified(false);
        Logic.Input_Typed();
    } else {
        Logic.Command3();
    }
}

void RezizeForm::Refresh() {
    Form::Refresh();
    Records->Refresh();
}

void RezizeForm::Opened() {
    Refresh();
    if (auto* field = findChild<QLineEdit*>("Text8"); field != nullptr) {
        field->setFocus();
        field->selectAll();
    }
}

}  // namespace tarnvik
