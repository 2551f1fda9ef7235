#include "ui/running/tool_run.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <filesystem>
#include <system_error>

#include "ui/running/own_tools.h"

namespace tarnvik {

namespace {

constexpr int look_ms = 20;
constexpr int grace_ms = 2000;  ///< for a tool that is asked to end
constexpr qsizetype longest_words = 2000;
constexpr const char* part_ending = ".part";  ///< of an output that is being written

bool Can_Run(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && file.isExecutable();
}

QString Path_In(const std::string& path, const QString& folder) {
    return QDir(folder).absoluteFilePath(QString::fromStdString(path));
}

void Stop(QProcess& process) {
    process.terminate();
    if (process.waitForFinished(grace_ms)) return;
    process.kill();
    process.waitForFinished(grace_ms);
}

/// The last of what a tool said, on one or more lines.
std::string Words_Of(QProcess& process) {
    const QByteArray said = process.readAllStandardError() + process.readAllStandardOutput();
    return said.right(longest_words).trimmed().toStdString();
}

std::string With_Words(const std::string& failure, const std::string& words) {
    return words.empty() ? failure : failure + "\r\n" + words;
}

/// Why a command failed, empty when it went well; `cancelled` when it was stopped.
std::string Run_One(const ToolCommand& command, const QString& folder, const QString& program_folder,
                    const std::function<bool()>& alive, ToolResult& result) {
    bool& cancelled = result.Cancelled;
    const QString tool = Find_Tool(QString::fromStdString(command.Program), program_folder);
    result.Missing = tool.isEmpty();
    if (result.Missing) return command.Program + " is not found";
    QProcess process;
    process.setWorkingDirectory(folder);
    if (!command.InputFile.empty()) process.setStandardInputFile(Path_In(command.InputFile, folder));
    // The output comes under its own name when it is whole.
    const QString output = command.OutputFile.empty() ? QString() : Path_In(command.OutputFile, folder);
    const QString part = output + QString::fromUtf8(part_ending);
    if (!output.isEmpty()) process.setStandardOutputFile(part, QIODevice::Truncate);
    QStringList arguments;
    for (const std::string& argument : command.Arguments)
        arguments << QString::fromStdString(argument);
    process.start(tool, arguments);
    std::string failure;
    if (!process.waitForStarted()) {
        result.Missing = true;
        failure = command.Program + " cannot be started: " + process.errorString().toStdString();
    } else {
        if (command.InputFile.empty()) process.closeWriteChannel();
        while (process.state() != QProcess::NotRunning && !process.waitForFinished(look_ms)) {
            if (alive()) continue;
            cancelled = true;
            Stop(process);
        }
        if (process.exitStatus() == QProcess::CrashExit) {
            failure = With_Words(command.Program + " ended early", Words_Of(process));
        } else if (process.exitCode() != 0) {
            failure = With_Words(command.Program + " failed with " + std::to_string(process.exitCode()),
                                 Words_Of(process));
        }
    }
    if (output.isEmpty()) return failure;
    std::error_code failed;
    if (!failure.empty() || cancelled) {
        QFile::remove(part);
        return failure;
    }
    std::filesystem::rename(part.toStdString(), output.toStdString(), failed);
    return failed ? output.toStdString() + ": " + failed.message() : std::string();
}

/// A name as given, without its ".exe", and both in lower case.
QStringList Spellings(const QString& program) {
    QString given = program;
    given.replace('\\', '/');
    QStringList names{given};
    if (given.endsWith(".exe", Qt::CaseInsensitive)) names << given.chopped(4);
    for (const QString& name : QStringList(names)) {
        const QFileInfo file(name);
        names << (file.path() == "." ? QString() : file.path() + '/') + file.fileName().toLower();
    }
    return names;
}

/// Where it is named, or in one of the folders for tools.
QString Find_Beside(const QStringList& names, const QString& program_folder) {
    for (const QString& name : names) {
        if (name.contains('/') && Can_Run(name)) return QFileInfo(name).absoluteFilePath();
    }
    // What the user has put beside the program goes before what was built with it.
    for (const char* place : {"/", "/tools/", "/../tools/"}) {
        for (const QString& name : names) {
            const QString beside = program_folder + place + QFileInfo(name).fileName();
            if (Can_Run(beside)) return QFileInfo(beside).absoluteFilePath();
        }
    }
    return {};
}

QString Find_On_Path(const QStringList& names) {
    for (const QString& name : names) {
        const QString found = QStandardPaths::findExecutable(QFileInfo(name).fileName());
        if (!found.isEmpty()) return found;
    }
    return {};
}

}  // namespace

QString Find_Tool(const QString& program, const QString& program_folder) {
    const QStringList names = Spellings(program);
    const QString beside = Find_Beside(names, program_folder);
    return beside.isEmpty() ? Find_On_Path(names) : beside;
}

FoundProgram Find_Launched(const QString& program, const QString& program_folder) {
    const QStringList names = Spellings(program);
    const QString beside = Find_Beside(names, program_folder);
    if (!beside.isEmpty()) return {beside, {}};
    for (const QString& name : names) {
        const QString tool = QFileInfo(name).fileName();
        if (!Is_Own_Tool(tool)) continue;
        const QString own = Find_Tool("tarnvik-tools", program_folder);
        if (!own.isEmpty()) return {own, {tool}};
    }
    return {Find_On_Path(names), {}};
}

std::int64_t Traces_Written(const ToolCommand& command, const std::string& folder) {
    if (command.OutputFile.empty()) return 0;
    QFile file(Path_In(command.OutputFile, QString::fromStdString(folder)) + QString::fromUtf8(part_ending));
    constexpr qint64 header = 240;
    constexpr qint64 samples_word = 114;
    if (!file.open(QIODevice::ReadOnly) || file.size() < header || !file.seek(samples_word)) return 0;
    const QByteArray word = file.read(2);
    if (word.size() < 2) return 0;
    const int samples = static_cast<unsigned char>(word[0]) + 256 * static_cast<unsigned char>(word[1]);
    return file.size() / (header + 4 * samples);
}

ToolResult Run_Tools(const std::vector<ToolCommand>& commands, const std::string& folder,
                     const QString& program_folder, const ToolProgress& progress) {
    ToolResult result;
    const QString where =
        folder.empty() ? QDir::currentPath() : QDir(QString::fromStdString(folder)).absolutePath();
    for (std::size_t place = 0; place < commands.size(); ++place) {
        const ToolCommand& command = commands[place];
        const auto alive = [&progress, &command, place] { return !progress || progress(place, command); };
        result.Cancelled = !alive();
        if (result.Cancelled) return result;
        const std::string failure = Run_One(command, where, program_folder, alive, result);
        if (result.Cancelled) return result;
        if (!failure.empty()) {
            result.Failure = failure;
            return result;
        }
        ++result.Done;
    }
    return result;
}

}  // namespace tarnvik
