#include "ui/forms/depth_form.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTimer>
#include <array>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/receiver_boxes.h"
#include "ui_depth_form.h"

namespace tarnvik {

namespace {

using Family = AwaitedField::Family;
using Side = AwaitedField::Side;

struct LayerRow {
    const char* VelocityA;
    const char* VelocityB;
    const char* TrueV;
};

struct RefractorRow {
    const char* InterceptA;
    const char* InterceptB;
    const char* MeanIntercept;
    const char* CritDistA;
    const char* CritDistB;
    const char* MeanCritDist;
    const char* Thick;
    const char* Depth;
};

/// The controls of layers 1 to 5.
constexpr LayerRow layer_rows[] = {
    {"Text2", "Text7", "Text12"},  {"Text3", "Text8", "Text13"},  {"Text4", "Text9", "Text14"},
    {"Text5", "Text10", "Text15"}, {"Text6", "Text11", "Text16"},
};

/// The controls of refractors 1 to 4.
constexpr RefractorRow refractor_rows[] = {
    {"Text31", "Text36", "Text17", "Text44", "Text45", "Text22", "Text27", "Text32"},
    {"Text37", "Text38", "Text18", "Text46", "Text47", "Text23", "Text28", "Text33"},
    {"Text39", "Text40", "Text19", "Text48", "Text49", "Text24", "Text29", "Text34"},
    {"Text41", "Text42", "Text20", "Text50", "Text51", "Text25", "Text30", "Text35"},
};

/// A part of one colour mixed into another: readable on a light and on a dark palette.
QColor Mixed(const QColor& base, const QColor& tint, double part) {
    const auto mix = [part](double from, double to) { return static_cast<float>(from + part * (to - from)); };
    return QColor::fromRgbF(mix(base.redF(), tint.redF()), mix(base.greenF(), tint.greenF()),
                            mix(base.blueF(), tint.blueF()));
}

}  // namespace

DepthForm::DepthForm(Session& session, QtDisplay&) : Program(session) {
    Ui::DepthForm controls;
    controls.setupUi(this);
    Fcalcul& logic = session.Depths;
    LayerCount = controls.Text21;
    const int width = fontMetrics().horizontalAdvance("88888.8") + 12;
    for (QLineEdit* edit : findChildren<QLineEdit*>()) {
        edit->setFixedWidth(width);
    }
    Bind_Shot(controls);
    Bind_Layers();
    Bind_Refractors();

    Fields.Text(controls.Text53, logic.ShotLabel);
    Fields.Text(controls.Caption, logic.Caption);
    Fields.Tick(controls.Check1, logic.Check1);
    Fields.Command(controls.Command1, [&logic] { logic.Command1(); });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command3, [&logic] { logic.Command3(); });
    Fields.Command(controls.Command4, [&logic] { logic.Command4(); });
    Fields.Follow([this, &logic, save = controls.Command4] {
        QPalette colours = palette();
        if (logic.Unsaved) {
            colours.setColor(QPalette::Button, QColor(255, 0, 0));
            colours.setColor(QPalette::ButtonText, Qt::black);
        }
        if (save->palette() != colours) save->setPalette(colours);
    });
    On_Enter(this, [this, &logic] {
        // The count of layers is taken first: the rows of a new layer are still to be filled.
        if (LayerCount->hasFocus()) {
            LayerCount->setModified(false);
            logic.Layers_Changed();
        } else {
            logic.Command1();
        }
    });
    On_Escape(this, [this] { Close_Me(); });
    On_Ctrl_Enter(this, [this] { Save_And_Go_On(); });
    controls.Command4->setToolTip(controls.Command4->toolTip() +
                                  tr("\nCtrl+Enter saves and goes to the next layer"));
}

/// Saves what stands, and the velocity of the layer below waits for the picture.
void DepthForm::Save_And_Go_On() {
    Fcalcul& logic = Program.Depths;
    logic.Command4();
    const auto entered = PictureFields.find(LastEntered);
    const AwaitedField from =
        entered != PictureFields.end() ? entered->second : AwaitedField{Family::Velocity, 0, Side::A};
    const auto next = logic.Next_Layer(from);
    if (!next) return;
    for (const auto& [control, field] : PictureFields) {
        if (field == *next) static_cast<QLineEdit*>(control)->setFocus();
    }
}

QLineEdit* DepthForm::Control(const char* name) {
    return findChild<QLineEdit*>(name);
}

void DepthForm::Bind_Shot(const Ui::DepthForm& controls) {
    Fcalcul& logic = Program.Depths;
    Fields.Scroll(controls.HScroll1, logic.HScroll1, [&logic, bar = controls.HScroll1] {
        bar->Stop_Stepping();
        logic.HScroll1_Changed();
    });
    controls.HScroll1->setTracking(false);
    controls.HScroll1->setPageStep(1);
    // The number below stays on the shot before while the bar stands on an offset shot.
    Fields.Follow([&logic, label = controls.Label1] {
        label->setText(tr("Shot change  %1 / %2").arg(logic.HScroll1.Value).arg(logic.HScroll1.Max));
    });
    Fields.Text(controls.Text52, logic.ShotLabel);
    controls.Text43->setMinimumHeight(fontMetrics().height());
    Fields.Text(controls.Text43, logic.OffsetText);
    Fields.Shown(controls.Text43, [&logic] { return !logic.OffsetText.empty(); });
    // The rows and buttons below stay where they are when the message comes.
    Keep_Room(controls.Text43);
    QPalette red = controls.Text43->palette();
    red.setColor(QPalette::WindowText, QColor(0xd0, 0x20, 0x20));
    controls.Text43->setPalette(red);
    const auto changed = [&logic] { logic.Field_Changed(); };
    Fields.Text(controls.Text1, logic.Altitude, changed);
    Fields.Text(controls.Text26, logic.ShotDepth, changed);
    Fields.Finished_Text(controls.Text21, logic.Layers, [&logic] { logic.Layers_Changed(); });
    // The ends of the line stand over the side that lies towards them.
    const auto end = [this](QLabel* label, const QString& side, const std::string& text) {
        Fields.Follow([label, side, &text] { label->setText(QString::fromStdString(text) + "\n" + side); });
        label->setAlignment(Qt::AlignRight);
    };
    end(controls.Label17, "A", logic.Label17);
    end(controls.Label18, "B", logic.Label18);
    Fields.Follow([this, controls] {
        const bool metric = Program.Work.Settings.Metric();
        controls.velocities->setTitle(metric ? tr("Velocities (m/s) and depths (m)")
                                             : tr("Velocities (f/s) and depths (f)"));
        controls.HeadCD->setText(metric ? tr("Critical distance (m)") : tr("Critical distance (f)"));
    });
}

/// A field that the picture can fill while it has the focus.
void DepthForm::Picture_Field(const char* control, AwaitedField field) {
    QLineEdit* edit = Control(control);
    Fields.Text(edit, *Program.Depths.Field_Of(field), [this] { Program.Depths.Field_Changed(); });
    PictureFields[edit] = field;
    edit->installEventFilter(this);
    Fields.Follow([this, edit, field] {
        QPalette colours = palette();
        // Lit as long as a click on the picture goes here.
        if (Program.Work.Velocity.Awaited == field && Program.Work.Mode.Held_By(Dialog::Fcalcul)) {
            colours.setColor(QPalette::Base,
                             Mixed(colours.color(QPalette::Base), colours.color(QPalette::Highlight), 0.3));
        }
        if (edit->palette() != colours) edit->setPalette(colours);
    });
}

/// A mean, which follows the two fields beside it: it never takes the focus, a click says why, and its number
/// is copied by the menu.
void DepthForm::Mean_Field(const char* control, const std::string& field) {
    QLineEdit* edit = Control(control);
    Fields.Result(edit, field);
    edit->setFocusPolicy(Qt::NoFocus);
    edit->installEventFilter(this);
    auto* copy = new QAction(tr("Copy"), edit);
    edit->addAction(copy);
    edit->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(copy, &QAction::triggered, edit, [edit] { QGuiApplication::clipboard()->setText(edit->text()); });
}

void DepthForm::Show_For_Layers(int layers, std::initializer_list<QWidget*> controls) {
    for (QWidget* control : controls)
        Fields.Shown(control, [this, layers] { return Program.Depths.VisibleLayers >= layers; });
}

void DepthForm::Bind_Layers() {
    Fcalcul& logic = Program.Depths;
    int layer = 0;
    for (const LayerRow& row : layer_rows) {
        ++layer;
        const auto at = static_cast<std::size_t>(layer);
        Picture_Field(row.VelocityA, {Family::Velocity, layer, Side::A});
        Picture_Field(row.VelocityB, {Family::Velocity, layer, Side::B});
        Fields.Result(Control(row.TrueV), logic.TrueV.at(at));
        auto* caption = findChild<QLabel*>("RowV" + QString::number(layer));
        Show_For_Layers(layer, {caption, Control(row.VelocityA), Control(row.VelocityB), Control(row.TrueV)});
    }
}

void DepthForm::Bind_Refractors() {
    Fcalcul& logic = Program.Depths;
    int refractor = 0;
    for (const RefractorRow& row : refractor_rows) {
        ++refractor;
        const auto at = static_cast<std::size_t>(refractor);
        Picture_Field(row.InterceptA, {Family::Intercept, refractor, Side::A});
        Picture_Field(row.InterceptB, {Family::Intercept, refractor, Side::B});
        Picture_Field(row.CritDistA, {Family::CriticalDistance, refractor, Side::A});
        Picture_Field(row.CritDistB, {Family::CriticalDistance, refractor, Side::B});
        Mean_Field(row.MeanIntercept, logic.MeanIntercept.at(at));
        Mean_Field(row.MeanCritDist, logic.MeanCritDist.at(at));
        Fields.Result(Control(row.Thick), logic.Thick.at(at));
        Fields.Result(Control(row.Depth), logic.Depth.at(at));
        auto* caption = findChild<QLabel*>("RowIT" + QString::number(refractor));
        Show_For_Layers(refractor + 1,
                        {caption, Control(row.InterceptA), Control(row.InterceptB),
                         Control(row.MeanIntercept), Control(row.CritDistA), Control(row.CritDistB),
                         Control(row.MeanCritDist), Control(row.Thick), Control(row.Depth)});
    }
}

bool DepthForm::eventFilter(QObject* watched, QEvent* event) {
    const bool clicked = event->type() == QEvent::MouseButtonPress &&
                         static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    const auto found = PictureFields.find(watched);
    if (found == PictureFields.end()) {
        // The message comes when the click is over.
        if (clicked) QTimer::singleShot(0, this, [this] { Program.Depths.Enter_Mean_Field(); });
        return clicked || Form::eventFilter(watched, event);
    }
    // A click into the field that has the cursor already makes it wait for the picture again.
    if (clicked || event->type() == QEvent::FocusIn) {
        LastEntered = static_cast<QLineEdit*>(watched);
        Program.Depths.Enter_Field(found->second);
        Fields.Refresh();
    }
    return Form::eventFilter(watched, event);
}

void DepthForm::Opened() {
    Program.Depths.Load();
    findChild<ShotScrollBar*>("HScroll1")->setFocus();
}

void DepthForm::Called() {
    if (LastEntered != nullptr && LastEntered->isVisible()) LastEntered->setFocus();
}

void DepthForm::Closed() {
    Program.Depths.Close();
}

}  // namespace tarnvik
