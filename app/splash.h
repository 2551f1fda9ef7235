#pragma once

#include <string>
#include <vector>

#include "app/recent_projects.h"

namespace tarnvik {

class Session;

/// The start dialog with its six buttons. Each Command answers true when the dialog is to close.
class frmSplash {
  public:
    explicit frmSplash(Session& session) : Owner(session) {}

    /// Texts of the dialog: version, product name, name of the last file.
    void Load();

    bool Command1();  ///< "Start a new profile"
    bool Command2();  ///< "Read a travel time TV5 file"
    bool Command3();  ///< "Start Tarnvik"
    bool Command4();  ///< "Read User Manual"
    bool Command5();  ///< "Display " and the last file
    bool Command6();  ///< "END Tarnvik ..."
    /// One of the projects shown.
    bool Open_Recent(std::size_t place);
    bool Open_Demo(std::size_t place);

    std::string lblVersion;
    std::string lblProductName;
    std::string Command5Caption;
    bool HasLastFile = false;  ///< the last file is still there
    std::string Command6Caption;
    std::vector<ProjectGlimpse> Recent;  ///< recent projects that are there
    std::vector<ProjectGlimpse> Demos;   ///< lines to try the program on

  private:
    Session& Owner;
};

}  // namespace tarnvik
