#pragma once

#include <string>

#include "core/edits/edits.h"

namespace tarnvik {

/// A file of the user as it is to become, written under a hidden name beside it until it is whole. What was
/// not put in place goes with this object; after a kill the next start takes it away.
class FreshFile {
  public:
    FreshFile(Edits& edits, std::string path);
    ~FreshFile();
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;

    const std::string& Path() const { return Target; }   ///< of the user's file
    const std::string& Name() const { return Written; }  ///< to be written to
    /// Puts it in place as a part of the edit on hand. Answers why it could not be done.
    std::string Put();

  private:
    Edits& Owner;
    std::string Target;
    std::string Written;
};

/// A hidden folder for the files between the commands of a chain; it goes with this object.
class ChainFolder {
  public:
    /// In the folder of `beside`.
    ChainFolder(Edits& edits, const std::string& beside);
    ~ChainFolder();
    ChainFolder(const ChainFolder&) = delete;
    ChainFolder& operator=(const ChainFolder&) = delete;

    std::string operator/(const std::string& name) const { return Path + "/" + name; }
    /// Why it could not be made; empty when it could.
    const std::string& Reason() const { return Why; }
    /// Moves its files to another folder of the same disk, over what bears their names there. Answers why one
    /// could not be moved.
    std::string Move_All_To(const std::string& folder) const;

  private:
    Edits& Owner;
    std::string Path;
    std::string Why;
};

}  // namespace tarnvik
