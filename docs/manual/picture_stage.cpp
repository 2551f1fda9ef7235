#include "picture_stage.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <stdexcept>

#include "app/commands.h"
#include "app/dialog_rows.h"
#include "app/start.h"
#include "core/settings_file.h"
#include "ui/headless/headless_display.h"
#include "ui/tools/tool_window.h"

namespace tarnvik {

namespace {

constexpr int margin = 8;
/// Time in which a tool has looked at its files and drawn its previews.
constexpr int tool_is_ready_ms = 500;

void Save_Picture(const QString& folder, const QString& name, QWidget& widget, const QRect& part) {
    const QPixmap picture = widget.grab(part);
    if (picture.isNull() || !picture.save(folder + "/" + name + ".png"))
        throw std::runtime_error("the picture " + name.toStdString() + " cannot be made");
}

}  // namespace

Answer StagePrompts::Message(const std::string& text, const std::string&, Icon, Buttons buttons) {
    Said.push_back(text);
    switch (buttons) {
        case Buttons::YesNo:
        case Buttons::YesNoCancel:
            return AnswerYes ? Answer::Yes : Answer::No;
        case Buttons::SaveDiscardCancel:
        case Buttons::RenumberKeepCancel:
            return Answer::No;
        case Buttons::OkCancel:
            return Answer::Cancel;
        default:
            return Answer::Ok;
    }
}

PictureStage::PictureStage(const QString& pictures, const std::string& project)
    : Pictures(pictures), Line({Prompts, Display, Launcher}, "Tarnvik32.INI") {
    Display.Attach(Line);
    Line.Keep_Display_Choices();
    // A file of its own that is never written: each picture starts from the places of a first start.
    Window = std::make_unique<MainWindow>(Line, Display, "no such file.ini");
    Window->setWindowState(Qt::WindowNoState);
    Window->resize(1280, 800);
    Window->show();
    Settle();
    if (project.empty()) return;
    Form_Load(Line, '"' + project + '"');
    Settle();
    if (Line.Work.Project.NbShots == 0) throw std::runtime_error(project + " cannot be opened");
}

PictureStage::~PictureStage() {
    Display.End_Program();
}

void PictureStage::Settle() {
    // The layout of one turn can ask for a drawing in the next.
    for (int turn = 0; turn < 8; ++turn) {
        QApplication::processEvents();
        // What was closed goes at the end of the turn of an event loop, which there is none of here.
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void PictureStage::Show(Tab tab) {
    Display.Select_Tab(tab);
    Display.Show_Fields();
    Settle();
}

void PictureStage::Run(const char* command) {
    const Command* known = Find_Command(command);
    if (known == nullptr) throw std::runtime_error(std::string("there is no command ") + command);
    if (const std::string refusal = Refusal_Of(*known, Line); !refusal.empty())
        throw std::runtime_error(std::string(command) + " is refused: " + refusal);
    Run_Command(Line, command);
    Settle();
}

void PictureStage::Close(Dialog dialog) {
    Display.Close_Dialog(dialog);
    Settle();
}

void PictureStage::Save(const QString& name, QWidget& widget, const QRect& part) {
    Settle();
    Save_Picture(Pictures, name, widget, part);
}

void PictureStage::Take_Window(const QString& name, double part_of_height) {
    Display.Show_Fields();
    Settle();
    const QRect part(0, 0, Window->width(), static_cast<int>(Window->height() * part_of_height));
    Save(name, *Window, part);
}

void PictureStage::Take_Form(const QString& name, Dialog dialog, int most_height) {
    Display.Show_Fields();
    Settle();
    Form* form = Display.Open_Form(dialog);
    if (form == nullptr) {
        throw std::runtime_error("the dialog of the picture " + name.toStdString() + " is not open" +
                                 (Prompts.Said.empty() ? "" : "; said last: " + Prompts.Said.back()));
    }
    QRect part = form->rect();
    part.setHeight(std::min(part.height(), most_height));
    // A tool window is as high as the picture beside it; below its last control it is empty.
    const DialogRow* row = Row_Of(dialog);
    if (row != nullptr && row->Place == DialogPlace::Dock)
        part.setHeight(std::min(part.height(), form->childrenRect().bottom() + 1 + margin));
    Save(name, *form, part);
}

void PictureStage::Take_Control(const QString& name, const char* object_name) {
    auto* control = Window->findChild<QWidget*>(object_name);
    if (control == nullptr)
        throw std::runtime_error("the picture " + name.toStdString() + " finds no " + object_name);
    Save(name, *control, control->rect());
}

void PictureStage::Take_Modal(const QString& name, const char* command, Dialog dialog,
                              const std::function<void()>& prepare) {
    std::string failure;
    bool taken = false;
    // A dialog that does not come up would let the caller wait for ever.
    QTimer::singleShot(0, Window.get(), [&] {
        try {
            if (prepare) prepare();
            Take_Form(name, dialog);
            taken = true;
        } catch (const std::exception& fault) {
            failure = fault.what();
        }
        Close(dialog);
    });
    Run(command);
    Settle();
    if (!failure.empty()) throw std::runtime_error(failure);
    if (!taken) throw std::runtime_error("the dialog of the picture " + name.toStdString() + " did not open");
}

void Take_Tool(const char* name, const QString& pictures, std::string_view tool,
               const QStringList& arguments) {
    const auto rows = Tool_Rows();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [tool](const ToolRow& each) { return each.Name == tool; });
    if (row == rows.end()) throw std::runtime_error("there is no tool " + std::string(tool));
    StagePrompts prompts;
    StageLauncher launcher;
    HeadlessDisplay display;
    Session session({prompts, display, launcher}, "tools.INI");
    display.Attach(session);
    // As the main program names the line that is open in it.
    Write_Setting(session.SettingsFile, "DROMO", "File", "interpreted/demo1.tv5");
    Write_Setting(session.SettingsFile, "DROMO", "SU", "interpreted/demo1.su");
    session.Work.AppTitle = std::string(row->Title);
    ToolStart start{session, arguments};
    ToolWindow window(*row, start, "no such file.ini");
    window.show();
    QEventLoop ready;
    QTimer::singleShot(tool_is_ready_ms, &ready, &QEventLoop::quit);
    ready.exec();
    // The first picture brings the last sizes, which are drawn behind it.
    window.grab();
    PictureStage::Settle();
    Save_Picture(pictures, QString::fromLatin1(name), window, window.rect());
}

}  // namespace tarnvik
