#pragma once

#include <QTimer>

#include "processing/enhancement.h"
#include "ui/form.h"

namespace Ui {
class EnhancementForm;
}

namespace tarnvik {

class PictureBox;
class SpectrumPlot;

/// Form of Enhancement, "SU enhancement": the filters at the left, the record in sight before and after them,
/// and the spectra of both.
class EnhancementForm : public Form {
    Q_OBJECT

  public:
    explicit EnhancementForm(std::unique_ptr<Enhancement> logic);
    ~EnhancementForm() override;
    void Refresh() override;
    void Closed() override;
    QSize sizeHint() const override;

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Tie_Files(Ui::EnhancementForm& controls);
    void Tie_Filters(Ui::EnhancementForm& controls);
    void Tie_Record(Ui::EnhancementForm& controls);
    void Make_Pictures(Ui::EnhancementForm& controls);
    void Try();
    void Draw();
    void Write();

    std::unique_ptr<Enhancement> Logic;
    PictureBox* Scale = nullptr;
    PictureBox* Before = nullptr;
    PictureBox* After = nullptr;
    SpectrumPlot* Plot = nullptr;
    QTimer Soon;  ///< several changes of one moment are tried once
};

}  // namespace tarnvik
