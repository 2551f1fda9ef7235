#pragma once

#include <string>
#include <vector>

#include "app/session_display.h"
#include "core/ports/silent_picture.h"

namespace tarnvik {

/// The display of a run without a screen: drawings go nowhere, dialogs do not open, pictures are written to
/// files.
class HeadlessDisplay : public SessionDisplay {
  public:
    Picture& Canvas_Of(Canvas) override { return Nowhere; }
    void Show_Marks(Canvas, MarkLayer, std::vector<Mark>) override {}
    void Select_Tab(Tab) override {}
    void Open_Dialog(Dialog, bool) override {}
    void Close_Dialog(Dialog) override {}
    void Bring_To_Front(Dialog) override {}
    bool Is_Open(Dialog) const override { return false; }
    bool Print_Page(Page) override { return false; }
    std::string Save_Page(Page page, const std::string& path, const PictureFormat& format) override;
    void Choose_Printer() override {}
    void End_Program() override {}

    /// Of the picture files of this run.
    PictureFormat Format{.Width = 1600, .Height = 900};

  private:
    SilentPicture Nowhere;
};

}  // namespace tarnvik
