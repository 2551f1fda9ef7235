#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "core/workspace.h"
#include "processing/su_chain.h"
#include "processing/su_scan.h"

namespace tarnvik {

/// Dialog rezize, "SU file utility": makes a new SU file of another one, with a shorter recording time,
/// another number of samples or fewer channels. The file that it is made of stays as it is.
class rezize {
  public:
    rezize(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    /// The form opens: the project's SU file, or the one that Make_Of has named, is looked at.
    void Load();
    /// Shows the dialog modally for a file that is about to be loaded; it closes by itself when a new file
    /// has been made. Answers that file, empty when there is none.
    std::string Make_Of(const std::string& su_file);

    void Command1();  ///< "Input file": asks for it
    void Input_Typed();
    void Command2();  ///< "Output file": asks for it
    void Command3();  ///< "GO !": makes the new file in the way of the page in sight

    /// One of the two was typed: the other follows, so that the length of the record stays.
    void Samples_Typed();
    void Interval_Typed();

    enum class Page { Time, Samples, Channels };
    int SSTab1 = 0;

    std::string Text1;   ///< input file
    std::string Text2;   ///< output file
    std::string Text8;   ///< new recording time, ms
    std::string Text14;  ///< new number of samples
    std::string Text16;  ///< new sample interval, ms
    std::string Text9;   ///< first channel to keep
    std::string Text10;  ///< and the last one
    std::string OriginalTime;
    std::string OriginalSamples;
    std::string OriginalInterval;
    std::string OriginalChannels;
    TextGrid Records;  ///< a row for each record: number, channels, time, samples
    std::string Hint;

  private:
    /// What is to be run, and how it is told.
    struct Plan {
        std::string Refusal;
        std::string Tool;
        std::vector<std::string> Arguments;
        std::string Text;     ///< for the log
        std::string Edit;     ///< name of the edit
        std::string Closing;  ///< begin of the closing message
    };
    bool Take_Up(const std::string& path);
    void Show_Scan();
    void Show_Records();
    std::string Output_Refusal() const;
    Plan Plan_Of_Page() const;
    Plan Plan_Time() const;
    Plan Plan_Samples() const;
    Plan Plan_Channels() const;
    void Run(const Plan& plan);
    void Say(const std::string& text, Icon icon = Icon::Critical);

    Workspace& Work;
    Ports& Outside;
    SuScan Scan;
    std::string Shown;   ///< the file that Scan is of
    std::string Wanted;  ///< to be looked at when the form opens
    std::string Agreed;  ///< a file that may be replaced
    std::string Made;    ///< made last, while the dialog serves a loading
    bool ServesLoading = false;
};

}  // namespace tarnvik
