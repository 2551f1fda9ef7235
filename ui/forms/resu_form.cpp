#include "ui/forms/resu_form.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeySequence>
#include <algorithm>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/spreadsheet_view.h"
#include "ui/text_grid_model.h"
#include "ui_resu_form.h"

namespace tarnvik {

namespace {

constexpr int fewest_rows_in_sight = 8;
constexpr int most_rows_in_sight = 24;

/// The cells of resultat_grid: what is typed goes through the rules of the dialog.
class ResultCells : public CellEdits {
  public:
    ResultCells(resu& dialog, std::function<void()> changed) : Dialog(dialog), Changed(std::move(changed)) {}

    bool Editable(int row, int column) const override { return Dialog.Editable(row, column); }
    bool Type(int row, int column, const std::string& text) override {
        const bool taken = Dialog.Type(row, column, text);
        Changed();
        return taken;
    }
    void Paste(int row, int column, const std::string& text) override {
        // The first text that is no number is told; the rest is left as it is.
        for (const auto& cells : Block_Cells(text)) {
            int to_column = column;
            for (const std::string& cell : cells) {
                if (Dialog.Editable(row, to_column) && !Dialog.Type(row, to_column, cell)) return Changed();
                ++to_column;
            }
            ++row;
        }
        Changed();
    }
    std::string Copy(CellBlock block) const override { return Block_Text(Dialog.resultat_grid, block); }
    void Clear(CellBlock block) override {
        for (int row = block.FirstRow; row <= block.LastRow; ++row) {
            for (int column = block.FirstColumn; column <= block.LastColumn; ++column)
                Dialog.Type(row, column, "");
        }
        Changed();
    }

  private:
    resu& Dialog;
    std::function<void()> Changed;
};

}  // namespace

ResuForm::ResuForm(Session& session, QtDisplay&) : Program(session) {
    Ui::ResuForm controls;
    controls.setupUi(this);
    resu& logic = session.Results;
    Make_Grid();
    controls.gridPlace->addWidget(Grid);
    Fields.Text(controls.Date, logic.Date);
    Fields.Text(controls.Hint, logic.Hint);
    controls.Hint->setMinimumHeight(fontMetrics().height());
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.SaveWorkbook, [&logic] { logic.Save_Workbook(); });
    Fields.Command(controls.CopyTable, [this, &logic] {
        const TextGrid& grid = logic.resultat_grid;
        QGuiApplication::clipboard()->setText(
            QString::fromStdString(Block_Text(grid, {0, 1, grid.Rows() - 1, grid.Columns() - 1})));
        logic.Hint = "The table is on the clipboard, with its headings";
        Form::Refresh();
    });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    controls.Command2->setShortcut(QKeySequence::Save);
    // Return in the grid goes to the next cell.
    On_Enter(this, [this] {
        if (Grid->hasFocus()) Grid->Move(SpreadsheetView::Step::Down);
    });
    On_Escape(this, [this] { Close_Me(); });
}

void ResuForm::Make_Grid() {
    resu& logic = Program.Results;
    Grid = new SpreadsheetView(logic.resultat_grid,
                               std::make_unique<ResultCells>(logic, [this] { Form::Refresh(); }));
    Grid->setObjectName("resultat_grid");
    Grid->setAccessibleName(tr("Place, velocities and thicknesses of the layers below each shot"));
    // All columns are in sight, and as wide as the window lets them.
    const int column_width = fontMetrics().horizontalAdvance("88888.88") + 12;
    Grid->horizontalHeader()->setMinimumSectionSize(column_width);
    Grid->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    Grid->setMinimumWidth(column_width * static_cast<int>(Result_Headings().size()) +
                          fontMetrics().horizontalAdvance("Shot") + 48);
    Grid->verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("Shot") + 16);
    // Each thickness stands beside the velocity of its layer.
    Grid->Cells().Look_Of = [this](int, int column) {
        return Program.Results.resultat_grid.Text(0, column).starts_with("E") ? TextGridModel::Look::Grouped
                                                                              : TextGridModel::Look::Plain;
    };
    Grid->Cells().Heading_Tip = [this](int section, Qt::Orientation orientation) -> QString {
        if (orientation == Qt::Vertical) return tr("Shot");
        const bool metric = Program.Work.Settings.Metric();
        const QString length = metric ? "m" : "f";
        const QString heading = QString::fromStdString(Program.Results.resultat_grid.Text(0, section));
        if (heading == "X") return tr("Distance of the shot along the line, %1").arg(length);
        if (heading == "Y") return tr("Distance across the line, %1").arg(length);
        if (heading == "Z") return tr("Elevation of the shot, %1").arg(length);
        const QString layer = heading.mid(1);
        return heading.startsWith('V') ? tr("Velocity of layer %1, %2").arg(layer, metric ? "m/s" : "f/s")
                                       : tr("Thickness of layer %1, %2").arg(layer, length);
    };
}

QSize ResuForm::sizeHint() const {
    const QSize least = QWidget::sizeHint();
    const int rows =
        std::clamp(Program.Results.resultat_grid.Rows(), fewest_rows_in_sight, most_rows_in_sight);
    const int high = (rows + 1) * Grid->verticalHeader()->defaultSectionSize() + 120;
    return {least.width(), std::max(least.height(), high)};
}

void ResuForm::Refresh() {
    Form::Refresh();
    Grid->Refresh();
}

void ResuForm::Opened() {
    Program.Results.Load();
    Refresh();
    Grid->setFocus();
}

void ResuForm::Called() {
    Grid->setFocus();
}

}  // namespace tarnvik
