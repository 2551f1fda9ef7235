#include "ui/qt_display.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDialog>
#include <QDockWidget>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "app/dialog_rows.h"
#include "app/documents.h"
#include "app/pages.h"
#include "app/session.h"
#include "ui/main_window.h"

namespace tarnvik {

namespace {

constexpr int least_dock_width = 200;

/// Tells when the window's own controls close a shell.
class CloseWatcher : public QObject {
  public:
    CloseWatcher(QWidget* shell, std::function<void()> closed) : QObject(shell), Closed(std::move(closed)) {
        shell->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Close) Closed();
        return QObject::eventFilter(watched, event);
    }

  private:
    std::function<void()> Closed;
};

}  // namespace

QtDisplay::QtDisplay() = default;
QtDisplay::~QtDisplay() = default;

void QtDisplay::Register(Canvas canvas, PictureBox* box) {
    Boxes[canvas] = box;
    box->Canvas().Set_Font_Family(QString::fromStdString(Owner->Work.Settings.FontName));
}

Picture& QtDisplay::Canvas_Of(Canvas canvas) {
    const auto box = Boxes.find(canvas);
    if (box != Boxes.end() && box->second) return box->second->Canvas();
    return Unseen[canvas];
}

void QtDisplay::Show_Marks(Canvas canvas, MarkLayer layer, std::vector<Mark> marks) {
    if (PictureBox* box = Box_Of(canvas)) box->Show_Marks(layer, std::move(marks));
}

PictureBox* QtDisplay::Box_Of(Canvas canvas) const {
    const auto box = Boxes.find(canvas);
    return box == Boxes.end() ? nullptr : box->second.data();
}

void QtDisplay::Draw_Curves() {
    const QString family = QString::fromStdString(Owner->Work.Settings.FontName);
    for (const auto& [canvas, box] : Boxes) {
        if (box) box->Canvas().Set_Font_Family(family);
    }
    SessionDisplay::Draw_Curves();
    Show_Fields();
}

void QtDisplay::Draw_Profile() {
    // The panes and bars first: they decide how large the picture is.
    Refresh_Fields();
    SessionDisplay::Draw_Profile();
}

void QtDisplay::Refresh_Grids() {
    if (Window != nullptr) Window->Refresh_Grids();
    for (const auto& [dialog, open] : Open)
        open.Content->Refresh();
}

void QtDisplay::Refresh_Fields() {
    if (Window != nullptr) Window->Refresh_Fields();
    for (const auto& [dialog, open] : Open)
        open.Content->Refresh();
}

void QtDisplay::Refresh_Cell(int row, int column) {
    if (Window != nullptr) Window->Refresh_Cell(row, column);
}

void QtDisplay::Select_Tab(Tab tab) {
    if (Window != nullptr) Window->Select_Tab(tab);
}

std::optional<Tab> QtDisplay::Tab_In_Sight() const {
    if (Window == nullptr) return std::nullopt;
    return Window->Tab_In_Sight();
}

std::optional<Dialog> QtDisplay::Dialog_In_Front() const {
    const QWidget* focus = QApplication::focusWidget();
    const QWidget* window = QApplication::activeWindow();
    for (const auto& [dialog, open] : Open) {
        if (!open.Shell) continue;
        if (open.Shell == window || (focus != nullptr && open.Shell->isAncestorOf(focus))) return dialog;
    }
    return std::nullopt;
}

void QtDisplay::Forget(Dialog dialog) {
    const auto found = Open.find(dialog);
    if (found == Open.end()) return;
    const OpenDialog closing = found->second;
    Open.erase(found);
    closing.Content->Closed();
    if (!closing.Shell) return;
    if (auto* dock = qobject_cast<QDockWidget*>(closing.Shell); dock != nullptr && Window != nullptr) {
        Window->Remember_Dock(dock);
    } else if (closing.Shell == closing.Content && Window != nullptr) {
        Window->Remember_Window(closing.Shell);
    }
    closing.Shell->hide();
    closing.Shell->deleteLater();
}

void QtDisplay::Open_Dialog(Dialog dialog, bool modal) {
    const DialogRow* row = Row_Of(dialog);
    const MakeForm make = Form_Of(dialog);
    if (row == nullptr || make == nullptr || Window == nullptr || HasEnded) return;
    if (Is_Open(dialog)) {
        Bring_To_Front(dialog);
        return;
    }
    std::unique_ptr<Form> made = make(*Owner, *this);
    Form* form = made.get();
    const QString title = QString::fromUtf8(row->Title);
    form->Close_Me = [this, dialog] { Close_Dialog(dialog); };
    // A tool window has the keys of the main one; a window of its own must bring this along.
    const auto help_by_key = [this, row](QWidget* shell) {
        new QShortcut(QKeySequence(help_key), shell,
                      [this, chapter = std::string(row->Chapter)] { Open_Chapter(*Owner, chapter); });
    };

    if (modal || row->Place == DialogPlace::Box) {
        auto* box = new QDialog(Window);
        box->setWindowTitle(title);
        help_by_key(box);
        auto* layout = new QVBoxLayout(box);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSizeConstraint(QLayout::SetMinimumSize);
        layout->addWidget(made.release());
        Open[dialog] = {form, box};
        form->Refresh();
        QObject::connect(box, &QDialog::finished, box, [this, dialog] { Forget(dialog); });
        if (modal) {
            form->Opened();
            if (Is_Open(dialog)) box->exec();
        } else {
            box->show();
            form->Opened();
        }
        return;
    }
    if (row->Place == DialogPlace::Window) {
        made->setParent(Window, Qt::Window);
        made->setWindowTitle(title);
        help_by_key(form);
        made->setObjectName("Window" + QString::number(static_cast<int>(dialog)));
        made.release();
        Window->Place_Window(form);
        Open[dialog] = {form, form};
        new CloseWatcher(form, [this, dialog] { Forget(dialog); });
        form->Refresh();
        form->show();
        form->Opened();
        return;
    }
    auto* dock = new QDockWidget(title, Window);
    dock->setObjectName("Dock" + QString::number(static_cast<int>(dialog)));
    dock->setAllowedAreas(Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea | Qt::LeftDockWidgetArea);
    // A tool window higher than the screen scrolls; it never makes the main window larger.
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setMinimumWidth(std::min(least_dock_width, form->minimumSizeHint().width()));
    scroll->setWidget(made.release());
    dock->setWidget(scroll);
    Open[dialog] = {form, dock};
    new CloseWatcher(dock, [this, dialog] { Forget(dialog); });
    form->Refresh();
    Window->Place_Dock(dock, row->Home);
    form->Opened();
}

void QtDisplay::Close_Dialog(Dialog dialog) {
    const auto found = Open.find(dialog);
    if (found == Open.end()) return;
    if (auto* box = qobject_cast<QDialog*>(found->second.Shell)) {
        box->done(QDialog::Accepted);
        return;
    }
    Forget(dialog);
}

void QtDisplay::Bring_To_Front(Dialog dialog) {
    const auto found = Open.find(dialog);
    if (found == Open.end() || !found->second.Shell) return;
    found->second.Shell->show();
    found->second.Shell->raise();
    // A docked form stays where it is; one that floats comes over the main window and gets the keys.
    if (found->second.Shell->isWindow()) found->second.Shell->activateWindow();
    found->second.Content->Called();
}

bool QtDisplay::Is_Open(Dialog dialog) const {
    return Open.contains(dialog);
}

Form* QtDisplay::Open_Form(Dialog dialog) const {
    const auto found = Open.find(dialog);
    return found == Open.end() ? nullptr : found->second.Content;
}

DrawPage QtDisplay::Page_Drawing(Page page) {
    return [this, page](Picture& main, Picture& below, Picture& beside) {
        Draw_Page(*Owner, page, PagePictures{main, below, beside});
    };
}

TitleTexts QtDisplay::Page_Titles(Page page) {
    // A report has a title block of its own.
    if (Is_Report(*Owner, page)) return {};
    return [this, page](const Frame& window, double pixels_a_millimetre) {
        return Page_Title(*Owner, page, window, pixels_a_millimetre);
    };
}

QPrinter& QtDisplay::Printer() {
    if (!ChosenPrinter) {
        ChosenPrinter = std::make_unique<QPrinter>(QPrinter::HighResolution);
        ChosenPrinter->setPageOrientation(QPageLayout::Landscape);
    }
    return *ChosenPrinter;
}

bool QtDisplay::Print_Page(Page page) {
    if (!Page_Can_Be_Drawn(*Owner, page)) return false;
    QPrintDialog dialog(&Printer(), Window);
    if (dialog.exec() != QDialog::Accepted) return true;
    const QSizeF paper = Printer().pageRect(QPrinter::Millimeter).size();
    if (!Scale_May_Change(*Owner, page, paper.width(), paper.height())) return true;
    const QString family = QString::fromStdString(Owner->Work.Settings.FontName);
    return tarnvik::Print_Page(Printer(), Layout_Of(*Owner, page), family, Page_Drawing(page)).empty();
}

std::string QtDisplay::Save_Page(Page page, const std::string& path, const PictureFormat& format) {
    if (!Page_Can_Be_Drawn(*Owner, page)) return "nothing is drawn";
    return Write_Picture_File(path, format, Layout_Of(*Owner, page),
                              QString::fromStdString(Owner->Work.Settings.FontName), Page_Drawing(page),
                              Page_Titles(page));
}

std::string QtDisplay::Copy_Page(Page page, const PictureFormat& format) {
    if (!Page_Can_Be_Drawn(*Owner, page)) return "nothing is drawn";
    const auto made = [&](const char* ending) {
        return Make_Picture(ending, format, Layout_Of(*Owner, page),
                            QString::fromStdString(Owner->Work.Settings.FontName), Page_Drawing(page),
                            Page_Titles(page));
    };
    const MadePicture bitmap = made(".png");
    if (!bitmap.Reason.empty()) return bitmap.Reason;
    // Each program takes the best kind that it knows.
    auto copied = std::make_unique<QMimeData>();
    copied->setImageData(QImage::fromData(bitmap.Bytes));
    for (const auto& [ending, type] :
         {std::pair(".svg", "image/svg+xml"), std::pair(".wmf", "image/x-wmf")}) {
        const MadePicture drawing = made(ending);
        if (drawing.Reason.empty()) copied->setData(type, drawing.Bytes);
    }
    QGuiApplication::clipboard()->setMimeData(copied.release());
    return {};
}

void QtDisplay::Choose_Printer() {
    QPrintDialog dialog(&Printer(), Window);
    dialog.setWindowTitle(QObject::tr("Printer selection"));
    // Only the choice is wanted here; printing is a command of its own.
    dialog.setOption(QAbstractPrintDialog::PrintToFile);
    dialog.exec();
}

void QtDisplay::End_Program() {
    HasEnded = true;
    while (!Open.empty())
        Close_Dialog(Open.begin()->first);
    if (Window != nullptr) Window->close();
    QApplication::exit(0);
}

}  // namespace tarnvik
