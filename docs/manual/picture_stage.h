#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/session.h"
#include "ui/main_window.h"
#include "ui/qt_display.h"

namespace tarnvik {

/// Answers nobody waits for: each question gets its first answer, each box its initial text.
class StagePrompts : public Prompts {
  public:
    Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) override;
    std::string Input(const std::string&, const std::string&, const std::string& initial) override {
        return initial;
    }
    std::string Open_File(const FileRequest&) override { return FileToOpen; }
    std::string Save_File(const FileRequest&) override { return {}; }
    std::optional<Colour> Choose_Colour(Colour) override { return std::nullopt; }
    std::optional<std::string> Choose_Font(const std::string&) override { return std::nullopt; }

    bool AnswerYes = false;  ///< to every yes/no question
    std::string FileToOpen;
    std::vector<std::string> Said;
};

/// Nothing outside the program is started, and documents lie nowhere.
class StageLauncher : public Launcher {
  public:
    int Start(const std::string&, const std::string&, const std::string&) override { return 0; }
    bool Has_Tool(const std::string&) const override { return true; }
    ToolResult Run_In_Order(const std::vector<ToolCommand>&, const std::string&,
                            const ToolProgress&) override {
        return {};
    }
    int Open_Document(const std::string&) override { return 0; }
    int Edit_Text(const std::string&) override { return 0; }
    std::string Find_Program(const std::string&) override { return {}; }
    std::string Program_Folder() const override { return "."; }
    std::string Documents_Folder() const override { return "."; }
    std::string Decimal_Separator() const override { return "."; }
    void Set_Decimal_Point() override {}
    void Register_File_Type() override {}
};

/// The program with its window on one line, from which pictures are taken. A picture that cannot be taken is
/// a std::runtime_error that names it.
class PictureStage {
  public:
    /// `project` is opened from the working folder, so that no path of this machine gets into a picture.
    PictureStage(const QString& pictures, const std::string& project);
    ~PictureStage();

    Session& Program() { return Line; }
    StagePrompts& Answers() { return Prompts; }
    /// Lets everything that was asked for be drawn.
    static void Settle();

    void Show(Tab tab);
    void Run(const char* command);
    void Close(Dialog dialog);
    /// The main window, or a stretch of it from the top (in parts of its height).
    void Take_Window(const QString& name, double part_of_height = 1);
    /// The form of an open dialog, without the window around it; of a long list its upper part alone.
    void Take_Form(const QString& name, Dialog dialog, int most_height = 10'000);
    /// A control of the main window.
    void Take_Control(const QString& name, const char* object_name);
    /// A dialog that lets its caller wait: runs the command, takes the form and closes the dialog.
    void Take_Modal(const QString& name, const char* command, Dialog dialog,
                    const std::function<void()>& prepare = {});

  private:
    void Save(const QString& name, QWidget& widget, const QRect& part);

    QString Pictures;
    StagePrompts Prompts;
    StageLauncher Launcher;
    QtDisplay Display;
    Session Line;
    std::unique_ptr<MainWindow> Window;
};

/// The window of a tool beside the program, on the interpreted demo line and with these arguments.
void Take_Tool(const char* name, const QString& pictures, std::string_view tool,
               const QStringList& arguments);

}  // namespace tarnvik
