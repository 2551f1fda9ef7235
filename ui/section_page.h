#pragma once

#include <QTimer>
#include <QWidget>
#include <string>

#include "ui/field_binder.h"
#include "ui/picture_box.h"

class QBoxLayout;
class QComboBox;
class QGridLayout;
class QLineEdit;

namespace tarnvik {

class QtDisplay;
class Session;

/// Fourth tab: the coloured section with its scales, the cut at the pointer beside it, and what it is made
/// and looked at with.
class SectionPage : public QWidget {
    Q_OBJECT

  public:
    SectionPage(Session& session, QtDisplay& display);
    void Refresh();

  private:
    QWidget* Pictures();
    QWidget* Options();
    QWidget* Switch();
    void Making(QBoxLayout* rows);
    void Look(QBoxLayout* rows);
    void Elevations(QGridLayout* grid);
    void Wire_Pointer();
    void Wire_Gestures();
    /// Calls `act` with the logic of what stands on the picture: the section or the page of a report.
    template <class Act>
    void With_Shown(Act act);
    QLineEdit* Number(const char* name, const QString& tooltip);
    void Tick(QBoxLayout* rows, const char* name, const QString& caption, const QString& tooltip, bool& field,
              FieldBinder::Reaction changed);
    QComboBox* List(const char* name, const QStringList& entries, const QString& tooltip, int& field,
                    FieldBinder::Reaction changed);

    Session& Program;
    QtDisplay& Screen;
    PictureBox* Section = nullptr;
    PictureBox* SectionX = nullptr;
    PictureBox* SectionZ = nullptr;
    PictureBox* SectionCut = nullptr;
    std::string Highest;  ///< elevations as they stand in the fields
    std::string Lowest;
    bool Dragging = false;  ///< the left button carries the part in sight
    double DragAcross = 0;
    double DragDown = 0;
    FieldBinder Fields;
    QTimer Resized;
};

}  // namespace tarnvik
