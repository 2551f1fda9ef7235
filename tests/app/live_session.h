#pragma once

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "app/session.h"
#include "app/session_display.h"
#include "core/files.h"
#include "support/recording_picture.h"
#include "support/test_ports.h"

namespace tarnvik::test {

/// The display of a session as the window has it, on recording pictures: what is asked for is really drawn.
class LiveDisplay : public SessionDisplay {
  public:
    Picture& Canvas_Of(Canvas canvas) override { return Pictures[canvas]; }
    void Show_Marks(Canvas, MarkLayer, std::vector<Mark>) override {}
    void Select_Tab(Tab tab) override { Selected = tab; }
    void Open_Dialog(Dialog dialog, bool) override {
        Open.insert(dialog);
        Opened.push_back(dialog);
    }
    void Close_Dialog(Dialog dialog) override { Open.erase(dialog); }
    void Bring_To_Front(Dialog) override {}
    bool Is_Open(Dialog dialog) const override { return Open.contains(dialog); }
    bool Print_Page(Page) override { return true; }
    std::string Save_Page(Page page, const std::string& path, const PictureFormat& format) override {
        SavedPages.push_back(path);
        LastPage = page;
        LastFormat = format;
        return {};
    }
    std::string Copy_Page(Page page, const PictureFormat& format) override {
        Copied.push_back(page);
        LastFormat = format;
        return {};
    }
    void Choose_Printer() override { ++PrinterChosen; }
    void End_Program() override { ++Ended; }

    void Forget() { Done.clear(); }
    int Count(const std::string& what) const {
        const auto found = Done.find(what);
        return found == Done.end() ? 0 : found->second;
    }

    Page LastPage = Page::Curves;
    PictureFormat LastFormat;
    std::map<Canvas, RecordingPicture> Pictures;
    std::map<std::string, int> Done;  ///< what was drawn or refreshed, and how often
    std::set<std::pair<int, int>> Cells;
    std::set<Dialog> Open;
    std::vector<Dialog> Opened;
    std::vector<std::string> SavedPages;
    std::vector<Page> Copied;
    Tab Selected = Tab::Record;
    int PrinterChosen = 0;
    int Ended = 0;

  protected:
    void Draw_Curves() override {
        ++Done["curves"];
        SessionDisplay::Draw_Curves();
    }
    void Draw_Record() override {
        ++Done["record"];
        SessionDisplay::Draw_Record();
    }
    void Draw_Profile() override {
        ++Done["profile"];
        SessionDisplay::Draw_Profile();
    }
    void Refresh_Grids() override { ++Done["grids"]; }
    void Refresh_Fields() override { ++Done["fields"]; }
    void Refresh_Cell(int row, int column) override {
        ++Done["cell"];
        Cells.insert({row, column});
    }
};

/// A session over the demo line, copied to a folder of its own.
struct LiveWorld {
    LiveWorld() {
        Display.Attach(Program);
        for (const char* name : {"demo1.tv5", "demo1.su"})
            EXPECT_EQ(Copy_File(std::string(TARNVIK_DEMO_FOLDER) + "/" + name, Folder / name), "");
    }

    TemporaryFolder Folder;
    ScriptedPrompts Prompts;
    LiveDisplay Display;
    RecordingLauncher Launcher;
    Session Program{{Prompts, Display, Launcher}, Folder / "Tarnvik32.INI"};
    Project& Line = Program.Work.Project;
    std::string Path = Folder / "demo1.tv5";
};

class LiveSession : public ::testing::Test, protected LiveWorld {};

}  // namespace tarnvik::test
