#pragma once

#include <QTableWidget>

#include "output/sheets/joined_profiles.h"
#include "ui/form.h"
#include "ui/forms/sheet_pane.h"

namespace Ui {
class JoinedProfilesForm;
}

namespace tarnvik {

/// Form of JoinedProfiles: the list of lines and the drawing's choices beside the preview.
class JoinedProfilesForm : public Form {
    Q_OBJECT

  public:
    explicit JoinedProfilesForm(Session& session);
    /// Adds projects, or opens the first set of profiles among the files.
    void Take(const std::vector<std::string>& files);
    void Refresh() override;

    JoinedProfiles Logic;

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Bind(const Ui::JoinedProfilesForm& controls);
    void Bind_List(const Ui::JoinedProfilesForm& controls);
    void Fill_List();
    SheetPane* Pane = nullptr;
    QTableWidget* List = nullptr;
};

}  // namespace tarnvik
