#pragma once

#include <QMainWindow>
#include <QObject>
#include <QStyle>
#include <map>
#include <utility>
#include <vector>

namespace tarnvik {

struct Command;
class Session;

/// Menu bar and toolbar of the main window, built from the command table. A command of later work is there,
/// disabled, and says so in the status bar while the pointer is over it.
class CommandBars : public QObject {
    Q_OBJECT

  public:
    CommandBars(Session& session, QMainWindow& window);

    /// Marks and captions that change, and what can be run now.
    void Refresh();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAction* Action_For(const Command& command);
    void Show_Living_Files();
    QMenu* Menu_Of(const QString& path);

    Session& Program;
    QMainWindow& Window;
    QStyle* StyleOfMenus;
    std::map<QString, QMenu*> Menus;
    std::vector<std::pair<QAction*, const Command*>> Actions;  ///< of commands that can be run
};

}  // namespace tarnvik
