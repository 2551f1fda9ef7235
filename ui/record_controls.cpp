#include "ui/record_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QToolButton>
#include <vector>

#include "app/dialog_commands.h"
#include "app/session.h"
#include "core/text/number.h"
#include "records/record_buttons.h"
#include "records/record_display.h"
#include "records/su_loading.h"
#include "ui/flow_layout.h"
#include "ui/icon_family.h"

namespace tarnvik {

namespace {

constexpr int group_gap = 8;
constexpr int scroll_width = 96;

QWidget* Row_Of_Buttons(QHBoxLayout*& row) {
    auto* pane = new QWidget;
    row = new QHBoxLayout(pane);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    return pane;
}

QGridLayout* Grid_In(QGroupBox* group) {
    auto* grid = new QGridLayout(group);
    grid->setContentsMargins(8, 2, 8, 4);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(2);
    return grid;
}

}  // namespace

RecordControls::RecordControls(Session& session) : Program(session) {
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(2);
    const std::vector<QWidget*> commands = {Record_Commands(), Zoom_Commands(), Size_Commands(),
                                            Pick_Commands()};
    const std::vector<QWidget*> groups = {Record_Group(), Display_Group()};
    for (const auto& line : {commands, groups}) {
        auto* flow = new FlowLayout;
        flow->setSpacing(group_gap);
        for (QWidget* item : line)
            flow->addWidget(item);
        lines->addLayout(flow);
    }
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

bool RecordControls::Has_Record() const {
    return !Program.Work.Project.SuFile.empty() && Program.Work.Record.NbTraces > 0;
}

void RecordControls::Redraw() {
    if (Has_Record()) Program.Outside.Show.Display_Record();
}

void RecordControls::Show_Neighbour(int step) {
    if (!Has_Record()) return;
    if (step < 0) {
        Program.RecordArea.Command24();
    } else {
        Program.RecordArea.Command23();
    }
}

void RecordControls::Enlarge_Traces() {
    if (Has_Record()) Enlarge_Trace_Size(Program.Work, Program.Outside);
}

void RecordControls::Reduce_Traces() {
    if (Has_Record()) Reduce_Trace_Size(Program.Work, Program.Outside);
}

QToolButton* RecordControls::Button(QBoxLayout* row, const Look& look, FieldBinder::Reaction run) {
    auto* button = new QToolButton;
    button->setObjectName(look.Name);
    button->setAutoRaise(true);
    button->setIconSize({20, 20});
    button->setIcon(Family_Icon(look.Icon));
    button->setText(look.Text);
    button->setToolButtonStyle(look.Text.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    QStringList keys;
    for (const QKeySequence& key : look.Keys) {
        keys << key.toString(QKeySequence::NativeText);
        auto* shortcut = new QShortcut(key, button);
        connect(shortcut, &QShortcut::activated, button, &QToolButton::click);
    }
    button->setToolTip(keys.isEmpty() ? look.Tooltip : look.Tooltip + " (" + keys.join(", ") + ")");
    button->setAccessibleName(look.Tooltip);
    button->setFocusPolicy(Qt::TabFocus);
    Fields.Command(button, std::move(run));
    row->addWidget(button);
    return button;
}

QLineEdit* RecordControls::Number_Field(const char* name, const QString& tooltip, std::string& field,
                                        FieldBinder::Reaction finished) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setToolTip(tooltip);
    edit->setFixedWidth(fontMetrics().horizontalAdvance("8888888"));
    edit->setAlignment(Qt::AlignRight);
    Fields.Finished_Text(edit, field, std::move(finished));
    return edit;
}

QCheckBox* RecordControls::Tick(const char* name, const QString& caption, const QString& tooltip, bool& field,
                                bool redraw) {
    auto* tick = new QCheckBox(caption);
    tick->setObjectName(name);
    tick->setToolTip(tooltip);
    Fields.Tick(tick, field, redraw ? FieldBinder::Reaction([this] { Redraw(); }) : FieldBinder::Reaction());
    return tick;
}

QWidget* RecordControls::Record_Commands() {
    MainFields& fields = Program.Work.Fields;
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    Button(row, {"Command18", "record-load", "", tr("Load a new SU file")},
           [this] { Load_Records(Program); });
    auto* previous = Button(
        row,
        {"Command24", "record-previous", "", tr("Move to previous shot"), {QKeySequence(Qt::Key_PageUp)}},
        [this] { Show_Neighbour(-1); });
    auto* bar = new QScrollBar(Qt::Horizontal);
    bar->setObjectName("HScroll2");
    bar->setToolTip(tr("Record number"));
    bar->setFixedWidth(scroll_width);
    bar->setPageStep(1);
    Fields.Scroll(bar, fields.HScroll2, [this, &fields] {
        Select_Record(Program.Work, fields.HScroll2.Value);
        Redraw();
    });
    row->addWidget(bar);
    auto* next = Button(
        row, {"Command23", "record-next", "", tr("Move to next shot"), {QKeySequence(Qt::Key_PageDown)}},
        [this] { Show_Neighbour(1); });
    auto* identity = new QLabel;
    identity->setObjectName("Text12");
    identity->setToolTip(tr("Record and field record number"));
    identity->setMinimumWidth(fontMetrics().horizontalAdvance("88/ FLDR 8888"));
    Fields.Text(identity, fields.Text12);
    row->addWidget(identity);
    for (QWidget* control : std::initializer_list<QWidget*>{previous, bar, next})
        Fields.Enabled(control, [this] { return Has_Record(); });
    return pane;
}

QWidget* RecordControls::Zoom_Commands() {
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    RecordZoom& zoom = Program.RecordArea;
    auto* arm = Button(row,
                       {"Command4",
                        "magnifier",
                        "Z",
                        tr("Press Z button, then draw an area on the record display"),
                        {QKeySequence(Qt::Key_Z)}},
                       [&zoom] { zoom.Command4(); });
    auto* whole = Button(row,
                         {"Command17",
                          "record-whole",
                          "UZ",
                          tr("Press UZ to display thecomplete record"),
                          {QKeySequence(Qt::Key_U)}},
                         [&zoom] { zoom.Command17(); });
    auto* refresh = Button(
        row, {"Command21", "record-refresh", "", tr("Refresh display, no zoom"), {QKeySequence(Qt::Key_R)}},
        [&zoom] { zoom.Command21(); });
    Fields.Enabled(arm, [this, &zoom] { return Has_Record() && zoom.Command4Enabled; });
    Fields.Enabled(whole, [this, &zoom] { return Has_Record() && zoom.Command17Enabled; });
    Fields.Enabled(refresh, [this] { return Has_Record(); });
    return pane;
}

QWidget* RecordControls::Size_Commands() {
    MainFields& fields = Program.Work.Fields;
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    Button(row,
           {"Command10",
            "gain-down",
            "",
            tr("Click here to reduce trace size of the record"),
            {QKeySequence(Qt::Key_Minus)}},
           [this] { Reduce_Traces(); });
    row->addWidget(Number_Field("Text11", tr("Gain of the amplitudes"), fields.Text11, [this, &fields] {
        Program.Work.Record.AmplitudeGain = Val(fields.Text11);
        Redraw();
    }));
    Button(row,
           {"Command15",
            "gain-up",
            "",
            tr("Click here to enlarge trace size of the record"),
            {QKeySequence(Qt::Key_Plus)}},
           [this] { Enlarge_Traces(); });
    auto* polarity = Button(row, {"Command25", "polarity", "", tr("Polarity of the display")},
                            [this] { Turn_Display_Polarity(Program.Work, Program.Outside); });
    polarity->setCheckable(true);
    Fields.Follow([this, polarity] { polarity->setChecked(Program.Work.Record.DisplayPolarity == -1); });
    Fields.Enabled(pane, [this] { return Has_Record(); });
    return pane;
}

QWidget* RecordControls::Pick_Commands() {
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    auto* automatic = Button(
        row,
        {"Command5", "auto-pick", "A", tr("Automatic picking of first breaks"), {QKeySequence(Qt::Key_A)}},
        [this] { Open_Or_Close_AutoPik(Program.Work, Program.Outside); });
    automatic->setCheckable(true);
    Fields.Follow(
        [this, automatic] { automatic->setChecked(Program.Outside.Show.Is_Open(Dialog::AutoPik)); });
    Button(row,
           {"Command16", "pick-shift", "FB Shift", tr("Moves the first breaks of some traces by a time")},
           [this] { Shift_Picks(Program.Work, Program.Outside); });
    auto* shift = Button(row, {"TShift", "pick-time-shift", "", tr("Time shift in ms for picking FBP")},
                         [this] { Ask_Time_Shift(Program); });
    auto* spectrum = Button(
        row, {"Spectre_Frequency", "herz", "", tr("Frequency spectrum of an area: draw it on the record")},
        [this] {
            Arm_Spectrum(Program);
            Program.Outside.Show.Show_Fields();
        });
    row->addWidget(Tick("Check16", "Reverse picked traces",
                        tr("A click turns the polarity of the trace in the SU file"),
                        Program.Work.Fields.Check16, false));
    for (QToolButton* button : {shift, spectrum})
        button->setCheckable(true);
    Fields.Follow([this, shift] { shift->setChecked(Program.Work.Record.PickTimeShift != 0); });
    Fields.Follow([this, spectrum] { spectrum->setChecked(Program.Work.Record.SpectrumRequest == 1); });
    Fields.Enabled(pane, [this] { return Has_Record(); });
    return pane;
}

QWidget* RecordControls::Record_Group() {
    MainFields& fields = Program.Work.Fields;
    auto* group = new QGroupBox(tr("Record"));
    QGridLayout* grid = Grid_In(group);
    const auto typed = [this] {
        Take_Typed_Range(Program.Work);
        Redraw();
    };
    const auto stations = [this] {
        if (!Has_Record()) return;
        Store_Stations(Program.Work, Program.Outside, Su_Path(Program.Work.Project));
        Redraw();
    };
    grid->addWidget(new QLabel(tr("Traces")), 0, 0);
    grid->addWidget(Number_Field("Text9", tr("First trace shown"), fields.Text9, typed), 0, 1);
    grid->addWidget(new QLabel(tr("to")), 0, 2, Qt::AlignRight);
    grid->addWidget(Number_Field("Text10", tr("Last trace shown"), fields.Text10, typed), 0, 3);
    grid->addWidget(new QLabel(tr("Shot")), 1, 0);
    grid->addWidget(Number_Field("Text13", tr("Station of the shot"), fields.Text13, stations), 1, 1);
    grid->addWidget(new QLabel(tr("Geophone")), 1, 2);
    grid->addWidget(
        Number_Field("Text18", tr("Station of the first geophone shown"), fields.Text18, stations), 1, 3);
    grid->addWidget(Tick("Check8", "Recording direction inverted",
                         tr("The channels count from the other end of the line"), fields.Check8, false),
                    0, 4);
    grid->addWidget(Tick("Check2", "Multi spead profile", "Click hre if you have many spread conseccutively",
                         fields.Check2, false),
                    1, 4);
    return group;
}

QWidget* RecordControls::Display_Group() {
    MainFields& fields = Program.Work.Fields;
    auto* group = new QGroupBox(tr("Display"));
    QGridLayout* grid = Grid_In(group);
    auto* style = new QComboBox;
    style->setObjectName("Combo1");
    style->setToolTip(tr("How the traces are drawn"));
    style->addItems({"Variable area", "Wiggle only", "Color"});
    Fields.Choice(style, fields.Combo1, [this] { Redraw(); });
    grid->addWidget(style, 0, 0, 1, 2);
    grid->addWidget(new QLabel(tr("Curve")), 1, 0);
    grid->addWidget(Number_Field("Text21", tr("Enter the TT Number to display on Records"), fields.Text21,
                                 [this] { Redraw(); }),
                    1, 1);
    grid->addWidget(Tick("clip", "Clip amplitude", "Amplitude will be limited", fields.clip, true), 0, 2);
    grid->addWidget(Tick("Check6", "Display TT on record", "Check here to display TT on Field records",
                         fields.Check6, true),
                    0, 3);
    grid->addWidget(Tick("Check3", "Trace egalisation", "Trace size egalization", fields.Check3, true), 1, 2);
    grid->addWidget(Tick("Check7", "Overdraw records",
                         "You can display 2 files together, just srcoll on next shot", fields.Check7, true),
                    1, 3);
    return group;
}

}  // namespace tarnvik
