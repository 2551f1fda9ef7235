#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/text_grid.h"

namespace tarnvik {

enum class Icon { None, Critical, Question, Warning, Information };
/// SaveDiscardCancel and RenumberKeepCancel answer Yes, No or Cancel; OpenCancel ("Open anyway") answers Ok
/// or Cancel. A box that is closed answers Cancel where it has it, otherwise No or Ok.
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, SaveDiscardCancel, OpenCancel, RenumberKeepCancel };
enum class Answer { Ok, Cancel, Yes, No };

/// A file dialog. Filters stand as in "Seismic Unix (SU)|*.SU|All files|*.*|".
struct FileRequest {
    std::string Title;
    std::string Filter;
    std::string DefaultName;
    std::string Directory;
};

/// All questions and messages of the program. The logic never shows a box by itself.
class Prompts {
  public:
    virtual ~Prompts() = default;

    virtual Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) = 0;
    /// Text typed by the user; empty when the box was cancelled.
    virtual std::string Input(const std::string& prompt, const std::string& title,
                              const std::string& initial) = 0;
    /// Path chosen; empty when the dialog was cancelled.
    virtual std::string Open_File(const FileRequest& request) = 0;
    /// Paths chosen, several at once where the platform can; none when the dialog was cancelled.
    virtual std::vector<std::string> Open_Files(const FileRequest& request) {
        std::string path = Open_File(request);
        return path.empty() ? std::vector<std::string>() : std::vector{std::move(path)};
    }
    virtual std::string Save_File(const FileRequest& request) = 0;
    virtual std::optional<Colour> Choose_Colour(Colour initial) = 0;
    /// Name of the font chosen; nothing when the dialog was cancelled.
    virtual std::optional<std::string> Choose_Font(const std::string& initial) = 0;

    /// Message with an OK button.
    void Say(const std::string& text, const std::string& title, Icon icon = Icon::None) {
        Message(text, title, icon, Buttons::Ok);
    }
    bool Ask_Yes(const std::string& text, const std::string& title, Icon icon = Icon::Question) {
        return Message(text, title, icon, Buttons::YesNo) == Answer::Yes;
    }
};

}  // namespace tarnvik
