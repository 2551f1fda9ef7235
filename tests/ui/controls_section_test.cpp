// Each control of the coloured section's tab, and the hand on its picture.

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "control_table.h"
#include "core/text/number.h"
#include "output/section_print.h"
#include "output/section_window.h"
#include "support/metafile_reader.h"

namespace tarnvik {
namespace {

class SectionControls : public Controls {
  protected:
    SectionControls() {
        for (int shot = 2; shot <= 4; ++shot) {
            for (int layer = 1; layer <= 3; ++layer)
                Line.VelocityA(shot, layer) = Line.VelocityB(shot, layer) =
                    static_cast<std::int16_t>(900 * layer);
            for (int layer = 1; layer <= 2; ++layer) {
                Line.InterceptA(shot, layer) = Line.InterceptB(shot, layer) = 18 * layer;
                Line.ShotThickness(shot, layer) = 6;
            }
        }
    }
    QWidget* Page() { return Page_Of(Tab::Section); }
    bool Stands() { return Work.Section.Grid && !Blank(Box("Section")); }
    /// A choice of the list that the picture follows.
    std::function<void(QWidget*)> Chosen(int entry, std::function<bool()> done) {
        return [this, entry, done](QWidget* control) {
            EXPECT_FALSE(done());
            auto* list = qobject_cast<QComboBox*>(control);
            list->setCurrentIndex(entry);
            emit list->activated(entry);
            EXPECT_TRUE(done());
        };
    }
    /// Words and Return, into a field or a list that can be typed over; the picture follows.
    std::function<void(QWidget*)> Entered(const char* words, std::function<bool()> done) {
        return [this, words, done](QWidget* control) {
            auto* list = qobject_cast<QComboBox*>(control);
            QWidget* field = list != nullptr ? list->lineEdit() : control;
            Type(field, words);
            QTest::keyClick(field, Qt::Key_Return);
            EXPECT_TRUE(done());
        };
    }
};

TEST_F(SectionControls, of_the_section_do_their_work) {
    SectionView& view = Work.Section;
    ReportChoices& choices = Program.Report.View.Choices;
    const auto told = [this](const std::string& part) {
        return [this, part] {
            return Prompts.Said(Prompts.Last_Text()) && Prompts.Last_Text().find(part) != std::string::npos;
        };
    };
    const auto quiet = [] {};
    const std::vector<Row> rows = {
        {"Command13", Clicked({quiet, [&] { return Stands(); }})},
        {"Combo3", Chosen(1, [&] { return view.Source == SectionSource::Abc; })},
        {"Combo4", Chosen(0, [&] { return view.Line == SectionLine::Bezier; })},
        {"Combo5", Chosen(2, [&] { return view.Grid && view.Grid->GridColumns == 360; })},
        {"SmoothingFactor", Finished(view.SmoothingFactor, 1, 3, Redraws("Section"))},
        {"SectionHighest",
         [&](QWidget* control) {
             Type(control, "120");
             EXPECT_EQ(Work.Profile.GivenMaxElevation, 120);
         }},
        {"SectionLowest",
         [&](QWidget* control) {
             Type(control, "60");
             EXPECT_EQ(Work.Profile.GivenMinElevation, 60);
         }},
        {"Check12", Ticked(view.Smoothing, Redraws("Section"))},
        {"slope", Ticked(view.SlopeCorrection, Redraws("Section"))},
        {"Check13", Ticked(view.ShowShots, Redraws("Section"))},
        {"Check14", Ticked(view.ShowGeophones, Redraws("Section"))},
        {"Check15", Ticked(view.ShowScale, Redraws("Section"))},
        {"Text28", Finished(view.MaxVelocity, 5000.0, 3000.0, Redraws("Section"))},
        {"Text31", Finished(view.LabelScale, 1.0, 2.0, Redraws("Section"))},
        {"SectionColours", Chosen(2, [&] { return view.Colours == SectionColours::ColourBlind; })},
        {"Text19",
         [&](QWidget* control) {
             EXPECT_EQ(Replace_File(Folder / "bad.lvl", "LVL2\r\nwords\r\n"), "");
             Type(control, QString::fromStdString(Folder / "bad.lvl"));
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_EQ(Program.Section.ScaleNote,
                       "Not usable: no velocity in line 2; the even scale is used");
         }},
        {"Command14",
         [&](QWidget* control) {
             EXPECT_EQ(Replace_File(Folder / "two.lvl", "LVL2\n0 0 \"Black\" \"Solid\" 0 \"Red\"\n"), "");
             Prompts.Expect_File("Select a LVL color scale", Folder / "two.lvl");
             Click(control);
             EXPECT_EQ(Program.Section.Scale().Of(700), colours::Red);
         }},
        {"Command8", Clicked({quiet, told("press R for normal display")})},
        {"Text34", Clicked({quiet, told("BOREHOLE N")})},
        // The other side of the switch, and back.
        {"ShowReport", Clicked({quiet,
                                [&] {
                                    return Program.Report.Shown() && !Box("SectionX")->isVisible() &&
                                           !Blank(Box("Section"));
                                }})},
        {"ReportSource", Chosen(1, [&] { return choices.Source == SectionSource::Abc; })},
        {"ReportNote", [&](QWidget*) { EXPECT_EQ(Program.Report.Note, "No depths by this method yet"); }},
        {"ReportAlsoShots", Ticked(choices.Also[0], Redraws("Section"))},
        {"ReportAlsoAbc", Ticked(choices.Also[1])},
        {"ReportAlsoGrm", Ticked(choices.Also[2])},
        {"ReportShape", Chosen(0, [&] { return choices.Shape == InterfaceShape::Joined; })},
        {"ReportFill", Chosen(2, [&] { return choices.Fill == ReportFill::Hatching; })},
        {"ReportShots", Ticked(choices.Shots, Redraws("Section"))},
        {"ReportGeophones", Ticked(choices.Geophones, Redraws("Section"))},
        {"ReportVelocities", Ticked(choices.Velocities)},
        {"ReportErrors", Ticked(choices.Errors)},
        {"ReportScale", Entered("1:750", [&] { return choices.Scale == 750; })},
        {"ReportExaggeration", Entered("1.5", [&] { return choices.Exaggeration == 1.5; })},
        {"ReportLine", Entered("L 7", [&] { return choices.Line == "L 7"; })},
        {"ReportCompany", Entered("Sons", [&] { return choices.Company == "Sons"; })},
        {"ReportDate", Entered("May", [&] { return choices.Date == "May"; })},
        {"ReportNorth", Entered("N 35 E", [&] { return choices.North == "N 35 E"; })},
        {"ShowColoured",
         Clicked({quiet, [&] { return !Program.Report.Shown() && Box("SectionX")->isVisible(); }})},
    };
    Check_All([this] { return Page(); }, rows);
}

TEST_F(SectionControls, ctrl_and_r_frame_and_show_all) {
    Page();
    Run_Command(Program, "Command13");
    PictureBox* box = Box("Section");
    box->setFocus();
    const auto place = [box](double x, double y) {
        const Frame frame = box->Canvas().Current_Frame();
        return (box->Canvas().Window().topLeft() + QPointF(frame.To_Pixel_X(x), frame.To_Pixel_Y(y)))
            .toPoint();
    };
    QTest::mousePress(box, Qt::LeftButton, Qt::ControlModifier, place(20, 98));
    QTest::mouseMove(box, place(60, 92));
    QTest::mouseRelease(box, Qt::LeftButton, Qt::ControlModifier, place(60, 92));
    ASSERT_TRUE(Work.Section.Enlarged);
    EXPECT_NEAR(Work.Section.Enlarged->Left, 20, 1);
    EXPECT_NEAR(Work.Section.Enlarged->Right, 60, 1);
    EXPECT_NE(Work.Fields.Text1, "") << "the read-out";
    QTest::keyClick(box, Qt::Key_Right);
    EXPECT_NEAR(Work.Section.Enlarged->Left, 24, 2);
    QTest::keyClick(box, Qt::Key_R);
    EXPECT_FALSE(Work.Section.Enlarged);
    // The tab stays what it is while the curves stand beside the tabs.
    Run_Command(Program, "SideBySide_M");
    EXPECT_EQ(Display.Tab_In_Sight(), Tab::Section);
    Run_Command(Program, "SideBySide_M");
    Display.Select_Tab(Tab::Curves);
    EXPECT_EQ(Display.Tab_In_Sight(), Tab::Curves);
}

TEST_F(SectionControls, the_section_goes_to_files_and_to_the_clipboard_by_its_own_commands) {
    for (const char* name : {"SectionWmf_M", "SectionJpg_M", "SectionClipboard_M"})
        EXPECT_EQ(Refusal_Of(*Find_Command(name), Program), "No section is made yet") << name;
    Page();
    Run_Command(Program, "Command13");
    ASSERT_TRUE(Stands());
    const auto told = [this](const std::string& path) {
        const auto bytes = Read_File(path).value_or("").size();
        EXPECT_EQ(Prompts.Last_Text(),
                  CStr(Rounded(static_cast<double>(bytes) / 1024)) + " KB has been recorded");
    };
    const std::string name = Name_Of(Line.CurrentFile);
    const std::string wmf = Folder / "section.wmf";
    Prompts.Expect_File("Select a Windows Meta File name", Folder / "section");
    Run_Command(Program, "SectionWmf_M");
    EXPECT_EQ(Prompts.FileRequests.back().DefaultName, name.substr(0, name.size() - 4) + "._p.wmf");
    told(wmf);
    const test::PlayedMetafile file = test::Play_Metafile(Read_File(wmf).value_or(""));
    EXPECT_EQ(file.Fault, "");
    EXPECT_EQ(file.Texts("Velocity meters/s").size(), 1U);
    // Asked about the name that the dialog did not know; a refusal keeps what stood there.
    Prompts.Expect_File("Select a Windows Meta File name", Folder / "section");
    Prompts.Expect(wmf + " already exists, overwrite ?", Answer::No);
    ASSERT_EQ(Replace_File(wmf, "old"), "");
    Run_Command(Program, "SectionWmf_M");
    EXPECT_EQ(Read_File(wmf).value_or(""), "old");
    Prompts.Expect_File("Select a JPG name", Folder / "section.jpg");
    Run_Command(Program, "SectionJpg_M");
    told(Folder / "section.jpg");
    EXPECT_EQ(QImage(QString::fromStdString(Folder / "section.jpg")).size(), QSize(1200, 750));
    Prompts.Expect_File("Select a JPG name", Folder / "none/section.jpg");
    Run_Command(Program, "SectionJpg_M");
    EXPECT_NE(Prompts.Last_Text().find("none/section.jpg cannot be written: "), std::string::npos);
    const std::pair<SectionSource, const char*> names[] = {{SectionSource::Shots, "/l/a._p.jpg"},
                                                           {SectionSource::Abc, "/l/a_abc.jpg"},
                                                           {SectionSource::Grm, "/l/a_grm.jpg"}};
    for (const auto& [source, jpg] : names)
        EXPECT_EQ(Section_Picture_File("/l/a.TV5", source, SectionOutput::Jpg), jpg);

    Run_Command(Program, "SectionClipboard_M");
    EXPECT_EQ(Prompts.Last_Text(), "You can now paste the map in your app!");
    const auto copied = [](const char* kind) {
        return QGuiApplication::clipboard()->mimeData()->data(kind).toStdString();
    };
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(1200, 750));
    EXPECT_EQ(test::Play_Metafile(copied("image/x-wmf")).Texts("Velocity meters/s").size(), 1U);
    Display.Select_Tab(Tab::Curves);
    Run_Command(Program, "CopyPicture_M");
    EXPECT_EQ(Work.Fields.Status, "The picture is on the clipboard");
    EXPECT_TRUE(test::Play_Metafile(copied("image/x-wmf")).Texts("Velocity meters/s").empty());
    EXPECT_NE(copied("image/svg+xml").find("<svg"), std::string::npos);
}

}  // namespace
}  // namespace tarnvik
