#include "app/picture_export.h"

#include <algorithm>
#include <cmath>

#include "app/pages.h"
#include "app/session.h"
#include "core/files.h"
#include "core/settings_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr double millimetres_an_inch = 25.4;
constexpr double least_pixels = 64;
constexpr double most_pixels = 20000;
constexpr double most_area = 200e6;
constexpr double least_dpi = 30;
constexpr double most_dpi = 1200;
constexpr const char* section = "Picture export";
constexpr int own_size = static_cast<int>(PictureExport::sizes.size()) - 1;

std::string In_Tenths(double value) {
    return CStr(Rounded(value * 10) / 10);
}

/// The kinds of file, the one of the last time first: a name typed without an ending gets that.
std::string File_Kinds(const std::string& ending) {
    const std::array<std::pair<const char*, const char*>, 5> kinds = {
        {{".png", "PNG picture|*.png|"},
         {".svg", "SVG drawing|*.svg|"},
         {".pdf", "PDF document|*.pdf|"},
         {".wmf", "Windows metafile|*.wmf|"},
         {".jpg", "JPG picture|*.jpg;*.jpeg|"}}};
    std::string filter;
    for (const auto& [kind, text] : kinds)
        if (ending == kind) filter = text;
    for (const auto& [kind, text] : kinds)
        if (ending != kind) filter += text;
    return filter;
}

}  // namespace

double PictureExport::Pixels_Of(double value) const {
    return Millimetres ? value / millimetres_an_inch * Val(Dpi) : value;
}

double PictureExport::Typed_Width() const {
    return Rounded(Pixels_Of(Val(Width)));
}

double PictureExport::Typed_Height() const {
    return Rounded(Pixels_Of(Val(Height)));
}

bool PictureExport::Resolution_Is_Possible() const {
    return Val(Dpi) >= least_dpi && Val(Dpi) <= most_dpi;
}

bool PictureExport::Size_Is_Possible() const {
    const auto [low, high] = std::minmax({Typed_Width(), Typed_Height()});
    return Resolution_Is_Possible() && low >= least_pixels && high <= most_pixels && low * high <= most_area;
}

std::string PictureExport::Refusal() const {
    if (!Page_Can_Be_Drawn(Program, Chosen())) return "This picture is not drawn yet";
    if (!Resolution_Is_Possible()) {
        return "The resolution must be " + CStr(least_dpi) + " to " + CStr(most_dpi) + " pixels an inch";
    }
    if (!Size_Is_Possible()) {
        return "Width and height must be " + CStr(least_pixels) + " to " + CStr(most_pixels) +
               " pixels, 200 million together";
    }
    if (Is_Report(Program, Chosen())) {
        const PictureFormat format = Format();
        return Program.Report.Scale_Fault(format.Width_In_Millimetres(), format.Height_In_Millimetres());
    }
    return {};
}

PictureFormat PictureExport::Format() const {
    return {.Width = static_cast<int>(Typed_Width()),
            .Height = static_cast<int>(Typed_Height()),
            .Dpi = Val(Dpi),
            .TitleBlock = TitleBlock};
}

void PictureExport::Tell_Outcome() {
    Outcome = Refusal();
    if (Outcome.empty()) {
        const PictureFormat format = Format();
        const double inch = millimetres_an_inch / format.Dpi;
        Outcome = CStr(format.Width) + " x " + CStr(format.Height) + " pixels, " +
                  In_Tenths(format.Width * inch) + " x " + In_Tenths(format.Height * inch) + " mm on paper";
    }
    Program.Outside.Show.Show_Fields();
}

void PictureExport::Recall() {
    const std::string& file = Program.SettingsFile;
    if (file.empty() || Read_Setting(file, section, "Width").empty()) return;
    Width = Read_Setting(file, section, "Width");
    Height = Read_Setting(file, section, "Height");
    Dpi = Read_Setting(file, section, "Resolution");
    Millimetres = Read_Setting(file, section, "Unit") == "mm";
    TitleBlock = Read_Setting(file, section, "TitleBlock") == "1";
    Ending = Read_Setting(file, section, "Ending");
    Typed();
}

void PictureExport::Remember(const std::string& ending) {
    Ending = ending;
    const std::string& file = Program.SettingsFile;
    if (file.empty()) return;
    const std::pair<const char*, std::string> choices[] = {
        {"Width", Width},    {"Height", Height},
        {"Resolution", Dpi}, {"Unit", Millimetres ? "mm" : "px"},
        {"Ending", ending},  {"TitleBlock", TitleBlock ? "1" : "0"}};
    for (const auto& [key, value] : choices) {
        // Choices that are not remembered spoil nothing; the settings tell their own faults.
        if (!Write_Setting(file, section, key, value).empty()) return;
    }
}

Page PictureExport::In_Sight() const {
    const Page page = Page_On_Screen(Program);
    const bool record =
        Program.Outside.Show.Tab_In_Sight() == Tab::Record || !Page_Can_Be_Drawn(Program, page);
    return record && Page_Can_Be_Drawn(Program, Page::Record) ? Page::Record : page;
}

PictureFormat PictureExport::Usual_Format() {
    Recall();
    return Size_Is_Possible() ? Format() : PictureFormat();
}

void PictureExport::Open() {
    Recall();
    const Page page = In_Sight();
    Choice = static_cast<int>(std::find(pages.begin(), pages.end(), page) - pages.begin());
    Tell_Outcome();
    Program.Outside.Show.Open_Dialog(Dialog::PictureExport, true);
}

void PictureExport::Size_Chosen() {
    if (Size < 0 || Size >= own_size) return;
    const PictureSize& size = sizes[static_cast<std::size_t>(Size)];
    Width = CStr(size.Width);
    Height = CStr(size.Height);
    Millimetres = size.Millimetres;
    // Paper is looked at more closely than a screen.
    constexpr double paper_dpi = 300;
    constexpr double screen_dpi = 96;
    Dpi = CStr(size.Millimetres ? paper_dpi : screen_dpi);
    Tell_Outcome();
}

void PictureExport::Unit_Changed() {
    const double dpi = Val(Dpi);
    if (dpi > 0) {
        const double factor = Millimetres ? millimetres_an_inch / dpi : dpi / millimetres_an_inch;
        for (std::string* length : {&Width, &Height}) {
            const double value = Val(*length) * factor;
            *length = Millimetres ? In_Tenths(value) : CStr(Rounded(value));
        }
    }
    Typed();
}

void PictureExport::Typed() {
    Size = own_size;
    for (int size = 0; size < own_size; ++size) {
        const PictureSize& offered = sizes[static_cast<std::size_t>(size)];
        if (offered.Millimetres == Millimetres && Val(Width) == offered.Width &&
            Val(Height) == offered.Height) {
            Size = size;
        }
    }
    Tell_Outcome();
}

void PictureExport::Picture_Chosen() {
    Tell_Outcome();
}

void PictureExport::Save() {
    const Workspace& work = Program.Work;
    Prompts& ask = Program.Outside.Ask;
    const std::string refusal = Refusal();
    if (!refusal.empty()) {
        ask.Say(refusal, work.AppTitle, Icon::Warning);
        return;
    }
    std::string path = ask.Save_File(
        {"Save picture", File_Kinds(Ending), work.Project.ProjectName + Ending, work.Project.ProjectDir});
    if (path.empty()) return;
    if (Name_Of(path).find('.') == std::string::npos) {
        // The dialog asked about another name.
        path += Ending;
        if (File_Exists(path) && !ask.Ask_Yes(path + " already exists, overwrite ?", work.AppTitle)) return;
    }
    const std::string reason = Program.Outside.Show.Save_Page(Chosen(), path, Format());
    if (!reason.empty()) {
        ask.Say(path + " cannot be written: " + reason, work.AppTitle, Icon::Critical);
        return;
    }
    const std::string ending = LCase(path.substr(path.rfind('.')));
    const std::array offered = {".svg", ".pdf", ".wmf", ".jpg"};
    Remember(std::find(offered.begin(), offered.end(), ending) != offered.end() ? ending : ".png");
    Program.Outside.Show.Close_Dialog(Dialog::PictureExport);
}

void PictureExport::Cancel() {
    Program.Outside.Show.Close_Dialog(Dialog::PictureExport);
}

}  // namespace tarnvik
