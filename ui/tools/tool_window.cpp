#include "ui/tools/tool_window.h"

#include <QCloseEvent>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/documents.h"

namespace tarnvik {

ToolWindow::ToolWindow(const ToolRow& row, ToolStart& start, const QString& places) : Places(places) {
    setObjectName(QString::fromLatin1(row.Name.data(), static_cast<qsizetype>(row.Name.size())));
    setWindowTitle(QString::fromUtf8(row.Title.data(), static_cast<qsizetype>(row.Title.size())));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    Content = row.Make(start).release();
    Content->Close_Me = [this] { close(); };
    layout->addWidget(Content);
    new QShortcut(
        QKeySequence(help_key), this,
        [&session = start.Program, chapter = std::string(row.Chapter)] { Open_Chapter(session, chapter); });
    Content->Refresh();
    // As large as the form wants to be; by itself a window begins with two thirds of the screen at most.
    constexpr double share_of_screen = 0.92;
    resize(Content->sizeHint()
               .expandedTo(Content->minimumSizeHint())
               .boundedTo(screen()->availableSize() * share_of_screen));
    const QSettings places_of_windows(Places, QSettings::IniFormat);
    restoreGeometry(places_of_windows.value("Tools/" + objectName()).toByteArray());
}

ToolWindow::~ToolWindow() = default;

void ToolWindow::closeEvent(QCloseEvent* event) {
    QSettings(Places, QSettings::IniFormat).setValue("Tools/" + objectName(), saveGeometry());
    Content->Closed();
    event->accept();
}

}  // namespace tarnvik
