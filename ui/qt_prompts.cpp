#include "ui/qt_prompts.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include "ui/painting/painter_picture.h"

namespace tarnvik {

namespace {

/// A letter of a file pattern in both cases: "*.[sS][uU]".
QString Either_Case(const QString& pattern) {
    QString either;
    for (const QChar letter : pattern) {
        if (letter.isLetter()) {
            either += '[' + letter.toLower() + letter.toUpper() + ']';
        } else {
            either += letter;
        }
    }
    return either;
}

QString Start_Place(const FileRequest& request, const QString& last_folder) {
    // The folder asked for may be one of another machine.
    QString folder = QString::fromStdString(request.Directory);
    if (folder.isEmpty() || !QDir(folder).exists()) folder = last_folder;
    if (folder.isEmpty()) folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QDir(folder).exists()) folder = QDir::homePath();
    return folder;
}

}  // namespace

QStringList File_Filters(const std::string& filter) {
    QStringList parts = QString::fromStdString(filter).split('|');
    // A filter may be a caption alone whose last word is the pattern ("Fichier Tarnvik *.TV5").
    if (parts.size() == 1) parts << parts[0].section(' ', -1);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& pattern : parts[i + 1].split(';', Qt::SkipEmptyParts)) {
            // On this platform a name without a point is a file as well.
            patterns << (pattern.trimmed() == "*.*" ? QStringLiteral("*") : Either_Case(pattern.trimmed()));
        }
        if (patterns.isEmpty()) continue;
        QString caption = parts[i];
        caption.remove('(').remove(')');
        filters << caption.trimmed() + " (" + patterns.join(' ') + ')';
    }
    return filters;
}

void QtPrompts::Set_Parent(QWidget* parent) {
    Parent = parent;
    QObject::connect(qApp, &QApplication::focusChanged, parent, [this](QWidget*, QWidget* now) {
        if (now != nullptr) InUse = now->window();
    });
}

QWidget* QtPrompts::Owner() const {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr) return modal;
    // Over the window in use: the keys go back there, and it stays in sight. While the box of a long work
    // goes away no window is active, and the box stands for the window that it belongs to.
    QWidget* used = QApplication::activeWindow();
    if (used == nullptr) used = InUse;
    while (used != nullptr && used->parentWidget() != nullptr && used->parentWidget() != Parent)
        used = used->parentWidget()->window();
    const bool own = used != nullptr && Parent != nullptr && used->parentWidget() == Parent;
    return own && used->isVisible() ? used : Parent.data();
}

Answer QtPrompts::Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) {
    constexpr QMessageBox::Icon icons[] = {QMessageBox::NoIcon, QMessageBox::Critical, QMessageBox::Question,
                                           QMessageBox::Warning, QMessageBox::Information};
    QMessageBox box(Owner());
    box.setIcon(icons[static_cast<int>(icon)]);
    box.setWindowTitle(QString::fromStdString(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    switch (buttons) {
        case Buttons::Ok:
            box.setStandardButtons(QMessageBox::Ok);
            break;
        case Buttons::OkCancel:
            box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
            box.setDefaultButton(QMessageBox::Ok);
            break;
        case Buttons::YesNo:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
            // What is warned of is done by a choice alone, not by Return.
            box.setDefaultButton(icon == Icon::Warning ? QMessageBox::No : QMessageBox::Yes);
            box.setEscapeButton(QMessageBox::No);
            break;
        case Buttons::YesNoCancel:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
            box.setDefaultButton(QMessageBox::Yes);
            break;
        case Buttons::SaveDiscardCancel:
            box.setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
            box.setDefaultButton(QMessageBox::Save);
            break;
        case Buttons::RenumberKeepCancel:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
            box.button(QMessageBox::Yes)->setText(QObject::tr("&Renumber"));
            box.button(QMessageBox::No)->setText(QObject::tr("&Keep"));
            box.setDefaultButton(QMessageBox::Yes);
            break;
        case Buttons::OpenCancel:
            box.setStandardButtons(QMessageBox::Open | QMessageBox::Cancel);
            box.button(QMessageBox::Open)->setText(QObject::tr("Open anyway"));
            box.setDefaultButton(QMessageBox::Cancel);
            break;
    }
    if (QAbstractButton* cancel = box.button(QMessageBox::Cancel)) box.setEscapeButton(cancel);
    switch (box.exec()) {
        case QMessageBox::Ok:
        case QMessageBox::Open:
            return Answer::Ok;
        case QMessageBox::Yes:
        case QMessageBox::Save:
            return Answer::Yes;
        case QMessageBox::No:
        case QMessageBox::Discard:
            return Answer::No;
        default:
            return buttons == Buttons::Ok      ? Answer::Ok
                   : buttons == Buttons::YesNo ? Answer::No
                                               : Answer::Cancel;
    }
}

std::string QtPrompts::Input(const std::string& prompt, const std::string& title,
                             const std::string& initial) {
    QInputDialog dialog(Owner());
    dialog.setWindowTitle(QString::fromStdString(title));
    dialog.setLabelText(QString::fromStdString(prompt));
    dialog.setTextValue(QString::fromStdString(initial));
    dialog.resize(dialog.sizeHint().expandedTo({360, 0}));
    return dialog.exec() == QDialog::Accepted ? dialog.textValue().toStdString() : std::string();
}

std::string QtPrompts::Open_File(const FileRequest& request) {
    return Chosen(QFileDialog::getOpenFileName(
        Owner(), QString::fromStdString(request.Title), Start_Place(request, LastFolder),
        File_Filters(request.Filter).join(";;"), nullptr, QFileDialog::HideNameFilterDetails));
}

std::vector<std::string> QtPrompts::Open_Files(const FileRequest& request) {
    const QStringList paths = QFileDialog::getOpenFileNames(
        Owner(), QString::fromStdString(request.Title), Start_Place(request, LastFolder),
        File_Filters(request.Filter).join(";;"), nullptr, QFileDialog::HideNameFilterDetails);
    std::vector<std::string> chosen;
    for (const QString& path : paths)
        chosen.push_back(Chosen(path));
    return chosen;
}

std::string QtPrompts::Chosen(const QString& path) {
    if (!path.isEmpty()) LastFolder = QFileInfo(path).absolutePath();
    return path.toStdString();
}

std::string QtPrompts::Save_File(const FileRequest& request) {
    QFileDialog dialog(Owner(), QString::fromStdString(request.Title), Start_Place(request, LastFolder));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(File_Filters(request.Filter));
    const QString name = QString::fromStdString(request.DefaultName);
    if (!name.contains('*')) dialog.selectFile(name);
    // A name typed without an ending takes that of the filter chosen, before the dialog asks whether a file
    // of that name may go.
    const QStringList parts = QString::fromStdString(request.Filter).split('|');
    const auto follow_filter = [&dialog, &parts](const QString& filter) {
        const auto chosen = dialog.nameFilters().indexOf(filter);
        const qsizetype at = parts.size() == 1 ? 0 : 2 * chosen + 1;
        if (chosen < 0 || at >= parts.size()) return;
        const QString pattern = parts[at].section(' ', -1).section(';', 0, 0).trimmed();
        if (pattern.startsWith("*.") && pattern != "*.*") dialog.setDefaultSuffix(pattern.mid(2).toLower());
    };
    follow_filter(dialog.nameFilters().value(0));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow_filter);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return Chosen(dialog.selectedFiles().constFirst());
}

std::optional<Colour> QtPrompts::Choose_Colour(Colour initial) {
    const QColor colour = QColorDialog::getColor(To_QColor(initial), Owner());
    if (!colour.isValid()) return std::nullopt;
    return From_QColor(colour);
}

std::optional<std::string> QtPrompts::Choose_Font(const std::string& initial) {
    bool chosen = false;
    QFont start = QApplication::font();
    if (!initial.empty()) start.setFamily(QString::fromStdString(initial));
    const QFont font = QFontDialog::getFont(&chosen, start, Owner());
    if (!chosen) return std::nullopt;
    return font.family().toStdString();
}

}  // namespace tarnvik
