#pragma once

#include <QStringList>
#include <QWidget>

#include "ui/picture_box.h"

namespace tarnvik {

class Session;

/// size_grid: the size factor of each trace, right above the trace's place on the record. Factors that change
/// a trace stand out; where traces stand too close for numbers, they alone are marked.
class TraceSizeStrip : public QWidget {
    Q_OBJECT

  public:
    /// `record` is the picture that the strip stands above, at the same left edge.
    TraceSizeStrip(Session& session, PictureBox& record);

    /// The factors, the traces or the current trace changed.
    void Refresh();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    /// Place of the traces from the strip's left edge, in the widget's pixels.
    double Left() const;
    double Width() const;
    void Point_At(double x);

    Session& Program;
    PictureBox& Record;
    QStringList Texts;
    int Current = -1;
    bool Upright = false;  ///< the numbers are written upwards
};

}  // namespace tarnvik
