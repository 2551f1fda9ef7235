#pragma once

#include <QPointF>
#include <QVector>
#include <QWidget>
#include <string>

class QCPGraph;
class QCPItemTracer;
class QCustomPlot;
class QLabel;
class QMouseEvent;

namespace tarnvik {

/// A word of the headers along a file: one point a trace, so that a header that breaks the row is seen at a
/// glance. The wheel enlarges at the pointer, a drag moves, a double click shows the whole file; trace and
/// value at the pointer stand under the plot, and a click tells which trace it was.
class HeaderPlot : public QWidget {
    Q_OBJECT

  public:
    explicit HeaderPlot(QWidget* parent = nullptr);

    /// Reads a word (1 to 90) of all traces of an SU file. A file that cannot be read leaves an empty plot.
    void Show_Word(const std::string& su_file, int word);

  signals:
    void Trace_Clicked(int trace);

  private:
    void Show_Whole_File();
    void Follow_Pointer(QMouseEvent* event);
    /// Trace nearest to a place of the plot, from 1; 0 outside of the file.
    int Trace_At(double pixel) const;

    QCustomPlot* Plot;
    QCPGraph* Points;
    QCPItemTracer* Ring;  ///< around the point at the pointer
    QLabel* Readout;
    QVector<double> Values;  ///< by trace, from 0
    QString Word;
    QPointF PressedAt;
};

}  // namespace tarnvik
