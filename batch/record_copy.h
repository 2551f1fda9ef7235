#pragma once

#include <cstdint>
#include <string>

namespace tarnvik {

/// File that takes the picks of a run which leaves the field file as it is. It goes with this object, unless
/// it is kept under the name that the user gave.
class RecordCopy {
  public:
    /// Whole copy of the field file, beside the name that it is to be kept under.
    RecordCopy(const std::string& records, const std::string& copy);
    /// Temporary file of the same length that holds the first header and one record, all else holes, so that
    /// a line of any length is picked at once.
    RecordCopy(const std::string& records, std::int64_t first_trace, std::int64_t last_trace);
    ~RecordCopy();
    RecordCopy(const RecordCopy&) = delete;
    RecordCopy& operator=(const RecordCopy&) = delete;

    /// Puts the copy under its name, over what stood there. Answers the reason of a failure.
    std::string Keep();
    const std::string& Path() const { return Name; }
    /// Why it could not be made; empty when it could.
    const std::string& Reason() const { return Why; }

  private:
    bool Make(const std::string& pattern);
    std::string Name;  ///< of the file as long as it is temporary
    std::string Kept;  ///< under which it is to stay
    std::string Why;
    bool Temporary = false;
};

}  // namespace tarnvik
