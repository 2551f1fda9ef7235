#pragma once

#include "ui/form.h"

namespace tarnvik {

class SpreadsheetView;

/// Form of resu, "Seismic Profile".
class ResuForm : public Form {
    Q_OBJECT

  public:
    ResuForm(Session& session, QtDisplay& display);
    void Refresh() override;
    void Opened() override;
    void Called() override;
    QSize sizeHint() const override;

  private:
    void Make_Grid();

    Session& Program;
    SpreadsheetView* Grid = nullptr;
};

}  // namespace tarnvik
