#include "ui/forms/spectrum_form.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QShortcut>
#include <QTimer>

#include "ui/forms/form_keys.h"
#include "ui/spectrum_plot.h"
#include "ui_spectrum_form.h"

namespace tarnvik {

namespace {

const QColor mean_ink(0xd0, 0x4a, 0x12);

}  // namespace

SpectrumForm::SpectrumForm(std::unique_ptr<SpectrumOfTraces> logic) : Logic(std::move(logic)) {
    Ui::SpectrumForm controls;
    controls.setupUi(this);
    setAcceptDrops(true);
    setMinimumSize(760, 480);
    Plot = new SpectrumPlot;
    controls.plotPlace->addWidget(Plot, 1);
    controls.middle->setStretch(1, 1);
    controls.rows->setStretch(1, 1);
    controls.bottomRow->setStretch(0, 1);
    Tie(controls);
}

SpectrumForm::~SpectrumForm() = default;

QSize SpectrumForm::sizeHint() const {
    return {1100, 680};
}

void SpectrumForm::Tie(Ui::SpectrumForm& controls) {
    const auto compute = [this] { Compute(); };
    Fields.Command(controls.AskFile, [this] {
        Logic->Ask_For_File();
        Refresh();
    });
    Fields.Finished_Text(controls.File, Logic->File, [this] {
        Logic->Take_Up(Logic->File);
        Refresh();
    });
    const int width = fontMetrics().horizontalAdvance("888888") + 14;
    for (const auto& [control, field] : {std::pair(controls.FirstTrace, &Logic->FirstTrace),
                                         {controls.LastTrace, &Logic->LastTrace},
                                         {controls.FirstSample, &Logic->FirstSample},
                                         {controls.LastSample, &Logic->LastSample}}) {
        control->setFixedWidth(width);
        Fields.Text(control, *field, compute);
    }
    controls.Shown->addItems({tr("Amplitude"), tr("Amplitude, dB"), tr("Phase")});
    Fields.Choice(controls.Shown, Logic->Shown, [this] { Draw(); });
    controls.Taper->addItems({tr("None"), tr("Ends, 10 %"), tr("Hann")});
    Fields.Choice(controls.Taper, Logic->Window, compute);
    Fields.Tick(controls.LogFrequency, Logic->LogFrequency, [this] { Draw(); });
    Fields.Tick(controls.EachTrace, Logic->EachTrace, [this] { Draw(); });
    Fields.Text(controls.Result, Logic->Result);
    Fields.Text(controls.Hint, Logic->Hint);
    Fields.Command(controls.CopyPicture, [this] { Plot->Copy_Picture(); });
    Fields.Command(controls.SavePicture, [this] { Save_Picture(); });
    Fields.Command(controls.SaveNumbers, [this] { Logic->Save_Numbers(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    for (QPushButton* button :
         {controls.AskFile, controls.CopyPicture, controls.SavePicture, controls.SaveNumbers, controls.Quit})
        button->setAutoDefault(false);
    for (QPushButton* button : {controls.CopyPicture, controls.SavePicture, controls.SaveNumbers})
        Fields.Enabled(button, [this] { return Logic->Has_Result(); });
    // In a field the key copies what is marked there.
    auto* copy = new QShortcut(QKeySequence::Copy, Plot);
    copy->setContext(Qt::WidgetWithChildrenShortcut);
    connect(copy, &QShortcut::activated, Plot, &SpectrumPlot::Copy_Picture);
    Plot->setFocusPolicy(Qt::ClickFocus);
    On_Enter(this, [this] { Compute(); });
    On_Escape(this, [this] { Close_Me(); });
}

void SpectrumForm::Compute() {
    Logic->Compute();
    Refresh();
}

void SpectrumForm::Draw() {
    Plot->Set_Log_Frequency(Logic->LogFrequency);
    std::vector<SpectrumCurve> curves;
    if (Logic->Has_Result()) {
        std::int64_t trace = Logic->First();
        for (const Spectrum& one : Logic->Spectra()) {
            if (Logic->EachTrace)
                curves.push_back({tr("Trace %1").arg(trace), one.Step, Logic->Values(one), 1, QColor()});
            ++trace;
        }
        const Spectrum& mean = Logic->Mean_Spectrum();
        const QString name = Logic->Shown == SpectrumOfTraces::Phase ? tr("sum") : tr("mean");
        curves.push_back({name, mean.Step, Logic->Values(mean), 2.5, mean_ink});
    }
    switch (Logic->Shown) {
        case SpectrumOfTraces::Decibel:
            Plot->Show_Curves(curves, {tr("Amplitude (dB below the peak of the mean)"), "dB",
                                       SpectrumOfTraces::lowest_decibel, 20, 0});
            break;
        case SpectrumOfTraces::Phase:
            Plot->Show_Curves(curves,
                              {tr("Phase (degrees, of a cosine from the first sample)"), "°", -180, 180, 0});
            break;
        default:
            Plot->Show_Curves(curves,
                              {tr("Amplitude"), QString(), 0, 0, Noteworthy_End(Logic->Mean_Spectrum())});
            break;
    }
    const StrongBand band = Logic->Band();
    Plot->Mark_Band(band.Low, band.High);
}

void SpectrumForm::Save_Picture() {
    const QString path = QFileDialog::getSaveFileName(this, tr("Picture of the spectrum"), QString(),
                                                      tr("PNG (*.png);;JPG (*.jpg);;PDF (*.pdf)"));
    if (path.isEmpty()) return;
    if (!Plot->Save_Picture(path))
        QMessageBox::critical(this, window()->windowTitle(), tr("%1 cannot be written").arg(path));
}

void SpectrumForm::Refresh() {
    Form::Refresh();
    Draw();
}

void SpectrumForm::Closed() {
    Logic->Close();
}

void SpectrumForm::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (Asked || !Logic->File.empty()) return;
    Asked = true;
    QTimer::singleShot(0, this, [this] {
        Logic->Ask_For_File();
        Refresh();
    });
}

void SpectrumForm::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void SpectrumForm::dropEvent(QDropEvent* event) {
    const QList<QUrl> files = event->mimeData()->urls();
    if (files.isEmpty()) return;
    event->acceptProposedAction();
    Logic->Take_Up(files.first().toLocalFile().toStdString());
    Refresh();
}

}  // namespace tarnvik
