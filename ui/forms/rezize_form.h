#pragma once

#include "ui/form.h"

class QLineEdit;
class QTableView;

namespace tarnvik {

class rezize;
class TextGridModel;

/// Form of rezize, "SU file utility": files, the records found, and a page for each way of making a new file.
class RezizeForm : public Form {
    Q_OBJECT

  public:
    RezizeForm(Session& session, QtDisplay& display);
    void Refresh() override;
    void Opened() override;

  private:
    QTableView* Make_List();
    void Return_Pressed();

    rezize& Logic;
    TextGridModel* Records = nullptr;
    QLineEdit* Input = nullptr;
};

}  // namespace tarnvik
