#include "ui/trace_preview.h"

#include <qcustomplot.h>

#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace tarnvik {

namespace {

constexpr qsizetype most_points = 3000;  ///< of a trace; more of them are not seen
constexpr double reach = 0.9;            ///< of the way to the next trace

/// A trace around its number, as far as it is finite.
void Fill(QCPGraph& graph, const FieldTrace& trace, double number, double interval_ms) {
    float largest = 0;
    for (const float sample : trace.Samples) {
        if (std::isfinite(sample)) largest = std::max(largest, std::abs(sample));
    }
    const auto count = static_cast<qsizetype>(trace.Samples.size());
    const qsizetype step = std::max<qsizetype>(1, count / most_points);
    QVector<double> times;
    QVector<double> values;
    for (qsizetype i = 0; i < count; i += step) {
        const float sample = trace.Samples[static_cast<std::size_t>(i)];
        times.push_back(trace.Delay + static_cast<double>(i) * interval_ms);
        values.push_back(number + (largest > 0 && std::isfinite(sample) ? reach * sample / largest : 0));
    }
    graph.setData(times, values, true);
}

}  // namespace

TracePreview::TracePreview(QWidget* parent) : QWidget(parent), Plot(new QCustomPlot) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Plot);
    Plot->setMinimumSize(260, 160);
    Plot->setObjectName("TracePreview");
    Plot->setAccessibleName(tr("First traces of the chosen file"));
    Plot->setToolTip(
        tr("First traces of the chosen file: wheel enlarges, drag moves, double click shows all"));
    Plot->yAxis->setRangeReversed(true);
    Plot->yAxis->setLabel(tr("Time (ms)"));
    Plot->xAxis->setVisible(false);
    Plot->xAxis2->setVisible(true);
    Plot->xAxis2->setTickLabels(true);
    Plot->xAxis2->setLabel(tr("Trace"));
    Plot->xAxis2->grid()->setVisible(false);
    Plot->axisRect()->setupFullAxesBox(false);
    Plot->xAxis->setVisible(false);
    Plot->yAxis2->setVisible(false);
    Plot->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    connect(Plot->xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), Plot->xAxis2,
            qOverload<const QCPRange&>(&QCPAxis::setRange));
    connect(Plot, &QCustomPlot::mouseDoubleClick, this, &TracePreview::Show_All);
}

void TracePreview::Show_File(const FieldFile* file) {
    Plot->clearGraphs();
    Traces = 0;
    First = 0;
    Last = 1;
    if (file != nullptr) {
        const double interval = file->Interval > 0 ? file->Interval / 1000 : 1;
        for (const FieldTrace& trace : file->Preview) {
            // Time is the key, and stands upright.
            QCPGraph* graph = Plot->addGraph(Plot->yAxis, Plot->xAxis);
            graph->setPen(QPen(QColor(30, 60, 120)));
            Fill(*graph, trace, ++Traces, interval);
            const double end = trace.Delay + static_cast<double>(trace.Samples.size()) * interval;
            First = Traces == 1 ? trace.Delay : std::min(First, trace.Delay);
            Last = Traces == 1 ? end : std::max(Last, end);
        }
    }
    Show_All();
}

void TracePreview::Show_All() {
    Plot->xAxis->setRange(0, Traces + 1);
    Plot->yAxis->setRange(First, Last > First ? Last : First + 1);
    Plot->replot();
}

}  // namespace tarnvik
