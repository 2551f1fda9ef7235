#pragma once

#include <QMainWindow>
#include <QSettings>
#include <QTabWidget>
#include <QTimer>
#include <optional>

#include "core/ports/display.h"
#include "ui/field_binder.h"

class QDockWidget;
class QLabel;
class QSplitter;

namespace tarnvik {

class CommandBars;
class CurvesPage;
class QtDisplay;
class RecordPage;
class SectionPage;
class Session;
class TablesPage;

/// The main form: menus and toolbar from the command table, the four tabs, the status bar.
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
    /// In sight with its tab alone where it has one.
    void Place_Dock(QDockWidget* dock, std::optional<Tab> home);
    void Remember_Dock(QDockWidget* dock);
    /// The same for a window of its own.
    void Place_Window(QWidget* window);
    void Remember_Window(QWidget* window);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Build_Status_Bar();
    void Layout_Changed();
    void Arrange_Pages();
    void Arrange_Docks();
    QWidget* Page_Of(Tab tab) const;
    bool In_Sight(Tab tab) const;

    Session& Program;
    QtDisplay& Screen;
    QSettings Places;
    QSplitter* Panes = nullptr;  ///< the tabs, and beside them the curves when the user wants both
    QTabWidget* SSTab1 = nullptr;
    CommandBars* Bars = nullptr;
    RecordPage* Records = nullptr;
    TablesPage* Tables = nullptr;
    CurvesPage* Curves = nullptr;
    SectionPage* Section = nullptr;
    QLabel* ZoomRange = nullptr;
    QLabel* ProjectName = nullptr;
    QLabel* Unsaved = nullptr;
    QLabel* Units = nullptr;
    FieldBinder Fields;
    QTimer ResizeDone;
    bool Dark = false;  ///< windows stand in dark colours
};

}  // namespace tarnvik
