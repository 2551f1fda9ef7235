#pragma once

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include "core/ports/prompts.h"

namespace tarnvik {

/// Questions and messages on the screen.
class QtPrompts : public Prompts {
  public:
    /// Window that the boxes stand over.
    void Set_Parent(QWidget* parent);

    Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) override;
    std::string Input(const std::string& prompt, const std::string& title,
                      const std::string& initial) override;
    std::string Open_File(const FileRequest& request) override;
    std::vector<std::string> Open_Files(const FileRequest& request) override;
    std::string Save_File(const FileRequest& request) override;
    std::optional<Colour> Choose_Colour(Colour initial) override;
    std::optional<std::string> Choose_Font(const std::string& initial) override;

  private:
    QWidget* Owner() const;
    /// The path, and its folder remembered.
    std::string Chosen(const QString& path);
    QPointer<QWidget> Parent;
    QPointer<QWidget> InUse;  ///< window that had the keys last
    QString LastFolder;       ///< of the file that was chosen last
};

/// "Seismic Unix (SU)|*.SU|All files|*.*|" as the file dialog takes it; each pattern holds in upper and lower
/// case.
QStringList File_Filters(const std::string& filter);

}  // namespace tarnvik
