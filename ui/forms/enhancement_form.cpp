#include "ui/forms/enhancement_form.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QGroupBox>
#include <QMimeData>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/forms/form_keys.h"
#include "ui/forms/long_work.h"
#include "ui/picture_box.h"
#include "ui/spectrum_plot.h"
#include "ui_enhancement_form.h"

namespace tarnvik {

namespace {

const QColor before_ink(0x8a, 0x8f, 0x98);
const QColor after_ink(0xd0, 0x4a, 0x12);

/// A picture under its name.
QWidget* Named(const QString& name, QWidget* picture) {
    auto* place = new QWidget;
    auto* column = new QVBoxLayout(place);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(new QLabel(name));
    column->addWidget(picture, 1);
    return place;
}

}  // namespace

EnhancementForm::EnhancementForm(std::unique_ptr<Enhancement> logic) : Logic(std::move(logic)) {
    Ui::EnhancementForm controls;
    controls.setupUi(this);
    setAcceptDrops(true);
    setMinimumSize(980, 560);
    Soon.setSingleShot(true);
    connect(&Soon, &QTimer::timeout, this, [this] {
        Logic->Update();
        Form::Refresh();
        Draw();
    });
    Make_Pictures(controls);
    Tie_Files(controls);
    Tie_Filters(controls);
    Tie_Record(controls);
    Fields.Text(controls.Hint, Logic->Hint);
    controls.Hint->setMinimumHeight(2 * fontMetrics().lineSpacing());
    controls.bottomRow->setStretch(0, 1);
    Fields.Command(controls.Write, [this] { Write(); });
    Fields.Enabled(controls.Write, [this] { return Logic->Can_Write(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    On_Ctrl_Enter(this, [this] { Write(); });
    On_Escape(this, [this] { Close_Me(); });
}

EnhancementForm::~EnhancementForm() = default;

QSize EnhancementForm::sizeHint() const {
    return {1240, 740};
}

void EnhancementForm::Make_Pictures(Ui::EnhancementForm& controls) {
    Scale = new PictureBox;
    Scale->setObjectName("ScalePicture");
    Scale->setFixedWidth(fontMetrics().horizontalAdvance("8888ms") + 20);
    Before = new PictureBox;
    Before->setObjectName("BeforePicture");
    Before->setAccessibleName(tr("Record as it is"));
    After = new PictureBox;
    After->setObjectName("AfterPicture");
    After->setAccessibleName(tr("Record filtered"));
    Scale->Canvas().Follow_Rows_Of(&Before->Canvas());
    Plot = new SpectrumPlot;
    for (PictureBox* box : {Scale, Before, After}) {
        box->setMinimumHeight(200);
        connect(box, &PictureBox::Resized, this, &EnhancementForm::Draw, Qt::QueuedConnection);
    }
    Before->setMinimumWidth(160);
    After->setMinimumWidth(160);

    auto* with_scale = new QWidget;
    auto* row = new QHBoxLayout(with_scale);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(Named(QString(), Scale));
    row->addWidget(Named(tr("Before"), Before), 1);
    auto* parts = new QSplitter;
    parts->addWidget(with_scale);
    parts->addWidget(Named(tr("After"), After));
    parts->addWidget(Named(tr("Amplitude spectrum"), Plot));
    for (const int part : {0, 1, 2}) {
        parts->setCollapsible(part, false);
        parts->setStretchFactor(part, 1);
    }
    controls.pictures->addWidget(parts);
    controls.picturePlace->setStretch(0, 1);
    controls.middle->setStretch(1, 1);
    controls.rows->setStretch(1, 1);
}

void EnhancementForm::Tie_Files(Ui::EnhancementForm& controls) {
    Fields.Command(controls.AskInput, [this] {
        Logic->Ask_For_Input();
        Refresh();
    });
    Fields.Finished_Text(controls.Input, Logic->Input, [this] {
        Logic->Input_Typed();
        Refresh();
    });
    Fields.Command(controls.AskOutput, [this] {
        Logic->Ask_For_Output();
        Form::Refresh();
    });
    Fields.Text(controls.Output, Logic->Output);
    for (QPushButton* button : {controls.AskInput, controls.AskOutput, controls.Write, controls.Quit})
        button->setAutoDefault(false);
}

void EnhancementForm::Tie_Filters(Ui::EnhancementForm& controls) {
    const auto changed = [this] { Try(); };
    const auto tick = [&](QCheckBox* box, bool& field, std::initializer_list<QWidget*> its = {}) {
        Fields.Tick(box, field, changed);
        for (QWidget* one : its)
            Fields.Enabled(one, [&field] { return field; });
    };
    tick(controls.RemoveMean, Logic->RemoveMean);
    tick(controls.RemoveDrift, Logic->RemoveDrift);
    tick(controls.NotchOn, Logic->NotchOn,
         {controls.HumHertz, controls.HertzLabel, controls.HarmonicsLabel, controls.Harmonics});
    controls.HumHertz->addItems({"50", "60"});
    Fields.Text(controls.HumHertz, Logic->HumHertz, changed);
    Fields.Text(controls.Harmonics, Logic->Harmonics, changed);
    QLineEdit* const corners[] = {controls.F1, controls.F2, controls.F3, controls.F4};
    tick(controls.BandOn, Logic->BandOn,
         {controls.Preset, controls.F1, controls.F2, controls.F3, controls.F4, controls.F1Label,
          controls.F2Label, controls.F3Label, controls.F4Label});
    Fields.Entries(controls.Preset, Logic->PresetEntries);
    Fields.Choice(controls.Preset, Logic->Preset, [this] {
        Logic->Preset_Chosen();
        Try();
    });
    std::string* const typed[] = {&Logic->F1, &Logic->F2, &Logic->F3, &Logic->F4};
    const int width = fontMetrics().horizontalAdvance("8888.8") + 14;
    for (std::size_t i = 0; i < 4; ++i) {
        Fields.Text(corners[i], *typed[i], [this] {
            Logic->Corner_Typed();
            Try();
        });
        corners[i]->setFixedWidth(width);
    }
    tick(controls.MuteOn, Logic->MuteOn, {controls.MuteMs, controls.MuteUnit});
    Fields.Text(controls.MuteMs, Logic->MuteMs, changed);
    tick(controls.AgcOn, Logic->AgcOn, {controls.AgcMs, controls.AgcUnit});
    Fields.Text(controls.AgcMs, Logic->AgcMs, changed);
    tick(controls.Balance, Logic->Balance);
    tick(controls.Reverse, Logic->Reverse,
         {controls.FirstReversed, controls.ReversedTo, controls.LastReversed});
    Fields.Text(controls.FirstTrace, Logic->FirstTrace, changed);
    Fields.Text(controls.LastTrace, Logic->LastTrace, changed);
    Fields.Text(controls.FirstReversed, Logic->FirstReversed, changed);
    Fields.Text(controls.LastReversed, Logic->LastReversed, changed);
    for (QLineEdit* trace :
         {controls.FirstTrace, controls.LastTrace, controls.FirstReversed, controls.LastReversed}) {
        trace->setFixedWidth(width);
        trace->setPlaceholderText(tr("all"));
    }
    for (QWidget* number :
         std::initializer_list<QWidget*>{controls.Harmonics, controls.MuteMs, controls.AgcMs})
        number->setFixedWidth(width);
    controls.HumHertz->setFixedWidth(width + 12);
    for (QGridLayout* grid : {controls.notchGrid, controls.gainGrid})
        grid->setColumnStretch(0, 1);
    const int scroll_bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    controls.choicesArea->setFixedWidth(controls.choices->sizeHint().width() + scroll_bar + 8);
}

void EnhancementForm::Tie_Record(Ui::EnhancementForm& controls) {
    Fields.Scroll(
        controls.RecordSlider, Logic->Record, [this] { return Logic->Nb_Records(); }, [this] { Try(); });
    Fields.Enabled(controls.RecordSlider, [this] { return Logic->Nb_Records() > 1; });
    controls.Style->addItems({tr("Variable area"), tr("Wiggle only"), tr("Color")});
    Fields.Choice(controls.Style, Logic->Style, [this] { Draw(); });
    Fields.Tick(controls.EqualiseTraces, Logic->EqualiseTraces, [this] { Draw(); });
    Fields.Command(controls.Smaller, [this] {
        Logic->Smaller();
        Draw();
    });
    Fields.Command(controls.Larger, [this] {
        Logic->Larger();
        Draw();
    });
    for (QToolButton* button : {controls.Smaller, controls.Larger}) {
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::StrongFocus);
    }
}

void EnhancementForm::Try() {
    Form::Refresh();
    Soon.start(0);
}

void EnhancementForm::Draw() {
    Logic->Draw_Before(Before->Canvas());
    Logic->Draw_After(After->Canvas());
    Logic->Draw_Scale(Scale->Canvas());
    std::vector<SpectrumCurve> curves;
    const auto add = [&curves](const QString& name, const Spectrum& spectrum, const QColor& ink,
                               double width) {
        if (!spectrum.Amplitude.empty())
            curves.push_back({name, spectrum.Step, spectrum.Amplitude, width, ink});
    };
    const double in_sight =
        std::max(Noteworthy_End(Logic->Spectrum_Before()), Noteworthy_End(Logic->Spectrum_After()));
    // Each to its own peak: a gain would flatten the other one.
    add(tr("Before"), Logic->Spectrum_Before(), before_ink, 5);
    add(tr("After"), Logic->Spectrum_After(), after_ink, 2);
    for (SpectrumCurve& curve : curves) {
        const double peak = *std::max_element(curve.Values.begin(), curve.Values.end());
        for (double& value : curve.Values)
            value = peak > 0 ? value / peak : 0;
    }
    Plot->Show_Curves(curves, {tr("Share of the peak"), QString(), 0, 0, in_sight});
}

void EnhancementForm::Write() {
    if (!Logic->Can_Write()) return;
    const auto told = [](std::int64_t done, std::int64_t all) {
        return tr("%L1 of %L2 traces").arg(done).arg(all);
    };
    Run_Long_Work(this, told, [this](const TraceProgress& progress) { Logic->Write(progress); });
    Form::Refresh();
}

void EnhancementForm::Refresh() {
    Form::Refresh();
    Draw();
}

void EnhancementForm::Closed() {
    Logic->Close();
}

void EnhancementForm::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void EnhancementForm::dropEvent(QDropEvent* event) {
    const QList<QUrl> files = event->mimeData()->urls();
    if (files.isEmpty()) return;
    event->acceptProposedAction();
    // The program that the file comes from waits for the end of the drop; questions come after it.
    QTimer::singleShot(0, this, [this, path = files.first().toLocalFile().toStdString()] {
        Logic->Take_Up(path);
        Refresh();
    });
}

}  // namespace tarnvik
