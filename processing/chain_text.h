#pragma once

#include <string>
#include <vector>

namespace tarnvik {

// The command lines of the chain as text, for the log beside the SU file. They are run from lists of
// arguments, so that blanks in paths do no harm; what is noted here is the line that a user would type.
// `tools` is the folder of the tools without a separator behind it.

/// Traces marked live alone.
std::string Rewrite_Text(const std::string& tools, const std::string& marked, const std::string& su_file);

/// Two lines: channels first to last, and their channels from 1 on.
std::string Extract_Text(const std::string& tools, const std::string& su_file, const std::string& between,
                         const std::string& out_file, int first, int last, int count);

/// Samples at 1 ms.
std::string Resample_Text(const std::string& tools, const std::string& su_file, const std::string& out_file,
                          int samples);

// The three ways of making a file of another size. Blanks are taken out of the paths, as users know the text.

/// Recording time from 0 to `tmax` seconds.
std::string Time_Text(const std::string& tools, const std::string& input, const std::string& output,
                      const std::string& tmax);
/// `samples` samples at `interval` seconds.
std::string Samples_Text(const std::string& tools, const std::string& input, const std::string& output,
                         const std::string& samples, const std::string& interval);
/// Channels first to last, under their numbers.
std::string Channels_Text(const std::string& tools, const std::string& input, const std::string& output,
                          int first, int last);

/// Which records are stacked.
struct StackPlan {
    int First = 1;
    int Last = 2;
    int Records = 2;   ///< of the file
    int Channels = 0;  ///< of a record
};
std::string Stack_Text(const std::string& tools, const std::string& folder, const std::string& su_file,
                       const StackPlan& plan);

/// Takes blanks away around the separators of a composed text, and sets one behind ".su", by a table whose
/// rows are applied in their order. Blanks in paths suffer too, which is why it is done for the log alone.
std::string Cleaned_Up(std::string text);
/// The same for the lines of extracting and resampling: double blanks, and those beside "=".
std::string Tightened(std::string text);

/// Appends a text with the time to the log beside an SU file. False when it cannot be written.
bool Note_In_Log(const std::string& su_file, const std::string& text);
/// Name of that log.
std::string Log_Of(const std::string& su_file);

}  // namespace tarnvik
