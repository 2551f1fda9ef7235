#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>
#include <QTimer>
#include <exception>

#include "app/session.h"
#include "app/start.h"
#include "core/settings_file.h"
#include "ui/main_window.h"
#include "ui/qt_display.h"
#include "ui/qt_launcher.h"
#include "ui/qt_prompts.h"

namespace {

/// The command line as the program reads it: a path in quotes. The desktop hands a path over without them.
std::string Command_Line(const QStringList& arguments) {
    const QString text = arguments.mid(1).join(' ');
    if (text.isEmpty() || text.startsWith('"')) return text.toStdString();
    return '"' + QFileInfo(text).absoluteFilePath().toStdString() + '"';
}

/// The last net under the event handlers: what a routine should have caught itself ends that event and
/// nothing else, so that work in memory can still be saved.
class Application : public QApplication {
  public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& fault) {
            qWarning("An event ended early: %s", fault.what());
            return false;
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    QApplication::setApplicationName("tarnvik");
    QApplication::setApplicationDisplayName(QString());
    QApplication::setDesktopFileName("tarnvik");
    QApplication::setWindowIcon(QIcon(":/icons/tarnvik.svg"));
    QApplication::setAttribute(Qt::AA_DontShowIconsInMenus, false);

    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/tarnvik";
    QDir().mkpath(folder);
    const QString settings = folder + "/" + tarnvik::settings_file_name;

    tarnvik::QtPrompts prompts;
    tarnvik::QtLauncher launcher;
    tarnvik::QtDisplay display;
    tarnvik::Session session({prompts, display, launcher}, settings.toStdString());
    display.Attach(session);

    tarnvik::MainWindow window(session, display, folder + "/Windows.ini");
    prompts.Set_Parent(&window);
    launcher.Set_Parent(&window);
    session.Keep_Journals();
    session.Keep_Display_Choices();
    session.Offer_Conversion();
    window.show();
    const std::string command_line = Command_Line(QApplication::arguments());
    // The window stands before the first question comes.
    QTimer::singleShot(0, &window, [&session, command_line] { tarnvik::Form_Load(session, command_line); });
    return QApplication::exec();
}
