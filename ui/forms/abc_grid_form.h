#pragma once

#include "ui/form.h"

class QVBoxLayout;

namespace tarnvik {

class SpreadsheetView;

/// Form of ABCGridF, "ABC Grid".
class AbcGridForm : public Form {
    Q_OBJECT

  public:
    AbcGridForm(Session& session, QtDisplay& display);
    void Refresh() override;
    void Opened() override;
    void Closed() override;

  private:
    void Add_Grids(QVBoxLayout* upper, QVBoxLayout* lower);
    void Fit_Columns();

    Session& Program;
    SpreadsheetView* Receivers = nullptr;
    SpreadsheetView* Shots = nullptr;
};

}  // namespace tarnvik
