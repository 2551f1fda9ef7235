// The dialog that saves a picture: sizes, units, what is remembered, and how often the user is asked.

#include "app/picture_export.h"

#include "app/commands.h"
#include "app/pages.h"
#include "app/start.h"
#include "live_session.h"

namespace tarnvik::test {
namespace {

class PictureExportDialog : public LiveSession {
  protected:
    PictureExportDialog() {
        Program.Work.Settings.RecentFiles[0] = Path;
        Run_Command(Program, "F1_F");
    }
    PictureExport& Dialogue = Program.SavePicture;
    void Choose(int size) {
        Dialogue.Size = size;
        Dialogue.Size_Chosen();
    }
};

TEST_F(PictureExportDialog, takes_sizes_in_pixels_and_millimetres) {
    Run_Command(Program, "Export_M");
    EXPECT_TRUE(Display.Is_Open(Dialog::PictureExport));
    EXPECT_EQ(Dialogue.Chosen(), Page::Curves);
    EXPECT_EQ(Dialogue.Outcome, "1200 x 750 pixels, 317.5 x 198.4 mm on paper");
    Choose(2);
    EXPECT_EQ(Dialogue.Outcome, "3508 x 2480 pixels, 297 x 210 mm on paper");
    Dialogue.Millimetres = false;
    Dialogue.Unit_Changed();
    EXPECT_EQ(Dialogue.Width + " " + Dialogue.Height, "3508 2480");
    EXPECT_EQ(Dialogue.Size, static_cast<int>(PictureExport::sizes.size()) - 1) << "the user's own";
    Dialogue.Millimetres = true;
    Dialogue.Unit_Changed();
    EXPECT_EQ(Dialogue.Width + " " + Dialogue.Height, "297 210");
    EXPECT_EQ(Dialogue.Size, 2);
    const struct {
        const char* Width;
        const char* Dpi;
        bool Good;
    } cases[] = {{"297", "29", false}, {"297", "1201", false}, {"1.5", "300", false}, {"2000", "300", false},
                 {"", "300", false},   {"abc", "300", false},  {"30", "300", true}};
    for (const auto& c : cases) {
        Dialogue.Width = c.Width;
        Dialogue.Dpi = c.Dpi;
        Dialogue.Typed();
        EXPECT_EQ(Dialogue.Refusal().empty(), c.Good) << c.Width << " " << c.Dpi;
        if (c.Good) continue;
        EXPECT_EQ(Dialogue.Outcome, Dialogue.Refusal());
        Dialogue.Save();
        EXPECT_TRUE(Prompts.Said(Dialogue.Outcome));
    }
    EXPECT_TRUE(Display.SavedPages.empty());
}

TEST_F(PictureExportDialog, remembers_its_choices_beside_the_settings) {
    Run_Command(Program, "Export_M");
    Choose(4);
    Dialogue.Dpi = "150";
    Dialogue.Typed();
    Dialogue.TitleBlock = true;
    Prompts.Expect_File("Save picture", Folder / "a.PDF");
    Dialogue.Save();
    EXPECT_FALSE(Display.Is_Open(Dialog::PictureExport));
    EXPECT_EQ(Prompts.FileRequests.back().DefaultName, "demo1.png");
    EXPECT_EQ(Display.LastFormat.Width, 2480);
    EXPECT_EQ(Display.LastFormat.Height, 1754);
    EXPECT_EQ(Display.LastFormat.Dpi, 150);
    EXPECT_TRUE(Display.LastFormat.TitleBlock);
    EXPECT_TRUE(Program.Work.Edits.All().empty()) << "nothing of it is the project's";

    Session next({Prompts, Display, Launcher}, Folder / "Tarnvik32.INI");
    next.SavePicture.Open();
    EXPECT_EQ(next.SavePicture.Size, 4);
    EXPECT_EQ(next.SavePicture.Dpi, "150");
    EXPECT_TRUE(next.SavePicture.Millimetres && next.SavePicture.TitleBlock);
    EXPECT_EQ(next.SavePicture.Refusal(), "This picture is not drawn yet");

    // A name without an ending gets the one of the last time. The file dialog has asked about the name that
    // it gave; about the other one the program asks.
    Run_Command(Program, "Export_M");
    ASSERT_EQ(Replace_File(Folder / "picture.pdf", "old"), "");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        Prompts.Expect_File("Save picture", Folder / "picture");
        Prompts.Expect((Folder / "picture.pdf") + " already exists, overwrite ?", answer);
        Dialogue.Save();
        EXPECT_EQ(Display.SavedPages.size(), answer == Answer::No ? 1U : 2U);
    }
    EXPECT_EQ(Prompts.FileRequests.back().DefaultName, "demo1.pdf");
    Run_Command(Program, "Export_M");
    Prompts.Expect_File("Save picture", Folder / "picture.pdf");
    Dialogue.Save();
    EXPECT_EQ(Display.SavedPages.back(), Folder / "picture.pdf") << "asked by the file dialog alone";
    Prompts.Expect_File("Save picture", "");
    Dialogue.Save();
    EXPECT_EQ(Display.SavedPages.size(), 3U);
    // A copy is as large as the last file.
    Session later({Prompts, Display, Launcher}, Folder / "Tarnvik32.INI");
    Run_Command(later, "SectionClipboard_M");
    EXPECT_TRUE(Display.Copied.empty()) << "refused without a section";
    EXPECT_EQ(later.SavePicture.Usual_Format().Width, 2480);
    later.SavePicture.Dpi = "0";
    EXPECT_EQ(later.SavePicture.Usual_Format().Dpi, 150);
}

TEST_F(PictureExportDialog, tells_the_scale_of_each_page) {
    Project& line = Program.Work.Project;
    line.GeoSpace = 4;
    Program.Work.Record.SampleInterval = 500;
    const Frame record{2000, 0, 26000, 1000, 1200, 800};  // 12 traces, 1000 samples
    // 12 traces of 4 m on 1200 pixels at 4 a millimetre: 40 pixels a centimetre are 1.6 m; 500 ms on 800: 25.
    EXPECT_EQ(Page_Scale(Program, Page::Record, record, 4), "1 cm = 1.60 m horizontally, 25.0 ms vertically");
    Program.Work.Settings.Units = "feet";
    Program.Work.Curves.TimeFactor = 2;
    const double a_foot = (Position_Ecran(line, 24) - Position_Ecran(line, 1)) /
                          (line.ReceiverData(ReceiverDistance, 24) - line.ReceiverData(ReceiverDistance, 1));
    const Frame curves{0, 100, 20 * a_foot, 0, 100, 400};  // 20 feet, 200 ms
    EXPECT_EQ(Page_Scale(Program, Page::Curves, curves, 1),
              "1 cm = 2.00 ft horizontally, 5.00 ms vertically");
    const auto title = Page_Title(Program, Page::Record, record, 4);
    ASSERT_EQ(title.size(), 3U);
    EXPECT_EQ(title[0], "Line demo1, record 1");
    EXPECT_EQ(title[2].size(), 10U);
}

}  // namespace
}  // namespace tarnvik::test
