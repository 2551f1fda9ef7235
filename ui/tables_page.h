#pragma once

#include <QWidget>

#include "ui/field_binder.h"

class QTableView;

namespace tarnvik {

class Session;

/// Second tab: the geometry and pick table and the remarks.
class TablesPage : public QWidget {
    Q_OBJECT

  public:
    explicit TablesPage(Session& session);
    void Refresh();

  private:
    QTableView* Table(const char* name);

    FieldBinder Fields;
    QTableView* Buildgrid = nullptr;
    QTableView* remark_grid = nullptr;
    int FittedColumns = -1;
};

}  // namespace tarnvik
