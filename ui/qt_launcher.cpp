#include "ui/qt_launcher.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "core/files.h"

namespace tarnvik {

namespace {

constexpr int launched = 33;
constexpr int file_not_found = 2;
constexpr int no_program_for_type = 31;

bool Can_Run(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && file.isExecutable();
}

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

QString QtLauncher::Find_Tool(const QString& program, const QString& program_folder) {
    QString given = program;
    given.replace('\\', '/');
    QStringList names{given};
    if (given.endsWith(".exe", Qt::CaseInsensitive)) names << given.chopped(4);
    for (const QString& name : QStringList(names)) {
        const QFileInfo file(name);
        names << (file.path() == "." ? QString() : file.path() + '/') + file.fileName().toLower();
    }
    for (const QString& name : names) {
        if (name.contains('/') && Can_Run(name)) return QFileInfo(name).absoluteFilePath();
    }
    for (const QString& name : names) {
        const QString beside = program_folder + '/' + QFileInfo(name).fileName();
        if (Can_Run(beside)) return QFileInfo(beside).absoluteFilePath();
    }
    for (const QString& name : names) {
        const QString found = QStandardPaths::findExecutable(QFileInfo(name).fileName());
        if (!found.isEmpty()) return found;
    }
    return {};
}

int QtLauncher::Start(const std::string& program, const std::string& arguments, const std::string& folder) {
    const QString tool = Find_Tool(QString::fromStdString(program), QString::fromStdString(Program_Folder()));
    if (tool.isEmpty()) return file_not_found;
    const QString text = QString::fromStdString(arguments);
    // A path with blanks that stands for itself is one argument.
    const QStringList list =
        !text.isEmpty() && QFileInfo::exists(text) ? QStringList{text} : QProcess::splitCommand(text);
    const QString where = QString::fromStdString(folder);
    return QProcess::startDetached(tool, list, QFileInfo(where).isDir() ? where : QString()) ? launched
                                                                                             : file_not_found;
}

int QtLauncher::Open_Document(const std::string& path) {
    const QFileInfo file(QString::fromStdString(path));
    if (!file.exists()) return file_not_found;
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
