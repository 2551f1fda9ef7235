#pragma once

#include "ui/form.h"

namespace Ui {
class QuickForm;
}

namespace tarnvik {

class SpreadsheetView;

/// Form of quick_interpret, "Quick interpretation".
class QuickForm : public Form {
    Q_OBJECT

  public:
    QuickForm(Session& session, QtDisplay& display);
    void Opened() override;
    void Closed() override;
    void Refresh() override;

  private:
    void Bind_Shot(const Ui::QuickForm& controls);
    void Bind_Sides(const Ui::QuickForm& controls);
    void Make_Grid(const Ui::QuickForm& controls);
    void Show_Rows();

    Session& Program;
    QWidget* ShotBox = nullptr;
    SpreadsheetView* Grid1 = nullptr;
};

}  // namespace tarnvik
