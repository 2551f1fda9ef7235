#include "ui/forms/merge_file_form.h"

#include "ui/forms/file_table.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/long_work.h"
#include "ui_merge_file_form.h"

namespace tarnvik {

MergeFileForm::MergeFileForm(Ports& ports, const std::string& title, const std::vector<std::string>& files)
    : Logic(ports, title) {
    Ui::MergeFileForm controls;
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
    Files->Add_Button("SortByRecord", tr("By r&ecord"), tr("Files in the order of their first records"),
                      [this] { Logic.Sort_By_Record(); });
    controls.filesPlace->addWidget(Files);
    const auto changed = [this] {
        Logic.Changed();
        Refresh();
    };
    Fields.Tick(controls.NumberAnew, Logic.NumberAnew, changed);
    Fields.Text(controls.FirstRecord, Logic.FirstRecord, changed);
    controls.FirstRecord->setFixedWidth(fontMetrics().horizontalAdvance("8888888888") + 16);
    Fields.Enabled(controls.FirstRecord, [this] { return Logic.NumberAnew; });
    Fields.Choice(controls.Length, Logic.Length, changed);
    Fields.Text(controls.Out, Logic.Out);
    Fields.Text(controls.Hint, Logic.Hint);
    controls.Hint->setMinimumHeight(fontMetrics().lineSpacing() * 3);
    Fields.Command(controls.AskOut, [this] {
        Logic.Ask_For_Out();
        Refresh();
    });
    Fields.Command(controls.Go, [this] { Merge(); });
    Fields.Enabled(controls.Go, [this] { return Logic.Ready(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    for (QPushButton* button : {controls.AskOut, controls.Go, controls.Quit})
        button->setAutoDefault(false);
    On_Ctrl_Enter(this, [this] { Merge(); });
    On_Escape(this, [this] { Close_Me(); });
    Logic.Add(files);
}

void MergeFileForm::Merge() {
    const auto told = [](std::int64_t done, std::int64_t all) {
        return tr("Trace %L1 of %L2").arg(done).arg(all);
    };
    Run_Long_Work(this, told, [this](const TraceProgress& progress) { Logic.Merge(progress); });
    Refresh();
}

void MergeFileForm::Refresh() {
    Form::Refresh();
    Files->Refresh();
}

}  // namespace tarnvik
