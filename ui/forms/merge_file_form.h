#pragma once

#include "processing/merge_file.h"
#include "ui/form.h"

namespace tarnvik {

class FileTable;

/// Form of the tool merge_file: the SU files in their order, what they hold and how their records will be
/// numbered.
class MergeFileForm : public Form {
    Q_OBJECT

  public:
    MergeFileForm(Ports& ports, const std::string& title, const std::vector<std::string>& files);
    void Refresh() override;

  private:
    void Merge();

    MergeFile Logic;
    FileTable* Files = nullptr;
};

}  // namespace tarnvik
