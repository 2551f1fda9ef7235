#pragma once

#include "core/ports/picture.h"
#include "output/colour_scale.h"
#include "output/report_scale.h"
#include "output/report_view.h"

namespace tarnvik {

/// What the size of the page comes from: the picture and the choices. On paper the section has its true
/// scale.
ReportRoom Room_Of_Report(const Workspace& workspace, const ReportView& view,
                          const std::vector<ReportModel>& models, const Picture& picture, bool on_paper);

/// Draws the page: layers filled, velocities, interfaces with their arcs and errors, ground, geophones, shots
/// with their numbers, axes and title block. World coordinates of the picture are distances and elevations,
/// beyond the frame too. Answers how it is laid out.
ReportFrame Draw_Report(const Workspace& workspace, const ReportView& view, const ColourScale& scale,
                        Picture& picture, bool on_paper);

/// Colour of a method's lines.
Colour Method_Colour(SectionSource source);

/// The title block under a page whose layout is `frame`: line, company, scale, key of the methods shown, date
/// and north arrow.
void Draw_Title_Block(const Workspace& workspace, const ReportView& view,
                      const std::vector<ReportModel>& models, const ReportFrame& frame, Picture& picture);

}  // namespace tarnvik
