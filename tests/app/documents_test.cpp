#include "app/documents.h"

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "app/commands.h"
#include "app/dialog_rows.h"
#include "session_fixture.h"

namespace tarnvik::test {

namespace {

constexpr std::string_view manual = TARNVIK_MANUAL_SOURCES;

std::string Text_Of(const std::string& name) {
    std::ifstream file(std::string(manual) + "/" + name);
    EXPECT_TRUE(file.good()) << name;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Each match of a pattern with one group.
std::set<std::string> All_Of(const std::string& text, const std::string& pattern) {
    std::set<std::string> found;
    const std::regex wanted(pattern);
    for (std::sregex_iterator at(text.begin(), text.end(), wanted), end; at != end; ++at)
        found.insert((*at)[1]);
    return found;
}

/// The chapters in the order of the book, as the build takes them.
std::set<std::string> Chapters() {
    const std::string build = Text_Of("CMakeLists.txt");
    const auto from = build.find("set(TARNVIK_CHAPTERS") + std::string_view("set(TARNVIK_CHAPTERS").size();
    return All_Of(build.substr(from, build.find(')', from) - from), "(\\w+)");
}

/// Places in a chapter that a link may lead to: named ones, and headings as the manual's tool names them.
std::set<std::string> Places_In(const std::string& text) {
    std::set<std::string> places = All_Of(text, "\\{#([\\w-]+)\\}");
    for (const std::string& heading : All_Of(text, "\n##+ ([^\n{]+)\n")) {
        std::string id;
        for (const char letter : heading) {
            if (letter == ' ') id += '-';
            if (std::isalnum(static_cast<unsigned char>(letter)) != 0)
                id += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        }
        places.insert(id);
    }
    return places;
}

}  // namespace

class Documents : public SessionTest {
  protected:
    Documents() {
        World.Launcher.Folder = Folder / "bin";
        std::filesystem::create_directory(World.Launcher.Folder);
    }
    void Put(const std::string& name) {
        const std::filesystem::path path = Folder / name;
        std::filesystem::create_directories(path.parent_path());
        ASSERT_EQ(Replace_File(path.string(), "document"), "");
    }
    /// Name of the document that the command opened; empty when it opened none.
    std::string Opened_By(const char* command) {
        World.Launcher.Started.clear();
        Run_Command(Program, command);
        if (World.Launcher.Started.empty()) return {};
        return std::filesystem::path(World.Launcher.Started.back())
            .lexically_normal()
            .string()
            .substr(Folder.Path.size() + 1);
    }
};

TEST_F(Documents, every_dialog_and_every_link_of_the_manual_leads_somewhere) {
    const std::set<std::string> chapters = Chapters();
    EXPECT_GT(chapters.size(), 40U);
    for (const DialogRow& row : Dialog_Rows())
        EXPECT_TRUE(chapters.contains(row.Chapter)) << row.Title << ": " << row.Chapter;
    for (const char* tab : {"record", "tables", "curves", "section"})
        EXPECT_TRUE(chapters.contains(tab)) << tab;

    const std::set<std::string> pictures =
        All_Of(Text_Of("make_manual_pictures.cpp"), "Take_\\w+\\(\"(\\w+)\"");
    std::map<std::string, std::set<std::string>> places;
    for (const std::string& chapter : chapters)
        places[chapter] = Places_In(Text_Of(chapter + ".md"));
    std::set<std::string> names = chapters;
    names.insert({"tour", "redpath", "history"});
    for (const std::string& name : names) {
        const std::string text = Text_Of(name + ".md");
        for (const std::string& link : All_Of(text, "\\]\\(([^)]+)\\)")) {
            if (link.starts_with("pictures/")) {
                EXPECT_TRUE(pictures.contains(link.substr(9, link.size() - 13))) << name << ": " << link;
                continue;
            }
            const auto end = link.find(".html");
            const std::string chapter = link.substr(0, end);
            ASSERT_TRUE(chapters.contains(chapter)) << name << ": " << link;
            const auto place = link.find('#');
            if (place == std::string::npos) continue;
            EXPECT_TRUE(places[chapter].contains(link.substr(place + 1))) << name << ": " << link;
        }
    }
}

TEST_F(Documents, help_opens_the_chapter_or_else_the_whole_manual) {
    EXPECT_EQ(Opened_By("Help_M"), "");
    EXPECT_EQ(World.Prompts.Last_Text(), "You must install tv16.pdf");
    // As an installation lays them out.
    Put("share/doc/tarnvik/manual/tv16.pdf");
    EXPECT_EQ(Opened_By("Help_M"), "share/doc/tarnvik/manual/tv16.pdf") << "no page of the chapter";
    Put("share/doc/tarnvik/manual/html/record.html");
    EXPECT_EQ(Opened_By("Help_M"), "share/doc/tarnvik/manual/html/record.html");
    // What lies beside the program itself goes first.
    Put("bin/manual/html/record.html");
    EXPECT_EQ(Opened_By("Help_M"), "bin/manual/html/record.html");
    Put("share/doc/tarnvik/Tarnvik_History.pdf");
    EXPECT_EQ(Opened_By("WSH"), "share/doc/tarnvik/Tarnvik_History.pdf");
    // Nothing opens pages: the manual is tried, and its failure told.
    World.Launcher.Result = 2;
    Run_Command(Program, "Help_M");
    EXPECT_EQ(World.Prompts.Last_Text(), "Unable to shell viewer");
}

TEST_F(Documents, the_tour_is_pages_where_nothing_shows_slides) {
    Put("bin/manual/tarnvik.ppsx");
    Put("bin/manual/tarnvik_tour.pdf");
    EXPECT_EQ(Opened_By("pps"), "bin/manual/tarnvik.ppsx");
    std::filesystem::remove(Folder / "bin/manual/tarnvik.ppsx");
    EXPECT_EQ(Opened_By("pps"), "bin/manual/tarnvik_tour.pdf");
    World.Launcher.Program.clear();
    EXPECT_EQ(Opened_By("pps"), "");
    EXPECT_EQ(World.Prompts.Last_Text(), "You must install a POWER POINT viewer");
}

}  // namespace tarnvik::test
