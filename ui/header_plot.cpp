#include "ui/header_plot.h"

#include <qcustomplot.h>

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "processing/header_reader.h"

namespace tarnvik {

namespace {

constexpr int most_discs = 2000;  ///< points in sight; with more of them they are dots
constexpr double click_way = 4;   ///< pixels that a click may move
constexpr double margin = 0.05;   ///< of the range of the values, over and under them

QVector<double> Word_Along_File(const std::string& su_file, int word) {
    HeaderReader headers(su_file);
    QVector<double> values;
    values.reserve(static_cast<qsizetype>(headers.Nb_Traces()));
    for (std::int64_t trace = 1; headers.Take(trace); ++trace)
        values.push_back(headers.Word(word));
    return values;
}

}  // namespace

HeaderPlot::HeaderPlot(QWidget* parent) : QWidget(parent), Plot(new QCustomPlot), Readout(new QLabel) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(Plot, 1);
    column->addWidget(Readout);
    Plot->setMinimumSize(320, 160);
    Plot->setObjectName("HeaderPlot");
    Plot->xAxis->setLabel(tr("Trace"));
    Plot->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    Plot->setMouseTracking(true);
    Points = Plot->addGraph();
    Points->setPen(QPen(QColor(160, 175, 200)));
    Ring = new QCPItemTracer(Plot);
    Ring->setStyle(QCPItemTracer::tsCircle);
    Ring->setPen(QPen(QColor(200, 40, 40), 2));
    Ring->setSize(10);
    Ring->setGraph(Points);
    Ring->setVisible(false);

    connect(Plot, &QCustomPlot::mouseMove, this, &HeaderPlot::Follow_Pointer);
    connect(Plot, &QCustomPlot::mouseDoubleClick, this, &HeaderPlot::Show_Whole_File);
    connect(Plot, &QCustomPlot::mousePress, this,
            [this](QMouseEvent* event) { PressedAt = event->position(); });
    connect(Plot, &QCustomPlot::mouseRelease, this, [this](QMouseEvent* event) {
        const QPointF way = event->position() - PressedAt;
        const int trace = Trace_At(event->position().x());
        // The end of a drag is no click.
        if (event->button() == Qt::LeftButton && trace > 0 && way.manhattanLength() < click_way)
            emit Trace_Clicked(trace);
    });
    connect(
        Plot->xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, [this](const QCPRange& range) {
            Points->setScatterStyle(range.size() < most_discs
                                        ? QCPScatterStyle(QCPScatterStyle::ssDisc, QColor(30, 70, 150), 5)
                                        : QCPScatterStyle(QCPScatterStyle::ssDot, QColor(30, 70, 150), 1));
        });
}

void HeaderPlot::Show_Word(const std::string& su_file, int word) {
    Values = Word_Along_File(su_file, word);
    Word = QString::fromUtf8(Header_Word(word).Name);
    QVector<double> traces(Values.size());
    for (qsizetype i = 0; i < traces.size(); ++i)
        traces[i] = static_cast<double>(i + 1);
    Points->setData(traces, Values, true);
    Plot->yAxis->setLabel(Word);
    Ring->setVisible(false);
    Readout->setText(
        Values.isEmpty()
            ? tr("No traces to show")
            : tr("%1 traces: wheel enlarges, drag moves, double click shows all").arg(Values.size()));
    Show_Whole_File();
}

void HeaderPlot::Show_Whole_File() {
    Plot->xAxis->setRange(0, static_cast<double>(Values.size()) + 1);
    double low = 0;
    double high = 0;
    bool any = false;
    for (const double value : Values) {
        if (!std::isfinite(value)) continue;
        low = any ? std::min(low, value) : value;
        high = any ? std::max(high, value) : value;
        any = true;
    }
    const double room = high > low ? (high - low) * margin : 1;
    Plot->yAxis->setRange(low - room, high + room);
    Plot->replot();
}

int HeaderPlot::Trace_At(double pixel) const {
    const double trace = std::round(Plot->xAxis->pixelToCoord(pixel));
    return trace >= 1 && trace <= static_cast<double>(Values.size()) ? static_cast<int>(trace) : 0;
}

void HeaderPlot::Follow_Pointer(QMouseEvent* event) {
    const int trace = Trace_At(event->position().x());
    Ring->setVisible(trace > 0);
    if (trace > 0) {
        Ring->setGraphKey(trace);
        Readout->setText(tr("Trace %1: %2 = %3").arg(trace).arg(Word).arg(Values[trace - 1], 0, 'g', 10));
    }
    Plot->replot(QCustomPlot::rpQueuedReplot);
}

}  // namespace tarnvik
