#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tarnvik {

/// One tool to run and to wait for.
struct ToolCommand {
    std::string Program;
    std::vector<std::string> Arguments;  ///< each as it stands, blanks and all
    std::string InputFile;               ///< read as standard input; empty for none
    std::string OutputFile;  ///< takes standard output, when the tool has ended well; empty for none
};

/// How a list of tools ended.
struct ToolResult {
    std::size_t Done = 0;  ///< commands that ended well, in order
    bool Cancelled = false;
    bool Missing = false;  ///< the tool that failed could not even be started
    std::string Failure;   ///< which tool failed and how, with its own words; empty when all went well
    bool Went_Well() const { return Failure.empty() && !Cancelled; }
};

/// Told before each command (its place from 0) and again while it runs; false stops the run.
using ToolProgress = std::function<bool(std::size_t place, const ToolCommand& command)>;

/// Programs and documents outside this one, and the places where they lie.
class Launcher {
  public:
    virtual ~Launcher() = default;

    /// Starts a program by the verb "open" without waiting for it. Below 32 it failed. A tool "X.exe" is also
    /// found as "X".
    virtual int Start(const std::string& program, const std::string& arguments,
                      const std::string& folder) = 0;
    /// True when Start would find this program.
    virtual bool Has_Tool(const std::string& program) const = 0;
    /// Runs tools one after the other in a working folder, until one fails or the run is stopped. A tool that
    /// is stopped or fails leaves the file of its output as it was.
    virtual ToolResult Run_In_Order(const std::vector<ToolCommand>& commands, const std::string& folder,
                                    const ToolProgress& progress) = 0;
    /// Opens a document with whatever the desktop opens its type with. Below 32 it failed.
    virtual int Open_Document(const std::string& path) = 0;
    /// Opens a text file of any type with the desktop's text editor ("Notepad"). Below 32 it failed.
    virtual int Edit_Text(const std::string& path) = 0;
    /// Program that the desktop opens files of this extension ("PDF") with; empty when there is none.
    virtual std::string Find_Program(const std::string& extension) = 0;

    /// Folder of the program and its tools, without a separator behind it.
    virtual std::string Program_Folder() const = 0;
    /// Where the user keeps documents, without a separator behind it.
    virtual std::string Documents_Folder() const = 0;
    /// Decimal separator of the user's locale.
    virtual std::string Decimal_Separator() const = 0;
    /// Makes the point the decimal separator where the platform lets a program do so.
    virtual void Set_Decimal_Point() = 0;
    /// Ties the ".tv5" type to this program on the user's desktop.
    virtual void Register_File_Type() = 0;
};

/// Results of Launcher below this one are failures.
inline constexpr int launch_failure_below = 32;

}  // namespace tarnvik
