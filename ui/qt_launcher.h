#pragma once

#include <QPointer>
#include <QWidget>

#include "core/ports/launcher.h"

namespace tarnvik {

class HelpWindow;

/// Programs and documents by the means of the desktop.
class QtLauncher : public Launcher {
  public:
    /// Window that the progress of a run stands over.
    void Set_Parent(QWidget* parent) { Parent = parent; }

    int Start(const std::string& program, const std::string& arguments, const std::string& folder) override;
    bool Has_Tool(const std::string& program) const override;
    ToolResult Run_In_Order(const std::vector<ToolCommand>& commands, const std::string& folder,
                            const ToolProgress& progress) override;
    int Open_Document(const std::string& path) override;
    int Edit_Text(const std::string& path) override;
    std::string Find_Program(const std::string& extension) override;
    std::string Program_Folder() const override;
    std::string Documents_Folder() const override;
    std::string Decimal_Separator() const override;
    void Set_Decimal_Point() override;
    void Register_File_Type() override;

  private:
    QPointer<QWidget> Parent;
    QPointer<HelpWindow> Help;  ///< where the desktop has no program for pages
    bool PointSet = false;
};

}  // namespace tarnvik
