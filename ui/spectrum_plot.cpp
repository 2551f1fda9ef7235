#include "ui/spectrum_plot.h"

#include <qcustomplot.h>

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace tarnvik {

namespace {

constexpr double margin = 0.05;           ///< of the range of the values, over and under them
constexpr double decades_at_first = 2.3;  ///< of a logarithmic axis: from 1 / 200 of the Nyquist frequency
constexpr int thin_alpha = 110;

QColor Mixed(const QColor& a, const QColor& b, double part) {
    return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * part),
                            static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * part),
                            static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * part));
}

/// A colour for each curve of many, so that neighbours differ.
QColor Own_Colour(std::size_t index) {
    QColor colour = QColor::fromHsv(static_cast<int>(index * 47 % 360), 170, 190);
    colour.setAlpha(thin_alpha);
    return colour;
}

}  // namespace

SpectrumPlot::SpectrumPlot(QWidget* parent) : QWidget(parent), Plot(new QCustomPlot), Readout(new QLabel) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(Plot, 1);
    column->addWidget(Readout);
    Readout->setObjectName("SpectrumReadout");
    Readout->setWordWrap(true);
    Readout->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    Readout->setMinimumHeight(2 * fontMetrics().lineSpacing());
    Plot->setMinimumSize(220, 160);
    Plot->setObjectName("SpectrumPlot");
    Plot->setAccessibleName(tr("Spectrum"));
    Plot->xAxis->setLabel(tr("Frequency (Hz)"));
    Plot->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    Plot->setSelectionRectMode(QCP::srmNone);
    Plot->setNoAntialiasingOnDrag(true);
    Plot->setMouseTracking(true);
    Plot->installEventFilter(this);
    Band = Plot->addGraph();
    Cross = new QCPItemLine(Plot);
    Cross->setVisible(false);
    // The right button spans a rectangle, the left one moves.
    connect(Plot, &QCustomPlot::mousePress, this, [this](QMouseEvent* event) {
        Plot->setSelectionRectMode(event->button() == Qt::RightButton ? QCP::srmZoom : QCP::srmNone);
    });
    connect(Plot, &QCustomPlot::mouseMove, this, &SpectrumPlot::Follow_Pointer);
    connect(Plot, &QCustomPlot::mouseDoubleClick, this, [this] {
        ToNyquist = !ToNyquist;
        Show_Whole();
    });
    Take_Colours();
    Say_Usual();
}

void SpectrumPlot::Take_Colours() {
    const QColor ground = palette().color(QPalette::Base);
    const QColor ink = palette().color(QPalette::Text);
    Plot->setBackground(QBrush(ground));
    for (QCPAxis* axis : {Plot->xAxis, Plot->yAxis}) {
        axis->setBasePen(QPen(ink));
        axis->setTickPen(QPen(ink));
        axis->setSubTickPen(QPen(ink));
        axis->setTickLabelColor(ink);
        axis->setLabelColor(ink);
        axis->setTickLabelFont(font());
        axis->setLabelFont(font());
        axis->grid()->setPen(QPen(Mixed(ground, ink, 0.2), 0, Qt::DotLine));
        axis->grid()->setZeroLinePen(QPen(Mixed(ground, ink, 0.35)));
    }
    Cross->setPen(QPen(Mixed(ground, ink, 0.5), 0, Qt::DashLine));
    QColor shade = palette().color(QPalette::Highlight);
    shade.setAlpha(40);
    Band->setPen(Qt::NoPen);
    Band->setBrush(QBrush(shade));
}

void SpectrumPlot::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        Take_Colours();
        Plot->replot(QCustomPlot::rpQueuedReplot);
    }
    QWidget::changeEvent(event);
}

/// So many that their numbers stand apart.
void SpectrumPlot::Take_Ticks() {
    const int room = 3 * fontMetrics().horizontalAdvance("8888") / 2 + 20;
    Plot->xAxis->ticker()->setTickCount(std::max(2, Plot->width() / room));
}

void SpectrumPlot::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Take_Ticks();
}

bool SpectrumPlot::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Leave) {
        Cross->setVisible(false);
        Say_Usual();
        Plot->replot(QCustomPlot::rpQueuedReplot);
    }
    return QWidget::eventFilter(watched, event);
}

void SpectrumPlot::Say_Usual() {
    Readout->setText(
        Curves.empty()
            ? tr("No spectrum")
            : tr("Wheel enlarges, drag moves, right drag spans, double click: all or what is strong"));
}

void SpectrumPlot::Show_Curves(const std::vector<SpectrumCurve>& curves, const Scale& scale) {
    const double hertz_before = MostHertz;
    const bool other_axis = scale.Name != Axis.Name;
    Curves = curves;
    Axis = scale;
    MostHertz = 0;
    while (Plot->graphCount() > 1)
        Plot->removeGraph(Plot->graphCount() - 1);
    for (std::size_t i = 0; i < Curves.size(); ++i) {
        const SpectrumCurve& curve = Curves[i];
        if (curve.Values.empty()) continue;
        MostHertz = std::max(MostHertz, static_cast<double>(curve.Values.size() - 1) * curve.Step);
        QCPGraph* graph = Plot->addGraph();
        graph->setName(curve.Name);
        QVector<double> hertz(static_cast<qsizetype>(curve.Values.size()));
        for (qsizetype k = 0; k < hertz.size(); ++k)
            hertz[k] = static_cast<double>(k) * curve.Step;
        graph->setData(hertz, QVector<double>(curve.Values.begin(), curve.Values.end()), true);
        graph->setPen(QPen(curve.Ink.isValid() ? curve.Ink : Own_Colour(i), curve.Width));
    }
    Plot->yAxis->setLabel(Axis.Name);
    // What the user enlarged stays while the same is shown of other traces.
    if (other_axis || hertz_before != MostHertz) {
        Show_Whole();
    } else {
        Mark_Band(BandLow, BandHigh);
    }
    Say_Usual();
}

void SpectrumPlot::Set_Log_Frequency(bool log) {
    if (log == Log) return;
    Log = log;
    Plot->xAxis->setScaleType(log ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
    if (log)
        Plot->xAxis->setTicker(QSharedPointer<QCPAxisTickerLog>(new QCPAxisTickerLog));
    else
        Plot->xAxis->setTicker(QSharedPointer<QCPAxisTicker>(new QCPAxisTicker));
    Take_Ticks();
    Show_Whole();
}

void SpectrumPlot::Mark_Band(double low, double high) {
    BandLow = low;
    BandHigh = high;
    QVector<double> ends;
    QVector<double> tops;
    if (high > low) {
        ends = {low, high};
        tops = {Plot->yAxis->range().upper, Plot->yAxis->range().upper};
    }
    Band->setData(ends, tops, true);
    Band->setChannelFillGraph(nullptr);
    Plot->replot(QCustomPlot::rpQueuedReplot);
}

void SpectrumPlot::Show_Whole() {
    const double all = MostHertz > 0 ? MostHertz : 1;
    const double most = Axis.InSight > 0 && !ToNyquist ? std::min(Axis.InSight, all) : all;
    Plot->xAxis->setRange(Log ? most / std::pow(10, decades_at_first) : 0, most);
    double low = Axis.Low;
    double high = Axis.High;
    if (low == high) {
        for (const SpectrumCurve& curve : Curves) {
            for (const double value : curve.Values) {
                if (std::isfinite(value)) high = std::max(high, value);
            }
        }
        high = high > 0 ? high * (1 + margin) : 1;
    }
    Plot->yAxis->setRange(low, high);
    Mark_Band(BandLow, BandHigh);
}

void SpectrumPlot::Follow_Pointer(QMouseEvent* event) {
    const double hertz = Plot->xAxis->pixelToCoord(event->position().x());
    const bool within =
        Plot->axisRect()->rect().contains(event->position().toPoint()) && hertz > 0 && hertz <= MostHertz;
    Cross->setVisible(within);
    if (within) {
        Cross->start->setCoords(hertz, Plot->yAxis->range().lower);
        Cross->end->setCoords(hertz, Plot->yAxis->range().upper);
        QString text = tr("%1 Hz, period %2 ms").arg(hertz, 0, 'f', 1).arg(1000 / hertz, 0, 'f', 2);
        for (const SpectrumCurve& curve : Curves) {
            if (curve.Width <= 1 || curve.Values.empty()) continue;
            const double place = hertz / curve.Step;
            const auto at = std::min(static_cast<std::size_t>(std::lround(place)), curve.Values.size() - 1);
            text += QString("   %1: %2 %3").arg(curve.Name).arg(curve.Values[at], 0, 'g', 4).arg(Axis.Unit);
        }
        Readout->setText(text.trimmed());
    } else {
        Say_Usual();
    }
    Plot->replot(QCustomPlot::rpQueuedReplot);
}

bool SpectrumPlot::Save_Picture(const QString& path) {
    Cross->setVisible(false);
    if (path.endsWith(".pdf", Qt::CaseInsensitive)) return Plot->savePdf(path);
    return Plot->toPixmap(0, 0, 2).save(path);
}

void SpectrumPlot::Copy_Picture() {
    Cross->setVisible(false);
    QApplication::clipboard()->setPixmap(Plot->toPixmap());
}

}  // namespace tarnvik
