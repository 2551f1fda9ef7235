#pragma once

#include <QString>

#include "core/ports/launcher.h"

namespace tarnvik {

/// Programs and documents by the means of the desktop.
class QtLauncher : public Launcher {
  public:
    int Start(const std::string& program, const std::string& arguments, const std::string& folder) override;
    int Open_Document(const std::string& path) override;
    int Edit_Text(const std::string& path) override;
    std::string Find_Program(const std::string& extension) override;
    std::string Program_Folder() const override;
    std::string Decimal_Separator() const override;
    void Set_Decimal_Point() override;
    void Register_File_Type() override;

    /// Full path of a tool: as given, without its ".exe", in lower case, in the program's folder or on the
    /// search path; empty when it is nowhere.
    static QString Find_Tool(const QString& program, const QString& program_folder);

  private:
    bool PointSet = false;
};

}  // namespace tarnvik
