#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "core/workspace.h"
#include "processing/header_change.h"
#include "processing/header_pass.h"
#include "processing/trace_count.h"

namespace tarnvik {

/// Dialog `Header`, "Header editor": shows and changes the words of the trace headers of any SU file, the
/// project's or another one. Everything that it writes is an edit; a longer one that is stopped or fails is
/// given up, so that the file is as it was before.
class Header {
  public:
    Header(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    std::string Texth1;          ///< SU file shown
    std::string Texth2 = "1";    ///< first trace of the grid
    std::string Texth3 = "120";  ///< last trace of the grid
    TextGrid FlexArray;  ///< a row for each trace, a column for each word; numbers of the traces in column 0
    std::string Hint;    ///< what there is to say about the file or what was typed
    std::string Status;  ///< how far a longer work is

    // Change of a single word.
    int Combo1 = -1;           ///< the word, from 0; -1 none chosen
    std::string Text2;         ///< first trace
    std::string Text3;         ///< last trace
    int Way = 0;               ///< place in ChangeWay
    std::string Text4;         ///< Check4: the value
    std::string Text9;         ///< Check7: the factor
    std::string Text7;         ///< Check6: start
    std::string Text10 = "1";  ///< Check6: increment
    std::string Text6;         ///< number of channels
    std::string Text5;         ///< file of values
    std::string Text8 = "1";   ///< Check3: lines from one shot to the next

    // Copy between two files.
    std::string Textc1;       ///< input file
    std::string Textc2;       ///< output file
    bool WholeHeader = true;  ///< Optionc1, otherwise Optionc2
    int Comboc1 = -1;         ///< the word, from 0; -1 none chosen
    bool Checkc1 = false;     ///< "Record a text file with values"

    void Load();         ///< the form opens: the project's SU file, if there is one
    void Choose_File();  ///< double click on Texth1
    void File_Typed();
    void Commandh1();  ///< "Display"
    /// As many traces as the grid holds, from this one on.
    void Show_From(int trace);
    void Command16();  ///< "<<<"
    void Command17();  ///< ">>>"
    bool Has_Previous() const { return FirstTrace > 1; }
    bool Has_Next() const { return LastTrace < NbTraces; }

    bool Editable(int row, int column) const;
    /// A whole number, an empty text counting as 0. False, with a hint, for a text that is none or has no
    /// room in its word; the cell keeps what it showed.
    bool Type(int row, int column, std::string_view text);
    /// The same for a block whose first cell is at (row, column): all of it or nothing. What reaches beyond
    /// the grid is left out.
    bool Paste(int row, int column, const std::vector<std::vector<std::string>>& cells);
    void Clear(int first_row, int first_column, int last_row, int last_column);
    /// What the column of the current cell is, for the line under the grid.
    std::string Word_Described(int column) const;
    /// True for the words that are read as floats and get whole numbers (72 to 78).
    static bool Takes_Integer_Into_Float(int column);
    bool Changed(int row, int column) const;  ///< has a grey background

    void Choose_Values();                               ///< double click on Text5
    void Command1(const TraceProgress& progress = {});  ///< "Write on file"

    void Check10(const TraceProgress& progress = {});  ///< trace numbers
    void Check8(const TraceProgress& progress = {});   ///< channel numbers
    void Check9(const TraceProgress& progress = {});   ///< field record numbers
    void Update_Velocities(const TraceProgress& progress = {});

    void Choose_Input();                                 ///< double click on Textc1
    void Choose_Output();                                ///< double click on Textc2
    void Commandc1(const TraceProgress& progress = {});  ///< "Copy"
    void Copy_All_Header(const std::string& input, const std::string& output,
                         const TraceProgress& progress = {});
    /// Word 1 to 90 of each trace, as it stands in the input.
    void Copy_one_word(int word, const TraceProgress& progress = {});

    // Spreadsheet.
    std::set<int> xText4;                                ///< words that go out, 1 to 90
    std::string xText2;                                  ///< first trace
    std::string xText3;                                  ///< last trace
    bool XCheck1 = true;                                 ///< all traces
    std::string LastSpreadsheet;                         ///< the one just made; empty while there is none
    void XCommand2(const TraceProgress& progress = {});  ///< "Load value in EXCEL"
    void Header_spreadsheet();                           ///< "Start Excel": opens the one just made

    // Geometry, and what is wrong with the headers.
    std::string scalco = "0";  ///< scale word of X and Y; 0 the coarsest that holds all values
    std::string scalel = "0";  ///< scale word of elevations, likewise
    std::string CheckText;
    void Command10(const TraceProgress& progress = {});  ///< "Transfer geometry header value to EXCEL"
    void Command11();                                    ///< "Transfer geometry PRN file into SU Header"
    void Check_File();

    void Command8();   ///< help on the spreadsheet
    void Command12();  ///< help on the geometry
    void Command9();   ///< help on the grid
    void Command4();   ///< help on the change of a word
    void Command5();   ///< help on the update of important words
    void Command7();   ///< help on copying

    /// Bytes of files have changed, by this dialog, by another one or by an undo.
    void Follow(const ChangeNotice& notice);

    /// Counts up whenever another file is shown or the headers of this one have changed.
    int Changes = 0;

    static constexpr int most_traces = 120;  ///< of the grid

  private:
    struct NewValue {
        std::int64_t Trace = 0;
        int Word = 0;
        double Value = 0;
    };
    std::string Chosen(const std::string& now);
    static std::string Foreign(const std::string& path);
    static std::string Room_Of(int word);
    void Show_File();
    void Show_Range(std::int64_t first, std::int64_t last);
    void lecture_data(std::int64_t first, std::int64_t last);
    void Affiche_grille();
    void Fill_Row(int row);
    void Read_Again();
    bool Take_Text(int row, int column, std::string_view text, std::vector<NewValue>& values);
    bool Write_Cells(const std::vector<NewValue>& values);
    std::string Refused_Text(int row, int column, const std::string& why) const;

    void Say(const std::string& text, Icon icon = Icon::None);
    void Tell_Error(int number, const std::string& what);
    bool Tell_Failed(const HeaderPass& pass, int word);
    TraceProgress Told(const TraceProgress& progress, const char* before, const char* between);
    /// A change of headers that is one edit.
    struct Pass {
        std::string Name;
        std::string Path;
        std::int64_t First = 1;
        std::int64_t Last = 0;
        ChangeOfHeader Change;
        bool LookFirst = false;
        int Word = 1;  ///< named where a value does not fit
    };
    std::string Target(const FileRequest& request, const std::string& ending);
    void Tell_Written(const std::string& path, const std::string& reason);
    bool Run(const Pass& work, const TraceProgress& progress);
    bool File_Refused(const char* missing, const char* empty);
    int Channels_Of_File() const;
    bool Number_All(const std::string& name, const std::function<void(std::int64_t, TraceHeader&)>& set,
                    const TraceProgress& progress);
    bool Range_Refused(std::int64_t& first, std::int64_t& last);
    bool Way_Refused(HeaderChange& change);
    bool Values_Refused(HeaderChange& change);

    struct CopyFiles {
        std::string Input;
        std::string Output;
    };
    std::int64_t Traces_To_Copy(const CopyFiles& files, const char* same_file, const char* other_count);
    bool Copy(const std::string& name, const CopyFiles& files, std::int64_t traces,
              const std::function<void(TraceHeader& to, const TraceHeader& from)>& copy,
              const TraceProgress& progress);

    Workspace& Work;
    Ports& Outside;
    std::string Shown;  ///< Texth1 as it was taken
    std::int64_t NbTraces = 0;
    std::int32_t SamplesShown = 0;  ///< ns of the file, as the grid was read by it
    std::int64_t FirstTrace = 1;
    std::int64_t LastTrace = 0;
    int ChannelsPerRecord = 0;             ///< as the user gave it for this file; 0 when the file tells it
    std::vector<TraceHeader> HeaderGrid;   ///< of traces FirstTrace to LastTrace
    std::vector<TraceHeader> AsDisplayed;  ///< the same, when they were last displayed
};

/// Entry of a word in the list of the copy, whose labels of words 81 to 90 are its own.
std::string Copy_Label(int word);

}  // namespace tarnvik
