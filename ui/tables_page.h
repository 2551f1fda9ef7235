#pragma once

#include <QWidget>
#include <string_view>

#include "ui/field_binder.h"

class QAbstractButton;
class QLayout;

namespace tarnvik {

class Session;
class SpreadsheetView;
struct Command;

/// Second tab: the geometry and pick table and the remarks, and beside them the commands that work on them.
class TablesPage : public QWidget {
    Q_OBJECT

  public:
    explicit TablesPage(Session& session);
    /// Fields and grids.
    void Refresh();
    /// One cell of Buildgrid.
    void Refresh_Cell(int row, int column);
    void Refresh_Fields() { Fields.Refresh(); }

  private:
    QWidget* Commands();
    QAbstractButton* Button(const Command& command);
    QLayout* Undo_Row();
    QLayout* Line_Values();
    QLineEdit* Shown_Value(const char* name, const QString& tooltip);
    void Run(std::string_view command);
    void Fit_Columns();
    bool eventFilter(QObject* watched, QEvent* event) override;

    Session& Program;
    FieldBinder Fields;
    SpreadsheetView* Buildgrid = nullptr;
    SpreadsheetView* remark_grid = nullptr;
    QLineEdit* LineLength = nullptr;
    int FittedColumns = -1;
};

}  // namespace tarnvik
