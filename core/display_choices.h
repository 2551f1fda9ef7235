#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnvik {

/// How the user likes to see each project: small values by name, kept in a text file beside the settings and
/// nowhere in the project. Nothing of it is an edit, and a line that is lost costs a click.
class DisplayChoices {
  public:
    /// From now on the choices are those of this file; Save writes them there. One that is missing or cannot
    /// be read counts as empty.
    void Keep_In(const std::string& path);
    bool Are_Kept() const { return !Path.empty(); }

    /// The value that a project has under a name; nothing where none was chosen. `project` is any text that
    /// tells projects apart, such as the path of its file.
    std::optional<std::string> Get(const std::string& project, const std::string& name) const;
    std::optional<double> Number(const std::string& project, const std::string& name) const;
    /// True when anything is known of the project.
    bool Knows(const std::string& project) const;
    /// Control characters have no place in the file and become blanks. Without a project nothing is kept.
    void Set(const std::string& project, const std::string& name, const std::string& value);
    void Set_Number(const std::string& project, const std::string& name, double value);

    /// Writes the file where something changed. Answers the reason of a failure, empty when it went well.
    std::string Save();

  private:
    using Values = std::map<std::string, std::string>;
    struct Section {
        std::string Project;
        Values Chosen;
    };
    const Section* Find(const std::string& project) const;
    void Parse(std::string_view text);

    std::string Path;
    std::vector<Section> Sections;  ///< the one changed last stands last
    bool Changed = false;
};

/// "Displays.txt" in the folder of the settings file.
std::string Display_Choices_File(const std::string& settings_file);

}  // namespace tarnvik
