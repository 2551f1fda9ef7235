#pragma once

#include <QWidget>

class QLineEdit;
class QTextBrowser;

namespace tarnvik {

/// Pages of the manual, for desktops that have no program of their own for them.
class HelpWindow : public QWidget {
    Q_OBJECT

  public:
    explicit HelpWindow(QWidget* parent = nullptr);
    /// Shows a page by the path of its file and comes to the front. False where it cannot be read.
    bool Show_Page(const QString& path);

  private:
    void Follow(const QUrl& link);
    void Find_Next();

    QTextBrowser* Pages;
    QLineEdit* Wanted;
};

}  // namespace tarnvik
