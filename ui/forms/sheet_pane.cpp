#include "ui/forms/sheet_pane.h"

#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "app/session.h"
#include "core/settings_file.h"
#include "core/text/number.h"
#include "ui/forms/long_work.h"
#include "ui/painting/sheet_file.h"

namespace tarnvik {

namespace {

constexpr double millimetres_an_inch = 25.4;
constexpr int paper_rim = 10;  // pixels around the paper
constexpr int whole_page = 0;
constexpr int whole_width = 1;
constexpr int true_size = 2;

QToolButton* Arrow(Qt::ArrowType arrow, const char* name, const QString& tip) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

}  // namespace

void SheetPaper::Show_Sheet(const Sheet* sheet, QSize size, const QString& font_family) {
    setFixedSize(size + QSize(2 * paper_rim, 2 * paper_rim));
    Paper = QImage();
    if (sheet != nullptr && !size.isEmpty()) {
        const double sharp = devicePixelRatioF();
        Paper = QImage((QSizeF(size) * sharp).toSize(), QImage::Format_RGB32);
        Paper.fill(Qt::white);
        QPainter painter(&Paper);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        Preview_Sheet(painter, *sheet, Paper.width() / sheet->Width, font_family);
        painter.end();
        Paper.setDevicePixelRatio(sharp);
    }
    update();
}

void SheetPaper::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (Paper.isNull()) {
        painter.drawText(rect().adjusted(paper_rim, paper_rim, -paper_rim, -paper_rim),
                         Qt::AlignCenter | Qt::TextWordWrap, Reason);
        return;
    }
    const QRect place(QPoint(paper_rim, paper_rim), Paper.deviceIndependentSize().toSize());
    painter.fillRect(place.translated(3, 3), QColor(0, 0, 0, 60));
    painter.drawImage(place.topLeft(), Paper);
    painter.setPen(QColor(0, 0, 0, 120));
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
}

SheetPane::SheetPane(Session& session, SheetSource& source, const std::string& tool)
    : Program(session), Source(source), Tool(tool) {
    Before = Arrow(Qt::LeftArrow, "PageBefore", tr("The page before (PgUp)"));
    After = Arrow(Qt::RightArrow, "PageAfter", tr("The next page (PgDown)"));
    Before->setShortcut(Qt::Key_PageUp);
    After->setShortcut(Qt::Key_PageDown);
    Number = new QLabel;
    Number->setObjectName("PageNumber");
    ZoomBox = new QComboBox;
    ZoomBox->setObjectName("Zoom");
    ZoomBox->addItems({tr("Whole page"), tr("Page width"), tr("True size")});
    ZoomBox->setToolTip(tr("Size of the preview; on paper the sheet keeps its own"));
    Resolution = new QComboBox;
    Resolution->setObjectName("Resolution");
    for (const char* dpi : {"100", "150", "200", "300", "600"})
        Resolution->addItem(QString(dpi) + tr(" dpi"), QString(dpi));
    Resolution->setToolTip(tr("Pixels an inch of PNG files; PDF, SVG and WMF are drawings and need none"));
    SaveKey = new QPushButton(tr("&Save as..."));
    SaveKey->setObjectName("Save");
    SaveKey->setToolTip(
        tr("PDF, PNG, SVG or WMF file; several pages: one PDF, or numbered files of the "
           "other kinds (Ctrl+S)"));
    SaveKey->setShortcut(Qt::CTRL | Qt::Key_S);
    PrintKey = new QPushButton(tr("&Print..."));
    PrintKey->setObjectName("Print");
    PrintKey->setToolTip(tr("Asks for printer and pages (Ctrl+P)"));
    PrintKey->setShortcut(Qt::CTRL | Qt::Key_P);

    auto* keys = new QHBoxLayout;
    keys->addWidget(Before);
    keys->addWidget(Number);
    keys->addWidget(After);
    keys->addSpacing(12);
    keys->addWidget(ZoomBox);
    keys->addStretch(1);
    keys->addWidget(Resolution);
    keys->addWidget(SaveKey);
    keys->addWidget(PrintKey);
    Paper = new SheetPaper;
    Paper->setObjectName("Paper");
    Area = new QScrollArea;
    Area->setObjectName("Preview");
    Area->setAlignment(Qt::AlignCenter);
    Area->setBackgroundRole(QPalette::Mid);
    Area->setWidget(Paper);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(keys);
    rows->addWidget(Area, 1);

    const std::string dpi = Read_Setting(Program.SettingsFile, Tool, "Resolution");
    const int known = Resolution->findData(QString::fromStdString(dpi));
    Resolution->setCurrentIndex(known >= 0 ? known : Resolution->findData("300"));
    connect(Before, &QToolButton::clicked, this, [this] { Go_To(Page - 1); });
    connect(After, &QToolButton::clicked, this, [this] { Go_To(Page + 1); });
    connect(ZoomBox, &QComboBox::activated, this, [this] { Show_Page(); });
    connect(Resolution, &QComboBox::activated, this, [this] {
        Write_Setting(Program.SettingsFile, Tool, "Resolution",
                      Resolution->currentData().toString().toStdString());
    });
    connect(SaveKey, &QPushButton::clicked, this, [this] { Save(); });
    connect(PrintKey, &QPushButton::clicked, this, [this] { Print(); });
}

QString SheetPane::Font_Family() const {
    return QString::fromStdString(Program.Work.Settings.FontName);
}

double SheetPane::Dpi() const {
    return Resolution->currentData().toDouble();
}

QSize SheetPane::Size_Of_Page(const Sheet& sheet) const {
    const QSizeF room = QSizeF(Area->size()) - QSizeF(2 * paper_rim + 4, 2 * paper_rim + 4);
    double scale = std::min(room.width() / sheet.Width, room.height() / sheet.Height);
    if (ZoomBox->currentIndex() == whole_width) {
        const double bar = Area->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff ? 0 : 20;
        scale = (room.width() - bar) / sheet.Width;
    }
    if (ZoomBox->currentIndex() == true_size) scale = logicalDpiX() / millimetres_an_inch;
    return (QSizeF(sheet.Width, sheet.Height) * std::max(scale, 0.05)).toSize().expandedTo({1, 1});
}

void SheetPane::Show_Page() {
    const std::vector<Sheet>& sheets = Source.Sheets();
    const int count = static_cast<int>(sheets.size());
    Page = std::clamp(Page, 0, std::max(0, count - 1));
    Before->setEnabled(Page > 0);
    After->setEnabled(Page + 1 < count);
    Number->setText(count > 0 ? tr("Page %1 of %2").arg(Page + 1).arg(count) : tr("No page"));
    const bool possible = Source.Refusal().empty() && count > 0;
    SaveKey->setEnabled(possible);
    PrintKey->setEnabled(possible);
    Paper->Reason = QString::fromStdString(Source.Refusal());
    if (!possible) {
        Paper->Show_Sheet(nullptr, (Area->size() - QSize(24, 24)).expandedTo({40, 40}), {});
        return;
    }
    const Sheet& sheet = sheets[static_cast<std::size_t>(Page)];
    Paper->Show_Sheet(&sheet, Size_Of_Page(sheet), Font_Family());
}

void SheetPane::Refresh() {
    Show_Page();
}

void SheetPane::Go_To(int page) {
    Page = page;
    Show_Page();
}

void SheetPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (ZoomBox->currentIndex() != true_size || Source.Sheets().empty()) Show_Page();
}

std::string SheetPane::Write(const std::vector<Sheet>& sheets, const std::vector<std::string>& files) {
    std::string reason;
    const auto label = [](std::int64_t done, std::int64_t all) {
        return tr("Page %1 of %2").arg(done).arg(all);
    };
    Run_Long_Work(this, label, [&](const TraceProgress& progress) {
        const auto all = static_cast<std::int64_t>(sheets.size());
        reason =
            Write_Sheets(sheets, files, Dpi(), Font_Family(), [&](int done) { return progress(done, all); });
    });
    return reason;
}

void SheetPane::Save() {
    std::string ending = Read_Setting(Program.SettingsFile, Tool, "Ending");
    const bool saved =
        Save_Sheets(Program.Outside, "Save sheets", Source, ending,
                    [this](const std::vector<Sheet>& sheets, const std::vector<std::string>& files) {
                        return Write(sheets, files);
                    });
    if (saved) Write_Setting(Program.SettingsFile, Tool, "Ending", ending);
    Show_Page();
}

bool SheetPane::Paper_Is_Large_Enough(const QPrinter& printer) {
    constexpr double tolerance = 1;  // mm
    const QSizeF paper = printer.paperRect(QPrinter::Millimeter).size();
    const Sheet& sheet = Source.Sheets().front();
    if (paper.width() + tolerance >= sheet.Width && paper.height() + tolerance >= sheet.Height) return true;
    const auto size = [](double width, double height) {
        return CStr(Rounded(width)) + " x " + CStr(Rounded(height)) + " mm";
    };
    return Program.Outside.Ask.Ask_Yes("The printer's paper is " + size(paper.width(), paper.height()) +
                                           ", the sheet " + size(sheet.Width, sheet.Height) +
                                           ". What lies beyond the paper is lost. Print it so ?",
                                       Program.Work.AppTitle, Icon::Warning);
}

void SheetPane::Print() {
    if (!Source.May_Draw()) return;
    Show_Page();
    const Sheet& sheet = Source.Sheets().front();
    const int count = static_cast<int>(Source.Sheets().size());
    QPrinter printer(QPrinter::HighResolution);
    const QSizeF upright(std::min(sheet.Width, sheet.Height), std::max(sheet.Width, sheet.Height));
    printer.setPageSize(QPageSize(upright, QPageSize::Millimeter));
    printer.setPageOrientation(sheet.Width > sheet.Height ? QPageLayout::Landscape : QPageLayout::Portrait);
    // Places count from the corner of the paper, so that the scale is true and nothing is shifted.
    printer.setFullPage(true);
    QPrintDialog dialog(&printer, this);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, count > 1);
    dialog.setMinMax(1, count);
    if (dialog.exec() != QDialog::Accepted || !Paper_Is_Large_Enough(printer)) return;
    const bool range = dialog.printRange() == QAbstractPrintDialog::PageRange && dialog.fromPage() > 0;
    const int first = range ? dialog.fromPage() - 1 : 0;
    const int last = range ? std::max(dialog.toPage(), dialog.fromPage()) - 1 : count - 1;
    std::string reason;
    const auto label = [](std::int64_t done, std::int64_t all) {
        return tr("Page %1 of %2").arg(done).arg(all);
    };
    Run_Long_Work(this, label, [&](const TraceProgress& progress) {
        reason = Print_Sheets(printer, Source.Sheets(), first, last, Font_Family(),
                              [&](int done) { return progress(done, last - first + 1); });
    });
    if (!reason.empty()) Program.Outside.Ask.Say(reason, Program.Work.AppTitle, Icon::Critical);
}

}  // namespace tarnvik
