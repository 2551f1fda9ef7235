#include "ui/forms/add_csv_form.h"

#include <QHeaderView>
#include <QTableView>

#include "ui/forms/file_table.h"
#include "ui/forms/form_keys.h"
#include "ui/text_grid_model.h"
#include "ui_add_csv_form.h"

namespace tarnvik {

AddCsvForm::AddCsvForm(Ports& ports, const std::string& title, const std::vector<std::string>& files)
    : Logic(ports, title) {
    Ui::AddCsvForm controls;
    controls.setupUi(this);
    Files = new FileTable(Logic.Files, Logic.Row,
                          {.Ask = [this] { Logic.Ask_For_Files(); },
                           .Add = [this](const auto& paths) { Logic.Add(paths); },
                           .Remove = [this] { Logic.Remove(); },
                           .Up = [this] { Logic.Move_Up(); },
                           .Down = [this] { Logic.Move_Down(); },
                           .Chosen = {},
                           .Changed = [this] { Refresh(); }});
    Files->Add_Button("SortByName", tr("By &name"), tr("Files in the order of their names, 2 before 10"),
                      [this] { Logic.Sort_By_Name(); });
    controls.filesPlace->addWidget(Files);
    controls.filesPlace->addWidget(Make_Preview(), 1);
    const auto changed = [this] {
        Logic.Changed();
        Refresh();
    };
    Fields.Tick(controls.LineColumn, Logic.LineColumn, changed);
    Fields.Tick(controls.FillMissing, Logic.FillMissing, changed);
    Fields.Text(controls.Out, Logic.Out);
    Fields.Text(controls.Hint, Logic.Hint);
    controls.Hint->setMinimumHeight(fontMetrics().lineSpacing() * 3);
    Fields.Command(controls.AskOut, [this] {
        Logic.Ask_For_Out();
        Refresh();
    });
    Fields.Command(controls.Go, [this] { Write(); });
    Fields.Enabled(controls.Go, [this] { return Logic.Ready(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    for (QPushButton* button : {controls.AskOut, controls.Go, controls.Quit})
        button->setAutoDefault(false);
    On_Ctrl_Enter(this, [this] { Write(); });
    On_Escape(this, [this] { Close_Me(); });
    Logic.Add(files);
}

QTableView* AddCsvForm::Make_Preview() {
    auto* table = new QTableView;
    table->setObjectName("Preview");
    table->setAccessibleName(tr("First rows of the new file"));
    Rows = new TextGridModel(Logic.Preview, table);
    Rows->Editable = false;
    table->setModel(Rows);
    // Row and column 0 stand in the headings.
    const auto hide_headings = [table] {
        table->setRowHidden(0, true);
        table->setColumnHidden(0, true);
    };
    hide_headings();
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->setMinimumHeight(5 * table->verticalHeader()->defaultSectionSize());
    connect(Rows, &QAbstractItemModel::modelReset, table, [table, hide_headings] {
        hide_headings();
        table->resizeColumnsToContents();
    });
    return table;
}

void AddCsvForm::Write() {
    Logic.Write();
    Refresh();
}

void AddCsvForm::Refresh() {
    Form::Refresh();
    Files->Refresh();
    Rows->Refresh();
}

}  // namespace tarnvik
