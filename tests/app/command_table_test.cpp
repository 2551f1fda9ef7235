#include <functional>
#include <set>

#include "app/commands.h"
#include "app/key_list.h"
#include "app/start.h"
#include "core/tv4_file.h"
#include "live_session.h"
#include "records/set_pick.h"
#include "support/shell_tools.h"

namespace tarnvik::test {

namespace {

/// The demo line with one pick changed, opened in the curves.
struct OpenLine : LiveWorld {
    OpenLine() {
        Program.Work.Settings.Units = "meters";
        EXPECT_TRUE(Open_File_Named(Program, Path));
        Set_Pick(Program.Work, {1, 1}, 30.25);
        Display.Forget();
        Display.Opened.clear();
        Prompts.Messages.clear();
    }
    bool Said(const std::string& part) const {
        for (const auto& shown : Prompts.Messages) {
            if (shown.Text.find(part) != std::string::npos) return true;
        }
        return false;
    }
    bool Started(const std::string& part) const {
        return !Launcher.Started.empty() && Launcher.Started.back().find(part) != std::string::npos;
    }
    bool Shows(Dialog dialog) const { return Display.Open.contains(dialog); }
    bool Mode_Is(DisplayMode mode) const { return Program.Work.Mode.Current() == mode; }
    /// The project file holds the changed pick.
    bool Filed() const { return Read_File(Path)->find(" 3025 ") != std::string::npos; }
    void Discard() { Prompts.Expect(Path + " has edits that are not saved.", Answer::No); }
};

/// What is answered before a command runs, and what must be true behind it.
struct Row {
    const char* Name;
    std::function<void(OpenLine&)> Before;
    std::function<bool(OpenLine&)> Check;
};

using W = OpenLine;
constexpr auto nothing = [](W&) {};

/// A section of the line with thicknesses below its shots.
void With_Section(W& w) {
    for (int shot = 1; shot <= w.Line.NbShots; ++shot) {
        for (int layer = 1; layer <= 3; ++layer) {
            w.Line.VelocityA(shot, layer) = w.Line.VelocityB(shot, layer) =
                static_cast<std::int16_t>(900 * layer);
        }
        w.Line.ShotThickness(shot, 1) = w.Line.ShotThickness(shot, 2) = 6;
    }
    Run_Command(w.Program, "Command13");
}

auto Starts(const char* tool) {
    return [tool](W& w) { return w.Started(tool); };
}
/// A file beside the project with these words in it, and nothing changed in the line.
auto Written(const char* name, const char* words) {
    return [name, words](W& w) {
        return Read_File(w.Folder / name).value_or("").find(words) != std::string::npos &&
               w.Program.Work.Edits.All().size() == 1;
    };
}
auto Opens(Dialog dialog) {
    return [dialog](W& w) { return w.Shows(dialog); };
}
auto Profile_In(DisplayMode mode) {
    return [mode](W& w) { return w.Mode_Is(mode) && w.Program.Work.Curves.FrameDrawn == 2; };
}

const std::vector<Row>& Rows() {
    const auto cancel_new = [](W& w) {
        w.Discard();
        w.Prompts.Expect("Did you already convert your field data to SU format", Answer::Cancel);
    };
    const auto still_there = [](W& w) { return w.Line.CurrentFile == w.Path && w.Line.NbShots == 5; };
    const auto choose_again = [](W& w) {
        w.Discard();
        w.Prompts.Expect_File("Tarnvik File selection", w.Path);
    };
    const auto read_again = [](W& w) {
        return w.Line.ShotTimes(1, 1) != 30.25F && w.Program.Work.Settings.RecentFiles[0] == w.Path;
    };
    const auto recent = [](int place) {
        return [place](W& w) {
            w.Discard();
            w.Program.Work.Settings.RecentFiles[static_cast<std::size_t>(place) - 1] = w.Path;
        };
    };
    const auto reread = [](W& w) { return w.Line.ShotTimes(1, 1) != 30.25F && w.Line.NbShots == 5; };
    const auto end = [](Answer first) {
        return [first](W& w) {
            w.Prompts.Expect("This will end your Tarnvik session", first);
            w.Prompts.Expect("Record " + w.Path, Answer::Yes);
            w.Prompts.Expect("Record a Back Up file of " + w.Path, Answer::No);
        };
    };
    const auto ended = [](W& w) {
        return w.Display.Ended == 1 && w.Filed() && File_Exists(w.Folder / "Tarnvik32.INI");
    };
    const auto spectrum = [](W& w) { return w.Program.Work.Record.SpectrumRequest == 1; };
    const auto language = [](std::int16_t Settings::*flag) {
        return [flag](W& w) { return w.Program.Work.Settings.*flag != 0; };
    };
    static const std::vector<Row> rows = {
        {"frequency", nothing, Starts("reverse.exe|")},
        {"herz", nothing, spectrum},
        {"help", nothing, [](W& w) { return w.Said("You must install tv16.pdf"); }},
        {"tv4", cancel_new, still_there},
        {"Double", nothing,
         [](W& w) { return w.Shows(Dialog::Travel_Time_2) && w.Program.Work.Curves.DoubleView == 1; }},
        {"edit", nothing,
         [](W& w) {
             return w.Started("editor|" + w.Folder / "demo1.rtf") && File_Exists(w.Folder / "demo1.rtf");
         }},
        {"tosu", nothing, Starts("conversion.EXE|356|")},
        {"open", choose_again, read_again},
        {"save", nothing, [](W& w) { return w.Filed() && w.Program.Work.Edits.Is_Saved(); }},
        {"dromo", [](W& w) { w.Display.Selected = Tab::Record; },
         [](W& w) { return w.Display.Selected == Tab::Curves && w.Display.Count("curves") == 1; }},
        {"prop", cancel_new, still_there},
        {"vitess1", nothing, [](W& w) { return w.Shows(Dialog::SpeedF) && w.Mode_Is(DisplayMode::Vitesse); }},
        {"velo2", nothing, [](W& w) { return w.Shows(Dialog::SpeedF3) && w.Mode_Is(DisplayMode::Vitesse2); }},
        {"vitess3", nothing,
         [](W& w) { return w.Shows(Dialog::SpeedF2) && w.Mode_Is(DisplayMode::Velocity); }},
        {"ruler", nothing, Opens(Dialog::vELINE)},
        {"fantom", nothing, [](W& w) { return w.Shows(Dialog::FantomF) && w.Mode_Is(DisplayMode::Fantom); }},
        {"erase", nothing, [](W& w) { return w.Shows(Dialog::Erase_TT) && w.Mode_Is(DisplayMode::Dromo); }},
        {"GRM",
         [](W& w) {
             w.Program.Work.Project.GrmData(1, 1) = 5;
             w.Prompts.Expect_Input(
                 "You must enter Total time (=Reciprocal time determined with Delay module) <0 for EXIT",
                 "70");
         },
         [](W& w) { return w.Shows(Dialog::GRM) && w.Program.Work.Project.TotalTime == 70; }},
        {"GRM_mnu", [](W& w) { w.Program.Work.Project.TotalTime = w.Program.Work.Project.GrmData(1, 1) = 5; },
         [](W& w) { return w.Shows(Dialog::GRM) && w.Mode_Is(DisplayMode::GrmV); }},
        {"sum", nothing, [](W& w) { return w.Shows(Dialog::Fcalcul) && w.Mode_Is(DisplayMode::Calcul); }},
        {"print", nothing, Starts("tvmprint.exe|412|")},
        {"quick", nothing,
         [](W& w) { return w.Shows(Dialog::quick_interpret) && w.Mode_Is(DisplayMode::Quick); }},
        {"ruler2", nothing, Opens(Dialog::RulerF)},
        {"drawing", nothing, Profile_In(DisplayMode::Profil)},
        {"find", nothing, Opens(Dialog::Zoom)},
        {"stop", end(Answer::Ok), ended},
        {"nozoom", [](W& w) { w.Program.Work.Curves.ZoomX = 4; },
         [](W& w) { return w.Program.Work.Curves.ZoomX == 1 && w.Display.Count("curves") == 1; }},

        {"NewDromoName", choose_again,
         [](W& w) { return w.Line.ShotTimes(1, 1) != 30.25F && w.Shows(Dialog::Fcalcul); }},
        {"T_Assembly", cancel_new, still_there},
        {"SaveName", nothing, [](W& w) { return w.Filed(); }},
        {"Save_As", [](W& w) { w.Prompts.Expect_File("Select a Tarnvik File ", w.Folder / "other.tv5"); },
         [](W& w) {
             return File_Exists(w.Folder / "other.tv5") && w.Line.ProjectName == "other" && !w.Filed();
         }},
        {"Deletename", [](W& w) { w.Prompts.Expect("Do you want to delete " + w.Path + " ?", Answer::Yes); },
         [](W& w) { return !File_Exists(w.Path); }},
        {"SEG22SU", nothing, Starts("SEG2su.exe|412|")},
        {"conver", nothing, Starts("conversion.EXE|356|")},
        {"backup",
         [](W& w) { w.Prompts.Expect("Would you make a backup copy of your TV5 files ?", Answer::Yes); },
         [](W& w) { return w.Program.Work.Settings.BackupEnabled == -1; }},
        {"NBak",
         [](W& w) {
             w.Discard();
             w.Display.Open.insert(Dialog::Fcalcul);
             w.Prompts.Expect_File("Tarnvik BAK TV5 selection", w.Folder / "demo1.bak");
         },
         [](W& w) { return w.Line.ShotTimes(1, 1) != 30.25F && !w.Shows(Dialog::Fcalcul); }},
        {"TV57", [](W& w) { w.Prompts.Expect_File("Old Tarnvik file", ""); },
         [](W& w) { return !w.Said("has been recorded"); }},
        {"PLOTREFA_CNV",
         [](W& w) {
             w.Prompts.Expect_File("Tarnvik File selection", w.Path);
             w.Prompts.Expect_Input("Enter the station spacing interval", "5");
             w.Prompts.Expect("Do you want to use offset shots", Answer::Yes);
             w.Prompts.Expect_Input("Enter the distance to add", "0");
         },
         Written("demo12.ASC", "2.500000 30.250000 1\r\n")},
        {"optim", [](W& w) { w.Prompts.Expect_File("Tarnvik File selection", ""); },
         [](W& w) { return w.Said("without offset shots !") && !File_Exists(w.Folder / "demo1_src"); }},
        {"Rayfract",
         [](W& w) {
             w.Prompts.Expect("Run RAYFRACT module ?", Answer::Yes);
             w.Prompts.Expect_File("Tarnvik File selection", w.Folder / "none.tv5");
         },
         [](W& w) { return w.Said("This file does not exist !"); }},
        {"Command22", nothing, [](W& w) { return w.Said("Not valid DAT file"); }},
        {"Unified_M", nothing, Written("demo1.sgt", "1 3 0.030250\r\n")},
        {"PicksCsv_M", nothing, Written("demo1_picks.csv", "1;1;-60;98.93;2.5;100.11;30.25\r\n")},
        {"Dxf_M", nothing, Written("demo1.dxf", "Shot 3\r\n")},
        {"ImportPicks_M",
         [](W& w) {
             w.Discard();
             w.Prompts.Expect_File("Select a file of picks", w.Path);
         },
         [](W& w) { return w.Said(w.Path + ": ") && w.Line.NbShots == 5; }},
        {"F1_F", recent(1), reread},
        {"F2_F", recent(2), reread},
        {"F3_F", recent(3), reread},
        {"F4_F", recent(4), reread},
        {"F5_F", recent(5), reread},
        {"Fin_Mnu", end(Answer::Yes), ended},
        {"Exit_M", [](W& w) { w.Prompts.Expect("Do you want really to exit Tarnvik 16.5", Answer::Yes); },
         [](W& w) { return w.Display.Ended == 1 && !w.Filed() && !File_Exists(w.Folder / "Tarnvik32.INI"); }},

        {"Undo_M", nothing,
         [](W& w) { return w.Line.ShotTimes(1, 1) != 30.25F && w.Program.Work.Edits.Can_Redo(); }},
        {"Redo_M", [](W& w) { w.Program.Work.Edits.Undo(w.Line); },
         [](W& w) { return w.Line.ShotTimes(1, 1) == 30.25F; }},
        {"History_M", nothing, Opens(Dialog::History)},

        {"VelCalcul", nothing, Opens(Dialog::SpeedF)},
        {"VelCalName", nothing, Opens(Dialog::SpeedF3)},
        {"Vel2name", nothing, Opens(Dialog::SpeedF2)},
        {"v_r", [](W& w) { Run_Command(w.Program, "ruler"); },
         [](W& w) { return !w.Shows(Dialog::vELINE) && !w.Program.Work.Curves.RulerShown; }},
        {"dipc", nothing, Opens(Dialog::dip)},
        {"QuickInterpretation", nothing, Opens(Dialog::quick_interpret)},
        {"IT_Compute", nothing, Opens(Dialog::Fcalcul)},
        {"PhantomName", nothing, Opens(Dialog::FantomF)},
        {"smallcap", nothing, [](W& w) { return w.Shows(Dialog::DelayF) && w.Mode_Is(DisplayMode::Delay); }},
        {"DTDetName", nothing, Opens(Dialog::DelayF)},
        {"DepthName", nothing,
         [](W& w) {
             if (!w.Said("You must first determine intercept Times") || w.Shows(Dialog::ABCGridF))
                 return false;
             w.Line.InterceptB(2, 1) = 20;
             Run_Command(w.Program, "DepthName");
             return w.Shows(Dialog::ABCGridF);
         }},
        {"NEditABC", nothing,
         [](W& w) { return w.Shows(Dialog::ABCGridF) && w.Program.Abc.AbcOption == ABCGridF::grid_values; }},
        {"MnuDisplayelay", [](W& w) { w.Line.ReceiverData(ReceiverIntercept, 4) = 12; },
         [](W& w) {
             const bool drawn = w.Display.Pictures[Canvas::Dromo].Printed("12") != nullptr;
             Run_Command(w.Program, "TT_Mnu");
             const bool gone = w.Display.Pictures[Canvas::Dromo].Printed("12") == nullptr;
             Run_Command(w.Program, "MnuDisplayelay");
             return drawn && gone;
         }},
        {"TT_IT_MN", nothing,
         [](W& w) {
             if (!w.Said("No delay available !!!")) return false;
             w.Line.ReceiverData(ReceiverIntercept, 4) = 12;
             Run_Command(w.Program, "TT_IT_MN");
             return w.Display.Pictures[Canvas::Dromo].Printed("12") != nullptr;
         }},
        {"DT", [](W& w) { w.Line.ReceiverData(ReceiverIntercept, 4) = 12; },
         [](W& w) { return File_Exists(w.Folder / "demo1_Delay.txt"); }},
        {"theoric", nothing,
         [](W& w) { return w.Shows(Dialog::Theoric_F) && w.Mode_Is(DisplayMode::Dromo); }},

        {"TT_Mnu", nothing, [](W& w) { return w.Display.Count("curves") == 1; }},
        {"S2", nothing, Profile_In(DisplayMode::Profil)},
        {"S3", nothing, Profile_In(DisplayMode::Profil2)},
        {"S4", nothing, Profile_In(DisplayMode::Profil4)},
        {"S5", nothing, Profile_In(DisplayMode::Profil3)},
        // The demo line has no depths yet.
        {"Command13",
         [](W& w) { w.Prompts.Expect("You must first compute depth below all shot, Quit ?", Answer::No); },
         [](W& w) { return !w.Program.Work.Section.Grid; }},
        {"Print_Comput", nothing, Opens(Dialog::resu)},
        {"MnuDepthFile", nothing, [](W& w) { return File_Exists(w.Folder / "demo1.TVX"); }},
        {"abc", nothing, [](W& w) { return w.Said("First compute delays"); }},
        {"Zfile", nothing, [](W& w) { return w.Said("First compute delays"); }},
        {"Z_shot", nothing, [](W& w) { return File_Exists(w.Folder / "demo1.sht"); }},
        {"ASCII", nothing,
         [](W& w) { return w.Said("No delay available !!!") && File_Exists(w.Folder / "demo1.sht"); }},
        {"BI_M", nothing, Profile_In(DisplayMode::Both)},
        {"Superpose",
         [](W& w) {
             w.Prompts.Expect_File("Tarnvik File selection", w.Path);
             w.Display.Pictures[Canvas::Dromo].List.clear();
         },
         [](W& w) {
             return !w.Display.Pictures[Canvas::Dromo].List.empty() && w.Line.ShotTimes(1, 1) == 30.25F;
         }},
        {"Zerop", nothing,
         [](W& w) { return w.Program.Work.Curves.ZeroOnTop && w.Display.Count("curves") == 1; }},
        {"MultiScreen", nothing, [](W& w) { return w.Program.Work.Settings.MultiScreen; }},

        {"winprint", nothing, Starts("tvmprint.exe|412|")},
        {"PrintPicture_M", nothing, [](W& w) { return !w.Said("cannot be printed"); }},
        {"Export_M", nothing, [](W& w) { return w.Shows(Dialog::PictureExport); }},
        {"CopyPicture_M", nothing, [](W& w) { return w.Display.Copied == std::vector{Page::Curves}; }},
        {"SectionWmf_M",
         [](W& w) {
             With_Section(w);
             w.Prompts.Expect_File("Select a Windows Meta File name", w.Folder / "a");
         },
         [](W& w) { return w.Display.SavedPages == std::vector{w.Folder / "a.wmf"}; }},
        {"SectionJpg_M",
         [](W& w) {
             With_Section(w);
             w.Prompts.Expect_File("Select a JPG name", w.Folder / "a.JPG");
         },
         [](W& w) { return w.Display.SavedPages == std::vector{w.Folder / "a.JPG"}; }},
        {"SectionClipboard_M", With_Section,
         [](W& w) { return w.Said("You can now paste the map in your app!"); }},
        {"Print_rec", nothing, Starts("suprint2.exe|412|")},
        {"psetup", nothing, [](W& w) { return w.Display.PrinterChosen == 1; }},

        {"headerx", nothing, Opens(Dialog::Header)},
        {"Fldrec", nothing, Opens(Dialog::Update_FLDR)},
        {"Rezize_M", nothing, Opens(Dialog::rezize)},
        {"Resize", [](W& w) { Give_Tools(w.Launcher); },
         [](W& w) {
             return w.Said("demo1_RS.SU has been recorded ") && File_Exists(w.Folder / "demo1_RS.SU");
         }},
        {"extrax",
         [](W& w) {
             Give_Tools(w.Launcher);
             w.Prompts.Expect_Input("Enter the first trace to keep (0=exit)", "1");
             w.Prompts.Expect_Input("Enter the Last trace to keep (0=exit)", "12");
         },
         [](W& w) { return w.Said("Trace extraction OK !") && File_Exists(w.Folder / "demo1_Xtract.su"); }},
        {"Stack_M",
         [](W& w) {
             Give_Tools(w.Launcher);
             w.Prompts.Expect_Start("Use this module to add (stack) some ADJACENT shots", Answer::Ok);
             w.Prompts.Expect_Input(" First shot to stack ", "2");
             w.Prompts.Expect_Input(" Last shot to stack ", "1");
             w.Prompts.Expect("Stack shots1 to 2", Answer::Yes);
             w.Prompts.Expect("Keep temporary SU files ", Answer::No);
         },
         [](W& w) { return w.Said("OK, Stack shots1 to 2 in ") && w.Line.NbShots == 4; }},
        {"Edit_Mnu", nothing, [](W& w) { return w.Started("editor|" + w.Path); }},
        {"Font_Mnu", [](W& w) { w.Prompts.Expect_File("font", "Courier"); },
         [](W& w) { return w.Program.Work.Settings.FontName == "Courier"; }},
        {"shiftFBP",
         [](W& w) {
             w.Prompts.Expect_Input(
                 "Type 1 to scale all FBP time of a travel time, 2 to add/substract a value to all FBP, 0= "
                 "Exit",
                 "2");
             w.Prompts.Expect_File("Tarnvik File selection", w.Path);
             w.Prompts.Expect_Input(" Enter the time (ms) to add or substract (negative value) to all FBP",
                                    "1");
         },
         [](W& w) { return w.Line.ShotTimes(1, 1) == 31.25F && w.Program.Work.Edits.All().size() == 2; }},
        {"FS", nothing, spectrum},
        {"filtr", nothing, Starts("reverse.exe|")},
        {"Rev_Trace", nothing, Starts("reverse.exe||")},
        {"addcsv", nothing, Starts("add_csv.exe|")},
        {"dp", nothing, Starts("TVProfile.exe|")},
        {"MF", nothing, Starts("merge_file.exe|")},
        {"Copy_M", [](W& w) { w.Prompts.Expect_Input("File name without extension", w.Folder / "screen"); },
         [](W& w) { return w.Display.SavedPages == std::vector{w.Folder / "screen.bmp"}; }},
        {"Clear_M", nothing, [](W& w) { return w.Program.Work.Curves.FrameDrawn == 0; }},
        {"Register_M", nothing, [](W& w) { return w.Launcher.Registered == 1; }},

        {"ZZ", nothing, Opens(Dialog::Zoom)},
        {"Intercept_M", nothing,
         [](W& w) { return w.Program.Work.Curves.ShowReceiverIntercepts && w.Display.Count("curves") == 1; }},
        {"LeadIn_M", nothing,
         [](W& w) { return w.Program.Work.Curves.LeadInStrokes && w.Display.Count("curves") == 1; }},
        {"Vel_line_Col_Mnu", [](W& w) { w.Prompts.Expect_File("colour", "77"); },
         [](W& w) { return w.Program.Work.Settings.VelocityLineColor == 77; }},
        {"Large_Mnu", nothing, [](W& w) { return w.Program.Work.Settings.VelocityLineWidth == 2; }},
        {"Thin_Mnu", [](W& w) { w.Program.Work.Settings.VelocityLineWidth = 2; },
         [](W& w) { return w.Program.Work.Settings.VelocityLineWidth == 1; }},
        {"DistinctColours_M", nothing, [](W& w) { return w.Program.Work.Curves.DistinctColours; }},
        {"color_1", [](W& w) { w.Program.Work.Settings.ColorChoice = true; },
         [](W& w) { return !w.Program.Work.Settings.ColorChoice && w.Display.Count("curves") == 1; }},
        {"color_2", nothing,
         [](W& w) { return w.Program.Work.Settings.ColorChoice && w.Display.Count("curves") == 1; }},
        {"Meters_M", [](W& w) { w.Program.Work.Settings.Units = "feet"; },
         [](W& w) { return w.Program.Work.Settings.Metric(); }},
        {"Feet_M", nothing, [](W& w) { return !w.Program.Work.Settings.Metric(); }},

        {"English_M", nothing, language(&Settings::LangEnglish)},
        {"French_M", nothing, language(&Settings::LangFrench)},
        {"Spanish_M", nothing, language(&Settings::LangSpanish)},
        {"German_M", nothing, language(&Settings::LangGerman)},
        {"Italian_M", nothing, language(&Settings::LangItalian)},

        {"Help_M", nothing, [](W& w) { return w.Said("You must install tv16.pdf"); }},
        {"Keys_M", nothing, Opens(Dialog::Keys)},
        {"Mnu_Info", nothing, [](W& w) { return w.Said("You must install tv16.pdf"); }},
        {"Dark_M", nothing, [](W& w) { return w.Program.Work.Fields.DarkWindows; }},
        {"SideBySide_M", nothing, [](W& w) { return w.Program.Work.Fields.SideBySide; }},
        {"WSH", nothing, [](W& w) { return w.Said("You must install Tarnvik_History.pdf"); }},
        {"video", [](W& w) { w.Prompts.Expect_File("Tarnvik Video selection", w.Folder / "a.avi"); },
         Starts("a.avi")},
        {"REDPATH", nothing, [](W& w) { return w.Said("redpath.pdf"); }},
        {"pps", nothing, [](W& w) { return w.Said("You must install a POWER POINT viewer"); }},
        {"Version_N", nothing, Opens(Dialog::frmSplash)},
        {"TShift", [](W& w) { w.Prompts.Expect_Input("Time shift in ms for picking FBP Minus=Up", "7"); },
         [](W& w) { return w.Program.Work.Record.PickTimeShift == 7; }},
    };
    return rows;
}

}  // namespace

TEST(CommandTable, each_entry_does_what_it_says_on_the_demo_line) {
    std::set<std::string_view> tested;
    for (const Row& row : Rows()) {
        SCOPED_TRACE(row.Name);
        const Command* command = Find_Command(row.Name);
        ASSERT_NE(command, nullptr);
        EXPECT_TRUE(tested.insert(row.Name).second);
        OpenLine world;
        row.Before(world);
        EXPECT_EQ(Refusal_Of(*command, world.Program), "");
        const bool marked = command->Checked != nullptr && command->Checked(world.Program);
        Run_Command(world.Program, row.Name);
        EXPECT_TRUE(row.Check(world));
        if (command->Checked != nullptr) {
            EXPECT_TRUE(command->Checked(world.Program) || marked);
        }
    }
    for (const Command& command : Command_Table()) {
        EXPECT_EQ(tested.contains(command.Name), command.Available()) << command.Name;
    }
}

TEST(CommandTable, an_entry_that_needs_a_project_is_refused_without_one_and_says_why) {
    LiveWorld world;
    Form_Load(world.Program, "");
    for (const char* name :
         {"save", "SaveName", "sum", "IT_Compute", "vitess1", "VelCalcul", "drawing", "S2", "S5", "BI_M",
          "Superpose", "find", "ZZ", "nozoom", "fantom", "PhantomName", "theoric"}) {
        EXPECT_EQ(Refusal_Of(*Find_Command(name), world.Program), "There is no project in memory") << name;
    }
    for (const char* name : {"herz", "FS"})
        EXPECT_EQ(Refusal_Of(*Find_Command(name), world.Program), "No field records are loaded") << name;
    for (const char* name : {"Export_M", "Copy_M"})
        EXPECT_EQ(Refusal_Of(*Find_Command(name), world.Program), "Nothing is drawn yet") << name;
    EXPECT_EQ(Refusal_Of(*Find_Command("Undo_M"), world.Program), "There is nothing to take back");
    world.Display.Opened.clear();
    Run_Command(world.Program, "sum");
    EXPECT_TRUE(world.Display.Opened.empty());
    EXPECT_EQ(world.Program.Work.Fields.Status, "There is no project in memory");
}

TEST(CommandTable, names_and_shortcuts_are_given_once_and_each_entry_has_words) {
    std::set<std::string_view> names;
    std::set<std::string_view> shortcuts;
    for (const Command& command : Command_Table()) {
        if (command.Caption == "-") continue;
        EXPECT_TRUE(names.insert(command.Name).second) << command.Name;
        if (!command.Shortcut.empty()) {
            EXPECT_TRUE(shortcuts.insert(command.Shortcut).second) << command.Shortcut;
        }
        EXPECT_FALSE(command.Caption.empty() && command.Tooltip.empty() && command.Text == nullptr)
            << command.Name;
    }
    // The pages' keys act beside those of the window, each while its page is in sight.
    for (const auto& page :
         {Record_Page_Commands(), Picking_Commands(), Tables_Page_Commands(), Curves_Page_Commands()}) {
        std::set<std::string_view> of_page = shortcuts;
        for (const Command& command : page) {
            if (!command.Shortcut.empty()) {
                EXPECT_TRUE(of_page.insert(command.Shortcut).second) << command.Shortcut;
            }
        }
    }
    EXPECT_EQ(Shortcut_Of(*Find_Command("open")), "");
    EXPECT_EQ(Shortcut_Of(*Find_Command("save")), "Ctrl+S") << "as the entry of the menu";
    const std::vector<KeyRow> keys = Key_List();
    for (const char* key : {"Ctrl+S", "PgDown", "Ctrl+Z", "Ctrl + wheel", "Space", "L", "Ctrl+C, Ctrl+V"}) {
        EXPECT_TRUE(std::any_of(keys.begin(), keys.end(), [key](const KeyRow& row) {
            return row.Keys == key;
        })) << key;
    }
}

}  // namespace tarnvik::test
