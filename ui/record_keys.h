#pragma once

#include <QObject>
#include <QWidget>

namespace tarnvik {

class PictureBox;
class Session;

/// Keys of picking on the record page, and what belongs to who has the keys: Enter or Escape in a field gives
/// them back to the picture, a click into the picture that leaves a field does nothing else, and P held makes
/// a drag paint picks. Controls that need a key for themselves (fields, lists, bars) keep it.
class RecordKeys : public QObject {
    Q_OBJECT

  public:
    /// `page` is in sight as long as the keys act.
    RecordKeys(Session& session, QWidget* page, PictureBox* record);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool In_Charge() const;
    bool Key_Pressed(QWidget* at, int key, bool plain);
    void Give_Back_Later();
    bool Pressed_On_Record(Qt::MouseButton button);

    Session& Program;
    QWidget* Page;
    PictureBox* Record;
    bool FieldLeft = false;  ///< by the press that is being delivered
};

}  // namespace tarnvik
