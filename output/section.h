#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "output/section_sources.h"
#include "traveltime/file_routines.h"

namespace tarnvik {

/// The user asks for the coloured section: the elevations typed beside the profile are taken (those that are
/// not typed are Fitting_Elevations), a difference above 90 is asked about, the project is saved, and the
/// source that the main depth label names makes its grid, which goes to the project's ".dat" file and onto
/// the section's tab. Answers whether a grid stands.
bool Command13(Workspace& workspace, Ports& ports, const FileRoutines& files);

/// The parts of it for a run without a screen: question and grid, nothing saved or written.
bool Make_Section(Workspace& workspace, Ports& ports, SectionElevations between);

/// The same without a question: warnings are passed over. Answers why no section is possible, empty when one
/// stands.
std::string Make_Section_Unasked(Workspace& workspace, Ports& ports, SectionElevations between);

/// Makes the section that stands anew, of its own source and between its own elevations, after an option or
/// the line has changed. Asks nothing: a warning that the user has passed over already is passed over again.
/// Answers why it is no longer possible, the section being gone then.
std::string Make_Section_Again(Workspace& workspace, Ports& ports);

/// "Compute mini and maximum elevation": shows them in the fields beside the profile, which is drawn between
/// them at once where it stands.
void Command19(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
