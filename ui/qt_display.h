#pragma once

#include <QHash>
#include <QPointer>
#include <QPrinter>
#include <map>
#include <memory>

#include "app/session_display.h"
#include "core/ports/silent_picture.h"
#include "ui/form.h"
#include "ui/painting/picture_file.h"
#include "ui/picture_box.h"

namespace tarnvik {

class MainWindow;

/// The screen: pictures are picture boxes, dialogs are forms of the registry. A request for a picture or a
/// dialog that is not there is quietly dropped.
class QtDisplay : public SessionDisplay {
  public:
    QtDisplay();
    ~QtDisplay() override;

    void Set_Window(MainWindow* window) { Window = window; }
    /// The picture box that stands for a canvas from now on, until it is destroyed.
    void Register(Canvas canvas, PictureBox* box);

    Picture& Canvas_Of(Canvas canvas) override;
    void Show_Marks(Canvas canvas, MarkLayer layer, std::vector<Mark> marks) override;
    void Select_Tab(Tab tab) override;
    std::optional<Tab> Tab_In_Sight() const override;
    std::optional<Dialog> Dialog_In_Front() const override;
    void Open_Dialog(Dialog dialog, bool modal) override;
    void Close_Dialog(Dialog dialog) override;
    void Bring_To_Front(Dialog dialog) override;
    bool Is_Open(Dialog dialog) const override;
    bool Print_Page(Page page) override;
    std::string Save_Page(Page page, const std::string& path, const PictureFormat& format) override;
    std::string Copy_Page(Page page, const PictureFormat& format) override;
    void Choose_Printer() override;
    void End_Program() override;

    bool Ended() const { return HasEnded; }
    /// The picture box of a canvas; null while there is none.
    PictureBox* Box_Of(Canvas canvas) const;
    /// Form of an open dialog; null while it is closed.
    Form* Open_Form(Dialog dialog) const;

  protected:
    void Draw_Curves() override;
    void Draw_Profile() override;
    void Refresh_Grids() override;
    void Refresh_Fields() override;
    void Refresh_Cell(int row, int column) override;

  private:
    struct OpenDialog {
        Form* Content = nullptr;
        QPointer<QWidget> Shell;  ///< dock, window or box around the form
    };
    void Forget(Dialog dialog);
    DrawPage Page_Drawing(Page page);
    TitleTexts Page_Titles(Page page);
    QPrinter& Printer();

    MainWindow* Window = nullptr;
    std::map<Canvas, QPointer<PictureBox>> Boxes;
    std::map<Canvas, SilentPicture> Unseen;
    std::map<Dialog, OpenDialog> Open;
    std::unique_ptr<QPrinter> ChosenPrinter;
    bool HasEnded = false;
};

}  // namespace tarnvik
