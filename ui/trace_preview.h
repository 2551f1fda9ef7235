#pragma once

#include <QWidget>

#include "processing/instruments/field_file.h"

class QCustomPlot;

namespace tarnvik {

/// The first traces of a file of an instrument, each scaled by its own maximum, time downwards. The wheel
/// enlarges at the pointer, a drag moves, a double click shows all.
class TracePreview : public QWidget {
    Q_OBJECT

  public:
    explicit TracePreview(QWidget* parent = nullptr);
    /// Null shows nothing.
    void Show_File(const FieldFile* file);

  private:
    void Show_All();

    QCustomPlot* Plot;
    double First = 0;  ///< ms
    double Last = 1;
    int Traces = 0;
};

}  // namespace tarnvik
