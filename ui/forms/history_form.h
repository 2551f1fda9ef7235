#pragma once

#include "app/edit_commands.h"
#include "ui/form.h"

class QListWidget;

namespace tarnvik {

/// Form of the history: a click on a row, or Return on it, walks there.
class HistoryForm : public Form {
    Q_OBJECT

  public:
    HistoryForm(Session& session, QtDisplay& display);
    void Refresh() override;

  private:
    HistoryList Logic;
    QListWidget* List = nullptr;
};

}  // namespace tarnvik
