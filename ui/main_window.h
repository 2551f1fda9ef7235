#pragma once

#include <QMainWindow>
#include <QSettings>
#include <QTabWidget>
#include <QTimer>

#include "core/ports/display.h"
#include "ui/field_binder.h"

class QDockWidget;
class QLabel;

namespace tarnvik {

class CommandBars;
class CurvesPage;
class QtDisplay;
class RecordPage;
class Session;
class TablesPage;

/// The main form: menus and toolbar from the command table, the three tabs, the status bar.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// `layout_file` remembers places and sizes of windows.
    MainWindow(Session& session, QtDisplay& display, const QString& layout_file);
    ~MainWindow() override;

    void Refresh_Fields();
    void Refresh_Grids();
    /// One cell of Buildgrid.
    void Refresh_Cell(int row, int column);
    void Select_Tab(Tab tab);
    Tab Tab_In_Sight() const;

    /// Puts a tool window where it stood last, at first at the right side.
    void Place_Dock(QDockWidget* dock);
    void Remember_Dock(QDockWidget* dock);
    /// The same for a window of its own.
    void Place_Window(QWidget* window);
    void Remember_Window(QWidget* window);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Build_Status_Bar();
    void Layout_Changed();

    Session& Program;
    QtDisplay& Screen;
    QSettings Places;
    QTabWidget* SSTab1 = nullptr;
    CommandBars* Bars = nullptr;
    RecordPage* Records = nullptr;
    TablesPage* Tables = nullptr;
    CurvesPage* Curves = nullptr;
    QLabel* ZoomRange = nullptr;
    QLabel* ProjectName = nullptr;
    QLabel* Unsaved = nullptr;
    QLabel* Units = nullptr;
    FieldBinder Fields;
    QTimer ResizeDone;
};

}  // namespace tarnvik
