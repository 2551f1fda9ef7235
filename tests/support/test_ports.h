#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/ports/ports.h"
#include "support/recording_picture.h"
#include "support/scripted_prompts.h"

namespace tarnvik::test {

/// Display that lists the requests by name and gives each canvas a recording picture.
class RecordingDisplay : public Display {
  public:
    Picture& Canvas_Of(Canvas canvas) override { return Pictures[canvas]; }
    void Show_Marks(Canvas canvas, MarkLayer layer, std::vector<Mark> marks) override {
        Marks[{canvas, layer}] = std::move(marks);
    }
    void Show_Curves() override {
        Calls.emplace_back("Show_Curves");
        if (OnShowCurves) OnShowCurves();
    }
    void Display_Record() override {
        Calls.emplace_back("Display_Record");
        if (OnDisplayRecord) OnDisplayRecord();
    }
    void Show_Profile() override {
        Calls.emplace_back("Show_Profile");
        if (OnShowProfile) OnShowProfile();
    }
    void Show_Grids() override { Calls.emplace_back("Show_Grids"); }
    void Show_Fields() override { Calls.emplace_back("Show_Fields"); }
    void Show_Cell(int row, int column) override {
        Calls.push_back("Show_Cell " + std::to_string(row) + " " + std::to_string(column));
    }
    void Repaint_Page(Page page) override {
        Calls.push_back("Repaint_Page " + std::to_string(static_cast<int>(page)));
    }
    void Hold_Redraws() override {}
    void Release_Redraws() override {}
    void Select_Tab(Tab tab) override {
        Calls.push_back("Select_Tab " + std::to_string(static_cast<int>(tab)));
    }
    void Open_Dialog(Dialog dialog, bool modal) override {
        Calls.emplace_back(modal ? "Open_Dialog modal" : "Open_Dialog");
        Opened.push_back(dialog);
        if (!modal) Open.push_back(dialog);
    }
    void Close_Dialog(Dialog dialog) override {
        Calls.emplace_back("Close_Dialog");
        std::erase(Open, dialog);
    }
    void Bring_To_Front(Dialog dialog) override { InFront.push_back(dialog); }
    bool Is_Open(Dialog dialog) const override {
        return std::find(Open.begin(), Open.end(), dialog) != Open.end();
    }

    bool Print_Page(Page) override {
        Calls.emplace_back("Print_Page");
        return Printable;
    }
    std::string Save_Page(Page, const std::string& path, const PictureFormat&) override {
        Calls.push_back("Save_Page " + path);
        return {};
    }
    void Choose_Printer() override { Calls.emplace_back("Choose_Printer"); }
    void End_Program() override { Calls.emplace_back("End_Program"); }

    int Count(const std::string& call) const {
        return static_cast<int>(std::count(Calls.begin(), Calls.end(), call));
    }

    std::map<Canvas, RecordingPicture> Pictures;
    std::map<std::pair<Canvas, MarkLayer>, std::vector<Mark>> Marks;
    std::vector<std::string> Calls;
    std::vector<Dialog> Opened;
    std::vector<Dialog> Open;
    std::vector<Dialog> InFront;
    std::function<void()> OnShowCurves;
    std::function<void()> OnDisplayRecord;
    std::function<void()> OnShowProfile;
    bool Printable = true;
};

/// Launcher that lists what would be started; Result is what each start returns.
class RecordingLauncher : public Launcher {
  public:
    int Start(const std::string& program, const std::string& arguments, const std::string& folder) override {
        Started.push_back(program + "|" + arguments + "|" + folder);
        return Result;
    }
    bool Has_Tool(const std::string& program) const override { return std::ifstream(program).good(); }
    ToolResult Run_In_Order(const std::vector<ToolCommand>& commands, const std::string&,
                            const ToolProgress& progress) override {
        ToolResult result;
        for (const ToolCommand& command : commands) {
            result.Cancelled = progress && !progress(result.Done, command);
            if (result.Cancelled) return result;
            Ran.push_back(command);
            if (OnRun) result.Failure = OnRun(command);
            result.Missing = result.Failure.ends_with(" is not found");
            if (!result.Failure.empty()) return result;
            ++result.Done;
        }
        return result;
    }
    int Open_Document(const std::string& path) override {
        Started.push_back(path);
        return Result;
    }
    int Edit_Text(const std::string& path) override {
        Started.push_back("editor|" + path);
        return Result;
    }
    std::string Find_Program(const std::string&) override { return Program; }
    std::string Program_Folder() const override { return Folder; }
    std::string Documents_Folder() const override { return Documents; }
    std::string Decimal_Separator() const override { return Separator; }
    void Set_Decimal_Point() override { Separator = "."; }
    void Register_File_Type() override { ++Registered; }

    std::vector<std::string> Started;
    std::vector<ToolCommand> Ran;
    std::function<std::string(const ToolCommand&)> OnRun;  ///< answers the failure of the tool
    int Result = 33;
    std::string Program = "viewer";
    std::string Folder = ".";
    std::string Documents = ".";
    std::string Separator = ".";
    int Registered = 0;
};

/// All ports of a test in one.
struct TestPorts {
    ScriptedPrompts Prompts;
    RecordingDisplay Display;
    RecordingLauncher Launcher;
    tarnvik::Ports Ports{Prompts, Display, Launcher};
};

/// A folder of its own for each test, removed at its end.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarnvik-test-XXXXXX").string();
        Path = mkdtemp(pattern.data()) != nullptr ? pattern : std::string();
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        if (!Path.empty()) std::filesystem::remove_all(Path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::string operator/(const std::string& name) const { return Path + "/" + name; }
    std::string Path;
};

}  // namespace tarnvik::test
