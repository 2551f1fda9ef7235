// tarnvik-tools: the programs that the main one launches by name, in one. `tarnvik-tools NAME [arguments]`;
// under the name of a tool it is that tool.

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>
#include <iostream>

#include "core/settings_file.h"
#include "ui/headless/headless_display.h"
#include "ui/qt_launcher.h"
#include "ui/qt_prompts.h"
#include "ui/running/own_tools.h"
#include "ui/tools/tool_window.h"
#include "ui/window_colours.h"

namespace tarnvik {

namespace {

constexpr int wrong_usage = 2;

int Wrong_Usage() {
    std::cerr << "tarnvik-tools NAME [arguments]; the names are";
    for (const ToolRow& row : Tool_Rows())
        std::cerr << ' ' << row.Name;
    std::cerr << '\n';
    return wrong_usage;
}

const ToolRow* Row_Of_Tool(std::string_view name) {
    const auto rows = Tool_Rows();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [name](const ToolRow& row) { return row.Name == name; });
    return found == rows.end() ? nullptr : &*found;
}

int Run(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("tarnvik");
    QApplication::setApplicationDisplayName(QString());
    QApplication::setWindowIcon(QIcon(":/icons/tarnvik.svg"));

    QStringList arguments = QApplication::arguments();
    std::string_view tool = Own_Tool(QFileInfo(arguments.takeFirst()).completeBaseName());
    if (tool.empty() && !arguments.isEmpty()) tool = Own_Tool(arguments.takeFirst());
    const ToolRow* row = Row_Of_Tool(tool);
    if (row == nullptr) return Wrong_Usage();

    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/tarnvik";
    const QString places = folder + "/Windows.ini";
    Show_Dark_Windows(QSettings(places, QSettings::IniFormat).value("Window/Dark").toBool());

    QtPrompts prompts;
    QtLauncher launcher;
    HeadlessDisplay display;
    Session session({prompts, display, launcher}, (folder + "/" + settings_file_name).toStdString());
    display.Attach(session);
    Read_Settings(session.Work, session.Outside, session.SettingsFile);
    session.Work.AppTitle = std::string(row->Title);

    ToolStart start{session, arguments};
    ToolWindow window(*row, start, places);
    prompts.Set_Parent(&window);
    launcher.Set_Parent(&window);
    window.show();
    return QApplication::exec();
}

}  // namespace

}  // namespace tarnvik

int main(int argc, char** argv) {
    try {
        return tarnvik::Run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "tarnvik-tools: " << failure.what() << '\n';
        return 1;
    }
}
