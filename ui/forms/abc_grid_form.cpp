#include "ui/forms/abc_grid_form.h"

#include <QButtonGroup>
#include <QHeaderView>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "app/session.h"
#include "ui/cell_edits.h"
#include "ui/spreadsheet_view.h"
#include "ui/text_grid_model.h"
#include "ui_abc_grid_form.h"

namespace tarnvik {

namespace {

/// Cells of the upper grid: what may be typed is the dialog's to decide.
class ReceiverCells : public CellEdits {
  public:
    explicit ReceiverCells(ABCGridF& logic) : Logic(logic) {}

    bool Editable(int row, int column) const override { return Logic.Editable(row, column); }
    bool Type(int row, int column, const std::string& text) override { return Logic.Type(row, column, text); }
    void Paste(int row, int column, const std::string& text) override {
        // The first cell that refuses has told why; the rest is left as it is.
        int to_row = row;
        for (const auto& cells : Block_Cells(text)) {
            int to_column = column;
            for (const std::string& cell : cells) {
                if (Logic.ABCGrid.Has(to_row, to_column) && !Logic.Type(to_row, to_column, cell)) return;
                ++to_column;
            }
            ++to_row;
        }
    }
    std::string Copy(CellBlock block) const override { return Block_Text(Logic.ABCGrid, block); }
    void Clear(CellBlock block) override {
        for (int row = block.FirstRow; row <= block.LastRow; ++row) {
            for (int column = block.FirstColumn; column <= block.LastColumn; ++column) {
                if (!Logic.Type(row, column, "0")) return;
            }
        }
    }

  private:
    ABCGridF& Logic;
};

/// Cells of the lower grid, which are looked at.
class ShotCells : public CellEdits {
  public:
    explicit ShotCells(ABCGridF& logic) : Logic(logic) {}

    bool Editable(int, int) const override { return false; }
    bool Type(int, int, const std::string&) override {
        Logic.Shot_Grid_Touched();
        return false;
    }
    void Paste(int, int, const std::string&) override { Logic.Shot_Grid_Touched(); }
    std::string Copy(CellBlock block) const override { return Block_Text(Logic.ABCGrid2, block); }
    void Clear(CellBlock) override { Logic.Shot_Grid_Touched(); }

  private:
    ABCGridF& Logic;
};

}  // namespace

AbcGridForm::AbcGridForm(Session& session, QtDisplay&) : Program(session) {
    Ui::AbcGridForm controls;
    controls.setupUi(this);
    ABCGridF& logic = session.Abc;
    Add_Grids(controls.upper, controls.lower);
    auto* options = new QButtonGroup(this);
    options->addButton(controls.Option1, ABCGridF::grid_values);
    options->addButton(controls.Option2, ABCGridF::interpolation);
    connect(options, &QButtonGroup::idToggled, this, [&logic](int id, bool on) {
        if (!on || logic.AbcOption == id) return;
        logic.AbcOption = static_cast<std::int16_t>(id);
        logic.Option_Changed();
    });
    Fields.Follow([options, &logic] {
        QAbstractButton* button = options->button(logic.AbcOption);
        if (button != nullptr && !button->isChecked()) button->setChecked(true);
    });
    controls.Text2->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), this));
    const int width = fontMetrics().horizontalAdvance("88888.8") + 12;
    for (QLineEdit* edit : {controls.Text2, controls.Text23})
        edit->setFixedWidth(width);
    Fields.Text(controls.Text2, logic.Layers);
    Fields.Text(controls.Text23, session.Work.Fields.Text23);
    Fields.Command(controls.CalculBt, [&logic] { logic.CalculBt(); });
    Fields.Command(controls.SaveBt, [&logic] { logic.SaveBt(); });
    Fields.Command(controls.Command1, [&logic] { logic.Command1(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    Fields.Follow(
        [this, &logic] { window()->setWindowTitle(tr("ABC Grid  ") + QString::fromStdString(logic.Title)); });
    // Return and Escape are the box's own: in a cell of the grid they end the edit.
    // All rows are in sight, and a dozen receivers.
    const int line = fontMetrics().height() + 8;
    Receivers->setMinimumHeight(13 * line + 24);
    Shots->setMinimumHeight(8 * line);
    setMinimumWidth(fontMetrics().horizontalAdvance("88888.88") * 12);
}

void AbcGridForm::Add_Grids(QVBoxLayout* upper, QVBoxLayout* lower) {
    ABCGridF& logic = Program.Abc;
    Receivers = new SpreadsheetView(logic.ABCGrid, std::make_unique<ReceiverCells>(logic), this);
    Receivers->setObjectName("ABCGrid");
    Receivers->setToolTip(
        tr("Values of the receivers; with \"Grid Values\" intercept times and velocities can be typed"));
    Receivers->Cells().Look_Of = [&logic](int row, int column) {
        return logic.Editable(row, column) ? TextGridModel::Look::Plain : TextGridModel::Look::ReadOnly;
    };
    Shots = new SpreadsheetView(logic.ABCGrid2, std::make_unique<ShotCells>(logic), this);
    Shots->setObjectName("ABCGrid2");
    Shots->setToolTip(
        tr("Intercept times and critical distances of the shots, corrected in the depth "
           "computation"));
    Shots->Cells().Look_Of = [](int, int) { return TextGridModel::Look::ReadOnly; };
    Receivers->On_Refused = [&logic](int row, int column, bool clicked) {
        clicked ? logic.Double_Clicked(row, column) : void(logic.Type(row, column, ""));
    };
    Shots->On_Refused = [&logic](int, int, bool) { logic.Shot_Grid_Touched(); };
    upper->addWidget(Receivers);
    lower->addWidget(Shots);
}

void AbcGridForm::Fit_Columns() {
    const int value = fontMetrics().horizontalAdvance("88888.88") + 12;
    for (int column = 0; column < Receivers->Cells().columnCount(); ++column)
        Receivers->setColumnWidth(column, value);
    const int both = fontMetrics().horizontalAdvance("888.8/888.8") + 12;
    for (int column = 0; column < Shots->Cells().columnCount(); ++column)
        Shots->setColumnWidth(column, both);
}

void AbcGridForm::Refresh() {
    Form::Refresh();
    Receivers->Refresh();
    Shots->Refresh();
}

void AbcGridForm::Opened() {
    Program.Abc.Load();
    Refresh();
    Fit_Columns();
    Receivers->setFocus();
}

void AbcGridForm::Closed() {
    Program.Abc.Close();
}

}  // namespace tarnvik
