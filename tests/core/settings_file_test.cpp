#include "core/settings_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/files.h"
#include "core/language.h"
#include "support/test_ports.h"

namespace tarnvik {

using test::TemporaryFolder;
using test::TestPorts;

namespace {

class SettingsFile : public testing::Test {
  protected:
    Workspace Read(const std::string& bytes) {
        EXPECT_EQ(Replace_File(Path, bytes), "");
        Workspace workspace;
        Read_Settings(workspace, Outside.Ports, Path);
        return workspace;
    }
    TemporaryFolder Folder;
    std::string Path = Folder / "Tarnvik/Tarnvik32.INI";
    TestPorts Outside;

    void SetUp() override { std::filesystem::create_directory(Folder / "Tarnvik"); }
};

}  // namespace

TEST_F(SettingsFile, AFirstStartWritesTheDefaultsInTheirOrder) {
    Workspace workspace;
    Read_Settings(workspace, Outside.Ports, Folder / "none/Tarnvik32.INI");
    Outside.Launcher.Folder = "/opt/tarnvik";
    ASSERT_TRUE(Write_Settings(workspace, Outside.Ports, Folder / "made/at once/Tarnvik32.INI"));
    EXPECT_EQ(Read_File(Folder / "made/at once/Tarnvik32.INI"),
              "[DROMO]\r\nFile=C:\\TARNVIK\\DATA\\DEMO1\\DEMO1.TV5\r\nSU=\r\n"
              "[tarnvik]\r\nRepertoire=C:\\Tarnvik\\\r\nColorScale=C:\\Tarnvik\\default.lvl\r\nLangue=E\r\n"
              "Backup=0\r\nUnits=meters\r\nPolice=ARIAL\r\nName=\r\nGeoSpace=5\r\n"
              "[FBP]\r\nData=C:\\Tarnvik6\\data\\demo.evd\r\nDir=C:\\Tarnvik\\\r\n"
              "FirstBreak=/opt/tarnvik/\r\n"
              "[Array]\r\nReceiver=24\r\nShot=5\r\nSpace=10\r\n"
              "[File]\r\nFile 1=C:\\TARNVIK\\DATA\\DEMO1\\DEMO1.TV5\r\n"
              "File 2=C:\\TARNVIK\\DATA\\DEMO4\\5010.TV5\r\n"
              "File 3=C:\\TARNVIK\\DATA\\THEORIC\\THEORIC2.TV5\r\n"
              "File 4=C:\\TARNVIK\\DATA\\2SPREAD\\PB5.TV5\r\n"
              "File 5=C:\\TARNVIK\\DATA\\2SPREAD\\PB5.TV5\r\n"
              "[Display]\r\nScreen=1\r\n"
              "[Color]\r\nChoix=0\r\nVelocity 1=500\r\nVelocity 2=1000\r\nVelocity 3=2000\r\n"
              "Velocity 4=3000\r\nVelocity 5=4000\r\nColor 1=16711680\r\nColor 2=16761024\r\n"
              "Color 3=33023\r\nColor 4=16711935\r\nColor 5=255\r\nColor 6=64\r\nColor Line=16711680\r\n"
              "Line  width=2\r\n"
              "[Paper]\r\nDistance=1\r\nTime=1\r\n"
              "[TV11]\r\nNombre_Version=1\r\n");
    EXPECT_TRUE(Outside.Prompts.Messages.empty());
}

TEST_F(SettingsFile, OtherKeysSectionsAndCommentsSurviveAWrite) {
    const std::string bytes =
        "; by hand\r\n[Other]\r\nFile=x\r\n\r\n[TARNVIK]\r\nunits = "
        "\"feet\"\r\nFBP=XYZ\r\nName=\xC9va\r\n\r\n"
        "[Color]\nLine width=7\n";
    Workspace workspace = Read(bytes);
    EXPECT_EQ(workspace.Settings.Units, "feet");
    EXPECT_FALSE(workspace.Settings.Metric());
    EXPECT_EQ(workspace.Settings.FbpFormat, "XYZ");
    EXPECT_EQ(workspace.Settings.VelocityLineWidth, 2) << "the key with one blank is another key";
    workspace.Settings.UserName = "\u00C9va";
    ASSERT_TRUE(Write_Settings(workspace, Outside.Ports, Path));
    const std::string written = Read_File(Path).value_or("");
    EXPECT_TRUE(written.starts_with(
        "; by hand\r\n[Other]\r\nFile=x\r\n\r\n[TARNVIK]\r\nUnits=feet\r\nFBP=XYZ\r\nName=\xC9va\r\n"
        "Repertoire="))
        << written;
    EXPECT_NE(written.find("\r\n\r\n[Color]\r\nLine width=7\r\nChoix="), std::string::npos);
    EXPECT_EQ(Write_Setting(Path, "DROMO", "SU", "/new.su"), "");
    EXPECT_NE(Read_File(Path)->find("\r\nSU=/new.su\r\n"), std::string::npos);
}

TEST_F(SettingsFile, ValuesAreCutRepairedAndTakenByTheirNumbers) {
    const Workspace workspace =
        Read("[DROMO]\nFile=" + std::string(200, 'a') + "\n[tarnvik]\nRepertoire=" + std::string(200, 'b') +
             "\nLangue=G\nBackup=-1\nGeoSpace=2.5 m\n[File]\nFile 1=" + std::string(200, 'c') +
             "\nFile 4=four\n[Display]\nScreen=0\n[Color]\nChoix=-1\nColor 1=&H10&\nLine  width=0\n"
             "[Paper]\nDistance=-2\nTime=0.1\n");
    EXPECT_EQ(workspace.Project.CurrentFile.size(), 90U);
    EXPECT_EQ(workspace.Project.ProjectDir.size(), 50U);
    EXPECT_EQ(workspace.Settings.RecentFiles[0].size(), 100U);
    EXPECT_EQ(workspace.Settings.RecentFiles[4], "four") << "the fifth repeats the fourth";
    EXPECT_EQ(Language_Letter(workspace.Settings), "G");
    EXPECT_EQ(workspace.Settings.LangEnglish, 0);
    EXPECT_EQ(workspace.Settings.BackupEnabled, -1);
    EXPECT_EQ(workspace.Project.GeoSpace, 2.5);
    EXPECT_FALSE(workspace.Settings.MultiScreen);
    EXPECT_TRUE(workspace.Settings.ColorChoice);
    EXPECT_EQ(workspace.Settings.ClassColor[0], 16);
    EXPECT_EQ(workspace.Settings.VelocityLineWidth, 1);
    EXPECT_EQ(workspace.Settings.PaperScaleX, 1);
    EXPECT_EQ(workspace.Settings.PaperScaleY, 0.1F);
}

TEST_F(SettingsFile, AFaultKeepsWhatWasReadAndTheDefaultsBehindIt) {
    const Workspace workspace =
        Read("[tarnvik]\nUnits=feet\n[Array]\nReceiver=48\nShot=99999\nSpace=7\n[Color]\nVelocity 1=1\n");
    EXPECT_EQ(Outside.Prompts.Last_Text(), "File Tarnvik32.INI error");
    EXPECT_EQ(workspace.Settings.Units, "feet");
    EXPECT_EQ(workspace.Project.NbReceivers, 48);
    EXPECT_EQ(workspace.Project.NbShots, 5);
    EXPECT_EQ(workspace.Settings.ShotSpace, 10);
    EXPECT_EQ(workspace.Settings.ColorLimits[0], 500);
    for (const char* bytes : {"", "[", "[]", "=\n]=[\n[Color\nChoix", "\xFF\xFE\0\0"})
        EXPECT_EQ(Read(bytes).Settings.Units, "meters");
}

TEST_F(SettingsFile, AnUnreadableOrUnwritableFileIsTold) {
    Workspace workspace;
    Read_Settings(workspace, Outside.Ports, Folder / "Tarnvik");  // a folder
    EXPECT_EQ(Outside.Prompts.Last_Text(), "File Tarnvik32.INI error");
    EXPECT_EQ(workspace.Settings.FontName, "ARIAL");
    EXPECT_FALSE(Write_Settings(workspace, Outside.Ports, Folder / "Tarnvik"));
    ASSERT_EQ(Replace_File(Folder / "file", ""), "");
    EXPECT_FALSE(Write_Settings(workspace, Outside.Ports, Folder / "file/below/Tarnvik32.INI"));
    EXPECT_EQ(Outside.Prompts.Messages.size(), 3U);
}

TEST_F(SettingsFile, OneLanguageIsChosenAndTheLastFlagIsWritten) {
    Settings settings;
    for (const char letter : {'F', 'S', 'G', 'I', 'E'}) {
        Set_Language(settings, letter);
        EXPECT_EQ(Language_Letter(settings), std::string(1, letter));
        EXPECT_EQ(settings.LangEnglish + settings.LangFrench + settings.LangSpanish + settings.LangGerman +
                      settings.LangItalian,
                  -1);
    }
    settings.LangGerman = settings.LangSpanish = -1;
    EXPECT_EQ(Language_Letter(settings), "G");
    Set_Language(settings, 'x');
    EXPECT_EQ(Language_Letter(settings), "G");
}

TEST_F(SettingsFile, BackupCopiesAreAskedFor) {
    Workspace workspace;
    for (const auto& [answer, text] :
         {std::pair(Answer::Yes, "Backup copy enable"), {Answer::No, "No Backup copy"}}) {
        Outside.Prompts.Expect("Would you make a backup copy of your TV5 files ?", answer);
        Ask_For_Backup_Copies(workspace, Outside.Ports);
        EXPECT_EQ(workspace.Settings.BackupEnabled, answer == Answer::Yes ? -1 : 0);
        EXPECT_EQ(Outside.Prompts.Last_Text(), text);
    }
}

}  // namespace tarnvik
