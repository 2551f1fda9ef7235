#pragma once

#include "app/record_sheets.h"
#include "ui/form.h"
#include "ui/forms/sheet_pane.h"

namespace Ui {
class RecordSheetsForm;
}

namespace tarnvik {

/// Form of RecordSheets: records and their look beside the preview of the pages.
class RecordSheetsForm : public Form {
    Q_OBJECT

  public:
    explicit RecordSheetsForm(Session& session);
    void Refresh() override;

    RecordSheets Logic;

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Bind(const Ui::RecordSheetsForm& controls);
    SheetPane* Pane = nullptr;
    std::string FileText;
};

}  // namespace tarnvik
