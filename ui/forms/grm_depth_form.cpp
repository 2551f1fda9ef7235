#include "ui/forms/grm_depth_form.h"

#include <QHeaderView>
#include <QSpacerItem>
#include <algorithm>

#include "app/session.h"
#include "core/text/number.h"
#include "ui/forms/form_keys.h"
#include "ui/spreadsheet_view.h"
#include "ui/text_grid_model.h"
#include "ui_grm_depth_form.h"

namespace tarnvik {

namespace {

constexpr int rows_in_sight = 26;

/// The cells of GRM_Grid: each goes through the rules of the dialog.
class GrmCells : public CellEdits {
  public:
    explicit GrmCells(GRM_depth& dialog) : Dialog(dialog) {}

    bool Editable(int row, int column) const override { return Dialog.Editable(row, column); }
    bool Type(int row, int column, const std::string& text) override {
        return Dialog.Type(row, column, text);
    }
    void Paste(int row, int column, const std::string& text) override {
        for (const auto& cells : Block_Cells(text)) {
            int to_column = column;
            for (const std::string& cell : cells)
                Dialog.Type(row, to_column++, cell);
            ++row;
        }
    }
    std::string Copy(CellBlock block) const override { return Block_Text(Dialog.GRM_Grid, block); }
    void Clear(CellBlock block) override {
        for (int row = block.FirstRow; row <= block.LastRow; ++row) {
            for (int column = block.FirstColumn; column <= block.LastColumn; ++column)
                Dialog.Type(row, column, "");
        }
    }

  private:
    GRM_depth& Dialog;
};

/// Times have many digits: two behind the point are shown, all of them while the cell is edited.
QString Shown_Text(int column, const std::string& text) {
    const bool time = column >= GRM_depth::Offset1 && column <= GRM_depth::Time;
    if (!time || text.find('.') == std::string::npos) return QString::fromStdString(text);
    return QString::fromStdString(Format(Val(text), "0.00"));
}

}  // namespace

GrmDepthForm::GrmDepthForm(Session& session, QtDisplay&) : Program(session) {
    Ui::GrmDepthForm controls;
    controls.setupUi(this);
    GRM_depth& logic = session.GrmDepths;
    Grid = new SpreadsheetView(logic.GRM_Grid, std::make_unique<GrmCells>(logic));
    Grid->setObjectName("GRM_Grid");
    Grid->setAccessibleName(tr("GRM times, velocities and depths of all receivers"));
    controls.gridPlace->addWidget(Grid);
    Grid->Cells().Shown_Text = Shown_Text;
    Grid->Cells().Look_Of = [](int, int column) {
        return GRM_depth::Is_Computed(column) ? TextGridModel::Look::Grouped : TextGridModel::Look::Plain;
    };
    Grid->Cells().Heading_Tip = [](int section, Qt::Orientation orientation) {
        if (orientation == Qt::Vertical) return QString();
        if (section == GRM_depth::Vref) return tr("Reference velocity that the GRM time was computed with");
        return GRM_depth::Is_Computed(section) ? tr("Computed; you can correct it")
               : section >= GRM_depth::V1 ? tr("Type a value for the first and the last receiver at least")
                                          : tr("Translated time of the offset shot, ms");
    };
    Grid->horizontalHeader()->setMinimumHeight(2 * fontMetrics().lineSpacing() + 8);
    Grid->horizontalHeader()->setDefaultSectionSize(fontMetrics().horizontalAdvance("Thickness") + 10);
    Grid->verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("Rec.") + 12);
    connect(Grid->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [&logic](const QModelIndex& cell) { logic.Enter_Cell(cell.column()); });

    Fields.Text(controls.Text3, logic.TotalTime);
    Fields.Text(controls.Text2, logic.XYDistance);
    Fields.Text(controls.ReferenceVelocity, logic.ReferenceVelocity);
    const int width = fontMetrics().horizontalAdvance("88888888") + 16;
    controls.Text2->setFixedWidth(width);
    controls.Text3->setFixedWidth(width);
    controls.ReferenceVelocity->setFixedWidth(width);
    Fields.Text(controls.Hint, logic.Hint);
    controls.Hint->setMinimumHeight(fontMetrics().height());
    Fields.Command(controls.Command1, [&logic] { logic.Command1(); });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command3, [&logic] { logic.Command3(); });
    Fields.Command(controls.Command4, [this] { Close_Me(); });
    Fields.Command(controls.Command5, [&logic] { logic.Command5(); });
    Fields.Command(controls.ClearInterpolated, [&logic] { logic.Clear_Interpolated(); });
    // Return in the grid goes to the next cell; in a field it computes.
    On_Enter(this, [this, &logic] {
        if (Grid->hasFocus()) {
            Grid->Move(SpreadsheetView::Step::Down);
        } else {
            logic.Command2();
        }
    });
    On_Ctrl_Enter(this, [&logic] { logic.Command2(); });
    On_Escape(this, [this] { Close_Me(); });
}

QSize GrmDepthForm::sizeHint() const {
    const QSize least = QWidget::sizeHint();
    const int scroll_bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int wide = GRM_depth::Vref * Grid->horizontalHeader()->defaultSectionSize() +
                     Grid->verticalHeader()->minimumWidth() + 3 * scroll_bar;
    const int high = rows_in_sight * Grid->verticalHeader()->defaultSectionSize() + 160;
    return {std::max(least.width(), wide), std::max(least.height(), high)};
}

void GrmDepthForm::Refresh() {
    Form::Refresh();
    Grid->Refresh();
}

void GrmDepthForm::Opened() {
    Program.GrmDepths.Load();
    Grid->Refresh();
    Grid->setFocus();
}

void GrmDepthForm::Called() {
    Grid->setFocus();
}

void GrmDepthForm::Closed() {
    Program.GrmDepths.Close();
}

}  // namespace tarnvik
