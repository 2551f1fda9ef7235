#pragma once

#include <QWidget>

#include "setup/elevations.h"
#include "ui/field_binder.h"

class QPushButton;

namespace tarnvik {

class Session;
class SpreadsheetView;

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
    QWidget* Line_Group();
    QWidget* Elevation_Group();
    QWidget* Coordinates_Group();
    QWidget* Picks_Group();
    QWidget* Edit_Group();
    QLineEdit* Shown_Value(const char* name, const QString& tooltip);
    /// A button for a command of the table.
    QPushButton* Button(const char* name, const QString& caption, const QString& tooltip,
                        std::function<void(Session&)> run);
    void Run(const std::function<void(Session&)>& command);
    void Fit_Columns();
    bool eventFilter(QObject* watched, QEvent* event) override;

    Session& Program;
    FieldBinder Fields;
    SpreadsheetView* Buildgrid = nullptr;
    SpreadsheetView* remark_grid = nullptr;
    QLineEdit* LineLength = nullptr;
    ElevationUpdate Update = ElevationUpdate::ShotsFromReceivers;
    int FittedColumns = -1;
};

}  // namespace tarnvik
