#pragma once

#include <string>

#include "core/edits/journal.h"

namespace tarnvik {

class Session;

/// Offers the work that killed programs left in their journals, newest first: at the start all of it, and
/// after the opening of `project_file` that of this project alone. Yes opens the project and brings its edits
/// back as edits that can be undone, No puts the journal away for good, and a box that is closed leaves it
/// for the next time. True when a project was brought back. The start leaves out `opened_next`, whose opening
/// asks by itself.
bool Offer_Lost_Work(Session& session, const std::string& opened_next = {});
bool Offer_Lost_Work_Of(Session& session, const std::string& project_file);

/// "<file> : the program ended at ...", the question above.
std::string Lost_Work_Question(const JournalContent& journal);

/// The journals lie beside the settings.
std::string Journal_Folder(const std::string& settings_file);

}  // namespace tarnvik
