// Pictures of the manual: the tabs and dialogs of the program on the demo lines, as PNG, and the list of keys
// as a page of Markdown. `make_manual_pictures WORK PICTURES`: WORK holds the lines, prepared, and takes
// settings; PICTURES gets the files. Any dialog that cannot be shown ends it with a message.

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QTimer>
#include <iostream>

#include "app/commands.h"
#include "app/dialog_commands.h"
#include "app/dialog_rows.h"
#include "app/key_list.h"
#include "core/files.h"
#include "picture_stage.h"

namespace tarnvik {

namespace {

/// Pictures of two builds are the same.
constexpr const char* day = "2026-12-01";

/// Longest time that all the pictures may take; a dialog that waits for an answer would never end.
constexpr int longest_ms = 240'000;

void Without_Line(const QString& pictures) {
    PictureStage stage(pictures, "");
    stage.Take_Modal("start", "Version_N", Dialog::frmSplash);
    StagePrompts& answers = stage.Answers();
    answers.AnswerYes = true;
    answers.FileToOpen = QDir::current().absoluteFilePath("line/demo1.su").toStdString();
    stage.Take_Modal("new_profile", "T_Assembly", Dialog::rechinfo);
    answers.AnswerYes = false;
    stage.Run("Keys_M");
    stage.Take_Form("keys", Dialog::Keys);
}

void Records_And_Tables(const QString& pictures) {
    PictureStage stage(pictures, "plain/demo1.tv5");
    stage.Show(Tab::Record);
    stage.Run("Command23");
    stage.Run("Command23");
    stage.Take_Window("record");
    stage.Run("Command24");
    stage.Run("Command5");
    AutoPik& picking = stage.Program().AutomaticPicking;
    picking.ReplaceHand = true;
    picking.Frequency = "100";
    picking.Frequency_Changed();
    picking.MinAmplitude = "0.02";
    picking.Set_Start(1, 12);
    stage.Take_Window("automatic_picking_window");
    stage.Take_Form("automatic_picking", Dialog::AutoPik);
    stage.Run("Command5");
    stage.Run("Undo_M");
    stage.Show(Tab::Tables);
    stage.Take_Window("tables");
    stage.Show(Tab::Curves);
    stage.Take_Window("curves_before");
    stage.Take_Control("toolbar", "Toolbar1");

    Session& line = stage.Program();
    stage.Run("VelCalcul");
    const auto velocity = [&](const char* shot, const char* layer, const char* from, const char* to) {
        line.Speed.Shot = shot;
        line.Speed.Shot_Changed();
        line.Speed.Layer = layer;
        line.Speed.Layer_Changed();
        line.Speed.FirstReceiver = from;
        line.Speed.LastReceiver = to;
        line.Speed.Command5();
        PictureStage::Settle();
    };
    line.Speed.ThroughShot = true;
    velocity("2", "1", "1", "4");
    Save_Velocity_And_Go_On(line);
    line.Speed.ThroughShot = false;
    velocity("2", "2", "5", "9");
    stage.Take_Window("velocity_window");
    stage.Take_Form("velocity", Dialog::SpeedF);
    Save_Velocity_And_Go_On(line);
    velocity("2", "3", "10", "24");
    Save_Velocity_And_Go_On(line);
    stage.Close(Dialog::SpeedF);

    stage.Run("Vel2name");
    line.TrueSpeed.FirstShot = "2";
    line.TrueSpeed.LastShot = "4";
    line.TrueSpeed.FirstReceiver = "10";
    line.TrueSpeed.LastReceiver = "15";
    line.TrueSpeed.Command2();
    stage.Take_Window("true_velocity_window");
    stage.Take_Form("true_velocity", Dialog::SpeedF2);
    stage.Close(Dialog::SpeedF2);

    stage.Run("VelCalName");
    stage.Take_Form("hand_velocity", Dialog::SpeedF3);
    stage.Close(Dialog::SpeedF3);

    stage.Run("v_r");
    line.RulerVelocities.Velocity1 = "600";
    line.RulerVelocities.Velocity2 = "1600";
    line.RulerVelocities.Dip = "1";
    line.RulerVelocities.compute_dip();
    stage.Take_Form("velocity_ruler", Dialog::vELINE);
    stage.Close(Dialog::vELINE);

    stage.Run("dipc");
    line.Dip.Velocity1 = "600";
    line.Dip.UpDip = "1672";
    line.Dip.DownDip = "1534";
    line.Dip.Calcul_dip();
    stage.Take_Form("dip", Dialog::dip);
    stage.Close(Dialog::dip);

    stage.Run("PhantomName");
    line.Phantom.FixedShot = "2";
    line.Phantom.MovingShot = "1";
    line.Phantom.Pair_Changed();
    line.Phantom.Slide_To(14);
    stage.Take_Window("phantom_window");
    stage.Close(Dialog::FantomF);

    stage.Run("QuickInterpretation");
    line.Quick.Shot = "2";
    line.Quick.Shot_Changed();
    line.Quick.LayerCount = "3";
    line.Quick.Layers_Changed();
    QuickLimits knees{};
    knees[2][1] = 16;
    knees[2][2] = 36;
    line.Quick.Take_Limits(knees);
    stage.Take_Window("quick_window");
    stage.Close(Dialog::quick_interpret);

    stage.Run("erase");
    stage.Take_Form("time_break", Dialog::Erase_TT);
    stage.Close(Dialog::Erase_TT);

    stage.Run("ZZ");
    stage.Take_Form("zoom", Dialog::Zoom);
    stage.Close(Dialog::Zoom);
    stage.Run("ruler2");
    stage.Take_Form("ruler", Dialog::RulerF);
    stage.Close(Dialog::RulerF);
    stage.Run("History_M");
    stage.Take_Form("history", Dialog::History, 120);
    stage.Close(Dialog::History);
    stage.Run("headerx");
    stage.Take_Form("header_editor", Dialog::Header);
    stage.Close(Dialog::Header);
    stage.Run("Rezize_M");
    stage.Take_Form("su_utility", Dialog::rezize);
    stage.Close(Dialog::rezize);
    stage.Run("Fldrec");
    stage.Take_Form("trace_numbers", Dialog::Update_FLDR);
    stage.Close(Dialog::Update_FLDR);
    stage.Run("SideBySide_M");
    stage.Take_Window("side_by_side");
    stage.Run("SideBySide_M");
}

void Interpreted_Line(const QString& pictures) {
    PictureStage stage(pictures, "interpreted/demo1.tv5");
    Session& line = stage.Program();
    stage.Show(Tab::Curves);
    stage.Take_Window("curves");
    stage.Run("VelCalcul");
    line.Speed.Shot = "2";
    line.Speed.Shot_Changed();
    line.Speed.Layer = "2";
    line.Speed.FirstReceiver = "5";
    line.Speed.LastReceiver = "9";
    line.Speed.Command5();
    line.Outside.Show.Open_Dialog(Dialog::confirm, false);
    stage.Take_Form("record_data", Dialog::confirm);
    stage.Close(Dialog::confirm);
    stage.Close(Dialog::SpeedF);
    stage.Run("IT_Compute");
    line.Depths.Display_Shot(3);
    line.Depths.Command1();
    stage.Take_Window("depth_window");
    stage.Take_Form("depth", Dialog::Fcalcul);
    stage.Close(Dialog::Fcalcul);
    line.Work.Velocity.CurrentShot = 2;
    stage.Run("theoric");
    line.Theoretic.Take_Model();
    line.Theoretic.LineType = 1;
    line.Theoretic.Command2();
    stage.Take_Window("theoretic_window");
    stage.Close(Dialog::Theoric_F);
    stage.Run("Print_Comput");
    line.Results.Date = day;
    stage.Take_Form("results", Dialog::resu);
    stage.Close(Dialog::resu);
    stage.Run("BI_M");
    line.Work.Fields.Status.clear();
    stage.Take_Window("curves_and_profile");
    stage.Run("S2");
    line.Work.Fields.Status.clear();
    stage.Take_Window("profile");
    stage.Run("Command13");
    stage.Take_Window("section");
    line.Report.ShownChoice = 1;
    line.Report.View.Choices.Date = day;
    line.Report.Shown_Chosen();
    stage.Take_Window("report");
    stage.Take_Modal("save_picture", "Export_M", Dialog::PictureExport);
    line.Report.ShownChoice = 0;
    line.Report.Shown_Chosen();
    stage.Show(Tab::Curves);
    stage.Run("Double");
    stage.Take_Form("second_window", Dialog::Travel_Time_2);
    stage.Run("Double");
}

void Undulating_Line(const QString& pictures) {
    PictureStage stage(pictures, "undulating/demo2.tv5");
    Session& line = stage.Program();
    stage.Run("DTDetName");
    line.Delay.FixedLeft = "2";
    line.Delay.FixedRight = "3";
    line.Delay.MovingLeft = "1";
    line.Delay.MovingRight = "4";
    line.Delay.Shots_Changed();
    line.Delay.Shift(DelayF::Handle::LeftCurve, 20);
    line.Delay.Shift(DelayF::Handle::RightCurve, 24);
    line.Delay.Set_Total_Time(94.5);
    stage.Take_Window("delay_times_window");
    stage.Close(Dialog::DelayF);
    stage.Run("S3");
    line.Work.Fields.Status.clear();
    stage.Take_Window("abc_profile");
    line.Outside.Show.Open_Dialog(Dialog::ABCGridF, false);
    stage.Take_Form("abc", Dialog::ABCGridF);
    stage.Close(Dialog::ABCGridF);
    stage.Run("TT_Mnu");
    stage.Run("GRM_mnu");
    line.GrmAnalysis.Minimum = "2";
    line.GrmAnalysis.Maximum = "16";
    line.GrmAnalysis.Command1();
    stage.Take_Window("grm_window");
    stage.Close(Dialog::GRM);
    line.Outside.Show.Open_Dialog(Dialog::GRM_depth, false);
    stage.Take_Form("grm_depth", Dialog::GRM_depth);
    stage.Close(Dialog::GRM_depth);
}

void Tools(const QString& pictures) {
    Take_Tool("conversion", pictures, "conversion", {"356", "line/demo1.su"});
    Take_Tool("enhancement", pictures, "reverse", {"interpreted/demo1.tv5"});
    Take_Tool("spectrum", pictures, "SUSPECTRE",
              {"f=interpreted/demo1.su", "ftr=49", "ltr=72", "fpt=1", "lpt=500"});
    Take_Tool("record_sheets", pictures, "suprint2", {"412"});
    Take_Tool("line_sheet", pictures, "tvmprint", {"412"});
    Take_Tool("joined_profiles", pictures, "TVProfile", {"interpreted/demo1.tv5", "undulating/demo2.tv5"});
    Take_Tool("merge_files", pictures, "merge_file", {"plain/demo1.su", "interpreted/demo1.su"});
    Take_Tool("csv_files", pictures, "add_csv", {"plain/demo1.csv", "interpreted/demo1.csv"});
}

/// Text of a cell of a Markdown table.
std::string Cell(std::string text) {
    for (std::size_t at = 0; (at = text.find('|', at)) != std::string::npos; at += 2)
        text.insert(at, "\\");
    return text;
}

std::string Keys_As_Markdown() {
    std::string page;
    std::string place;
    for (const KeyRow& row : Key_List()) {
        if (row.Place != place) {
            place = row.Place;
            page += "\n## " + place + "\n\n| Key or gesture | What it does |\n|:-----|:----------|\n";
        }
        page += "| **" + Cell(row.Keys) + "** | " + Cell(row.Meaning) + " |\n";
    }
    return page;
}

int Make_All(const QString& work, const QString& pictures) {
    QDir().mkpath(pictures);
    if (!QDir::setCurrent(work)) throw std::runtime_error("there is no folder " + work.toStdString());
    Without_Line(pictures);
    Records_And_Tables(pictures);
    Interpreted_Line(pictures);
    Undulating_Line(pictures);
    Tools(pictures);
    const std::string reason = Replace_File(pictures.toStdString() + "/key_list.md", Keys_As_Markdown());
    if (!reason.empty()) throw std::runtime_error("key_list.md cannot be written: " + reason);
    return 0;
}

}  // namespace

}  // namespace tarnvik

int main(int argc, char** argv) {
    // What the platform without a screen has to remark is of no use to who builds the manual.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argc, argv);
    QApplication::setStyle("fusion");
    if (argc != 3) {
        std::cerr << "make_manual_pictures WORK PICTURES\n";
        return 2;
    }
    QTimer::singleShot(tarnvik::longest_ms, [] {
        std::cerr << "make_manual_pictures: a dialog waits for an answer\n";
        std::_Exit(1);
    });
    try {
        return tarnvik::Make_All(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    } catch (const std::exception& fault) {
        std::cerr << "make_manual_pictures: " << fault.what() << "\n";
        return 1;
    }
}
