#pragma once

#include "app/line_sheet.h"
#include "ui/form.h"
#include "ui/forms/sheet_pane.h"

namespace Ui {
class LineSheetForm;
}

namespace tarnvik {

/// Form of LineSheet: choices and title block beside the preview of the sheet.
class LineSheetForm : public Form {
    Q_OBJECT

  public:
    explicit LineSheetForm(Session& session);
    /// Takes up the line with its title.
    void Open(const std::string& file, const std::string& name, bool unsaved);
    void Refresh() override;

    LineSheet Logic;

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Bind(const Ui::LineSheetForm& controls);
    SheetPane* Pane = nullptr;
    std::string LineText;
};

}  // namespace tarnvik
