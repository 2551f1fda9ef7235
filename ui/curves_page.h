#pragma once

#include <QAbstractListModel>
#include <QSplitter>
#include <QTimer>
#include <QWidget>

#include "ui/field_binder.h"
#include "ui/picture_box.h"

class QListView;
class QScrollBar;

namespace tarnvik {

class ProfilePane;
class QtDisplay;
class Session;

/// The shots of Grille_Shot as a list with a tick for each curve that is drawn.
class ShotListModel : public QAbstractListModel {
    Q_OBJECT

  public:
    ShotListModel(Session& session, QObject* parent);
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    void Refresh();

  private:
    Session& Program;
    int Shown = 0;
    std::vector<int> Colours;
};

/// Third tab: the list of shots, and beside it the travel-time curves, the seismic profile in their place, or
/// both in the combined display.
class CurvesPage : public QWidget {
    Q_OBJECT

  public:
    CurvesPage(Session& session, QtDisplay& display);

    void Refresh();
    void Refresh_Shots();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QWidget* Curves_Pane();
    QWidget* Shots_Pane();
    void Wire_Pointer();
    void Wire_Gestures();
    bool Can_Be_Enlarged() const;
    QWidget* Shot_Buttons(QListView* list);
    void Arrange_Panes();
    void Repaint();

    Session& Program;
    QtDisplay& Screen;
    PictureBox* Dromo = nullptr;
    PictureBox* EchelleX = nullptr;
    PictureBox* EchelleY = nullptr;
    QScrollBar* HScroll1 = nullptr;
    QScrollBar* VScroll1 = nullptr;
    QWidget* ShotsPane = nullptr;
    QSplitter* Panes = nullptr;
    QWidget* CurvesPane = nullptr;
    ProfilePane* Profile = nullptr;
    ShotListModel* Shots = nullptr;
    QListView* List = nullptr;
    bool Following = false;  ///< the list goes to the shot that is current elsewhere
    FieldBinder Fields;
    QTimer Resized;
};

}  // namespace tarnvik
