#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

enum class SectionOutput { Metafile, Jpg, Clipboard };

/// Name that the picture file of a section of that source has beside its project: "_abc" or "_grm" behind the
/// project's name, "._p" for depths below the shots. Empty for the clipboard.
std::string Section_Picture_File(const std::string& project_file, SectionSource source, SectionOutput output);

/// The coloured section that stands as a metafile or a JPG picture, whose name the user chooses and whose
/// size he is told, or on the clipboard. Tells when that fails; a file that stood there stays then.
/// `report`: the page of a report stands in its place, and its files have "_report" behind the project's
/// name.
void olectra_print(Workspace& workspace, Ports& ports, SectionOutput output, const PictureFormat& format,
                   bool report = false);

}  // namespace tarnvik
