#include "core/settings_file.h"

#include <cmath>
#include <filesystem>
#include <limits>
#include <system_error>

#include "core/fault.h"
#include "core/files.h"
#include "core/language.h"
#include "core/profile_text.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t usual_length = 50;  // characters asked for at most
constexpr std::size_t current_file_length = 90;
constexpr std::size_t recent_file_length = 100;
constexpr const char* default_project = "C:\\TARNVIK\\DATA\\DEMO1\\DEMO1.TV5";

constexpr std::array<const char*, 5> recent_keys = {"File 1", "File 2", "File 3", "File 4", "File 5"};
constexpr std::array<const char*, 4> recent_defaults = {default_project, "C:\\TARNVIK\\DATA\\DEMO4\\5010.TV5",
                                                        "C:\\TARNVIK\\DATA\\THEORIC\\THEORIC2.TV5",
                                                        "C:\\TARNVIK\\DATA\\2SPREAD\\PB5.TV5"};
constexpr std::array<const char*, 5> velocity_keys = {"Velocity 1", "Velocity 2", "Velocity 3", "Velocity 4",
                                                      "Velocity 5"};
constexpr std::array<const char*, 5> velocity_defaults = {"500", "1000", "2000", "3000", "4000"};
constexpr std::array<const char*, 6> colour_keys = {"Color 1", "Color 2", "Color 3",
                                                    "Color 4", "Color 5", "Color 6"};
constexpr std::array<const char*, 6> colour_defaults = {"&H00FF0000&", "&H00FFC0C0&", "&H000080FF&",
                                                        "&H00FF00FF&", "&H000000FF&", "&H00000040&"};

/// Values of the settings file as the program wants them. A number too large for its place is a Fault.
class SettingsReader {
  public:
    explicit SettingsReader(std::string_view bytes) : File(bytes) {}

    std::string Text(const char* section, const char* key, const std::string& start,
                     std::size_t length = usual_length) const {
        const std::string bytes = File.Value(section, key).value_or(To_Windows_1252(start));
        return From_Windows_1252(Left(bytes, length));
    }
    double Number(const char* section, const char* key, const char* start) const {
        return Val(Text(section, key, start));
    }
    std::int16_t Whole(const char* section, const char* key, const char* start) const {
        return CInt_Or_Fault(Number(section, key, start));
    }
    float Single(const char* section, const char* key, const char* start) const {
        const double value = Number(section, key, start);
        if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
            throw Fault("value does not fit single precision");
        }
        return static_cast<float>(value);
    }
    Colour Hue(const char* section, const char* key, const char* start) const {
        return CLng_Or_Fault(Number(section, key, start));
    }

  private:
    ProfileText File;
};

/// One key after the other in their fixed order; a fault leaves those behind it as they are.
void Read_All(const SettingsReader& file, Workspace& workspace) {
    Project& project = workspace.Project;
    Settings& settings = workspace.Settings;
    project.CurrentFile = file.Text("DROMO", "File", default_project, current_file_length);
    project.ProjectDir = file.Text("tarnvik", "Repertoire", "C:\\Tarnvik\\");
    settings.ColorScaleFile = file.Text("tarnvik", "ColorScale", "C:\\Tarnvik\\default.lvl");
    workspace.Fields.Text19 = settings.ColorScaleFile;
    Add_Language(settings, file.Text("tarnvik", "Langue", "E"));
    // The default is a word and counts as 0: backups begin when the user ticks them, not at a first start.
    settings.BackupEnabled = file.Whole("tarnvik", "Backup", "True");
    settings.FbpDataFile = file.Text("FBP", "Data", "C:\\Tarnvik6\\data\\demo.evd");
    settings.Units = file.Text("tarnvik", "Units", "meters");
    settings.FontName = file.Text("tarnvik", "Police", "ARIAL");
    project.GeoSpace = file.Number("tarnvik", "GeoSpace", "5");
    settings.FbpFormat = file.Text("tarnvik", "FBP", "EVD");
    project.NbReceivers = file.Whole("Array", "Receiver", "24");
    project.NbShots = file.Whole("Array", "Shot", "5");
    settings.ShotSpace = file.Number("Array", "Space", "10");
    for (std::size_t i = 0; i < settings.RecentFiles.size(); ++i) {
        // The last one has no default of its own and takes the value of the one before.
        const std::string start =
            i < recent_defaults.size() ? recent_defaults[i] : settings.RecentFiles[i - 1];
        settings.RecentFiles[i] = file.Text("File", recent_keys[i], start, recent_file_length);
    }
    settings.MultiScreen = file.Number("Display", "Screen", "1") != 0;
    settings.ColorChoice = file.Number("Color", "Choix", "0") != 0;
    for (std::size_t i = 0; i < settings.ColorLimits.size(); ++i) {
        settings.ColorLimits[i] = file.Number("Color", velocity_keys[i], velocity_defaults[i]);
    }
    for (std::size_t i = 0; i < settings.ClassColor.size(); ++i) {
        settings.ClassColor[i] = file.Hue("Color", colour_keys[i], colour_defaults[i]);
    }
    settings.VelocityLineColor = file.Hue("Color", "Color Line", "&H00FF0000&");
    // The key has two blanks; with one it is another key, which stays unread.
    settings.VelocityLineWidth = file.Whole("Color", "Line  width", "2");
    settings.PaperScaleX = file.Single("Paper", "Distance", "1");
    settings.PaperScaleY = file.Single("Paper", "Time", "1");
}

void Repair(Settings& settings) {
    if (!(settings.PaperScaleX > 0)) settings.PaperScaleX = 1;
    if (!(settings.PaperScaleY > 0)) settings.PaperScaleY = 1;
    if (settings.VelocityLineWidth == 0) settings.VelocityLineWidth = 1;
}

std::string Flag_Text(bool flag) {
    return flag ? "-1" : "0";
}

void Set_All(ProfileText& file, const Workspace& workspace, const std::string& program_folder) {
    const Project& project = workspace.Project;
    const Settings& settings = workspace.Settings;
    const auto set = [&file](const char* section, const char* key, const std::string& value) {
        file.Set(section, key, To_Windows_1252(value));
    };
    set("DROMO", "File", project.CurrentFile);
    set("DROMO", "SU", project.SuFile);
    set("tarnvik", "Repertoire", project.ProjectDir);
    set("tarnvik", "ColorScale", settings.ColorScaleFile);
    set("tarnvik", "Langue", Language_Letter(settings));
    set("tarnvik", "Backup", CStr(settings.BackupEnabled));
    set("FBP", "Data", settings.FbpDataFile);
    set("FBP", "Dir", project.ProjectDir);
    set("FBP", "FirstBreak", program_folder + static_cast<char>(fs::path::preferred_separator));
    set("tarnvik", "Units", settings.Units);
    set("tarnvik", "Police", settings.FontName);
    set("tarnvik", "Name", settings.UserName);
    set("tarnvik", "GeoSpace", CStr(project.GeoSpace));
    set("Array", "Receiver", CStr(project.NbReceivers));
    set("Array", "Shot", CStr(project.NbShots));
    set("Array", "Space", CStr(settings.ShotSpace));
    for (std::size_t i = 0; i < recent_keys.size(); ++i)
        set("File", recent_keys[i], settings.RecentFiles[i]);
    set("Display", "Screen", settings.MultiScreen ? "1" : "0");
    set("Color", "Choix", Flag_Text(settings.ColorChoice));
    for (std::size_t i = 0; i < velocity_keys.size(); ++i)
        set("Color", velocity_keys[i], CStr(settings.ColorLimits[i]));
    for (std::size_t i = 0; i < colour_keys.size(); ++i)
        set("Color", colour_keys[i], CStr(settings.ClassColor[i]));
    set("Color", "Color Line", CStr(settings.VelocityLineColor));
    set("Color", "Line  width", CStr(settings.VelocityLineWidth));
    set("Paper", "Distance", CStr(settings.PaperScaleX));
    set("Paper", "Time", CStr(settings.PaperScaleY));
    set("TV11", "Nombre_Version", "1");
}

/// Replaces the settings file, making its folder at the first time.
std::string Replace_Settings(const std::string& path, const ProfileText& file) {
    const std::string folder = Folder_Of(path);
    std::error_code failed;
    if (!folder.empty()) fs::create_directories(fs::path(folder), failed);
    return Replace_File(path, file.Text());
}

}  // namespace

void Read_Settings(Workspace& workspace, Ports& ports, const std::string& path) {
    bool failed = false;
    try {
        Read_All(SettingsReader({}), workspace);
        // The language flags are only ever raised by reading, so the default must not stand beside another.
        Settings& settings = workspace.Settings;
        const auto content = Read_File(path);
        failed = !content && File_Exists(path);
        if (content) {
            settings.LangEnglish = 0;
            Read_All(SettingsReader(*content), workspace);
        }
    } catch (const Fault&) {
        failed = true;
    }
    Repair(workspace.Settings);
    if (failed)
        ports.Ask.Say(std::string("File ") + settings_file_name + " error", workspace.AppTitle,
                      Icon::Critical);
}

bool Write_Settings(const Workspace& workspace, Ports& ports, const std::string& path) {
    const auto content = Read_File(path);
    std::string reason;
    if (!content && File_Exists(path)) {
        // Other programs' keys could not be kept.
        reason = "the file cannot be read";
    } else {
        ProfileText file(content.value_or(""));
        Set_All(file, workspace, ports.Launch.Program_Folder());
        reason = Replace_Settings(path, file);
    }
    if (reason.empty()) return true;
    ports.Ask.Say("The settings cannot be written to " + path + ": " + reason, workspace.AppTitle,
                  Icon::Warning);
    return false;
}

std::string Write_Setting(const std::string& path, const std::string& section, const std::string& key,
                          const std::string& value) {
    const auto content = Read_File(path);
    if (!content && File_Exists(path)) return "the file cannot be read";
    ProfileText file(content.value_or(""));
    file.Set(section, key, To_Windows_1252(value));
    return Replace_Settings(path, file);
}

std::string Read_Setting(const std::string& path, const std::string& section, const std::string& key) {
    const auto content = Read_File(path);
    if (!content) return {};
    return From_Windows_1252(ProfileText(*content).Value(section, key).value_or(""));
}

void Ask_For_Backup_Copies(Workspace& workspace, Ports& ports) {
    const bool wanted =
        ports.Ask.Ask_Yes("Would you make a backup copy of your TV5 files ?", workspace.AppTitle);
    workspace.Settings.BackupEnabled = wanted ? -1 : 0;
    ports.Ask.Say(wanted ? "Backup copy enable" : "No Backup copy", workspace.AppTitle);
}

}  // namespace tarnvik
