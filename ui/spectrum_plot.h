#pragma once

#include <QString>
#include <QVector>
#include <QWidget>
#include <functional>
#include <vector>

class QCPGraph;
class QCPItemLine;
class QCustomPlot;
class QLabel;
class QMouseEvent;

namespace tarnvik {

/// A curve of a spectrum plot: values from 0 Hz on, `Step` Hz apart.
struct SpectrumCurve {
    QString Name;
    double Step = 0;
    std::vector<double> Values;
    double Width = 1;  ///< above 1 it is read at the pointer
    QColor Ink;        ///< one that is not valid gets a colour of its own
};

/// Spectra over frequency. The wheel enlarges at the pointer, a drag moves, a drag with the right button
/// enlarges what it spans, a double click changes between all and
/// what is strong; frequency, value and period at the pointer stand under
/// the plot, of the thicker curves.
class SpectrumPlot : public QWidget {
    Q_OBJECT

  public:
    explicit SpectrumPlot(QWidget* parent = nullptr);

    /// What the values are: the axis's name, the unit behind a value that is read, and the axis's fixed ends
    /// where they are not those of the values.
    struct Scale {
        QString Name;
        QString Unit;
        double Low = 0;
        double High = 0;     ///< as Low: ends by the values
        double InSight = 0;  ///< Hz, highest in sight before anything is enlarged; 0: all
    };
    void Show_Curves(const std::vector<SpectrumCurve>& curves, const Scale& scale);
    /// Frequencies by their logarithm; what is in sight stays where it can.
    void Set_Log_Frequency(bool log);
    /// A stretch of frequencies on a shaded ground; none where both are 0.
    void Mark_Band(double low, double high);
    /// The picture as it stands.
    bool Save_Picture(const QString& path);
    void Copy_Picture();

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Take_Colours();
    void Take_Ticks();
    void Show_Whole();
    void Follow_Pointer(QMouseEvent* event);
    void Say_Usual();

    QCustomPlot* Plot;
    QCPGraph* Band;
    QCPItemLine* Cross;
    QLabel* Readout;
    std::vector<SpectrumCurve> Curves;
    Scale Axis;
    double MostHertz = 0;
    bool Log = false;
    bool ToNyquist = false;  ///< the whole axis, not only what is strong
    double BandLow = 0;
    double BandHigh = 0;
};

}  // namespace tarnvik
