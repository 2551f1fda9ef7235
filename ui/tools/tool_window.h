#pragma once

#include <QWidget>

#include "ui/tools/tool_rows.h"

namespace tarnvik {

/// The window of a tool: its form, with the place and size of the last time.
class ToolWindow : public QWidget {
    Q_OBJECT

  public:
    /// `places` is the file that remembers windows.
    ToolWindow(const ToolRow& row, ToolStart& start, const QString& places);
    ~ToolWindow() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QString Places;
    Form* Content = nullptr;
};

}  // namespace tarnvik
