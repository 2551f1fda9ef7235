#pragma once

#include "processing/spectrum_of_traces.h"
#include "ui/form.h"

namespace Ui {
class SpectrumForm;
}

namespace tarnvik {

class SpectrumPlot;

/// Form of SpectrumOfTraces: what is transformed and how at the left, the curves beside it.
class SpectrumForm : public Form {
    Q_OBJECT

  public:
    /// A form that is shown without a file asks for one.
    explicit SpectrumForm(std::unique_ptr<SpectrumOfTraces> logic);
    ~SpectrumForm() override;
    void Refresh() override;
    void Closed() override;
    QSize sizeHint() const override;

  protected:
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Tie(Ui::SpectrumForm& controls);
    void Compute();
    void Draw();
    void Save_Picture();

    std::unique_ptr<SpectrumOfTraces> Logic;
    SpectrumPlot* Plot = nullptr;
    bool Asked = false;
};

}  // namespace tarnvik
