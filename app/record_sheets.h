#pragma once

#include <array>
#include <string>
#include <vector>

#include "output/sheets/paper_choice.h"
#include "output/sheets/sheet_source.h"

namespace tarnvik {

class Session;

/// "all", or numbers and ranges such as "1-4, 7": the records they mean of `count`, rising, each once. False
/// for other words and for numbers beyond the count, which `fault` tells about.
bool Read_Record_List(const std::string& text, int count, std::vector<int>& records, std::string& fault);

/// Field records on sheets of paper, one or several on each, drawn by the routine of the screen. The files
/// are only read.
class RecordSheets : public SheetSource {
  public:
    explicit RecordSheets(Session& session);

    /// Records beside each other and above each other on a page, by Grid.
    struct Cells {
        const char* Name;
        int Columns;
        int Rows;
    };
    static constexpr std::array grids = {
        Cells{"1", 1, 1},         Cells{"2 side by side", 2, 1}, Cells{"2 above each other", 1, 2},
        Cells{"4 (2 x 2)", 2, 2}, Cells{"6 (3 x 2)", 3, 2},      Cells{"6 (2 x 3)", 2, 3},
        Cells{"9 (3 x 3)", 3, 3}, Cells{"12 (4 x 3)", 4, 3}};

    // Fields of the form.
    std::string Records = "all";
    int Grid = 0;   ///< position in grids
    int Style = 0;  ///< RecordStyle
    std::string Gain = "1";
    std::string Agc = "0";  ///< ms
    std::string FirstSample;
    std::string LastSample;
    bool Clip = false;
    bool Equalise = false;
    bool Negative = false;
    bool Picks = true;
    bool TravelTimes = false;
    bool Header = true;
    PaperChoice Paper;
    std::string Title;
    std::string Outcome;  ///< what there is on how many pages, or what is wrong

    /// Takes up the records of a line (`file` may be a copy of project `name`), drawn as that line was looked
    /// at last. What is wrong is told.
    void Open_Line(const std::string& file, const std::string& name);
    /// An SU file without a project, or a project, by its ending.
    void Open_File(const std::string& path);
    void Choose_File();
    /// A field was changed.
    void Changed();

    const std::vector<Sheet>& Sheets() const override { return All; }
    std::string Refusal() const override { return Reason; }
    bool May_Draw() override;
    std::string File_Name() const override;
    std::string Folder() const override;
    std::vector<std::string> Sources() const override;
    /// The records on the pages, in their order.
    const std::vector<int>& Chosen() const { return Numbers; }
    std::string File_Text() const;

  private:
    void Take_Up(const std::string& su_file);
    void Apply_Look();
    std::string Find_Fault();
    void Lay_Out();
    void Add_Record(Sheet& sheet, int record, const SheetArea& cell);
    void Draw_Record(int record, Picture& main, Picture& strip_x, Picture& strip_y);
    void Draw_Caption(int record, Picture& picture) const;
    void Draw_Head(const std::string& text, const std::string& right, Picture& picture) const;
    void Recall();
    void Remember() const;

    Session& Program;
    std::string SuFile;  ///< empty while none is open
    std::string Line;    ///< project file; empty for records alone
    std::string Reason = "No records are open";
    std::vector<int> Numbers;
    std::vector<Sheet> All;
};

}  // namespace tarnvik
