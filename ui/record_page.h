#pragma once

#include <QTimer>
#include <QWidget>

#include "ui/field_binder.h"
#include "ui/picture_box.h"

class QBoxLayout;
class QTableView;

namespace tarnvik {

class QtDisplay;
class Session;

/// First tab: one field record with its time scale, a factor above each trace, and what governs its display.
class RecordPage : public QWidget {
    Q_OBJECT

  public:
    RecordPage(Session& session, QtDisplay& display);
    void Refresh();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QWidget* Range_Group();
    QWidget* Display_Group();
    QWidget* Stations_Group();
    QWidget* Pictures();
    QCheckBox* Tick(const char* name, const QString& caption, const QString& tooltip, bool& field,
                    bool redraw);
    QLineEdit* Number_Field(const char* name, const QString& tooltip, std::string& field);
    void Redraw();
    void Fit_Sizes();

    Session& Program;
    QtDisplay& Screen;
    PictureBox* Ecran = nullptr;
    PictureBox* Echelle3 = nullptr;
    QTableView* size_grid = nullptr;
    QScrollBar* HScroll2 = nullptr;
    FieldBinder Fields;
    QTimer Resized;
};

}  // namespace tarnvik
