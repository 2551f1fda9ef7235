#include "ui/command_bars.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QProxyStyle>
#include <QToolBar>
#include <QToolButton>
#include <set>

#include "app/commands.h"
#include "app/session.h"
#include "ui/icon_family.h"

namespace tarnvik {

namespace {

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
    return menu;
}

QAction* CommandBars::Action_For(const Command& command) {
    auto* action = new QAction(From(command.Caption.empty() ? command.Name : command.Caption), this);
    action->setObjectName(From(command.Name));
    action->setIcon(Family_Icon(From(command.Icon)));
    if (!command.Shortcut.empty()) action->setShortcut(QKeySequence(From(command.Shortcut)));
    const QString tooltip = From(command.Tooltip);
    action->setToolTip(tooltip.isEmpty() ? From(command.Caption) : tooltip);
    action->setStatusTip(tooltip);
    if (!command.Available()) {
        action->setEnabled(false);
        action->setStatusTip(QString::fromStdString(Not_Available_Text(command)));
        action->setToolTip(action->statusTip());
    }
    if (command.Checked != nullptr) action->setCheckable(true);
    if (command.Checked != nullptr || command.Text != nullptr) Changing.emplace_back(action, &command);
    connect(action, &QAction::triggered, this, [this, &command] {
        Run_Command(Program, command.Name);
        Refresh();
    });
    return action;
}

void CommandBars::Refresh() {
    for (const auto& [action, command] : Changing) {
        if (command->Checked != nullptr) action->setChecked(command->Checked(Program));
        if (command->Text == nullptr) continue;
        QString text = QString::fromStdString(command->Text(Program));
        action->setVisible(!text.isEmpty());
        action->setText(text.replace("&", "&&"));
    }
}

}  // namespace tarnvik
