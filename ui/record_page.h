#pragma once

#include <QTimer>
#include <QWidget>

#include "ui/field_binder.h"
#include "ui/picture_box.h"

class QScrollBar;

namespace tarnvik {

class MagnifierBox;
class QtDisplay;
class RecordControls;
class Session;
class TraceSizeStrip;

/// First tab: one field record with its time scale, a factor above each trace, and what governs its display.
class RecordPage : public QWidget {
    Q_OBJECT

  public:
    RecordPage(Session& session, QtDisplay& display);
    void Refresh();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* Pictures(QtDisplay& display);
    void Wire_Record();
    void Wire_Scrolling();
    void Wire_Time_Scale();
    void Refresh_Bars();
    void Redraw();

    Session& Program;
    RecordControls* Controls = nullptr;
    PictureBox* Ecran = nullptr;
    PictureBox* Echelle3 = nullptr;
    PictureBox* Above = nullptr;   ///< RecordHeader
    QScrollBar* Down = nullptr;    ///< through the time
    QScrollBar* Across = nullptr;  ///< through the traces
    bool Following = false;        ///< the bars are being set
    TraceSizeStrip* Sizes = nullptr;
    MagnifierBox* Magnifier = nullptr;
    FieldBinder Fields;
    QTimer Resized;
};

}  // namespace tarnvik
