#include "ui/forms/conversion_form.h"

#include <QButtonGroup>
#include <QFontDatabase>

#include "ui/forms/file_table.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/long_work.h"
#include "ui/trace_preview.h"
#include "ui_conversion_form.h"

namespace tarnvik {

ConversionForm::ConversionForm(Conversion& logic) : Logic(logic) {
    Ui::ConversionForm controls;
    controls.setupUi(this);
    Pages = controls.pages;
    Files = new FileTable(Logic.Files, Logic.Row,
                          {.Ask = [this] { Logic.Ask_For_Files(); },
                           .Add = [this](const auto& paths) { Logic.Add(paths); },
                           .Remove = [this] { Logic.Remove(); },
                           .Up = {},
                           .Down = {},
                           .Chosen = [this] { Show_Chosen(); },
                           .Changed = [this] { Refresh(); }});
    Files->Add_Button("WholeFolder", tr("&Whole folder"),
                      tr("All files of the kind of the chosen one that lie in its folder"),
                      [this] { Logic.Add_Whole_Folder(); });
    Files->Add_Button("ClearFiles", tr("C&lear"), tr("Takes all files off the list"),
                      [this] { Logic.Clear(); });
    controls.filesPlace->addWidget(Files);
    Preview = new TracePreview;
    controls.previewPlace->addWidget(Preview);

    const auto changed = [this] {
        Logic.Changed();
        Refresh();
    };
    auto* places = new QButtonGroup(this);
    places->addButton(controls.FromHeaders, Conversion::FromHeaders);
    places->addButton(controls.FromTable, Conversion::FromTable);
    places->addButton(controls.Typed, Conversion::Typed);
    Fields.Choice(places, Logic.PlacesFrom, changed);
    Fields.Choice(controls.Order, Logic.Order, changed);
    Fields.Text(controls.Spacing, Logic.Spacing, changed);
    Fields.Text(controls.FirstReceiver, Logic.FirstReceiver, changed);
    Fields.Text(controls.Shots, Logic.Shots, changed);
    Fields.Finished_Text(controls.Table, Logic.Table, changed);
    const int width = fontMetrics().horizontalAdvance("8888888888") + 16;
    for (QLineEdit* number : {controls.Spacing, controls.FirstReceiver})
        number->setFixedWidth(width);
    for (QWidget* typed : std::initializer_list<QWidget*>{controls.Spacing, controls.FirstReceiver,
                                                          controls.Shots, controls.SpacingLabel,
                                                          controls.FirstReceiverLabel, controls.ShotsLabel})
        Fields.Enabled(typed, [this] { return Logic.PlacesFrom == Conversion::Typed; });
    for (QWidget* table : std::initializer_list<QWidget*>{controls.Table, controls.AskTable})
        Fields.Enabled(table, [this] { return Logic.PlacesFrom == Conversion::FromTable; });
    Fields.Text(controls.Out, Logic.Out, changed);
    Fields.Text(controls.Hint, Logic.Hint);
    controls.Hint->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    Fields.Follow([this, text = controls.Details] {
        const QString details = QString::fromStdString(Logic.Details);
        if (text->toPlainText() != details) text->setPlainText(details);
    });
    Fields.Follow([this, text = controls.Report] {
        const QString report = QString::fromStdString(Logic.Report);
        if (text->toPlainText() != report) text->setPlainText(report);
    });
    Fields.Enabled(controls.SaveReport, [this] { return !Logic.Report.empty(); });
    Fields.Command(controls.AskTable, [this] {
        Logic.Ask_For_Table();
        Refresh();
    });
    Fields.Command(controls.AskOut, [this] {
        Logic.Ask_For_Out();
        Refresh();
    });
    Fields.Command(controls.SaveReport, [this] { Logic.Save_Report(); });
    Fields.Command(controls.Go, [this] { Convert(); });
    Fields.Enabled(controls.Go, [this] { return Logic.Ready(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    for (QPushButton* button :
         {controls.AskTable, controls.AskOut, controls.SaveReport, controls.Go, controls.Quit})
        button->setAutoDefault(false);
    On_Ctrl_Enter(this, [this] { Convert(); });
    On_Escape(this, [this] { Close_Me(); });
}

void ConversionForm::Convert() {
    const auto told = [](std::int64_t done, std::int64_t all) { return tr("%L1 of %L2").arg(done).arg(all); };
    const std::string before = Logic.Report;
    Run_Long_Work(this, told, [this](const TraceProgress& progress) { Logic.Convert(progress); });
    Refresh();
    if (Logic.Report != before) Pages->setCurrentIndex(1);
}

void ConversionForm::Show_Chosen() {
    Logic.Row_Chosen();
    Form::Refresh();
    const FieldFile* file = Logic.Chosen();
    const std::string path = file == nullptr ? std::string() : file->File;
    if (std::exchange(Shown, path) != path) Preview->Show_File(file);
}

void ConversionForm::Refresh() {
    Files->Refresh();
    Show_Chosen();
}

}  // namespace tarnvik
