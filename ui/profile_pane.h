#pragma once

#include <QTimer>
#include <QWidget>

#include "core/workspace.h"
#include "ui/field_binder.h"
#include "ui/picture_box.h"

class QScrollBar;

namespace tarnvik {

class QtDisplay;
class Session;

/// The seismic profile with its elevation scale, the elevations it stands between and the sketch of the line.
/// The wheel enlarges what is seen and the bars scroll it; both only paint, since each drawing on command
/// corrects the distances once more and takes every enlargement back.
class ProfilePane : public QWidget {
    Q_OBJECT

  public:
    ProfilePane(Session& session, QtDisplay& display);

    void Refresh();
    void Draw_Sketch();
    /// Paints what stands, enlarged as it is.
    void Repaint();
    /// Takes the enlargement back.
    void Show_Whole_Line();

  private:
    QWidget* Side();
    void Wheel(double steps, Qt::KeyboardModifiers modifiers);
    void Set_Window(double zoom_x, double zoom_y);

    Session& Program;
    QtDisplay& Screen;
    PictureBox* Dromo1 = nullptr;
    PictureBox* EchelleY1 = nullptr;
    PictureBox* Sketch = nullptr;
    QScrollBar* Across = nullptr;
    QScrollBar* Up = nullptr;
    double ZoomX = 1;
    double ZoomY = 1;
    FieldBinder Fields;
    QTimer Resized;
};

}  // namespace tarnvik
