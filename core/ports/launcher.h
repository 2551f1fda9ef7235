#pragma once

#include <string>

namespace tarnvik {

/// Programs and documents outside this one, and the places where they lie.
class Launcher {
  public:
    virtual ~Launcher() = default;

    /// Starts a program by the verb "open" without waiting for it. Below 32 it failed. A tool "X.exe" is also
    /// found as "X".
    virtual int Start(const std::string& program, const std::string& arguments,
                      const std::string& folder) = 0;
    /// Opens a document with whatever the desktop opens its type with. Below 32 it failed.
    virtual int Open_Document(const std::string& path) = 0;
    /// Opens a text file of any type with the desktop's text editor ("Notepad"). Below 32 it failed.
    virtual int Edit_Text(const std::string& path) = 0;
    /// Program that the desktop opens files of this extension ("PDF") with; empty when there is none.
    virtual std::string Find_Program(const std::string& extension) = 0;

    /// Folder of the program and its tools, without a separator behind it.
    virtual std::string Program_Folder() const = 0;
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
