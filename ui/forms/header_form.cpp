#include "ui/forms/header_form.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHeaderView>
#include <algorithm>
#include <memory>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/long_work.h"
#include "ui/header_plot.h"
#include "ui/spreadsheet_view.h"
#include "ui/text_grid_model.h"
#include "ui_header_form.h"

namespace tarnvik {

namespace {

constexpr QSize wished_size(1160, 660);

/// The cells of FlexArray: what is typed goes into the file.
class HeaderCells : public CellEdits {
  public:
    HeaderCells(Header& dialog, std::function<void()> changed)
        : Dialog(dialog), Changed(std::move(changed)) {}

    bool Editable(int row, int column) const override { return Dialog.Editable(row, column); }
    bool Type(int row, int column, const std::string& text) override {
        const bool taken = Dialog.Type(row, column, text);
        Changed();
        return taken;
    }
    void Paste(int row, int column, const std::string& text) override {
        Dialog.Paste(row, column, Block_Cells(text));
        Changed();
    }
    std::string Copy(CellBlock block) const override { return Block_Text(Dialog.FlexArray, block); }
    void Clear(CellBlock block) override {
        Dialog.Clear(block.FirstRow, block.FirstColumn, block.LastRow, block.LastColumn);
        Changed();
    }

  private:
    Header& Dialog;
    std::function<void()> Changed;
};

}  // namespace

HeaderForm::HeaderForm(Session& session, QtDisplay&) : Program(session), Logic(session.HeaderEditor) {
    Ui::HeaderForm controls;
    controls.setupUi(this);
    Pages = controls.SSTab1;
    Logic.Load();
    Fields.Finished_Text(controls.Texth1, Logic.Texth1, [this] { Logic.File_Typed(); });
    On_Double_Click(controls.Texth1, [this] { Logic.Choose_File(); });
    Fields.Command(controls.BrowseTexth1, [this] { Logic.Choose_File(); });
    Fields.Command(controls.Commandh1, [this] { Logic.Commandh1(); });
    Fields.Text(controls.Hint, Logic.Hint);
    controls.Hint->setMinimumHeight(fontMetrics().height());
    controls.lastRow->setStretch(0, 1);
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    Tie_Values(controls);
    Tie_Single_Word(controls);
    Tie_Update(controls);
    Tie_Copy(controls);
    Tie_Excel(controls);
    Tie_Geometry(controls);
    Tie_Plot(controls);

    On_Enter(this, [this] { Return_Pressed(); });
    On_Escape(this, [this] { Close_Me(); });
}

void HeaderForm::Tie_Values(Ui::HeaderForm& controls) {
    Make_Grid();
    controls.gridPlace->addWidget(Grid);
    Fields.Text(controls.Texth2, Logic.Texth2);
    Fields.Text(controls.Texth3, Logic.Texth3);
    for (QLineEdit* field : {controls.Texth2, controls.Texth3})
        field->setFixedWidth(fontMetrics().horizontalAdvance("8888888") + 16);
    RangeFields[0] = controls.Texth1;
    RangeFields[1] = controls.Texth2;
    RangeFields[2] = controls.Texth3;
    Fields.Command(controls.Command16, [this] { Logic.Command16(); });
    Fields.Command(controls.Command17, [this] { Logic.Command17(); });
    Fields.Enabled(controls.Command16, [this] { return Logic.Has_Previous(); });
    Fields.Enabled(controls.Command17, [this] { return Logic.Has_Next(); });
    controls.Command16->setShortcut(Qt::ALT | Qt::Key_Left);
    controls.Command17->setShortcut(Qt::ALT | Qt::Key_Right);
    Fields.Command(controls.Command9, [this] { Logic.Command9(); });
    const auto describe = [this, text = controls.WordText] {
        text->setText(QString::fromStdString(Logic.Word_Described(Grid->currentIndex().column())));
    };
    connect(Grid->selectionModel(), &QItemSelectionModel::currentChanged, this, describe);
    Fields.Follow(describe);
}

void HeaderForm::Make_Grid() {
    Grid = new SpreadsheetView(Logic.FlexArray,
                               std::make_unique<HeaderCells>(Logic, [this] { Form::Refresh(); }));
    Grid->setObjectName("FlexArray");
    Grid->setAccessibleName(tr("Header words of the traces, a row for each trace"));
    Grid->Key_Allowed = [](QChar key) { return QStringLiteral("-0123456789").contains(key); };
    Grid->Cells().Look_Of = [](int, int column) {
        return Header::Takes_Integer_Into_Float(column) ? TextGridModel::Look::Grouped
                                                        : TextGridModel::Look::Plain;
    };
    Grid->Cells().Heading_Tip = [this](int section, Qt::Orientation orientation) -> QString {
        if (orientation == Qt::Vertical) return tr("Number of the trace in the file");
        return QString::fromStdString(Logic.Word_Described(section));
    };
    Grid->verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("Trace Nb") + 16);
    connect(&Grid->Cells(), &QAbstractItemModel::modelReset, this, &HeaderForm::Set_Column_Widths);
    Set_Column_Widths();
}

void HeaderForm::Set_Column_Widths() {
    const int least = fontMetrics().horizontalAdvance("-8888888") + 12;
    for (int word = 1; word <= header_words; ++word) {
        const QString heading = QString::fromUtf8(Header_Word(word).Name);
        Grid->setColumnWidth(word, std::max(least, fontMetrics().horizontalAdvance(heading) + 16));
    }
}

void HeaderForm::Tie_Single_Word(Ui::HeaderForm& controls) {
    for (int word = 1; word <= header_words; ++word)
        controls.Combo1->addItem(QString::fromStdString(Listed_Label(word)));
    Fields.Choice(controls.Combo1, Logic.Combo1);
    auto* ways = new QButtonGroup(this);
    const std::pair<QAbstractButton*, ChangeWay> buttons[] = {
        {controls.Check4, ChangeWay::Constant},       {controls.Check7, ChangeWay::Multiply},
        {controls.Check6, ChangeWay::Increment},      {controls.Check5, ChangeWay::Channels},
        {controls.Check1, ChangeWay::ValueByTrace},   {controls.Check2, ChangeWay::ValueByShot},
        {controls.Check3, ChangeWay::ValueByReceiver}};
    for (const auto& [button, way] : buttons)
        ways->addButton(button, static_cast<int>(way));
    Fields.Choice(ways, Logic.Way, [this] { Form::Refresh(); });

    const auto only_with = [this](std::initializer_list<QWidget*> parts,
                                  std::initializer_list<ChangeWay> with) {
        for (QWidget* part : parts) {
            Fields.Enabled(part, [this, with = std::vector<ChangeWay>(with)] {
                return std::find(with.begin(), with.end(), static_cast<ChangeWay>(Logic.Way)) != with.end();
            });
        }
    };
    using enum ChangeWay;
    only_with({controls.Text4}, {Constant});
    only_with({controls.Text9}, {Multiply});
    only_with({controls.Text7, controls.Text10, controls.LabelText10}, {Increment});
    only_with({controls.Text8, controls.LabelText8}, {ValueByReceiver});
    only_with({controls.Text6, controls.LabelText6}, {Channels, ValueByShot, ValueByReceiver});
    only_with({controls.Text5, controls.LabelText5, controls.BrowseText5},
              {ValueByTrace, ValueByShot, ValueByReceiver});

    const int width = fontMetrics().horizontalAdvance("-2147483648") + 16;
    for (const auto& [field, text] : {std::pair(controls.Text2, &Logic.Text2),
                                      {controls.Text3, &Logic.Text3},
                                      {controls.Text4, &Logic.Text4},
                                      {controls.Text9, &Logic.Text9},
                                      {controls.Text7, &Logic.Text7},
                                      {controls.Text10, &Logic.Text10},
                                      {controls.Text8, &Logic.Text8},
                                      {controls.Text6, &Logic.Text6}}) {
        Fields.Text(field, *text);
        field->setFixedWidth(width);
    }
    Fields.Text(controls.Text5, Logic.Text5);
    On_Double_Click(controls.Text5, [this] { Logic.Choose_Values(); });
    Fields.Command(controls.BrowseText5, [this] { Logic.Choose_Values(); });
    controls.wordGrid->setColumnStretch(4, 1);
    controls.wayGrid->setColumnStretch(4, 1);
    controls.wayGrid->setHorizontalSpacing(12);
    Fields.Command(controls.Command1,
                   [this] { Run_Long([this](const TraceProgress& told) { Logic.Command1(told); }); });
    Fields.Command(controls.Command4, [this] { Logic.Command4(); });
}

void HeaderForm::Tie_Update(Ui::HeaderForm& controls) {
    const std::pair<QPushButton*, void (Header::*)(const TraceProgress&)> buttons[] = {
        {controls.Check10, &Header::Check10},
        {controls.Check8, &Header::Check8},
        {controls.Check9, &Header::Check9},
        {controls.UpdateVelocities, &Header::Update_Velocities}};
    for (const auto& [button, run] : buttons) {
        Fields.Command(button, [this, run = run] {
            Run_Long([this, run](const TraceProgress& told) { (Logic.*run)(told); });
        });
    }
    controls.updateGrid->setColumnStretch(1, 1);
    controls.updateGrid->setHorizontalSpacing(16);
    Fields.Command(controls.Command5, [this] { Logic.Command5(); });
}

void HeaderForm::Tie_Copy(Ui::HeaderForm& controls) {
    Fields.Text(controls.Textc1, Logic.Textc1);
    Fields.Text(controls.Textc2, Logic.Textc2);
    On_Double_Click(controls.Textc1, [this] { Logic.Choose_Input(); });
    On_Double_Click(controls.Textc2, [this] { Logic.Choose_Output(); });
    Fields.Command(controls.BrowseTextc1, [this] { Logic.Choose_Input(); });
    Fields.Command(controls.BrowseTextc2, [this] { Logic.Choose_Output(); });
    Fields.Tick(controls.Optionc1, Logic.WholeHeader, [this] { Form::Refresh(); });
    Fields.Follow([this, one = controls.Optionc2] { one->setChecked(!Logic.WholeHeader); });
    for (int word = 1; word <= header_words; ++word)
        controls.Comboc1->addItem(QString::fromStdString(Copy_Label(word)));
    Fields.Choice(controls.Comboc1, Logic.Comboc1);
    Fields.Tick(controls.Checkc1, Logic.Checkc1);
    for (QWidget* part : std::initializer_list<QWidget*>{controls.Comboc1, controls.Checkc1})
        Fields.Enabled(part, [this] { return !Logic.WholeHeader; });
    controls.copyGrid->setColumnStretch(1, 1);
    Fields.Command(controls.Commandc1,
                   [this] { Run_Long([this](const TraceProgress& told) { Logic.Commandc1(told); }); });
    Fields.Command(controls.Command7, [this] { Logic.Command7(); });
}

void HeaderForm::Tie_Excel(Ui::HeaderForm& controls) {
    Bar = controls.xProgressBar;
    Fields.Tick(controls.XCheck1, Logic.XCheck1, [this] { Form::Refresh(); });
    for (const auto& [field, text] :
         {std::pair(controls.xText2, &Logic.xText2), {controls.xText3, &Logic.xText3}}) {
        Fields.Text(field, *text);
        Fields.Enabled(field, [this] { return !Logic.XCheck1; });
        field->setFixedWidth(fontMetrics().horizontalAdvance("8888888") + 16);
    }
    auto* list = controls.xText4;
    for (int word = 1; word <= header_words; ++word) {
        list->addItem(QString::fromStdString(Listed_Label(word)));
        list->item(word - 1)->setSelected(Logic.xText4.contains(word));
    }
    connect(list, &QListWidget::itemSelectionChanged, this, [this, list] {
        Logic.xText4.clear();
        for (int word = 1; word <= header_words; ++word) {
            if (list->item(word - 1)->isSelected()) Logic.xText4.insert(word);
        }
    });
    Fields.Command(controls.XCommand2,
                   [this] { Run_Long([this](const TraceProgress& told) { Logic.XCommand2(told); }); });
    Fields.Command(controls.spreadsheet, [this] { Logic.Header_spreadsheet(); });
    Fields.Enabled(controls.spreadsheet, [this] { return !Logic.LastSpreadsheet.empty(); });
    Fields.Command(controls.Command8, [this] { Logic.Command8(); });
}

void HeaderForm::Tie_Geometry(Ui::HeaderForm& controls) {
    for (const auto& [list, scale] :
         {std::pair(controls.scalco, &Logic.scalco), {controls.scalel, &Logic.scalel}}) {
        list->addItems({"0", "1", "10", "100", "1000", "-10", "-100", "-1000"});
        list->setFixedWidth(fontMetrics().horizontalAdvance("-10000") + 48);
        Fields.Text(list, *scale);
    }
    controls.geometryGrid->setColumnStretch(1, 1);
    controls.geometryGrid->setHorizontalSpacing(16);
    Fields.Command(controls.Command10,
                   [this] { Run_Long([this](const TraceProgress& told) { Logic.Command10(told); }); });
    Fields.Command(controls.Command11, [this] { Logic.Command11(); });
    Fields.Command(controls.Command12, [this] { Logic.Command12(); });
}

void HeaderForm::Tie_Plot(Ui::HeaderForm& controls) {
    PlotWord = controls.PlotWord;
    for (int word = 1; word <= header_words; ++word)
        PlotWord->addItem(QString::fromStdString(Listed_Label(word)));
    PlotWord->setCurrentIndex(words::tracf - 1);
    Plot = new HeaderPlot;
    controls.plotPlace->addWidget(Plot);
    controls.PlotPageRows->setStretch(1, 1);
    controls.CheckText->setMaximumHeight(fontMetrics().height() * 7);
    connect(PlotWord, &QComboBox::currentIndexChanged, this, &HeaderForm::Draw_Plot);
    connect(Pages, &QTabWidget::currentChanged, this, &HeaderForm::Draw_Plot);
    connect(Plot, &HeaderPlot::Trace_Clicked, this, [this](int trace) {
        Logic.Show_From(trace);
        Pages->setCurrentIndex(0);
        Grid->setCurrentIndex(Grid->model()->index(1, PlotWord->currentIndex() + 1));
    });
    Fields.Command(controls.CheckFile, [this] { Logic.Check_File(); });
    Fields.Follow([this, text = controls.CheckText] {
        const QString found = QString::fromStdString(Logic.CheckText);
        if (text->toPlainText() != found) text->setPlainText(found);
    });
}

/// All headers are read for it: only while it is in sight, and once for each change.
void HeaderForm::Draw_Plot() {
    if (Plot == nullptr || !Pages->currentWidget()->isAncestorOf(Plot)) return;
    const std::pair now(PlotWord->currentIndex() + 1, Logic.Changes);
    if (now == Plotted) return;
    Plotted = now;
    Plot->Show_Word(Logic.Texth1, now.first);
}

void HeaderForm::On_Double_Click(QWidget* field, std::function<void()> run) {
    field->installEventFilter(this);
    DoubleClicks.emplace_back(field, std::move(run));
}

bool HeaderForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        for (const auto& [field, run] : DoubleClicks) {
            if (field != watched) continue;
            run();
            Refresh();
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void HeaderForm::Run_Long(const std::function<void(const TraceProgress&)>& work) {
    const auto told = [this](std::int64_t done, std::int64_t all) {
        Bar->setMaximum(static_cast<int>(all));
        Bar->setValue(static_cast<int>(done));
        return QString::fromStdString(Logic.Status);
    };
    Run_Long_Work(this, told, work);
    Refresh();
}

/// Return in the fields of the range displays, in the grid it goes down, elsewhere to the next field.
void HeaderForm::Return_Pressed() {
    if (Grid->hasFocus()) return Grid->Move(SpreadsheetView::Step::Down);
    for (QWidget* field : RangeFields) {
        if (!field->hasFocus()) continue;
        if (field == RangeFields[0]) {
            auto* path = qobject_cast<QLineEdit*>(field);
            path->setModified(false);
            Logic.Texth1 = path->text().toStdString();
            Logic.File_Typed();
        }
        Logic.Commandh1();
        Refresh();
        return;
    }
    focusNextChild();
}

QSize HeaderForm::sizeHint() const {
    return QWidget::sizeHint().expandedTo(wished_size);
}

void HeaderForm::Refresh() {
    Form::Refresh();
    Grid->Refresh();
    Draw_Plot();
}

void HeaderForm::Opened() {
    Refresh();
    Grid->setFocus();
}

void HeaderForm::Called() {
    if (Pages->currentIndex() == 0) Grid->setFocus();
}

}  // namespace tarnvik
