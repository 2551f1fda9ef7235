#pragma once

#include <QWidget>
#include <map>
#include <vector>

#include "core/ports/mark.h"
#include "ui/painting/image_picture.h"

namespace tarnvik {

/// What the mouse did on a picture, in its world coordinates. Places outside the world window (in the margin,
/// or of a drag that left the picture) are taken to its edge.
struct PictureEvent {
    double X = 0;
    double Y = 0;
    bool LeftButton = false;
    bool RightButton = false;
    bool MiddleButton = false;
    /// The same place in pixels from the world window's top left corner, wherever it is.
    double Across = 0;
    double Down = 0;
};

/// A picture on the screen: what is drawn on its canvas stands until it is drawn over. Paper-white whatever
/// the palette, since it shows what is printed.
class PictureBox : public QWidget {
    Q_OBJECT

  public:
    explicit PictureBox(QWidget* parent = nullptr);

    ImagePicture& Canvas() { return Paper; }
    /// Marks on top of the picture in the place of those that the layer had.
    void Show_Marks(MarkLayer layer, std::vector<Mark> marks);

    QSize sizeHint() const override { return Preferred; }
    void Set_Size_Hint(QSize size) { Preferred = size; }

    /// Number of a key as the drawing handlers know it: 33 and 34 page up and down, 37 to 40 the arrows, 107
    /// and 109 plus and minus; 0 for all others.
    static int Key_Code(int qt_key);

  signals:
    /// Size or density changed and the picture is blank.
    void Resized();
    void Pressed(const PictureEvent& event);
    void Moved(const PictureEvent& event);
    void Released(const PictureEvent& event);
    void Double_Clicked(const PictureEvent& event);
    void Key_Pressed(int key_code);
    /// Steps of the wheel, away from the user above 0, and the place of the pointer.
    void Wheel_Turned(double steps, Qt::KeyboardModifiers modifiers, const tarnvik::PictureEvent& at);
    /// The pointer has left the picture.
    void Left();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void Fit_Paper();
    void Show_Pointer(PointerShape shape);
    QRect Extent(const Mark& mark) const;
    void Paint_Mark(QPainter& painter, const Mark& mark) const;
    QPointF Place_Of(double x, double y) const;
    PictureEvent At(QPointF place, Qt::MouseButtons buttons) const;

    ImagePicture Paper;
    std::map<MarkLayer, std::vector<Mark>> Marks;
    QSize Preferred{320, 200};
    double Ratio = 1;
};

}  // namespace tarnvik
