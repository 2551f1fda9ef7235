#include "ui/qt_launcher.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMimeDatabase>
#include <QProcess>
#include <QProgressDialog>
#include <QStandardPaths>
#include <QUrl>

#include "core/files.h"
#include "ui/help_window.h"
#include "ui/running/tool_run.h"

namespace tarnvik {

namespace {

constexpr int launched = 33;
constexpr int dialog_delay_ms = 500;  ///< a tool that is quicker shows no dialog
constexpr int file_not_found = 2;
constexpr int no_program_for_type = 31;

/// Answer of a program that is run for its first line of output.
QString Asked(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(2000)) return {};
    return QString::fromUtf8(process.readAllStandardOutput()).section('\n', 0, 0).trimmed();
}

void Write_Below(const QString& folder, const QString& name, const QByteArray& content) {
    QDir().mkpath(folder);
    Replace_File((folder + '/' + name).toStdString(),
                 {content.constData(), static_cast<std::size_t>(content.size())});
}

}  // namespace

int QtLauncher::Start(const std::string& program, const std::string& arguments, const std::string& folder) {
    const FoundProgram found =
        Find_Launched(QString::fromStdString(program), QString::fromStdString(Program_Folder()));
    if (found.Program.isEmpty()) return file_not_found;
    const QString text = QString::fromStdString(arguments);
    // A path with blanks that stands for itself is one argument.
    const QStringList list =
        found.Before +
        (!text.isEmpty() && QFileInfo::exists(text) ? QStringList{text} : QProcess::splitCommand(text));
    QString where = QString::fromStdString(folder);
    if (!QFileInfo(where).isDir()) where.clear();
    return QProcess::startDetached(found.Program, list, where) ? launched : file_not_found;
}

bool QtLauncher::Has_Tool(const std::string& program) const {
    return !Find_Launched(QString::fromStdString(program), QString::fromStdString(Program_Folder()))
                .Program.isEmpty();
}

ToolResult QtLauncher::Run_In_Order(const std::vector<ToolCommand>& commands, const std::string& folder,
                                    const ToolProgress& progress) {
    QProgressDialog dialog(Parent);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(dialog_delay_ms);
    dialog.setRange(0, static_cast<int>(commands.size()));
    dialog.setAutoClose(false);
    dialog.setAutoReset(false);
    dialog.setWindowTitle(QObject::tr("Processing of SU files"));
    dialog.setCancelButtonText(QObject::tr("Stop"));
    dialog.setMinimumWidth(dialog.fontMetrics().averageCharWidth() * 60);
    const auto alive = [&dialog, &progress, &folder](std::size_t place, const ToolCommand& command) {
        const QString name = QFileInfo(QString::fromStdString(command.Program)).fileName();
        QStringList words{name};
        for (const std::string& argument : command.Arguments)
            words << QString::fromStdString(argument);
        const std::int64_t traces = Traces_Written(command, folder);
        QString line = words.join(' ') + '\n';
        if (traces > 0) line += QObject::tr("%L1 traces done").arg(traces);
        if (dialog.labelText() != line) dialog.setLabelText(line);
        dialog.setValue(static_cast<int>(place));
        QCoreApplication::processEvents();
        const bool wanted = !progress || progress(place, command);
        return wanted && !dialog.wasCanceled();
    };
    return Run_Tools(commands, folder, QString::fromStdString(Program_Folder()), alive);
}

int QtLauncher::Open_Document(const std::string& path) {
    const QFileInfo file(QString::fromStdString(path));
    if (!file.exists()) return file_not_found;
    const bool page = file.suffix().compare("html", Qt::CaseInsensitive) == 0;
    if (page && Find_Program("html").empty()) {
        // A box that waits for an answer keeps all windows from the hand but its own.
        QWidget* above = QApplication::activeModalWidget();
        if (above == nullptr) above = Parent;
        if (Help && Help->parentWidget() != above) delete Help;
        if (!Help) Help = new HelpWindow(above);
        return Help->Show_Page(file.absoluteFilePath()) ? launched : file_not_found;
    }
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath())) ? launched
                                                                                   : no_program_for_type;
}

int QtLauncher::Edit_Text(const std::string& path) {
    const QString file = QFileInfo(QString::fromStdString(path)).absoluteFilePath();
    if (!QFileInfo::exists(file)) return file_not_found;
#if defined(Q_OS_WIN)
    return QProcess::startDetached("notepad.exe", {QDir::toNativeSeparators(file)}) ? launched
                                                                                    : file_not_found;
#elif defined(Q_OS_MACOS)
    return QProcess::startDetached("open", {"-t", file}) ? launched : file_not_found;
#else
    // The editor that the desktop has chosen for plain text, then those that desktops bring along.
    const QString starter = QStandardPaths::findExecutable("gtk-launch");
    const QString chosen = starter.isEmpty() ? QString() : QString::fromStdString(Find_Program("txt"));
    if (!chosen.isEmpty() && QProcess::startDetached(starter, {chosen, file})) return launched;
    for (const char* name :
         {"gnome-text-editor", "gedit", "kate", "kwrite", "mousepad", "xed", "pluma", "featherpad"}) {
        const QString editor = QStandardPaths::findExecutable(name);
        if (!editor.isEmpty() && QProcess::startDetached(editor, {file})) return launched;
    }
    return Open_Document(path);
#endif
}

std::string QtLauncher::Find_Program(const std::string& extension) {
    const QString suffix = QString::fromStdString(extension).toLower();
    const auto type = QMimeDatabase().mimeTypeForFile("document." + suffix, QMimeDatabase::MatchExtension);
    if (!type.isValid() || type.isDefault()) return {};
#ifdef Q_OS_LINUX
    const QString opener = QStandardPaths::findExecutable("xdg-mime");
    if (opener.isEmpty()) return {};
    return Asked(opener, {"query", "default", type.name()}).toStdString();
#else
    return type.name().toStdString();
#endif
}

std::string QtLauncher::Documents_Folder() const {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
}

std::string QtLauncher::Program_Folder() const {
    return QCoreApplication::applicationDirPath().toStdString();
}

std::string QtLauncher::Decimal_Separator() const {
    return PointSet ? std::string(".") : QLocale::system().decimalPoint().toStdString();
}

void QtLauncher::Set_Decimal_Point() {
    // The program itself always computes and writes with a point; only the controls of the toolkit ask.
    QLocale::setDefault(QLocale::c());
    PointSet = true;
}

void QtLauncher::Register_File_Type() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QString program = QCoreApplication::applicationFilePath();
    program.replace('\\', "\\\\").replace('"', "\\\"").replace('%', "%%");
    Write_Below(data + "/mime/packages", "tarnvik.xml",
                "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
                "  <mime-type type=\"application/x-tarnvik\">\n"
                "    <comment>Seismic refraction line</comment>\n"
                "    <glob pattern=\"*.tv5\"/>\n"
                "  </mime-type>\n"
                "</mime-info>\n");
    Write_Below(data + "/applications", "tarnvik.desktop",
                "[Desktop Entry]\n"
                "Type=Application\n"
                "Name=Tarnvik\n"
                "Comment=Interpretation of seismic refraction surveys\n"
                "Exec=\"" +
                    program.toUtf8() +
                    "\" %f\n"
                    "Icon=tarnvik\n"
                    "Terminal=false\n"
                    "Categories=Science;Geoscience;\n"
                    "MimeType=application/x-tarnvik;\n");
    // The desktop learns of it at once where its own tools are there, otherwise at the next login.
    for (const auto& [tool, argument] :
         {std::pair{QStringLiteral("update-mime-database"), data + "/mime"},
          std::pair{QStringLiteral("update-desktop-database"), data + "/applications"}}) {
        const QString found = QStandardPaths::findExecutable(tool);
        if (!found.isEmpty()) QProcess::startDetached(found, {argument});
    }
}

}  // namespace tarnvik
