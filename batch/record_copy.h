#pragma once

#include <cstdint>
#include <string>

namespace tarnvik {

/// File that takes the picks of a run which leaves the field file as it is: a copy of the user's choice, or
/// a temporary file that goes with this object.
class RecordCopy {
  public:
    /// Whole copy of the field file, to stay.
    RecordCopy(const std::string& records, const std::string& copy);
    /// Temporary file of the same length that holds the first header and one record, all else holes, so that
    /// a line of any length is picked at once.
    RecordCopy(const std::string& records, std::int64_t first_trace, std::int64_t last_trace);
    ~RecordCopy();
    RecordCopy(const RecordCopy&) = delete;
    RecordCopy& operator=(const RecordCopy&) = delete;

    const std::string& Path() const { return Name; }
    /// Why it could not be made; empty when it could.
    const std::string& Reason() const { return Why; }

  private:
    std::string Name;
    std::string Why;
    bool Temporary = false;
};

}  // namespace tarnvik
