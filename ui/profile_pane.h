#pragma once

#include <QTimer>
#include <QWidget>
#include <string>

#include "core/workspace.h"
#include "ui/field_binder.h"
#include "ui/picture_box.h"

class QLineEdit;
class QScrollBar;

namespace tarnvik {

class QtDisplay;
class Session;

/// The seismic profile with its elevation scale, the elevations it stands between and the sketch of the line.
/// The wheel enlarges what is seen and the bars scroll it; both only paint what stands. An elevation that is
/// typed is drawn at once.
class ProfilePane : public QWidget {
    Q_OBJECT

  public:
    ProfilePane(Session& session, QtDisplay& display);

    void Refresh();
    void Draw_Sketch();

  private:
    QWidget* Side();
    void Bind_Elevations(QLineEdit* highest, QLineEdit* lowest, QLineEdit* height);
    void Follow_Window();
    void Wire_Gestures();
    void Show_Window();
    void Repaint();

    Session& Program;
    QtDisplay& Screen;
    PictureBox* Dromo1 = nullptr;
    PictureBox* EchelleY1 = nullptr;
    PictureBox* Sketch = nullptr;
    QScrollBar* Across = nullptr;
    QScrollBar* Up = nullptr;
    std::string Text27;  ///< elevations as they stand in the fields
    std::string Text33;
    std::string Text32;
    FieldBinder Fields;
    QTimer Resized;
};

}  // namespace tarnvik
