#pragma once

#include <QFrame>

namespace tarnvik {

class PictureBox;
class QtDisplay;
class Session;

/// The magnifier in a corner of the record, away from the place that it shows.
class MagnifierBox : public QFrame {
    Q_OBJECT

  public:
    MagnifierBox(Session& session, QtDisplay& display, PictureBox* record);

    /// Shown or not, and in which corner.
    void Follow();

  private:
    Session& Program;
    PictureBox* Record;
};

}  // namespace tarnvik
