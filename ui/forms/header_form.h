#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "processing/trace_count.h"
#include "ui/form.h"

class QComboBox;
class QProgressBar;
class QTabWidget;

namespace Ui {
class HeaderForm;
}

namespace tarnvik {

class Header;
class HeaderPlot;
class SpreadsheetView;

/// Form of Header, "Header editor": a window with a page for each way of changing headers.
class HeaderForm : public Form {
    Q_OBJECT

  public:
    HeaderForm(Session& session, QtDisplay& display);
    void Refresh() override;
    void Opened() override;
    void Called() override;
    QSize sizeHint() const override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Tie_Values(Ui::HeaderForm& controls);
    void Tie_Single_Word(Ui::HeaderForm& controls);
    void Tie_Update(Ui::HeaderForm& controls);
    void Tie_Copy(Ui::HeaderForm& controls);
    void Tie_Excel(Ui::HeaderForm& controls);
    void Tie_Geometry(Ui::HeaderForm& controls);
    void Tie_Plot(Ui::HeaderForm& controls);
    void Draw_Plot();
    void Make_Grid();
    void Set_Column_Widths();
    void On_Double_Click(QWidget* field, std::function<void()> run);
    /// Work that may last: its progress is shown, with a way to stop.
    void Run_Long(const std::function<void(const TraceProgress&)>& work);
    void Return_Pressed();

    Session& Program;
    Header& Logic;
    SpreadsheetView* Grid = nullptr;
    QTabWidget* Pages = nullptr;
    QProgressBar* Bar = nullptr;  ///< xProgressBar
    HeaderPlot* Plot = nullptr;
    QComboBox* PlotWord = nullptr;
    std::pair<int, int> Plotted;  ///< word, and Changes of the logic, as the plot shows them
    std::vector<std::pair<QWidget*, std::function<void()>>> DoubleClicks;
    QWidget* RangeFields[3] = {};  ///< where Return displays
};

}  // namespace tarnvik
