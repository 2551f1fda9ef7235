#include "ui/picking_menu.h"

#include <QActionGroup>
#include <QColor>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>

#include "app/commands.h"
#include "app/session.h"
#include "records/pick_context.h"
#include "records/record_display.h"
#include "ui/icon_family.h"

namespace tarnvik {

namespace {

QString From(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString Tr(const char* text) {
    return QCoreApplication::translate("PickingMenu", text);
}

QString Swatch(Colour colour, const QString& meaning) {
    const QColor shown(colour & 255, colour >> 8 & 255, colour >> 16 & 255);
    return QString("<font color=\"%1\">&#9644;</font>&nbsp;%2").arg(shown.name(), meaning);
}

/// An entry that shows its key; the key itself acts on the page, whether the menu is open or not.
QAction* Entry(Session& session, FieldBinder& fields, QMenu* menu, const char* name) {
    const Command* command = Find_Command(name);
    if (command == nullptr) return nullptr;
    QString caption = From(command->Caption);
    if (!command->Shortcut.empty()) {
        caption += "\t" + QKeySequence(From(command->Shortcut), QKeySequence::PortableText)
                              .toString(QKeySequence::NativeText);
    }
    auto* action = new QAction(caption, menu);
    action->setObjectName(From(command->Name));
    action->setToolTip(From(command->Tooltip));
    action->setCheckable(command->Checked != nullptr);
    menu->addAction(action);
    QObject::connect(action, &QAction::triggered, menu,
                     [&session, name = command->Name] { Run_Command(session, name); });
    fields.Follow([&session, action, command] {
        const std::string refusal = Refusal_Of(*command, session);
        action->setEnabled(refusal.empty());
        action->setToolTip(From(refusal.empty() ? command->Tooltip : std::string_view(refusal)));
        if (command->Checked != nullptr) action->setChecked(command->Checked(session));
    });
    return action;
}

}  // namespace

QString Pick_Legend() {
    return Tr("Picks: ") + Swatch(Pick_Colour(PickOrigin::Hand), Tr("by hand")) + "&nbsp; " +
           Swatch(Pick_Colour(PickOrigin::Automatic), Tr("automatic")) + "&nbsp; " +
           Swatch(Pick_Colour(PickOrigin::Moved), Tr("dragged")) + "<br>" + Tr("Lines: ") +
           Swatch(neighbours_colour, Tr("through the picks (N)")) + "&nbsp; " +
           Swatch(reciprocal_colour, Tr("reciprocal times (T)")) + "&nbsp; " +
           Swatch(shot_before_colour, Tr("shot before (O)"));
}

QToolButton* Picking_Menu(Session& session, FieldBinder& fields) {
    auto* button = new QToolButton;
    button->setObjectName("Picking_Menu");
    button->setText(Tr("Picks"));
    button->setIcon(Family_Icon("pick"));
    button->setIconSize({20, 20});
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip("<qt>" +
                       Tr("Picking by keys: arrows move, Space picks and goes on, Del takes a pick "
                          "away, K kills or revives, S snaps, P held paints") +
                       "<br>" + Pick_Legend() + "</qt>");
    auto* menu = new QMenu(button);
    menu->setToolTipsVisible(true);
    for (const char* name : {"Pick_Here", "Unpick_Here", "Kill_Here", "Snap_Here", "Paint_Picks"})
        Entry(session, fields, menu, name);
    menu->addSection(Tr("Snap to"));
    auto* features = new QActionGroup(menu);
    for (const char* name : {"Snap_Onset", "Snap_Zero", "Snap_Peak", "Snap_Trough"})
        features->addAction(Entry(session, fields, menu, name));
    Entry(session, fields, menu, "Snap_Every");
    menu->addSection(Tr("Beside the picks"));
    for (const char* name : {"Show_Neighbours", "Show_Reciprocal", "Show_Shot_Before", "Magnify"})
        Entry(session, fields, menu, name);
    menu->addSeparator();
    Entry(session, fields, menu, "Next_Record");
    button->setMenu(menu);
    return button;
}

}  // namespace tarnvik
