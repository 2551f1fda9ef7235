#pragma once

#include "processing/conversion_dialog.h"
#include "ui/form.h"

class QTabWidget;

namespace tarnvik {

class FileTable;
class TracePreview;

/// Form of Conversion: the files with their kind, what was assumed about the chosen one and its first traces,
/// where the places come from, and the report.
class ConversionForm : public Form {
    Q_OBJECT

  public:
    /// The logic must outlive the form.
    explicit ConversionForm(Conversion& logic);
    void Refresh() override;

  private:
    void Convert();
    void Show_Chosen();

    Conversion& Logic;
    FileTable* Files = nullptr;
    TracePreview* Preview = nullptr;
    QTabWidget* Pages = nullptr;
    std::string Shown;  ///< file whose traces stand in the preview
};

}  // namespace tarnvik
