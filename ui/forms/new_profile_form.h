#pragma once

#include <QTimer>

#include "ui/form.h"

namespace tarnvik {

class rechinfo;
class SpreadsheetView;

/// Form of rechinfo: the geometry of a new profile.
class NewProfileForm : public Form {
    Q_OBJECT

  public:
    NewProfileForm(Session& session, QtDisplay& display);
    void Refresh() override;
    void Closed() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Focus_First_Field();

    rechinfo& Logic;
    SpreadsheetView* DataGrid = nullptr;
    QTimer Resized;
    bool ByButton = false;  ///< OK or Cancel is closing the form
};

}  // namespace tarnvik
