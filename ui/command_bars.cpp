#include "ui/command_bars.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProxyStyle>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <set>

#include "app/commands.h"
#include "app/key_list.h"
#include "app/session.h"
#include "core/files.h"
#include "ui/icon_family.h"

namespace tarnvik {

namespace {

constexpr std::string_view recent_files = "&File/Recent files";

// A gap stands before these buttons: files, the curves and their tools, depths, the picture, the end.
const std::set<std::string_view> group_starts = {"herz",  "Double",  "tosu", "dromo", "vitess1", "sum",
                                                 "print", "drawing", "find", "stop",  "nozoom"};

/// Entries of work to come can be pointed at, so that they say what they are.
class MenuStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override {
        if (hint == SH_Menu_AllowActiveAndDisabled) return 1;
        return QProxyStyle::styleHint(hint, option, widget, answer);
    }
};

QString From(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// What a command does, and its key.
QString Tip_Of(const Command& command) {
    const QString tip = From(command.Tooltip.empty() ? command.Caption : command.Tooltip).remove('&');
    const QKeySequence key(From(Shortcut_Of(command)), QKeySequence::PortableText);
    return key.isEmpty() ? tip : tip + " (" + key.toString(QKeySequence::NativeText) + ")";
}

}  // namespace

CommandBars::CommandBars(Session& session, QMainWindow& window)
    : QObject(&window), Program(session), Window(window), StyleOfMenus(new MenuStyle) {
    auto* toolbar = window.addToolBar(tr("Toolbar"));
    toolbar->setObjectName("Toolbar1");
    toolbar->setMovable(false);
    toolbar->setIconSize({22, 22});
    for (const Command& command : Command_Table()) {
        if (!command.Menu.empty()) {
            QMenu* menu = Menu_Of(From(command.Menu));
            if (command.Caption == "-") {
                menu->addSeparator();
            } else {
                menu->addAction(Action_For(command));
            }
            continue;
        }
        if (group_starts.contains(command.Name)) toolbar->addSeparator();
        toolbar->addAction(Action_For(command));
    }
    StyleOfMenus->setParent(&window);  // as its last child it outlives the menus
    qApp->installEventFilter(this);
    Refresh();
}

QMenu* CommandBars::Menu_Of(const QString& path) {
    const auto known = Menus.find(path);
    if (known != Menus.end()) return known->second;
    const qsizetype cut = path.lastIndexOf('/');
    QMenu* menu =
        cut < 0 ? Window.menuBar()->addMenu(path) : Menu_Of(path.left(cut))->addMenu(path.mid(cut + 1));
    menu->setStyle(StyleOfMenus);
    menu->setToolTipsVisible(true);
    Menus[path] = menu;
    if (path == From(recent_files)) {
        // Looked for when the menu opens, and not at each refresh: the files may lie on a slow drive.
        connect(Menu_Of(path.left(cut)), &QMenu::aboutToShow, this, &CommandBars::Show_Living_Files);
    }
    return menu;
}

QAction* CommandBars::Action_For(const Command& command) {
    auto* action = new QAction(From(command.Caption.empty() ? command.Name : command.Caption), this);
    action->setObjectName(From(command.Name));
    action->setIcon(Family_Icon(From(command.Icon)));
    if (!command.Shortcut.empty()) action->setShortcut(QKeySequence(From(command.Shortcut)));
    action->setToolTip(Tip_Of(command));
    action->setStatusTip(From(command.Tooltip));
    if (!command.Available()) {
        action->setEnabled(false);
        action->setStatusTip(QString::fromStdString(Not_Available_Text(command)));
        action->setToolTip(action->statusTip());
    }
    if (command.Checked != nullptr) action->setCheckable(true);
    if (command.Available()) Actions.emplace_back(action, &command);
    // Taking back works from every window of the program.
    if (command.Menu == "&Edit") action->setShortcutContext(Qt::ApplicationShortcut);
    connect(action, &QAction::triggered, this, [this, &command] {
        Run_Command(Program, command.Name);
        Refresh();
    });
    return action;
}

void CommandBars::Refresh() {
    for (const auto& [action, command] : Actions) {
        if (command->Checked != nullptr) action->setChecked(command->Checked(Program));
        if (command->Text != nullptr) {
            QString text = QString::fromStdString(command->Text(Program));
            if (command->Menu != recent_files) action->setVisible(!text.isEmpty());
            // A name of a file is no place for a mnemonic; a caption of the program may have one.
            if (command->Caption.empty()) text.replace("&", "&&");
            action->setText(text);
        }
        if (command->Refusal == nullptr) continue;
        const QString refusal = QString::fromStdString(command->Refusal(Program));
        action->setEnabled(refusal.isEmpty());
        action->setToolTip(refusal.isEmpty() ? Tip_Of(*command) : refusal);
        action->setStatusTip(refusal.isEmpty() ? From(command->Tooltip) : refusal);
    }
}

void CommandBars::Show_Living_Files() {
    bool any = false;
    for (const auto& [action, command] : Actions) {
        if (command->Menu != recent_files) continue;
        const bool there = File_Exists(command->Text(Program));
        action->setVisible(there);
        any |= there;
    }
    Menus[From(recent_files)]->setEnabled(any);
}

bool CommandBars::eventFilter(QObject* watched, QEvent* event) {
    auto* field = qobject_cast<QLineEdit*>(watched);
    if (field == nullptr) return QObject::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::ShortcutOverride: {
            // A field takes the keys of undo and redo for itself; here only while it is being typed into.
            const auto* key = static_cast<QKeyEvent*>(event);
            const bool typing = field->isModified();
            if ((key->matches(QKeySequence::Undo) && !(typing && field->isUndoAvailable())) ||
                (key->matches(QKeySequence::Redo) && !(typing && field->isRedoAvailable()))) {
                event->ignore();
                return true;
            }
            break;
        }
        case QEvent::FocusOut:
            // After the field's own handling, which tells whether something was typed.
            QTimer::singleShot(0, field, [field] {
                if (!field->hasFocus()) field->setModified(false);
            });
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tarnvik
