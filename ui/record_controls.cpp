#include "ui/record_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QToolButton>
#include <utility>
#include <vector>

#include "app/commands.h"
#include "app/session.h"
#include "app/su_chain_commands.h"
#include "core/text/number.h"
#include "records/record_choice.h"
#include "records/record_display.h"
#include "ui/flow_layout.h"
#include "ui/icon_family.h"
#include "ui/picking_menu.h"
#include "ui/popup_pane.h"

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

QGridLayout* Grid_In(QWidget* pane) {
    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(8, 6, 8, 6);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(2);
    return grid;
}

}  // namespace

RecordControls::RecordControls(Session& session) : Program(session) {
    auto* flow = new FlowLayout(this);
    flow->setContentsMargins(0, 0, 0, 0);
    flow->setSpacing(group_gap);
    for (QWidget* item :
         {Record_Commands(), Zoom_Commands(), Size_Commands(), Pick_Commands(), Pane_Buttons()})
        flow->addWidget(item);
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

void RecordControls::Run(const char* name) {
    const Command* command = Find_Command(name);
    if (command != nullptr && Refusal_Of(*command, Program).empty()) Run_Command(Program, name);
}

void RecordControls::Button(QBoxLayout* row, const char* name) {
    const Command* command = Find_Command(name);
    if (command == nullptr) return;
    const auto from = [](std::string_view text) {
        return QString::fromUtf8(text.data(), qsizetype(text.size()));
    };
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setIconSize({20, 20});
    button->setIcon(Family_Icon(from(command->Icon)));
    button->setText(from(command->Caption));
    button->setToolButtonStyle(command->Caption.empty() ? Qt::ToolButtonIconOnly
                                                        : Qt::ToolButtonTextBesideIcon);
    button->setCheckable(command->Checked != nullptr);
    button->setAccessibleName(from(command->Tooltip));
    button->setFocusPolicy(Qt::TabFocus);
    QString tooltip = from(command->Tooltip);
    if (!command->Shortcut.empty()) {
        const auto keys = QKeySequence::listFromString(from(command->Shortcut), QKeySequence::PortableText);
        QStringList names;
        for (const QKeySequence& key : keys) {
            names << key.toString(QKeySequence::NativeText);
            // Acts wherever the focus is, as long as the record is in sight.
            auto* shortcut = new QShortcut(key, button);
            connect(shortcut, &QShortcut::activated, button, &QToolButton::click);
        }
        tooltip += " (" + names.join(", ") + ")";
    }
    Fields.Command(button, [this, name] {
        Run_Command(Program, name);
        Refresh();
    });
    Fields.Follow([this, button, command, tooltip] {
        const QString refusal = QString::fromStdString(Refusal_Of(*command, Program));
        button->setEnabled(refusal.isEmpty());
        button->setToolTip(refusal.isEmpty() ? tooltip : tooltip + "\n" + tr("Not now: ") + refusal);
        if (command->Checked != nullptr) button->setChecked(command->Checked(Program));
    });
    row->addWidget(button);
}

template <class Number>
QLineEdit* RecordControls::Number_Field(const char* name, const QString& tooltip, Number& field,
                                        FieldBinder::Reaction finished) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setToolTip(tooltip);
    edit->setFixedWidth(fontMetrics().horizontalAdvance("8888888"));
    edit->setAlignment(Qt::AlignRight);
    Fields.Finished_Number(edit, field, std::move(finished));
    return edit;
}

QCheckBox* RecordControls::Tick(const char* name, const QString& caption, const QString& tooltip, bool& field,
                                FieldBinder::Reaction changed) {
    auto* tick = new QCheckBox(caption);
    tick->setObjectName(name);
    tick->setToolTip(tooltip);
    Fields.Tick(tick, field, std::move(changed));
    return tick;
}

QWidget* RecordControls::Record_Commands() {
    RecordView& record = Program.Work.Record;
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    Button(row, "Command18");
    Button(row, "Command24");
    auto* bar = new QScrollBar(Qt::Horizontal);
    bar->setObjectName("HScroll2");
    bar->setToolTip(tr("Record number"));
    bar->setFixedWidth(scroll_width);
    bar->setPageStep(1);
    Fields.Scroll(
        bar, record.Record, [&record] { return int{record.NbRecords}; },
        [this, &record] { Go_To_Record(Program.Work, Program.Outside, record.Record); });
    Fields.Enabled(bar, [this] { return Has_Record(); });
    row->addWidget(bar);
    Button(row, "Command23");
    auto* identity = new QLabel;
    identity->setObjectName("Text12");
    identity->setToolTip(tr("Record and field record number"));
    identity->setMinimumWidth(fontMetrics().horizontalAdvance("88/ FLDR 8888"));
    Fields.Follow([this, identity, &record] {
        identity->setText(Has_Record() ? QString::fromStdString(Record_Identity(record)) : QString());
    });
    row->addWidget(identity);
    return pane;
}

QWidget* RecordControls::Zoom_Commands() {
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    for (const char* name : {"Command4", "Command17", "Command21", "CrossHair"})
        Button(row, name);
    return pane;
}

QWidget* RecordControls::Size_Commands() {
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    Button(row, "Command10");
    QLineEdit* gain = Number_Field("Text11", tr("Gain of the amplitudes"), Program.Work.Record.AmplitudeGain,
                                   [this] { Redraw(); });
    Fields.Enabled(gain, [this] { return Has_Record(); });
    row->addWidget(gain);
    Button(row, "Command15");
    Button(row, "Command25");
    return pane;
}

QWidget* RecordControls::Pick_Commands() {
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    for (const char* name : {"Command5", "Command16", "Pick_Time_Shift", "Spectre_Frequency"})
        Button(row, name);
    row->addWidget(Picking_Menu(Program, Fields));
    return pane;
}

QWidget* RecordControls::Pane_Buttons() {
    QHBoxLayout* row = nullptr;
    QWidget* pane = Row_Of_Buttons(row);
    const auto add = [&](const char* name, const QString& caption, const QString& tooltip) {
        auto* button = new QToolButton;
        button->setObjectName(name);
        button->setText(caption + QString::fromUtf8(" \u25be"));
        button->setToolTip(tooltip);
        row->addWidget(button);
        return new PopupPane(button);
    };
    Record_Pane(add("RecordPane", tr("Record"), tr("Traces, stations and spread of the record")));
    Display_Pane(add("DisplayPane", tr("Display"), tr("How the traces are drawn")));
    return pane;
}

void RecordControls::Record_Pane(QWidget* pane) {
    RecordView& record = Program.Work.Record;
    QGridLayout* grid = Grid_In(pane);
    const auto typed = [this] {
        Take_Typed_Range(Program.Work);
        Redraw();
    };
    const auto stations = [this] {
        if (!Has_Record()) return;
        Take_Typed_Stations(Program.Work, Program.Outside);
        Redraw();
    };
    const auto spreads = [this] {
        Ask_Stations(Program.Work, Program.Outside);
        Redraw();
    };
    grid->addWidget(new QLabel(tr("Traces")), 0, 0);
    grid->addWidget(Number_Field("Text9", tr("First trace shown"), record.FirstTrace, typed), 0, 1);
    grid->addWidget(new QLabel(tr("to")), 0, 2, Qt::AlignRight);
    grid->addWidget(Number_Field("Text10", tr("Last trace shown"), record.LastTrace, typed), 0, 3);
    grid->addWidget(new QLabel(tr("Shot")), 1, 0);
    grid->addWidget(Number_Field("Text13", tr("Station of the shot"), record.ShotStation, stations), 1, 1);
    grid->addWidget(new QLabel(tr("Geophone")), 1, 2);
    grid->addWidget(
        Number_Field("Text18", tr("Station of the first geophone shown"), record.FirstGeophone, stations), 1,
        3);
    grid->addWidget(Tick("Check8", "Recording direction inverted",
                         tr("The channels count from the other end of the line"), record.DirectionInverted,
                         [this] { Redraw(); }),
                    0, 4);
    grid->addWidget(Tick("Check2", "Multi spead profile", "Click hre if you have many spread conseccutively",
                         record.SeveralSpreads, spreads),
                    1, 4);
    QCheckBox* reverse =
        Tick("Check16", "Reverse picked traces", tr("A click turns the polarity of the trace in the SU file"),
             record.ReverseOnClick);
    Fields.Enabled(reverse, [this] { return Has_Record(); });
    grid->addWidget(reverse, 2, 0, 1, 5);
    grid->addWidget(new QLabel(tr("Shift ms")), 3, 0);
    grid->addWidget(Shift_List(), 3, 1, 1, 2);
    QHBoxLayout* row = nullptr;
    QWidget* stack = Row_Of_Buttons(row);
    Button(row, "Command1");
    // Alone in a pane of fields it must look like a button.
    stack->findChild<QToolButton*>("Command1")->setAutoRaise(false);
    grid->addWidget(stack, 3, 3, 1, 2, Qt::AlignRight);
}

QComboBox* RecordControls::Shift_List() {
    auto* list = new QComboBox;
    list->setObjectName("Combo6");
    list->setToolTip("Time (ms) to shift all traces of the record");
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    list->addItems({"-200", "-150", "-100", "-50", "-25"});
    for (int shift = -10; shift <= 10; ++shift)
        list->addItem((shift > 0 ? "+" : "") + QString::number(shift));
    list->addItems({"+25", "+50"});
    Fields.Finished_Text(list, TraceShift, [this] {
        // The list stands at 0 again, so that the same shift can be chosen once more.
        const double shift = Val(std::exchange(TraceShift, std::string("0")));
        Shift_Traces_By(Program, shift);
        Refresh();
    });
    Fields.Enabled(list, [this] { return Has_Record(); });
    return list;
}

void RecordControls::Display_Pane(QWidget* pane) {
    RecordView& record = Program.Work.Record;
    const auto redraw = [this] { Redraw(); };
    QGridLayout* grid = Grid_In(pane);
    auto* style = new QComboBox;
    style->setObjectName("Combo1");
    style->setToolTip(tr("How the traces are drawn"));
    style->addItems({"Variable area", "Wiggle only", "Color"});
    Fields.Choice(style, record.Style, redraw);
    grid->addWidget(style, 0, 0, 1, 2);
    grid->addWidget(new QLabel(tr("Curve")), 1, 0);
    grid->addWidget(
        Number_Field("Text21", tr("Enter the TT Number to display on Records"), record.CurveOnRecord, redraw),
        1, 1);
    grid->addWidget(Tick("clip", "Clip amplitude", "Amplitude will be limited", record.ClipAmplitude, redraw),
                    0, 2);
    grid->addWidget(Tick("Check6", "Display TT on record", "Check here to display TT on Field records",
                         record.ShowTravelTimes, redraw),
                    0, 3);
    grid->addWidget(
        Tick("Check3", "Trace egalisation", "Trace size egalization", record.EqualiseTraces, redraw), 1, 2);
    grid->addWidget(
        Tick("Check7", "Overdraw records", "You can display 2 files together, just srcoll on next shot",
             record.Overdraw, redraw),
        1, 3);
    grid->addWidget(new QLabel(tr("AGC ms")), 2, 0);
    grid->addWidget(Number_Field("AgcWindow",
                                 tr("Levels the amplitudes within this window, ms, on the picture alone; 0 "
                                    "for none"),
                                 record.AgcWindow, redraw),
                    2, 1);
    QCheckBox* in_sight =
        Tick("EqualiseInSight", tr("By what is shown"),
             tr("Traces are equalised by their largest amplitude of either sign in the time shown"),
             record.EqualiseInSight, redraw);
    Fields.Enabled(in_sight, [&record] { return record.EqualiseTraces; });
    grid->addWidget(in_sight, 2, 2, 1, 2);
}

}  // namespace tarnvik
