#pragma once

#include <QObject>
#include <QPointF>
#include <functional>

class QWheelEvent;

namespace tarnvik {

class PictureBox;

/// How a hand looks at a picture that can be enlarged, the same on all of them: the wheel pans, with Ctrl it
/// enlarges the times at the pointer, with Shift the distances; the middle button drags the picture along.
/// All places are world coordinates.
class PictureGestures : public QObject {
    Q_OBJECT

  public:
    /// Takes these events from `box`, which must outlive the object.
    explicit PictureGestures(PictureBox* box);

    std::function<void(QPointF at, double more_x, double more_y)> Enlarge;
    /// The picture moves: the window by as much, right and up count as positive world units of the picture.
    std::function<void(double across, double upward)> Pan;
    /// What the wheel pans while nothing is enlarged upwards.
    std::function<bool()> Whole_Height;
    std::function<void()> Show_All;  ///< Home, while the picture has the focus
    std::function<void()> Left;      ///< the pointer has left the picture

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool Wheel(QWheelEvent* event);
    QPointF World(QPointF place) const;

    PictureBox* Box;
    bool Dragging = false;
    QPointF DragPlace;  ///< pixels of the widget
};

}  // namespace tarnvik
