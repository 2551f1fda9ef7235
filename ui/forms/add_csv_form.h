#pragma once

#include "output/tables/add_csv.h"
#include "ui/form.h"

class QTableView;

namespace tarnvik {

class FileTable;
class TextGridModel;

/// Form of the tool add_csv: the result tables in their order, and the first rows of what they make together.
class AddCsvForm : public Form {
    Q_OBJECT

  public:
    AddCsvForm(Ports& ports, const std::string& title, const std::vector<std::string>& files);
    void Refresh() override;

  private:
    void Write();
    QTableView* Make_Preview();

    AddCsv Logic;
    FileTable* Files = nullptr;
    TextGridModel* Rows = nullptr;
};

}  // namespace tarnvik
