#pragma once

#include <string>
#include <variant>
#include <vector>

namespace tarnvik {

/// A named or (with an empty name) positional argument of an automation call.
struct AutomationArgument {
    std::string Name;
    std::variant<bool, double, std::string> Value;
};

/// One call on an automation object, or the setting of one of its properties.
struct AutomationStep {
    bool Sets = false;   ///< puts the one argument into the property
    std::string Object;  ///< name of an earlier step's result; the first one is the program's own object
    std::string Member;  ///< method or property, with those before it by points ("Overlays.Item")
    std::vector<AutomationArgument> Arguments;
    std::string Result;  ///< name that the object answered is known by from now on; empty for none
};

/// What a program that is run through its automation object gets to do.
struct AutomationRun {
    std::string Program;  ///< "Company.Application"
    std::string Object;   ///< name of its object in the steps
    std::vector<AutomationStep> Steps;
};

/// How it went.
struct AutomationResult {
    bool Found = false;   ///< the program is there
    std::string Failure;  ///< which step failed and how; empty when all went well
};

/// What a Launcher can do besides on a platform whose programs have automation objects; the others are no
/// Automation.
class Automation {
  public:
    virtual ~Automation() = default;

    /// Drives a program through its automation object, step by step until one fails.
    virtual AutomationResult Automate(const AutomationRun& run) = 0;
};

}  // namespace tarnvik
