#include "ui/tables_page.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include "app/session.h"
#include "ui/text_grid_model.h"

namespace tarnvik {

TablesPage::TablesPage(Session& session) {
    Buildgrid = Table("Buildgrid");
    remark_grid = Table("remark_grid");
    Fields.Grid(Buildgrid, session.Work.Grids.Buildgrid);
    Fields.Grid(remark_grid, session.Work.Project.remark_grid);

    auto* geometry = new QGroupBox(tr("Geometry and first-break times"));
    (new QVBoxLayout(geometry))->addWidget(Buildgrid);
    auto* remarks = new QGroupBox(tr("Remarks on the picture"));
    (new QVBoxLayout(remarks))->addWidget(remark_grid);
    remark_grid->horizontalHeader()->setStretchLastSection(true);

    auto* panes = new QSplitter(Qt::Vertical);
    panes->addWidget(geometry);
    panes->addWidget(remarks);
    panes->setStretchFactor(0, 4);
    panes->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(panes);
    Refresh();
}

QTableView* TablesPage::Table(const char* name) {
    auto* table = new QTableView;
    table->setObjectName(name);
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    table->horizontalHeader()->setDefaultSectionSize(fontMetrics().horizontalAdvance("-88888.888"));
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    return table;
}

void TablesPage::Refresh() {
    Fields.Refresh();
    // Widths are fitted when the table changes its shape; what the user has dragged stays otherwise.
    if (Buildgrid->model()->columnCount() == FittedColumns) return;
    FittedColumns = Buildgrid->model()->columnCount();
    Buildgrid->resizeColumnToContents(0);
    for (int column = 0; column + 1 < remark_grid->model()->columnCount(); ++column) {
        remark_grid->resizeColumnToContents(column);
    }
    // The remarks begin under the row of their headings.
    for (int row = 0; row + 1 < Project::RemarkFirstRow; ++row)
        remark_grid->setRowHidden(row, true);
}

}  // namespace tarnvik
