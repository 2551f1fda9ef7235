#pragma once

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <string>

#include "output/sheets/sheet_source.h"

class QPrinter;

namespace tarnvik {

class Session;

/// The paper of a preview.
class SheetPaper : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;
    /// The sheet and its size on the screen; null for none, which `Reason` tells about.
    void Show_Sheet(const Sheet* sheet, QSize size, const QString& font_family);
    QString Reason;
    const QImage& Image() const { return Paper; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QImage Paper;
};

/// Preview of sheets as they will be printed, with the keys that turn the pages, print them and save them.
class SheetPane : public QWidget {
    Q_OBJECT

  public:
    /// `tool` names the section of the settings that remembers the choices.
    SheetPane(Session& session, SheetSource& source, const std::string& tool);
    QSize sizeHint() const override { return {820, 680}; }
    /// The sheets have changed.
    void Refresh();
    /// Goes to a page, from 0.
    void Go_To(int page);
    int Shown() const { return Page; }
    void Save();
    void Print();
    /// Where the keys of the pane end, for the order of Tab.
    QWidget* Last_Key() const { return PrintKey; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Show_Page();
    QSize Size_Of_Page(const Sheet& sheet) const;
    bool Paper_Is_Large_Enough(const QPrinter& printer);
    std::string Write(const std::vector<Sheet>& sheets, const std::vector<std::string>& files);
    QString Font_Family() const;
    double Dpi() const;

    Session& Program;
    SheetSource& Source;
    std::string Tool;
    int Page = 0;
    QToolButton* Before = nullptr;
    QToolButton* After = nullptr;
    QLabel* Number = nullptr;
    QComboBox* ZoomBox = nullptr;
    QComboBox* Resolution = nullptr;
    QPushButton* SaveKey = nullptr;
    QPushButton* PrintKey = nullptr;
    QScrollArea* Area = nullptr;
    SheetPaper* Paper = nullptr;
};

}  // namespace tarnvik
